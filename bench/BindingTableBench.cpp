// The figures of reading and writing in one table: for the purchase order at
// 1 KB, 1 MB and 20 MB and for the lending library at the same sizes, raw Expat
// with no-op handlers, FromXml into fresh objects and ToXml formatted, all on the
// same bytes (the library's own formatted output) in one run. Prints each speed
// as a fraction of raw Expat's and the heap's peak while reading as a multiple
// of the document's size.
//
// --measure=<document>:<expat|read|write> instead runs that one operation once,
// after a warm-up, inside OrvexMeasuredRun, for
// valgrind --tool=callgrind --toggle-collect=OrvexMeasuredRun (scripts/bench-table.sh).
#include "BenchSupport.h"
#include "LibraryDocument.h"
#include "PeakHeap.h"
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "examples/library/Library.h"
#include "examples/purchase-order/PurchaseOrderTools.h"

namespace {

using namespace OrvexXmlLib5;
using namespace OrvexExamples;

// One document kind: how to make one of about n bytes, read it into fresh
// objects, and write it formatted.
struct Binding
{
    virtual ~Binding() = default;
    virtual std::string Make(std::size_t targetBytes) const = 0;
    virtual void Read(const std::string& xml) const = 0;
    virtual void ReadKept(const std::string& xml) = 0;  // keeps the objects for Write
    virtual std::string Write() const = 0;
};

std::string WritePurchaseOrder(const CPurchaseOrder& order)
{
    return order.ToXml(true, true, EOL_LF);
}

struct PurchaseOrderBinding : Binding
{
    CSmartPtr<CPurchaseOrder> kept;

    // The size grows linearly with the items; the order has at least one.
    std::string Make(std::size_t targetBytes) const override
    {
        const std::size_t none = WritePurchaseOrder(*MakeLargeOrder(0)).size();
        const std::size_t hundred = WritePurchaseOrder(*MakeLargeOrder(100)).size();
        const double perItem = static_cast<double>(hundred - none) / 100;
        const double wanted = (static_cast<double>(targetBytes) - static_cast<double>(none)) / perItem;
        const std::size_t items = wanted < 1 ? 1 : static_cast<std::size_t>(wanted + 0.5);
        return WritePurchaseOrder(*MakeLargeOrder(items));
    }
    void Read(const std::string& xml) const override
    {
        CSmartPtr<CPurchaseOrder> order = CPurchaseOrder::CreateInstance();
        order->FromXml(xml.c_str());
        benchmark::DoNotOptimize(order->GetItems()->GetItem()->GetCount());
    }
    void ReadKept(const std::string& xml) override
    {
        kept = CPurchaseOrder::CreateInstance();
        kept->FromXml(xml.c_str());
    }
    std::string Write() const override { return WritePurchaseOrder(*kept); }
};

struct LibraryBinding : Binding
{
    CSmartPtr<CLibrary> kept;

    // As it comes from the library's own writer, so that reading and writing see
    // the same bytes. One member per 20 KB, at most 1000.
    std::string Make(std::size_t targetBytes) const override
    {
        const int members = static_cast<int>(std::min<std::size_t>(1000, targetBytes / 20000 + 1));
        CSmartPtr<CLibrary> library = CLibrary::CreateInstance();
        library->FromXml(OrvexBench::MakeLibraryDocument(targetBytes, members).c_str());
        return library->ToXml(true, true, EOL_LF);
    }
    void Read(const std::string& xml) const override
    {
        CSmartPtr<CLibrary> library = CLibrary::CreateInstance();
        library->FromXml(xml.c_str());
        benchmark::DoNotOptimize(library->GetBooks()->GetCount());
    }
    void ReadKept(const std::string& xml) override
    {
        kept = CLibrary::CreateInstance();
        kept->FromXml(xml.c_str());
    }
    std::string Write() const override { return kept->ToXml(true, true, EOL_LF); }
};

struct Case
{
    std::string name;
    std::shared_ptr<Binding> binding;
    std::size_t target;
    std::string xml;
};

std::vector<Case> Cases()
{
    std::vector<Case> cases;
    const std::pair<const char*, std::size_t> sizes[] = {{"1kb", 1 << 10}, {"1mb", 1 << 20}, {"20mb", 20 << 20}};
    for (const auto& size : sizes)
        cases.push_back({std::string("po-") + size.first, std::make_shared<PurchaseOrderBinding>(), size.second, {}});
    for (const auto& size : sizes)
        cases.push_back({std::string("library-") + size.first, std::make_shared<LibraryBinding>(), size.second, {}});
    return cases;
}

// Prepares a case: its document, and the objects that the writing runs write,
// which must give back the same bytes.
void Prepare(Case& c)
{
    c.xml = c.binding->Make(c.target);
    c.binding->ReadKept(c.xml);
    if (c.binding->Write() != c.xml) {
        std::fprintf(stderr, "%s: the written document differs from the one read\n", c.name.c_str());
        std::exit(1);
    }
}

void RunExpat(const Case& c, benchmark::State& state)
{
    for (auto _ : state) OrvexBench::ParseWithRawExpat(c.xml, state);
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * c.xml.size()));
}

