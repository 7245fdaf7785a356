// Loading the same ~20 MB document into CXmlDocument from its binary (Fast Infoset)
// form and from its XML text. Prints the ratio of the two times.
//
// Both forms are written here by one generator, so the bench needs no other tool: a
// small encoder indexes names and values the way the common Java implementation does
// (every name; values and text shorter than 32 characters), and at start the two
// forms are checked to load into trees of the same size.
#include "BenchSupport.h"
#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "orvexxml/xml/XmlDocument.h"
#include "tests/fastinfoset/FiBytes.h"
#include "tests/xml/TreeSignature.h"

namespace {

using namespace OrvexXmlLib5;
using namespace FiBytes;

struct Attribute
{
    std::string namespaceUri, localName, value;
};

// Writes the XML text and the binary form of the same events side by side.
class TwinWriter
{
public:
    TwinWriter() { fi = kHeader; }

    void Start(const std::string& qname, const std::string& ns, const std::string& local,
               const std::vector<Attribute>& attributes, const std::string& xmlAttributes,
               const std::vector<std::pair<std::string, std::string>>& declarations = {})
    {
        xml += "<" + qname + xmlAttributes + ">";
        unsigned int first = attributes.empty() ? 0x00 : 0x40;
        if (!declarations.empty()) {
            fi += static_cast<char>(first | 0x38);
            for (const auto& d : declarations) {
                fi += static_cast<char>(0xCC | (d.first.empty() ? 0 : 0x02) | 0x01);
                if (!d.first.empty()) fi += Name(prefixes, d.first);
                fi += Name(namespaces, d.second);
            }
            fi += static_cast<char>(0xF0);
            first = 0;
        }
        const std::string key = ns + "|" + local;
        auto found = elementNames.find(key);
        if (found != elementNames.end()) {
            fi += Or(IntOnThirdBit(found->second), first);
        } else {
            elementNames.emplace(key, static_cast<std::uint32_t>(elementNames.size() + 1));
            fi += static_cast<char>(first | 0x3C | (ns.empty() ? 0 : 0x01));
            if (!ns.empty()) fi += Name(namespaces, ns);
            fi += Name(localNames, local);
        }
        for (const Attribute& a : attributes) {
            const std::string akey = a.namespaceUri + "|" + a.localName;
            auto name = attributeNames.find(akey);
            if (name != attributeNames.end()) {
                fi += IntOnSecondBit(name->second);
            } else {
                attributeNames.emplace(akey, static_cast<std::uint32_t>(attributeNames.size() + 1));
                fi += static_cast<char>(0x78 | (a.namespaceUri.empty() ? 0 : 0x01));
                if (!a.namespaceUri.empty()) fi += Name(namespaces, a.namespaceUri);
                fi += Name(localNames, a.localName);
            }
            auto value = values.find(a.value);
            if (value != values.end()) {
                fi += Or(IntOnSecondBit(value->second), 0x80);
            } else {
                const bool add = a.value.size() < 32;
                if (add) values.emplace(a.value, static_cast<std::uint32_t>(values.size() + 1));
                fi += Value(0, 0, a.value, add);
            }
        }
        if (!attributes.empty()) fi += static_cast<char>(0xF0);
    }

    void Text(const std::string& xmlText, const std::string& text)
    {
        xml += xmlText;
        auto found = chunks.find(text);
        if (found != chunks.end()) {
            fi += Or(IntOnFourthBit(found->second), 0xA0);
            return;
        }
        const bool add = text.size() < 32;
        if (add) chunks.emplace(text, static_cast<std::uint32_t>(chunks.size() + 1));
        fi += Chunk(0, 0, text, add);
    }

    void End(const std::string& qname)
    {
        xml += "</" + qname + ">";
        fi += static_cast<char>(0xF0);
    }

    std::string xml, fi;

private:
    // An identifying string: an index once the table has it.
    static Bytes Name(std::map<std::string, std::uint32_t>& table, const std::string& text)
    {
        auto found = table.find(text);
        if (found != table.end()) return IdentifierIndex(found->second);
        table.emplace(text, static_cast<std::uint32_t>(table.size() + 2));  // entry 1 is built in
        return Identifier(text);
    }

