// Reading a ~20 MB lending library document into its generated classes with
// FromXml, and writing it back with ToXml, each against raw Expat with no-op
// handlers on the same bytes. Prints both ratios. --library_mb=N sets the size
// (a small one serves profiling under callgrind).
#include "BenchSupport.h"
#include "LibraryDocument.h"
#include <benchmark/benchmark.h>

#include <cstdio>
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>

#include "examples/library/Library.h"

namespace {

using namespace OrvexXmlLib5;
using namespace OrvexExamples;

std::size_t g_megabytes = 20;

const std::string& Document()
{
    static const std::string text = OrvexBench::MakeLibraryDocument(g_megabytes << 20, 1000);
    return text;
}

void BM_RawExpat(benchmark::State& state)
{
    const std::string& xml = Document();
    for (auto _ : state) OrvexBench::ParseWithRawExpat(xml, state);
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * xml.size()));
}

// A fresh library per read, so that building and releasing the objects count.
void BM_FromXml(benchmark::State& state)
{
    const std::string& xml = Document();
    for (auto _ : state) {
        CSmartPtr<CLibrary> library = CLibrary::CreateInstance();
        library->FromXml(xml.c_str());
        benchmark::DoNotOptimize(library->GetBooks()->GetCount());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * xml.size()));
}

// The written text is what Expat parses in the baseline of writing.
const CLibrary& ReadLibrary()
{
    static CSmartPtr<CLibrary> library = [] {
        CSmartPtr<CLibrary> read = CLibrary::CreateInstance();
        read->FromXml(Document().c_str());
        return read;
    }();
    return *library;
}

const std::string& Written()
{
    static const std::string text = ReadLibrary().ToXml(true, true, EOL_LF);
    return text;
}

void BM_RawExpatWritten(benchmark::State& state)
{
    const std::string& xml = Written();
    for (auto _ : state) OrvexBench::ParseWithRawExpat(xml, state);
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * xml.size()));
}

void BM_ToXml(benchmark::State& state)
{
    const CLibrary& library = ReadLibrary();
    for (auto _ : state) {
        const std::string text = library.ToXml(true, true, EOL_LF);
        benchmark::DoNotOptimize(text.data());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * Written().size()));
}

BENCHMARK(BM_RawExpat)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(BM_FromXml)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(BM_RawExpatWritten)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(BM_ToXml)->Unit(benchmark::kMillisecond)->MinTime(1.0);

}  // namespace

int main(int argc, char** argv)
{
    // Our own flag goes before benchmark's parser sees the arguments.
    int kept = 1;
    for (int i = 1; i < argc; ++i) {
        if (std::strncmp(argv[i], "--library_mb=", 13) == 0)
            g_megabytes = static_cast<std::size_t>(std::max(1L, std::strtol(argv[i] + 13, nullptr, 10)));
        else
            argv[kept++] = argv[i];
    }
    argc = kept;
    benchmark::Initialize(&argc, argv);
    std::printf("document: %.1f MB read, %.1f MB written\n", Document().size() / 1048576.0,
                Written().size() / 1048576.0);
    OrvexBench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatio("BM_FromXml", "BM_RawExpat", "FromXml into objects / raw Expat");
    reporter.PrintRatio("BM_ToXml", "BM_RawExpatWritten", "ToXml, formatted / raw Expat on its output");
    benchmark::Shutdown();
    return 0;
}