void RunRead(const Case& c, benchmark::State& state)
{
    for (auto _ : state) c.binding->Read(c.xml);
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * c.xml.size()));
}

void RunWrite(const Case& c, benchmark::State& state)
{
    for (auto _ : state) {
        const std::string text = c.binding->Write();
        benchmark::DoNotOptimize(text.data());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * c.xml.size()));
}

std::function<void()> Operation(const Case& c, const std::string& op)
{
    if (op == "expat")
        return [&c] {
            XML_Parser parser = XML_ParserCreateNS(nullptr, '|');
            XML_SetElementHandler(parser, OrvexBench::detail::NoStart, OrvexBench::detail::NoEnd);
            XML_SetNamespaceDeclHandler(parser, OrvexBench::detail::NoNamespaceStart,
                                        OrvexBench::detail::NoNamespaceEnd);
            XML_SetCharacterDataHandler(parser, OrvexBench::detail::NoText);
            if (XML_Parse(parser, c.xml.data(), static_cast<int>(c.xml.size()), 1) != XML_STATUS_OK) std::abort();
            XML_ParserFree(parser);
        };
    if (op == "read") return [&c] { c.binding->Read(c.xml); };
    if (op == "write")
        return [&c] {
            const std::string text = c.binding->Write();
            benchmark::DoNotOptimize(text.data());
        };
    return nullptr;
}

}  // namespace

// The one run that callgrind counts.
extern "C" __attribute__((noinline)) void OrvexMeasuredRun(const std::function<void()>* operation)
{
    (*operation)();
}

namespace {

int MeasureOnce(const std::string& what)
{
    const std::size_t colon = what.find(':');
    std::vector<Case> cases = Cases();
    for (Case& c : cases) {
        if (c.name != what.substr(0, colon)) continue;
        Prepare(c);
        const std::function<void()> operation = Operation(c, colon == std::string::npos ? "" : what.substr(colon + 1));
        if (!operation) break;
        operation();  // warm-up: first-use set-up is not counted
        OrvexMeasuredRun(&operation);
        std::printf("bytes %zu\n", c.xml.size());
        return 0;
    }
    std::fprintf(stderr, "usage: --measure=<po|library>-<1kb|1mb|20mb>:<expat|read|write>\n");
    return 2;
}

}  // namespace

int main(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i)
        if (std::strncmp(argv[i], "--measure=", 10) == 0) return MeasureOnce(argv[i] + 10);

    benchmark::Initialize(&argc, argv);
    std::vector<Case> cases = Cases();
    std::vector<double> peaks;
    std::vector<double> treePeaks;
    for (Case& c : cases) {
        Prepare(c);
        // A warm-up first, so that one-time set-up is not in the peak.
        c.binding->Read(c.xml);
        peaks.push_back(static_cast<double>(OrvexBench::PeakHeap::Measure([&c] { c.binding->Read(c.xml); })) /
                        static_cast<double>(c.xml.size()));
        // The intermediate tree's part of it: the document loaded alone.
        treePeaks.push_back(static_cast<double>(OrvexBench::PeakHeap::Measure([&c] {
                                OrvexXmlLib5::CXmlDocument document;
                                document.LoadXml(c.xml.c_str());
                            })) /
                            static_cast<double>(c.xml.size()));
        const double minTime = c.target < (1 << 20) ? 0.5 : 1.0;
        benchmark::RegisterBenchmark((c.name + "/expat").c_str(), [&c](benchmark::State& s) { RunExpat(c, s); })
            ->MinTime(minTime)
            ->Unit(benchmark::kMicrosecond);
        benchmark::RegisterBenchmark((c.name + "/read").c_str(), [&c](benchmark::State& s) { RunRead(c, s); })
            ->MinTime(minTime)
            ->Unit(benchmark::kMicrosecond);
        benchmark::RegisterBenchmark((c.name + "/write").c_str(), [&c](benchmark::State& s) { RunWrite(c, s); })
            ->MinTime(minTime)
            ->Unit(benchmark::kMicrosecond);
    }
    OrvexBench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);

    // Speed as a fraction of raw Expat's: Expat's CPU time over ours.
    std::printf("\n%-14s %10s %12s %12s %12s %10s %10s %12s %12s\n", "document", "bytes", "expat us", "read us",
                "write us", "read/expat", "write/expat", "read peak/n", "tree peak/n");
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const Case& c = cases[i];
        const double expat = reporter.Get(c.name + "/expat").cpu;
        const double read = reporter.Get(c.name + "/read").cpu;
        const double write = reporter.Get(c.name + "/write").cpu;
        if (expat <= 0 || read <= 0 || write <= 0) continue;
        std::printf("%-14s %10zu %12.1f %12.1f %12.1f %10.3f %10.3f %12.2f %12.2f\n", c.name.c_str(), c.xml.size(),
                    expat * 1e6, read * 1e6, write * 1e6, expat / read, expat / write, peaks[i], treePeaks[i]);
    }
    benchmark::Shutdown();
    return 0;
}
