// Reading a ~20 MB lending library document into its generated classes with
// FromXml, and writing it back with ToXml, each against raw Expat with no-op
// handlers on the same bytes. Prints both ratios. --library_mb=N sets the size
// (a small one serves profiling under callgrind).
#include "BenchSupport.h"
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

// Books of every edition kind, with and without the optional members, then up to
// 1000 members of both membership kinds, indented as people write it.
const std::string& Document()
{
    static const std::string text = [] {
        const std::size_t target = g_megabytes << 20;
        std::string xml;
        xml.reserve(target + (1 << 20));
        xml +=
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<lib:Library xmlns:lib=\"urn:orvex:library\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\""
            " name=\"Riverside Lending Library\">\n"
            "  <lib:Address country=\"GB\">\n    <lib:Street>4 Mill Lane</lib:Street>\n"
            "    <lib:City>Ely</lib:City>\n    <lib:Postcode>CB7 4AA</lib:Postcode>\n  </lib:Address>\n";
        static const char* const genres[] = {"fiction", "science", "history", "poetry"};
        std::string members;
        for (int i = 0; i < 1000; ++i) {
            const std::string n = std::to_string(1000 + i);
            members += "  <lib:Member id=\"M" + n + "\">\n    <lib:Name>Reader number " + n + "</lib:Name>\n";
            if (i % 2)
                members +=
                    "    <lib:Membership xsi:type=\"lib:AdultMembership\">\n      <lib:Since>2019</lib:Since>\n"
                    "      <lib:Fee>25.00</lib:Fee>\n    </lib:Membership>\n"
                    "    <lib:Email>reader" +
                    n + "@example.org</lib:Email>\n";
            else
                members +=
                    "    <lib:Membership xsi:type=\"lib:StudentMembership\">\n"
                    "      <lib:Since>2023</lib:Since>\n      <lib:School>Ely College</lib:School>\n"
                    "      <lib:Graduation>2026</lib:Graduation>\n    </lib:Membership>\n";
            members += "  </lib:Member>\n";
        }
        for (int book = 0; xml.size() + members.size() < target; ++book) {
            const std::string n = std::to_string(book);
            std::string isbn = "978" + std::to_string(1000000000 + book);
            xml += "  <lib:Book isbn=\"" + isbn + "\"" + (book % 3 ? " lang=\"en\"" : "") +
                   ">\n"
                   "    <lib:Title>Collected Stories, volume " +
                   n +
                   "</lib:Title>\n"
                   "    <lib:Author>Author of book " +
                   n +
                   "</lib:Author>\n"
                   "    <lib:Genre>" +
                   genres[book % 4] + "</lib:Genre>\n";
            if (book % 2) xml += "    <lib:Year>" + std::to_string(1800 + book % 220) + "</lib:Year>\n";
            if (book % 5) xml += "    <lib:Price>" + std::to_string(5 + book % 40) + ".99</lib:Price>\n";
            if (book % 4 == 1) xml += "    <lib:Condition>worn</lib:Condition>\n";
            switch (book % 3) {
                case 0:
                    xml += "    <lib:Edition>\n      <lib:Print pages=\"" + std::to_string(100 + book % 900) +
                           "\"><lib:Binding>hardcover</lib:Binding></lib:Print>\n    </lib:Edition>\n";
                    break;
                case 1:
                    xml += "    <lib:Edition><lib:Ebook>epub</lib:Ebook></lib:Edition>\n";
                    break;
                default:
                    xml += "    <lib:Edition><lib:Audio>" + std::to_string(60 + book % 600) +
                           "</lib:Audio></lib:Edition>\n";
            }
            xml += "  </lib:Book>\n";
        }
        xml += members;
        xml += "</lib:Library>\n";
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
