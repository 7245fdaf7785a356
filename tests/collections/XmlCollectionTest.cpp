// The linked collection: order of the adding operations, one reference per node,
// one event per change, failures of indexes and items, copies and iterators.
#include <gtest/gtest.h>

#include <tuple>

#include "CollectionTestTypes.h"
#include "TestUtil.h"
#include "orvexxml/data/OrvexVariant.h"
#include "orvexxml/frame/SmartPtr.h"
#include "orvexxml/xml/XmlTextWriter.h"

using namespace OrvexXmlLib5;
using namespace OrvexTest;

int OrvexTest::CItem::s_live = 0;

TEST(XmlCollection, AddingOperationsPlaceItemsReferenceThemAndSendOneEventEach)
{
    CListener listener;  // outlives the collection, which tells it of its last removals
    CSmartPtr<CItemCol> col(new CItemCol());
    col->AddEventListener(&listener);
    CSmartPtr<CItem> a(new CItem("a")), b(new CItem("b")), c(new CItem("c")), d(new CItem("d")), e(new CItem("e")),
        f(new CItem("f")), g(new CItem("g"));

    col->AppendItem(b);                 // b
    col->PrependItem(a);                // ab
    col->AddAfterItem(nullptr, c);      // cab
    col->AddBeforeItem(nullptr, d);     // cabd
    col->AddItemAt(col->GetCount(), e); // cabde
    col->AddAfterItem(a, f);            // cafbde
    col->AddBeforeItem(a, g);           // cgafbde
    col->AddItemAt(1, a);               // c a g a f b d e: one object may stand twice
    EXPECT_EQ("cagafbde", col->Tags());
    EXPECT_EQ(8, col->GetCount());
    EXPECT_EQ(8u, listener.sources.size());
    for (CXmlObjectBase* source : listener.sources) EXPECT_EQ(col.Get(), source);
    EXPECT_EQ(3, a->Count());  // our pointer and two nodes
    EXPECT_EQ(2, b->Count());
}

TEST(XmlCollection, IndexAndItemFailuresChangeNothing)
{
    CSmartPtr<CItemCol> col(new CItemCol());
    CSmartPtr<CItem> a(new CItem("a")), stranger(new CItem("s"));
    EXPECT_THROW_MSG(col->Remove(0), COrvexInvalidParamException, "Index 0 is out of range, use 0 - -1");
    EXPECT_THROW_MSG(col->GetNodeAtIndex(-1), COrvexInvalidParamException, "Index -1 is out of range, use 0 - -1");
    col->AppendItem(a);
    EXPECT_THROW_MSG(col->GetNodeAtIndex(1), COrvexInvalidParamException, "Index 1 is out of range, use 0 - 0");
    EXPECT_THROW_MSG(col->AddItemAt(2, stranger), COrvexInvalidParamException, "Index out of range");
    EXPECT_THROW_MSG(col->AddItemAt(-1, stranger), COrvexInvalidParamException, "Index out of range");
    EXPECT_THROW_MSG(col->GetNodeForItem(stranger), COrvexInvalidParamException,
                     "The object was not found in the collection");
    EXPECT_THROW_MSG(col->AddAfterItem(stranger, stranger), COrvexInvalidParamException,
                     "The object was not found in the collection");
    EXPECT_THROW_MSG(col->AppendItem(nullptr), COrvexInvalidParamException,
                     "A null item can not be added to the collection");
    EXPECT_EQ(1, col->GetCount());
    EXPECT_EQ(1, stranger->Count());
}

TEST(XmlCollection, RemovalReleasesAndClearTellsOncePerItem)
{
    const int liveBefore = CItem::s_live;
    CListener listener;
    {
        CSmartPtr<CItem> kept(new CItem("k"));
        CSmartPtr<CItemCol> col(new CItemCol());
        col->AppendItem(kept);
        col->AppendItem(new CItem("x"));
        col->AppendItem(new CItem("y"));
        col->AddEventListener(&listener);
        col->RemoveNode(col->GetNodeForItem(kept));  // no event
        EXPECT_EQ(1, kept->Count());                 // outlives its node
        EXPECT_TRUE(listener.sources.empty());
        col->Clear();
        EXPECT_EQ(2u, listener.sources.size());
        EXPECT_EQ(liveBefore + 1, CItem::s_live);
        col->AppendItem(new CItem("z"));
        col->AppendItem(new CItem("w"));
        listener.sources.clear();
    }
    // The destructor removes item by item and tells the listener each time.
    EXPECT_EQ(2u, listener.sources.size());
    EXPECT_EQ(liveBefore, CItem::s_live);
}

