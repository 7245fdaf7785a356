// The value collection base: facets kept for the items, and the reading of a run
// of item elements that stops at the first foreign one.
#include <gtest/gtest.h>

#include <vector>

#include "TestUtil.h"
#include "orvexxml/collections/XmlTypeCollection.h"
#include "orvexxml/frame/SmartPtr.h"
#include "orvexxml/xml/XmlDocument.h"

using namespace OrvexXmlLib5;

namespace {

// A collection of i4 values with the facets 1 to 9, as the typed collections build it.
class CSmallIntCol : public CXmlTypeCollection
{
public:
    CSmallIntCol()
        : CXmlTypeCollection(ItemType_i4, "n", "urn:t", 0, -1, "", -1, -1, "1", "9", "", "", -1,
                             CWhitespaceUtils::WhitespaceRule::Collapse, nullptr)
    {
    }
    int GetCount() const override { return static_cast<int>(items.size()); }
    void Clear() override { items.clear(); }
    void Remove(int index) override { items.erase(items.begin() + index); }
    void AddFromString(std::string text) override
    {
        OrvexVariant value;
        value.FromString(text, GetItemType(), GetWhitespaceRule());
        CheckPrimitiveRestriction(GetElementName().c_str(), value, GetItemType(), GetRestrictions());
        items.push_back(value.GetI4());
    }
    CXmlElement* Read(CXmlElement* first, const CXmlSerializationContext& context)
    {
        return FromXml_Int(nullptr, first, context, false);
    }
    std::vector<int> items;

protected:
    void ToXml_Int(CXmlWriter*, bool, const char*, const CXmlSerializationContext&, bool) const override {}
};

}  // namespace

TEST(XmlTypeCollection, ReadsTheRunOfMatchingSiblingsInItsNamespaceOnly)
{
    CXmlDocument doc;
    doc.LoadXml("<r xmlns='urn:t'><n> 1 </n><n>2</n><m>3</m><n>4</n></r>");
    CXmlSerializationContext strict, loose;
    loose.SetIgnoreNamespaces(true);
    CSmartPtr<CSmallIntCol> col(new CSmallIntCol());
    CXmlElement* next = col->Read(doc.GetDocumentElement()->GetFirstElement(), strict);
    ASSERT_NE(nullptr, next);
    EXPECT_EQ("m", next->GetLocalName());
    EXPECT_EQ(nullptr, col->Read(nullptr, strict));
    // Items in no namespace end the run unless namespaces are ignored.
    doc.LoadXml("<r><n>5</n><n>6</n></r>");
    CXmlElement* first = doc.GetDocumentElement()->GetFirstElement();
    EXPECT_EQ(first, col->Read(first, strict));
    EXPECT_EQ(nullptr, col->Read(first, loose));
    EXPECT_EQ((std::vector<int>{1, 2, 5, 6}), col->items);
}

TEST(XmlTypeCollection, BadItemFailsAndKeepsTheOnesBeforeIt)
{
    CXmlDocument doc;
    doc.LoadXml("<r xmlns='urn:t'><n>3</n><n>12</n><n>4</n></r>");
    CSmartPtr<CSmallIntCol> col(new CSmallIntCol());
    EXPECT_THROW_MSG(col->Read(doc.GetDocumentElement()->GetFirstElement(), CXmlSerializationContext()),
                     COrvexException, "Invalid Value for n [12]");
    EXPECT_EQ((std::vector<int>{3}), col->items);

    CSmartPtr<CSmallIntCol> copy(new CSmallIntCol(*col));
    EXPECT_EQ("9", copy->GetRestrictions().GetMaxInclusive());
}
