// Threads that share metadata and an unchanged context (the default one included)
// read and write their own objects at the same time. Under the ThreadSanitizer
// build any write to shared state shows as a race; in every build the texts must
// come out as they do on one thread. One loaded document is read by many threads too.
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "examples/binding/Order.h"
#include "orvexxml/collections/Attribute.h"
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/metadata/PrimitiveRestrictions.h"
#include "orvexxml/xml/XmlDocument.h"

using namespace OrvexXmlLib5;
using namespace OrvexExamples;

namespace {

const char* const kOrder =
    "<o:Order xmlns:o=\"urn:orvex:order\" xmlns:x=\"urn:x\" id=\"7\" status=\"held\" x:flag=\"1\">"
    "<o:Customer vip=\"true\"><o:Name>Ada</o:Name>"
    "<o:Address country=\"GB\"><o:Street>1 Way</o:Street><o:City>Leeds</o:City><o:Zip>7</o:Zip></o:Address>"
    "</o:Customer><o:Line sku=\"A1\"><o:Quantity>3</o:Quantity>pens</o:Line><o:Note>noon</o:Note></o:Order>";

// One read and the two writes, with the default context and with the shared one.
std::pair<std::string, std::string> ReadAndWrite(const CXmlSerializationContext& shared)
{
    CSmartPtr<COrder> order = COrder::CreateInstance();
    order->FromXml(kOrder);
    CSmartPtr<COrder> again = COrder::CreateInstance();
    again->FromXml(order->ToXml(true, true, EOL_LF).c_str(), shared);
    return {again->ToXml(false, false, EOL_LF), order->ToXml(false, false, EOL_LF, shared)};
}

}  // namespace

TEST(Threads, SharedContextsAndMetadataReadAndWriteFromManyThreads)
{
    CXmlSerializationContext shared;
    shared.GetProcessingInstructions().push_back("<?app one?>");
    shared.GetNamespaceAliases().Add("o", "urn:orvex:order");
    shared.GetNamespaceAliases().Add("x", "urn:x");
    shared.GetAdditionalRootAttributes()->Add("root", "r");
    const auto expected = ReadAndWrite(shared);
    ASSERT_NE(std::string::npos, expected.second.find("root=\"r\""));
    ASSERT_NE(std::string::npos, expected.first.find("id=\"7\""));

    std::atomic<int> mismatches{0}, failures{0};
    std::vector<std::thread> threads;
    for (int t = 0; t < 8; ++t)
        threads.emplace_back([&] {
            for (int i = 0; i < 40; ++i) {
                try {
                    if (ReadAndWrite(shared) != expected) ++mismatches;
                } catch (...) {
                    ++failures;
                }
            }
        });
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(0, mismatches.load());
    EXPECT_EQ(0, failures.load());
    // The shared collection still holds only the context's own reference.
    CSmartPtr<CAttributeCol> held = shared.GetAdditionalRootAttributes();
    EXPECT_EQ(3, held->AddRef());
    held->Release();
}

TEST(Threads, RestrictionsCopiedWhileAnotherThreadChecksThem)
{
    // The first check of a descriptor keeps its parsed bounds in it. A copy made from
    // the descriptor meanwhile, in another thread, must neither race with that nor
    // check differently.
    std::atomic<int> wrong{0};
    for (int round = 0; round < 50; ++round) {
        const CPrimitiveRestrictions shared(nullptr, -1, -1, "1", "10", nullptr, nullptr, -1);
        const auto check = [&wrong](const CPrimitiveRestrictions& r) {
            OrvexVariant v;
            v.SetI4(5);
            CheckPrimitiveRestriction("n", v, ItemType_i4, r);
            v.SetI4(11);
            try {
                CheckPrimitiveRestriction("n", v, ItemType_i4, r);
                ++wrong;
            } catch (const COrvexException&) {
            }
        };
        std::thread checker([&] { check(shared); });
        std::thread copier([&] {
            const CPrimitiveRestrictions copy(shared);
            CPrimitiveRestrictions assigned;
            assigned = shared;
            check(copy);
            check(assigned);
        });
        checker.join();
        copier.join();
    }
    EXPECT_EQ(0, wrong.load());
}

TEST(Threads, OneLoadedDocumentReadFromManyThreads)
{
    // The tree's accessors make their copies of text and attribute lists at the first
    // call; threads that read one document at once must get the same copies.
    std::string xml = "<r>";
    for (int i = 0; i < 200; ++i)
        xml += "<e n='" + std::to_string(i) + "'>text of element number " + std::to_string(i) + "</e>";
    CXmlDocument document;
    document.LoadXml((xml + "</r>").c_str());
    std::vector<std::vector<const void*>> seen(4);
    std::vector<std::thread> threads;
    for (std::vector<const void*>& mine : seen)
        threads.emplace_back([&document, &mine] {
            for (const CXmlElement* e = document.GetDocumentElement()->GetFirstElement(); e;
                 e = e->GetNextSiblingElement()) {
                mine.push_back(&e->GetText());
                mine.push_back(&e->GetAttributes());
                if (e->GetText() != "text of element number " + e->GetAttributes()[0]->GetValue()) mine.clear();
            }
        });
    for (std::thread& thread : threads) thread.join();
    ASSERT_EQ(seen[0].size(), 400u);
    for (const std::vector<const void*>& other : seen) EXPECT_EQ(other, seen[0]);
}

namespace {

// An order whose customer has a name long enough to need a heap block, with a
// character beyond ASCII, read and written back.
std::string ReadLongName()
{
    std::string xml = kOrder;
    xml.replace(xml.find("Ada"), 3, "Ada Lovelace, Countess of Lovelace, n\xC3\xA9" "e Byron");
    CSmartPtr<COrder> order = COrder::CreateInstance();
    order->FromXml(xml.c_str());
    return order->ToXml(false, false, EOL_LF);
}

// Reads an order when the thread that made it ends.
struct CReadsAtThreadExit
{
    std::string* result = nullptr;
    ~CReadsAtThreadExit()
    {
        if (result) *result = ReadLongName();
    }
};

}  // namespace

TEST(Threads, AReadWhileTheThreadEndsStillWorks)
{
    // An object of the thread's own, made before the thread's first read, is destroyed
    // after the state the library keeps per thread (text buffer, compiled patterns,
    // code page converters); a read in its destructor must find that state gone, not
    // use it after it was freed (the sanitizer build watches).
    for (unsigned int codePage : {65001u, 1252u}) {
        SetLocalCharEncoding(codePage);
        const std::string expected = ReadLongName();
        std::string atExit;
        std::thread thread([&atExit, &expected] {
            thread_local CReadsAtThreadExit reader;
            reader.result = &atExit;
            EXPECT_EQ(ReadLongName(), expected);
        });
        thread.join();
        EXPECT_EQ(atExit, expected) << codePage;
    }
    SetLocalCharEncoding(3);
}