TEST(XmlCollection, ListenersAddedTwiceHearTwiceAndGoTogether)
{
    CListener once, twice;
    CSmartPtr<CItemCol> col(new CItemCol());
    col->AddEventListener(&twice);
    col->AddEventListener(&once);
    col->AddEventListener(&twice);
    col->AppendItem(new CItem("a"));
    EXPECT_EQ(2u, twice.sources.size());
    EXPECT_EQ(1u, once.sources.size());
    col->RemoveEventListener(&twice);
    col->Remove(0);
    EXPECT_EQ(2u, twice.sources.size());
    EXPECT_EQ(2u, once.sources.size());
}

TEST(XmlCollection, CopiesHaveTheirOwnNodesAndOneMoreReferencePerItem)
{
    CListener listener;
    CSmartPtr<CItem> a(new CItem("a")), b(new CItem("b"));
    CSmartPtr<CItemCol> source(new CItemCol("Item", 1, 4));
    source->AppendItem(a);
    source->AppendItem(b);
    source->AddEventListener(&listener);
    {
        CItemCol copy(*source);
        EXPECT_EQ("ab", copy.Tags());
        EXPECT_EQ(3, a->Count());
        EXPECT_EQ(4, copy.GetMaxOccurs());
        copy.Remove(0);  // the listeners came along with the copy
        EXPECT_EQ(1u, listener.sources.size());
        EXPECT_EQ("ab", source->Tags());

        CItemCol assigned;
        assigned.AppendItem(new CItem("z"));
        assigned = *source;
        assigned = assigned;
        EXPECT_EQ("ab", assigned.Tags());
        EXPECT_EQ(3, a->Count());
        copy.RemoveEventListener(&listener);
        assigned.RemoveEventListener(&listener);
    }
    EXPECT_EQ(2, a->Count());
    EXPECT_EQ(2, b->Count());
}

TEST(XmlCollection, ManyItemsRemovedAndAddedAgainKeepOrderAndReferences)
{
    // Past the largest block of nodes, with removals at the front, middle and back
    // whose nodes the next additions take again, then a copy and an assignment.
    const int liveBefore = CItem::s_live;
    {
        CSmartPtr<CItemCol> col(new CItemCol());
        std::string expected;
        for (int i = 0; i < 3000; ++i) {
            const std::string tag(1, static_cast<char>('a' + i % 26));
            col->AppendItem(new CItem(tag.c_str()));
            expected += tag;
        }
        for (int index : {2999, 1500, 0, 1024, 1}) {
            col->Remove(index);
            expected.erase(static_cast<std::size_t>(index), 1);
        }
        CSmartPtr<CItem> shared(new CItem("Z"));
        for (int index : {0, 700, 2000, 2995}) {
            col->AddItemAt(index, shared);
            expected.insert(static_cast<std::size_t>(index), "Z");
        }
        col->AppendItem(shared);
        expected += "Z";
        EXPECT_EQ(expected, col->Tags());
        EXPECT_EQ(6, shared->Count());
        CItemCol copy(*col);
        CItemCol assigned;
        assigned.AppendItem(new CItem("q"));
        assigned = copy;
        copy.Clear();
        EXPECT_EQ(expected, assigned.Tags());
        EXPECT_EQ(11, shared->Count());
        EXPECT_EQ(liveBefore + 3000 - 5 + 1, CItem::s_live);
    }
    EXPECT_EQ(liveBefore, CItem::s_live);
}

