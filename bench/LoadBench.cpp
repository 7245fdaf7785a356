// Loading a ~20 MB document into CXmlDocument against raw Expat with handlers that
// do nothing, on the same bytes. Prints the ratio of the two times.
#include "BenchSupport.h"
#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>

#include "orvexxml/xml/XmlDocument.h"

namespace {

using namespace OrvexXmlLib5;

// Orders with nested customers, addresses and items: two namespaces besides the
// default, attributes on most elements, text in the leaves and indentation between.
const std::string& Document()
{
    static const std::string text = [] {
        std::string xml;
        xml.reserve(21 << 20);
        xml += "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
               "<orders xmlns=\"http://example.com/orders\" xmlns:a=\"http://example.com/address\""
               " xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" batch=\"17\">\n";
        for (int order = 0; xml.size() < (20u << 20); ++order) {
            const std::string n = std::to_string(order);
            xml += "  <order id=\"PO-" + n + "\" date=\"2026-11-22\" status=\"open\">\n"
                   "    <customer vip=\"" + std::string(order % 3 ? "false" : "true") + "\">\n"
                   "      <name>Customer number " + n + "</name>\n"
                   "      <a:address a:kind=\"shipping\">\n"
                   "        <a:street>" + n + " Harbour Lane</a:street>\n"
                   "        <a:city>Gothenburg</a:city>\n"
                   "        <a:zip>41104</a:zip>\n"
                   "      </a:address>\n"
                   "    </customer>\n"
                   "    <items>\n";
            for (int item = 0; item < 3; ++item)
                xml += "      <item sku=\"A-" + std::to_string(item) + n + "\" quantity=\"" + std::to_string(item + 1) +
                       "\">\n"
                       "        <description>Espresso cups &amp; saucers, set of " + std::to_string(item + 2) +
                       "</description>\n"
                       "        <price currency=\"EUR\">18.50</price>\n"
                       "      </item>\n";
            xml += "    </items>\n"
                   "    <note>Leave at the <em>back</em> door.</note>\n"
                   "  </order>\n";
        }
        xml += "</orders>\n";
        return xml;
    }();
    return text;
}

void BM_RawExpat(benchmark::State& state)
{
    const std::string& xml = Document();
    for (auto _ : state) OrvexBench::ParseWithRawExpat(xml, state);
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * xml.size()));
}

// Load and release, so that building and tearing down the tree are both counted.
void BM_XmlDocument(benchmark::State& state)
{
    const std::string& xml = Document();
    for (auto _ : state) {
        CXmlDocument document;
        document.LoadXml(xml.c_str());
        benchmark::DoNotOptimize(document.GetDocumentElement());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * xml.size()));
}

BENCHMARK(BM_RawExpat)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(BM_XmlDocument)->Unit(benchmark::kMillisecond)->MinTime(2.0);

}  // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    std::printf("document: %.1f MB\n", Document().size() / 1048576.0);
    OrvexBench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatio("BM_XmlDocument", "BM_RawExpat", "CXmlDocument load / raw Expat");
    benchmark::Shutdown();
    return 0;
}