    std::map<std::string, std::uint32_t> prefixes, namespaces, localNames, elementNames, attributeNames, values, chunks;
};

// Orders with nested customers, addresses and items, as in the XML load bench.
const TwinWriter& Documents()
{
    static const TwinWriter twin = [] {
        TwinWriter w;
        const std::string o = "http://example.com/orders", a = "http://example.com/address";
        w.xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
        w.Start("orders", o, "orders", {{"", "batch", "17"}},
                " xmlns=\"http://example.com/orders\" xmlns:a=\"http://example.com/address\" batch=\"17\"",
                {{"", o}, {"a", a}});
        // xmlText is the text as markup, text what a parser makes of it.
        auto leaf = [&](const std::string& q, const std::string& ns, const std::string& local,
                        const std::string& xmlText, const std::string& text, const std::string& indent) {
            w.Text(indent, indent);
            w.Start(q, ns, local, {}, "");
            w.Text(xmlText, text);
            w.End(q);
        };
        for (int order = 0; w.xml.size() < (20u << 20); ++order) {
            const std::string n = std::to_string(order);
            const std::string vip = order % 3 ? "false" : "true";
            w.Text("\n  ", "\n  ");
            w.Start("order", o, "order", {{"", "id", "PO-" + n}, {"", "date", "2026-11-22"}, {"", "status", "open"}},
                    " id=\"PO-" + n + "\" date=\"2026-11-22\" status=\"open\"");
            w.Text("\n    ", "\n    ");
            w.Start("customer", o, "customer", {{"", "vip", vip}}, " vip=\"" + vip + "\"");
            leaf("name", o, "name", "Customer number " + n, "Customer number " + n, "\n      ");
            w.Text("\n      ", "\n      ");
            w.Start("a:address", a, "address", {{a, "kind", "shipping"}}, " a:kind=\"shipping\"");
            leaf("a:street", a, "street", n + " Harbour Lane", n + " Harbour Lane", "\n        ");
            leaf("a:city", a, "city", "Gothenburg", "Gothenburg", "\n        ");
            leaf("a:zip", a, "zip", "41104", "41104", "\n        ");
            w.Text("\n      ", "\n      ");
            w.End("a:address");
            w.Text("\n    ", "\n    ");
            w.End("customer");
            w.Text("\n    ", "\n    ");
            w.Start("items", o, "items", {}, "");
            for (int item = 0; item < 3; ++item) {
                const std::string sku = "A-" + std::to_string(item) + n, quantity = std::to_string(item + 1);
                w.Text("\n      ", "\n      ");
                w.Start("item", o, "item", {{"", "sku", sku}, {"", "quantity", quantity}},
                        " sku=\"" + sku + "\" quantity=\"" + quantity + "\"");
                const std::string set = std::to_string(item + 2);
                leaf("description", o, "description", "Espresso cups &amp; saucers, set of " + set,
                     "Espresso cups & saucers, set of " + set, "\n        ");
                w.Text("\n        ", "\n        ");
                w.Start("price", o, "price", {{"", "currency", "EUR"}}, " currency=\"EUR\"");
                w.Text("18.50", "18.50");
                w.End("price");
                w.Text("\n      ", "\n      ");
                w.End("item");
            }
            w.Text("\n    ", "\n    ");
            w.End("items");
            w.Text("\n  ", "\n  ");
            w.End("order");
        }
        w.Text("\n", "\n");
        w.End("orders");
        w.fi += static_cast<char>(0xF0);
        return w;
    }();
    return twin;
}

void BM_LoadXml(benchmark::State& state)
{
    const std::string& xml = Documents().xml;
    for (auto _ : state) {
        CXmlDocument document;
        Load(document, xml);
        benchmark::DoNotOptimize(document.GetDocumentElement());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * xml.size()));
}

void BM_LoadFastInfoset(benchmark::State& state)
{
    const std::string& fi = Documents().fi;
    for (auto _ : state) {
        CXmlDocument document;
        Load(document, fi);
        benchmark::DoNotOptimize(document.GetDocumentElement());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * fi.size()));
}

BENCHMARK(BM_LoadXml)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(BM_LoadFastInfoset)->Unit(benchmark::kMillisecond)->MinTime(2.0);

}  // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    const TwinWriter& twin = Documents();
    std::printf("document: %.1f MB as XML, %.1f MB as Fast Infoset\n", twin.xml.size() / 1048576.0,
                twin.fi.size() / 1048576.0);
    // Both forms must give the same tree, or the comparison means nothing.
    CXmlDocument fromXml, fromFi;
    Load(fromXml, twin.xml);
    Load(fromFi, twin.fi);
    if (OrvexTest::TreeSignature(fromXml, false) != OrvexTest::TreeSignature(fromFi, false)) {
        std::fprintf(stderr, "the two forms load into different trees\n");
        return 1;
    }
    OrvexBench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatio("BM_LoadXml", "BM_LoadFastInfoset", "XML load / Fast Infoset load");
    benchmark::Shutdown();
    return 0;
}
