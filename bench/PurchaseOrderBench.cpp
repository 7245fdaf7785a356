// The purchase-order classes on a ~20 MB order with thousands of items: reading
// into the generated objects and writing them back as formatted text, each against
// raw Expat with handlers that do nothing on the same bytes; and the compression
// of that output at level 1 by CompressData against zlib's own compress2.
#include "BenchSupport.h"
#include <benchmark/benchmark.h>

#include <zlib.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "examples/purchase-order/PurchaseOrderTools.h"

namespace {

using namespace OrvexXmlLib5;
using namespace OrvexExamples;

// Generated items are about 160 bytes of formatted text each.
constexpr std::size_t kItems = 130000;

CSmartPtr<CPurchaseOrder>& Order()
{
    static CSmartPtr<CPurchaseOrder> order = MakeLargeOrder(kItems);
    return order;
}

// The order as the library writes it: the input of the reading runs, the output
// that the writing runs produce, and the input of the compression runs.
const std::string& Document()
{
    static const std::string text = Order()->ToXml(true, true, EOL_LF);
    return text;
}

void RawExpat(benchmark::State& state)
{
    const std::string& xml = Document();
    for (auto _ : state) OrvexBench::ParseWithRawExpat(xml, state);
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * xml.size()));
}

// Parse, tree, walk of the tables, values converted into the properties.
void ReadOrder(benchmark::State& state)
{
    const std::string& xml = Document();
    CSmartPtr<CPurchaseOrder> order = CPurchaseOrder::CreateInstance();
    for (auto _ : state) {
        order->FromXml(xml.c_str());
        benchmark::DoNotOptimize(order->GetItems()->GetItem()->GetCount());
    }
    if (order->GetItems()->GetItem()->GetCount() != static_cast<int>(kItems)) std::abort();
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * xml.size()));
}

// Walk of the tables, facet tests, values to text, formatted markup.
void WriteOrder(benchmark::State& state)
{
    const std::string& xml = Document();
    std::size_t size = 0;
    for (auto _ : state) {
        const std::string written = Order()->ToXml(true, true, EOL_LF);
        size = written.size();
    }
    if (size != xml.size()) std::abort();
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * xml.size()));
}

// CompressData works in place, so every round starts from a fresh private copy
// made outside the timed part.
void CompressDataZlib(benchmark::State& state)
{
    const std::string& xml = Document();
    std::size_t size = 0;
    for (auto _ : state) {
        state.PauseTiming();
        CBinaryData data(reinterpret_cast<unsigned char*>(const_cast<char*>(xml.data())),
                         static_cast<unsigned long>(xml.size()), false);
        state.ResumeTiming();
        data.CompressData(Compression_ZLIB);
        size = data.GetLength();
        benchmark::DoNotOptimize(data.GetData());
    }
    state.counters["bytes_out"] = static_cast<double>(size);
}

void ZlibCompress2(benchmark::State& state)
{
    const std::string& xml = Document();
    std::size_t size = 0;
    for (auto _ : state) {
        uLongf length = compressBound(static_cast<uLong>(xml.size()));
        std::vector<unsigned char> out(length);
        if (compress2(out.data(), &length, reinterpret_cast<const Bytef*>(xml.data()), static_cast<uLong>(xml.size()),
                      1) != Z_OK)
            std::abort();
        size = length;
        benchmark::DoNotOptimize(out.data());
    }
    state.counters["bytes_out"] = static_cast<double>(size);
}

BENCHMARK(RawExpat)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(ReadOrder)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(WriteOrder)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(CompressDataZlib)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(ZlibCompress2)->Unit(benchmark::kMillisecond)->MinTime(1.0);

}  // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    std::printf("purchase order: %zu items, %.1f MB of formatted XML, total %s\n", kItems,
                Document().size() / 1048576.0, OrderTotal(*Order()).ToString().c_str());
    OrvexBench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatio("ReadOrder", "RawExpat", "read purchase order / raw Expat");
    reporter.PrintRatio("WriteOrder", "RawExpat", "write purchase order / raw Expat");
    reporter.PrintRatio("CompressDataZlib", "ZlibCompress2", "CompressData level 1 / compress2");
    benchmark::Shutdown();
    return 0;
}
