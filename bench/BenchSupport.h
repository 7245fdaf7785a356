// Shared by the benchmark programs: a console reporter that keeps the time per
// iteration of every run, so that a program can print ours/baseline ratios
// measured in the same process on the same input.
#pragma once

#include <benchmark/benchmark.h>
#include <expat.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace OrvexBench {

namespace detail {
inline void XMLCALL NoStart(void*, const XML_Char*, const XML_Char**) {}
inline void XMLCALL NoEnd(void*, const XML_Char*) {}
inline void XMLCALL NoText(void*, const XML_Char*, int) {}
inline void XMLCALL NoNamespaceStart(void*, const XML_Char*, const XML_Char*) {}
inline void XMLCALL NoNamespaceEnd(void*, const XML_Char*) {}
}  // namespace detail

// The baseline of the reading and writing ratios: the library reader's parser
// set-up (namespace processing, the same handlers installed, one call over the
// whole buffer) with handlers that do nothing. A parse error skips the run.
inline void ParseWithRawExpat(const std::string& xml, benchmark::State& state)
{
    XML_Parser parser = XML_ParserCreateNS(nullptr, '|');
    XML_SetElementHandler(parser, detail::NoStart, detail::NoEnd);
    XML_SetNamespaceDeclHandler(parser, detail::NoNamespaceStart, detail::NoNamespaceEnd);
    XML_SetCharacterDataHandler(parser, detail::NoText);
    if (XML_Parse(parser, xml.data(), static_cast<int>(xml.size()), 1) != XML_STATUS_OK)
        state.SkipWithError(XML_ErrorString(XML_GetErrorCode(parser)));
    XML_ParserFree(parser);
}

class RatioReporter : public benchmark::ConsoleReporter
{
public:
    struct Times
    {
        double cpu = 0;   // CPU seconds per iteration: the steadier figure on a shared machine
        double real = 0;  // wall-clock seconds per iteration
    };

    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration || run.iterations <= 0) continue;
            const double n = static_cast<double>(run.iterations);
            m_times[run.run_name.function_name] = {run.cpu_accumulated_time / n, run.real_accumulated_time / n};
        }
        ConsoleReporter::ReportRuns(runs);
    }

    bool Has(const std::string& name) const { return m_times.count(name) != 0; }
    Times Get(const std::string& name) const
    {
        auto it = m_times.find(name);
        return it == m_times.end() ? Times() : it->second;
    }

    // Prints "label: ours X ms, baseline Y ms, ratio Z (CPU), W (real)" and gives
    // the CPU ratio, or 0 when either run is missing.
    double PrintRatio(const std::string& ours, const std::string& baseline, const std::string& label) const
    {
        if (!Has(ours) || !Has(baseline) || Get(baseline).cpu <= 0 || Get(baseline).real <= 0) return 0;
        const Times a = Get(ours), b = Get(baseline);
        std::printf("%-40s %10.3f ms vs %10.3f ms   ratio %.3f CPU, %.3f real\n", label.c_str(), a.cpu * 1e3,
                    b.cpu * 1e3, a.cpu / b.cpu, a.real / b.real);
        return a.cpu / b.cpu;
    }

private:
    std::map<std::string, Times> m_times;
};

}  // namespace OrvexBench
