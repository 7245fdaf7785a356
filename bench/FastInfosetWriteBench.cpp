// The ~20 MB purchase order written as Fast Infoset against the same order
// written as XML text, formatted and not, by the same walk of the generated
// classes in the same run: time per write, and the output sizes.
#include "BenchSupport.h"
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "examples/purchase-order/PurchaseOrderTools.h"

namespace {

using namespace OrvexXmlLib5;
using namespace OrvexExamples;

// The item count of PurchaseOrderBench: about 20 MB of formatted text.
constexpr std::size_t kItems = 130000;

CSmartPtr<CPurchaseOrder>& Order()
{
    static CSmartPtr<CPurchaseOrder> order = MakeLargeOrder(kItems);
    return order;
}

std::size_t g_fastInfosetSize = 0;
std::size_t g_formattedSize = 0;
std::size_t g_plainSize = 0;

void WriteFastInfoset(benchmark::State& state)
{
    for (auto _ : state) {
        const CBinaryData written = Order()->ToFastInfosetStream();
        g_fastInfosetSize = written.GetLength();
        benchmark::DoNotOptimize(written.GetData());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * g_fastInfosetSize));
}

void WriteXmlFormatted(benchmark::State& state)
{
    for (auto _ : state) {
        const std::string written = Order()->ToXml(true, true, EOL_LF);
        g_formattedSize = written.size();
        benchmark::DoNotOptimize(written.data());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * g_formattedSize));
}

void WriteXmlPlain(benchmark::State& state)
{
    for (auto _ : state) {
        const std::string written = Order()->ToXml(true, false, EOL_LF);
        g_plainSize = written.size();
        benchmark::DoNotOptimize(written.data());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * g_plainSize));
}

BENCHMARK(WriteFastInfoset)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(WriteXmlFormatted)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(WriteXmlPlain)->Unit(benchmark::kMillisecond)->MinTime(1.0);

}  // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    Order();
    OrvexBench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatio("WriteFastInfoset", "WriteXmlFormatted", "write Fast Infoset / XML formatted");
    reporter.PrintRatio("WriteFastInfoset", "WriteXmlPlain", "write Fast Infoset / XML unformatted");
    if (g_fastInfosetSize && g_formattedSize && g_plainSize)
        std::printf("sizes: Fast Infoset %zu bytes, XML formatted %zu bytes (ratio %.3f), "
                    "XML unformatted %zu bytes (ratio %.3f)\n",
                    g_fastInfosetSize, g_formattedSize, double(g_fastInfosetSize) / double(g_formattedSize),
                    g_plainSize, double(g_fastInfosetSize) / double(g_plainSize));
    benchmark::Shutdown();
    return 0;
}
