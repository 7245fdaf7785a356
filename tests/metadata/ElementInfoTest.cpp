// The element descriptor base and the cells' shared operations: matching, the
// namespace of new untyped content, facets, validation of the all group, writing.
#include <gtest/gtest.h>

#include "../frame/BindingShapes.h"
#include "TestUtil.h"
#include "orvexxml/xml/XmlTextWriter.h"

using namespace OrvexTest;

namespace {

// A cell made constructible for its operations other than reading, which it
// declines; the protected operations of the base opened for the tests.
template <typename Cell>
class CNoRead : public Cell
{
public:
    using Cell::Cell;
    using CElementInfo::GetAnyDefaultNamespace;
    bool ElementFromXml(const CXmlSerializationContext&, CXmlGeneratedClass*, CXmlElement*, CXmlElement**, const char*,
                        XmlElementType) override
    {
        return false;
    }
};
using COpenInfo = CNoRead<CElementInfoSeqPrimOpt>;
using CBareInfo = CNoRead<CElementInfoSeqCol>;  // the second constructor's fields left unset

// What one descriptor writes for owner inside a wrapper element, and its result.
std::string Written(const CElementInfo& info, const CXmlGeneratedClass* owner)
{
    CXmlTextWriter writer;
    writer.SetFormatted(false);
    writer.WriteStartElement("w", "");
    const bool result = info.ElementToXml(CXmlSerializationContext(), owner, &writer);
    writer.WriteEndElement();
    return writer.GetString() + (result ? " true" : " false");
}

}  // namespace

TEST(ElementInfo, AnyDefaultNamespaceByConstraint)
{
    struct Case { const char* constraint; const char* defaultNamespace; const char* expected; } cases[] = {
        {"##any", "urn:p", "urn:p"}, {"##other", "urn:p", ""}, {"##other", "", "DefaultNamespace"},
        {"##local", "urn:p", ""}, {"##targetNamespace", "urn:p", "urn:t"},
        {"##targetNamespace ##local", "urn:p", "urn:t"}, {"##any urn:a", "urn:p", "urn:p"},
        {"##bogus urn:a", "urn:p", ""}, {"urn:a urn:b", "urn:p", ""}, {"## ", "urn:p", ""}, {"", "urn:p", ""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(c.expected, COpenInfo::GetAnyDefaultNamespace(c.constraint, c.defaultNamespace, "urn:t"))
            << c.constraint;
}

TEST(ElementInfo, CheckRestrictionNeedsFacets)
{
    OrvexVariant value;
    value.SetI4(12);
    CBareInfo bare("n", "", 0);
    EXPECT_THROW_MSG(bare.CheckRestriction(value), COrvexException, "Cannot CheckRestriction for type: i4");
    COpenInfo bounded("n", "", 0, ItemType_i4, nullptr, Rule::Collapse,
                      CPrimitiveRestrictions("", -1, -1, "", "10", "", "", -1));
    EXPECT_THROW_MSG(bounded.CheckRestriction(value), COrvexException, "Invalid Value for n [12]");
    COpenInfo copy(bounded);
    value.SetI4(10);
    EXPECT_NO_THROW(copy.CheckRestriction(value));
}

TEST(ElementInfo, AllCollectionCountFailsAsTheBaseClassOnlyUnderAnElement)
{
    CPick owner;  // property 2 holds a line collection with at least one item
    CNoRead<CElementInfoAllClsCol> col("Line", "urn:t", 2, ElementType_Element);
    CXmlSerializationContext context, lenient;
    lenient.SetIgnoreInvalidCollectionCounts(true);
    EXPECT_THROW_MSG(col.Validate(context, &owner, false, true), COrvexException,
                     "The Minimum number of [Line] elements allowed in this collection is 1");
    EXPECT_FALSE(col.Validate(context, &owner, false, false));
    EXPECT_TRUE(col.Validate(lenient, &owner, false, true));
    owner.lines->Add();
    EXPECT_TRUE(col.Validate(context, &owner, false, true));
}

TEST(ElementInfo, SharedWritingOperations)
{
    CBag owner;  // P: i4, Q: string
    CElementInfoSeqPrimMnd* prim = new CTryPrimReader("P", "urn:t", 0, ItemType_i4, nullptr, Rule::Collapse,
                                                      CPrimitiveRestrictions("", -1, -1, "", "", "", "9", -1));
    CNoRead<CElementInfoAllEnumOpt> enumerated("E", "", 0, OrvexExamples::OrderStatusToString,
                                               OrvexExamples::OrderStatusFromString);
    CNoRead<CElementInfoChoiceClsCol> empty("Line", "urn:t", 2, ElementType_Element);
    CPick pick;
    // Invalid values write nothing, mandatory or not.
    EXPECT_EQ("<w/> false", Written(*prim, &owner));
    EXPECT_EQ("<w/> false", Written(enumerated, &owner));
    EXPECT_EQ("<w/> false", Written(empty, &pick));
    owner.p.SetI4(2);
    EXPECT_EQ("<w><AA:P xmlns:AA=\"urn:t\">2</AA:P></w> true", Written(*prim, &owner));
    owner.p.SetI4(1);
    EXPECT_EQ("<w><E>closed</E></w> true", Written(enumerated, &owner));
    owner.p.SetI4(9);
    EXPECT_THROW_MSG(Written(*prim, &owner), COrvexException, "Invalid Value for P [9]");
    delete prim;
}