TEST(XmlCollection, IteratorWalksAndStopsAtTheEnd)
{
    CSmartPtr<CItemCol> col(new CItemCol());
    CSmartPtr<CItem> a(new CItem("a"));
    EXPECT_TRUE(col->begin() == col->end());
    col->AppendItem(a);
    col->AppendItem(a);
    COrvexIterator<CItem> first = col->begin();
    COrvexIterator<CItem> second = first;
    ++second;
    // Different nodes holding the same item are equal; a null node equals only null.
    EXPECT_TRUE(first == second);
    EXPECT_FALSE(first == col->end());
    ++second;
    EXPECT_TRUE(second == col->end());
    EXPECT_THROW_MSG(++second, COrvexException, "No More Elements in the Collection");
    EXPECT_THROW_MSG(*second, COrvexException, "No More Elements in the Collection");
}

TEST(XmlCollection, AttributesOfItemsGoToTheOpenTag)
{
    CSmartPtr<CItemCol> col(new CItemCol());
    col->AppendItem(new CItem("p"));
    col->AppendItem(new CItem("q"));
    CXmlTextWriter writer;
    writer.SetFormatted(false);
    writer.WriteStartElement("e", "");
    col->AttributesToXml_Int(&writer, CXmlSerializationContext());
    writer.WriteEndElement();
    EXPECT_EQ("<e p=\"1\" q=\"1\"/>", writer.GetString());
}

TEST(XmlCollectionBase, ValidateCountTestsMaximumFirstAndTargetNamespaceIsRefused)
{
    const std::tuple<int, int, int, const char*> cases[] = {  // min, max, count, message (null: passes)
        {0, -1, 50, nullptr},
        {0, 0, 0, nullptr},
        {0, 0, 1, "The Maximum number of [Item] elements allowed in this collection is 0"},
        {2, 3, 1, "The Minimum number of [Item] elements allowed in this collection is 2"},
        {2, 3, 3, nullptr},
        {3, 1, 2, "The Maximum number of [Item] elements allowed in this collection is 1"},
    };
    CXmlSerializationContext strict, lenient;
    lenient.SetIgnoreInvalidCollectionCounts(true);
    for (const auto& [min, max, count, message] : cases) {
        CSmartPtr<CItemCol> col(new CItemCol("Item", min, max));
        for (int i = 0; i < count; ++i) col->AppendItem(new CItem("i"));
        if (message)
            EXPECT_THROW_MSG(col->ValidateCount(strict), COrvexValidationException, message);
        else
            EXPECT_NO_THROW(col->ValidateCount(strict));
        EXPECT_NO_THROW(col->ValidateCount(lenient));
    }
    EXPECT_THROW_MSG(CItemCol().GetTargetNamespace(), COrvexException,
                     "CXmlCollectionBase::GetTargetNamespace Should not be used from within a Collection (program "
                     "logic error)");
}

TEST(XmlCollectionVariant, HoldsOneReferenceAndCopiesAddOne)
{
    CSmartPtr<CItemCol> col(new CItemCol());
    auto count = [&] {
        const int c = col->AddRef();
        col->Release();
        return c - 1;
    };
    {
        OrvexVariant value;
        value.SetXmlCollection(col);
        EXPECT_EQ(ItemType_XmlCollection, value.GetItemType());
        EXPECT_EQ(2, count());
        OrvexVariant copy(value);
        EXPECT_EQ(3, count());
        EXPECT_EQ(col.Get(), copy.GetXmlCollection().Get());
        value.SetXmlCollection(nullptr);
        EXPECT_TRUE(value.IsValid());
        EXPECT_TRUE(value.GetXmlCollection().IsNull());
        value.SetI4(5);  // a plain kind has no collection to give
        EXPECT_TRUE(value.GetXmlCollection().IsNull());
    }
    EXPECT_EQ(1, count());

    // Setting again the collection of which the variant holds the last reference
    // keeps it alive.
    OrvexVariant owner;
    CItemCol* raw = new CItemCol();
    owner.SetXmlCollection(raw);
    owner.SetXmlCollection(raw);
    EXPECT_EQ(raw, owner.GetXmlCollection().Get());
    EXPECT_EQ(0, raw->GetMinOccurs());
}
