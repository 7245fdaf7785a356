// The file entry points on the ~20 MB purchase order: FromXmlFile of XML text, of
// gzip XML and of Fast Infoset, and ToXmlFile / ToFastInfosetFile with and without
// gzip. Reading is set against raw Expat on the same (inflated) bytes, and against
// zlib's inflate plus raw Expat for the gzip file; what gzip adds to writing is set
// against zlib's own compress2 at the same level (1) on the same text. Fast Infoset
// runs are skipped while the library has no Fast Infoset reader or writer.
#include "BenchSupport.h"
#include <benchmark/benchmark.h>

#include <zlib.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <unistd.h>
#include <vector>

#include "examples/purchase-order/PurchaseOrderTools.h"

namespace {

using namespace OrvexXmlLib5;
using namespace OrvexExamples;

constexpr std::size_t kItems = 130000;

CSmartPtr<CPurchaseOrder>& Order()
{
    static CSmartPtr<CPurchaseOrder> order = MakeLargeOrder(kItems);
    return order;
}

// Scratch folder of this run, removed at the end.
const std::string& Folder()
{
    static const std::string folder = [] {
        char name[] = "/tmp/orvex-stream-bench-XXXXXX";
        if (!mkdtemp(name)) std::abort();
        return std::string(name);
    }();
    return folder;
}

std::string PathOf(const char* name)
{
    return Folder() + "/" + name;
}

std::string ReadBytes(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream out;
    out << in.rdbuf();
    return out.str();
}

const std::string& XmlBytes()
{
    static const std::string bytes = ReadBytes(PathOf("order.xml"));
    return bytes;
}

const std::string& GzipBytes()
{
    static const std::string bytes = ReadBytes(PathOf("order.xml.gz"));
    return bytes;
}

bool g_fastInfoset = false;

// The input files, written once before any measurement.
void Prepare()
{
    Order()->ToXmlFile(PathOf("order.xml").c_str(), true, true, Encoding_UTF8, EOL_LF);
    Order()->ToXmlFile(PathOf("order.xml.gz").c_str(), true, true, Encoding_UTF8, EOL_LF,
                       CXmlSerializationContext::GetDefaultContext(), Compression_GZIP);
    try {
        Order()->ToFastInfosetFile(PathOf("order.finf").c_str());
        g_fastInfoset = true;
    } catch (const COrvexException&) {
        g_fastInfoset = false;
    }
}

void ReadFile(benchmark::State& state, const char* name)
{
    const std::string path = PathOf(name);
    CSmartPtr<CPurchaseOrder> order = CPurchaseOrder::CreateInstance();
    for (auto _ : state) {
        order->FromXmlFile(path.c_str());
        benchmark::DoNotOptimize(order->GetItems()->GetItem()->GetCount());
    }
    if (order->GetItems()->GetItem()->GetCount() != static_cast<int>(kItems)) std::abort();
}

void FromXmlFileXml(benchmark::State& state)
{
    ReadFile(state, "order.xml");
}

void FromXmlFileGzip(benchmark::State& state)
{
    ReadFile(state, "order.xml.gz");
}

void FromXmlFileFastInfoset(benchmark::State& state)
{
    if (!g_fastInfoset) {
        state.SkipWithError("no Fast Infoset in this build");
        for (auto _ : state) {
        }
        return;
    }
    ReadFile(state, "order.finf");
}

void RawExpat(benchmark::State& state)
{
    const std::string& xml = XmlBytes();
    for (auto _ : state) OrvexBench::ParseWithRawExpat(xml, state);
}

// The gzip file as a program would read it with the two libraries alone.
void RawInflateExpat(benchmark::State& state)
{
    const std::string& packed = GzipBytes();
    const std::size_t size = XmlBytes().size();
    for (auto _ : state) {
        std::string text(size, '\0');
        z_stream stream{};
        inflateInit2(&stream, 15 + 16);
        stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
        stream.avail_in = static_cast<uInt>(packed.size());
        stream.next_out = reinterpret_cast<Bytef*>(&text[0]);
        stream.avail_out = static_cast<uInt>(text.size());
        if (inflate(&stream, Z_FINISH) != Z_STREAM_END) std::abort();
        inflateEnd(&stream);
        OrvexBench::ParseWithRawExpat(text, state);
    }
}

void WriteFile(benchmark::State& state, bool fastInfoset, CompressionType compression)
{
    if (fastInfoset && !g_fastInfoset) {
        state.SkipWithError("no Fast Infoset in this build");
        for (auto _ : state) {
        }
        return;
    }
    const std::string path = PathOf("out.bin");
    const CXmlSerializationContext& context = CXmlSerializationContext::GetDefaultContext();
    for (auto _ : state) {
        if (fastInfoset)
            Order()->ToFastInfosetFile(path.c_str(), FInfoDecl_None, context, compression);
        else
            Order()->ToXmlFile(path.c_str(), true, true, Encoding_UTF8, EOL_LF, context, compression);
    }
}

void ToXmlFilePlain(benchmark::State& state)
{
    WriteFile(state, false, Compression_None);
}

void ToXmlFileGzip(benchmark::State& state)
{
    WriteFile(state, false, Compression_GZIP);
}

void ToFastInfosetFilePlain(benchmark::State& state)
{
    WriteFile(state, true, Compression_None);
}

void ToFastInfosetFileGzip(benchmark::State& state)
{
    WriteFile(state, true, Compression_GZIP);
}

void ZlibCompress2(benchmark::State& state)
{
    const std::string& xml = XmlBytes();
    for (auto _ : state) {
        uLongf length = compressBound(static_cast<uLong>(xml.size()));
        std::vector<unsigned char> out(length);
        if (compress2(out.data(), &length, reinterpret_cast<const Bytef*>(xml.data()), static_cast<uLong>(xml.size()),
                      1) != Z_OK)
            std::abort();
        benchmark::DoNotOptimize(out.data());
    }
}

BENCHMARK(RawExpat)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(RawInflateExpat)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(FromXmlFileXml)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(FromXmlFileGzip)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(FromXmlFileFastInfoset)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(ToXmlFilePlain)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(ToXmlFileGzip)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(ToFastInfosetFilePlain)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(ToFastInfosetFileGzip)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(ZlibCompress2)->Unit(benchmark::kMillisecond)->MinTime(1.0);

// What gzip adds to a write, against compress2 alone: (with - without) / compress2.
void PrintCompressionCost(const OrvexBench::RatioReporter& reporter, const std::string& with,
                          const std::string& without, const std::string& label)
{
    if (!reporter.Has(with) || !reporter.Has(without) || !reporter.Has("ZlibCompress2")) return;
    const double added = reporter.Get(with).cpu - reporter.Get(without).cpu;
    const double zlib = reporter.Get("ZlibCompress2").cpu;
    std::printf("%-40s %10.3f ms vs %10.3f ms   ratio %.3f CPU\n", label.c_str(), added * 1e3, zlib * 1e3,
                added / zlib);
}

}  // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    Prepare();
    std::printf("purchase order: %zu items, %.1f MB of XML, %.1f MB as gzip, Fast Infoset %s\n", kItems,
                XmlBytes().size() / 1048576.0, GzipBytes().size() / 1048576.0,
                g_fastInfoset ? "built in" : "not built in: its runs are skipped");
    OrvexBench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatio("FromXmlFileXml", "RawExpat", "FromXmlFile XML / raw Expat");
    reporter.PrintRatio("FromXmlFileGzip", "RawExpat", "FromXmlFile gzip XML / raw Expat");
    reporter.PrintRatio("FromXmlFileGzip", "RawInflateExpat", "FromXmlFile gzip XML / inflate+Expat");
    reporter.PrintRatio("ToXmlFilePlain", "RawExpat", "ToXmlFile / raw Expat");
    reporter.PrintRatio("ToXmlFileGzip", "RawExpat", "ToXmlFile gzip / raw Expat");
    PrintCompressionCost(reporter, "ToXmlFileGzip", "ToXmlFilePlain", "gzip share of ToXmlFile / compress2");
    if (g_fastInfoset) {
        reporter.PrintRatio("FromXmlFileFastInfoset", "RawExpat", "FromXmlFile Fast Infoset / raw Expat");
        reporter.PrintRatio("ToFastInfosetFilePlain", "RawExpat", "ToFastInfosetFile / raw Expat");
        reporter.PrintRatio("ToFastInfosetFileGzip", "RawExpat", "ToFastInfosetFile gzip / raw Expat");
        // Compresses the smaller Fast Infoset bytes, so it should come out below 1.
        PrintCompressionCost(reporter, "ToFastInfosetFileGzip", "ToFastInfosetFilePlain",
                             "gzip share of ToFastInfosetFile / compress2 of the XML");
    }
    benchmark::Shutdown();
    for (const char* name : {"order.xml", "order.xml.gz", "order.finf", "out.bin"}) std::remove(PathOf(name).c_str());
    rmdir(Folder().c_str());
    return 0;
}
