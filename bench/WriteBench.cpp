// Cost of writing XML text against the cost of parsing the same bytes with Expat.
// The writer is driven the way the generated-class walk drives it: ToXml on an
// object whose ToXml_Int makes nested elements in several namespaces, attributes
// and text that needs escaping. The baseline parses the written document with a
// namespace-aware Expat parser whose handlers do nothing, and the load of the
// same bytes into the intermediate tree.
#include "BenchSupport.h"
#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "orvexxml/frame/XmlObjectBase.h"
#include "orvexxml/xml/XmlDocument.h"
#include "orvexxml/xml/XmlTextWriter.h"

using namespace OrvexXmlLib5;

namespace {

struct Line
{
    std::string sku;
    std::string description;
    std::string quantity;
    std::string price;
};

struct Order
{
    std::string id;
    std::string customer;
    std::string street;
    std::string city;
    std::string note;
    std::vector<Line> lines;
};

// A catalogue of orders, built once; about 20 MB of XML when written.
class COrderBook : public CXmlObjectBase
{
public:
    explicit COrderBook(int orderCount)
    {
        m_orders.reserve(orderCount);
        for (int i = 0; i < orderCount; ++i) {
            Order order;
            order.id = "ORD-" + std::to_string(100000 + i);
            order.customer = "Smith & Sons <Ltd> #" + std::to_string(i % 977);
            order.street = std::to_string(i % 400) + " High Street";
            order.city = i % 3 ? "M\xC3\xBCnchen" : "S\xC3\xA3o Paulo";
            order.note = "Deliver \"before noon\"\nRing twice & wait; it's fragile > 2kg";
            for (int j = 0; j < 4; ++j) {
                Line line;
                line.sku = "SKU-" + std::to_string((i * 7 + j) % 10007);
                line.description = "Widget <type " + std::to_string(j) + "> with a longer description of the part";
                line.quantity = std::to_string(1 + (i + j) % 50);
                line.price = std::to_string((i * 13 + j) % 1000) + ".99";
                order.lines.push_back(line);
            }
            m_orders.push_back(order);
        }
    }

    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return "urn:example:orders"; }
    std::string GetNamespace() const override { return "urn:example:orders"; }

protected:
    void ToXml_Int(CXmlWriter* writer, bool, const char* namespaceUri, const CXmlSerializationContext&,
                   bool) const override
    {
        const std::string ns = namespaceUri;
        const std::string addressNs = "urn:example:address";
        const std::string extNs = "urn:example:extension";
        writer->AddNamespace("o", ns);
        writer->WriteStartElement("orderBook", ns);
        writer->WriteAttribute("version", "", "2");
        for (const Order& order : m_orders) {
            writer->WriteStartElement("order", ns);
            writer->WriteAttribute("id", "", order.id);
            writer->WriteAttribute("priority", extNs, "high");
            writer->WriteStartElement("customer", ns);
            writer->WriteText(order.customer);
            writer->WriteEndElement();
            writer->WriteStartElement("address", addressNs);
            writer->WriteStartElement("street", addressNs);
            writer->WriteText(order.street);
            writer->WriteEndElement();
            writer->WriteStartElement("city", addressNs);
            writer->WriteText(order.city);
            writer->WriteEndElement();
            writer->WriteEndElement();
            for (const Line& line : order.lines) {
                writer->WriteStartElement("line", ns);
                writer->WriteAttribute("sku", "", line.sku);
                writer->WriteAttribute("quantity", "", line.quantity);
                writer->WriteStartElement("description", ns);
                writer->WriteText(line.description);
                writer->WriteEndElement();
                writer->WriteStartElement("price", ns);
                writer->WriteText(line.price);
                writer->WriteEndElement();
                writer->WriteEndElement();
            }
            writer->WriteStartElement("note", "");
            writer->WriteText(order.note);
            writer->WriteEndElement();
            writer->WriteEndElement();
        }
        writer->WriteEndElement();
    }
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement*, const CXmlSerializationContext&, bool) override
    {
        return nullptr;
    }

private:
    std::vector<Order> m_orders;
};

const COrderBook& Book()
{
    static const COrderBook book(19000);
    return book;
}

const std::string& Document()
{
    static const std::string text = Book().ToXml(true, true, EOL_LF);
    return text;
}

void BM_ExpatParseNoOp(benchmark::State& state)
{
    const std::string& text = Document();
    for (auto _ : state) OrvexBench::ParseWithRawExpat(text, state);
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
}

void BM_LoadTree(benchmark::State& state)
{
    const std::string& text = Document();
    for (auto _ : state) {
        CXmlDocument document;
        document.LoadXml(text.c_str());
        benchmark::DoNotOptimize(document.GetDocumentElement());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
}

void BM_ToXml(benchmark::State& state)
{
    const COrderBook& book = Book();
    std::size_t size = 0;
    for (auto _ : state) {
        std::string text = book.ToXml(true, true, EOL_LF);
        size = text.size();
        benchmark::DoNotOptimize(text.data());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * size));
}

BENCHMARK(BM_ExpatParseNoOp)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(BM_LoadTree)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(BM_ToXml)->Unit(benchmark::kMillisecond)->MinTime(1.0);

}  // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    std::printf("document: %.1f MB\n", static_cast<double>(Document().size()) / 1e6);
    OrvexBench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatio("BM_ToXml", "BM_ExpatParseNoOp", "ToXml / raw Expat no-op parse");
    reporter.PrintRatio("BM_ToXml", "BM_LoadTree", "ToXml / CXmlDocument load");
    benchmark::Shutdown();
    return 0;
}
