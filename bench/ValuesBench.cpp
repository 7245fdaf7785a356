// Cost of the value conversions and the pattern facet against the bare C library
// and PCRE2 on the same inputs; prints ours/baseline ratios of CPU time at the end
// (CPU time, because the machine is shared).
#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include "BenchSupport.h"
#include <benchmark/benchmark.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "orvexxml/data/OrvexVariant.h"
#include "orvexxml/metadata/PrimitiveRestrictions.h"
#include "orvexxml/values/Conversions.h"

using namespace OrvexXmlLib5;
using Rule = CWhitespaceUtils::WhitespaceRule;

namespace {

constexpr std::size_t Count = 1000000;
const char* const CodePattern = "[A-Z]{2}-\\d{4}-[a-z]+";

const std::vector<std::string>& IntegerTexts()
{
    static const std::vector<std::string> texts = [] {
        std::mt19937 rng(1);
        std::uniform_int_distribution<std::int32_t> dist(-2000000000, 2000000000);
        std::vector<std::string> out;
        out.reserve(Count);
        for (std::size_t i = 0; i < Count; ++i) out.push_back(std::to_string(dist(rng) >> (i % 28)));
        return out;
    }();
    return texts;
}

const std::vector<std::string>& RealTexts()
{
    static const std::vector<std::string> texts = [] {
        std::mt19937 rng(2);
        std::uniform_real_distribution<double> dist(-1e6, 1e6);
        std::vector<std::string> out;
        out.reserve(Count);
        char buffer[32];
        for (std::size_t i = 0; i < Count; ++i) {
            std::snprintf(buffer, sizeof buffer, i % 2 ? "%.17g" : "%.6f", dist(rng));
            out.push_back(buffer);
        }
        return out;
    }();
    return texts;
}

const std::vector<std::string>& CodeTexts()
{
    static const std::vector<std::string> texts = [] {
        std::mt19937 rng(3);
        std::vector<std::string> out;
        out.reserve(Count);
        for (std::size_t i = 0; i < Count; ++i) {
            std::string s;
            s += char('A' + rng() % 26);
            s += char('A' + rng() % 26);
            s += '-';
            for (int d = 0; d < 4; ++d) s += char('0' + rng() % 10);
            s += '-';
            for (unsigned n = 3 + rng() % 10; n > 0; --n) s += char('a' + rng() % 26);
            out.push_back(s);
        }
        return out;
    }();
    return texts;
}

void I4Ours(benchmark::State& state)
{
    const auto& texts = IntegerTexts();
    for (auto _ : state) {
        std::int64_t sum = 0;
        for (const auto& t : texts) sum += CConversions::i4FromString(t, Rule::Collapse);
        benchmark::DoNotOptimize(sum);
    }
}

void I4Strtol(benchmark::State& state)
{
    const auto& texts = IntegerTexts();
    for (auto _ : state) {
        std::int64_t sum = 0;
        for (const auto& t : texts) {
            char* end = nullptr;
            errno = 0;
            long v = std::strtol(t.c_str(), &end, 10);
            if (errno == ERANGE || *end != '\0') std::abort();
            sum += v;
        }
        benchmark::DoNotOptimize(sum);
    }
}

void R8Ours(benchmark::State& state)
{
    const auto& texts = RealTexts();
    for (auto _ : state) {
        double sum = 0;
        for (const auto& t : texts) sum += CConversions::r8FromString(t, Rule::Collapse);
        benchmark::DoNotOptimize(sum);
    }
}

void R8Strtod(benchmark::State& state)
{
    const auto& texts = RealTexts();
    for (auto _ : state) {
        double sum = 0;
        for (const auto& t : texts) {
            char* end = nullptr;
            double v = std::strtod(t.c_str(), &end);
            if (*end != '\0') std::abort();
            sum += v;
        }
        benchmark::DoNotOptimize(sum);
    }
}

void PatternOurs(benchmark::State& state)
{
    const auto& texts = CodeTexts();
    CPrimitiveRestrictions facets(CodePattern, 1, 40, nullptr, nullptr, nullptr, nullptr, -1);
    std::vector<OrvexVariant> values(texts.size());
    for (std::size_t i = 0; i < texts.size(); ++i) values[i].SetString(texts[i]);
    for (auto _ : state) {
        for (const auto& v : values) CheckPrimitiveRestriction("code", v, ItemType_string, facets);
    }
}

void PatternPcre2(benchmark::State& state)
{
    const auto& texts = CodeTexts();
    int error = 0;
    PCRE2_SIZE offset = 0;
    pcre2_code* code = pcre2_compile(reinterpret_cast<PCRE2_SPTR>(CodePattern), PCRE2_ZERO_TERMINATED, PCRE2_UTF,
                                     &error, &offset, nullptr);
    pcre2_match_data* md = pcre2_match_data_create_from_pattern(code, nullptr);
    for (auto _ : state) {
        for (const auto& t : texts) {
            int rc =
                pcre2_match(code, reinterpret_cast<PCRE2_SPTR>(t.data()), t.size(), 0, PCRE2_ANCHORED, md, nullptr);
            if (rc < 1 || pcre2_get_ovector_pointer(md)[1] != t.size()) std::abort();
        }
    }
    pcre2_match_data_free(md);
    pcre2_code_free(code);
}

}  // namespace

BENCHMARK(I4Ours)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(I4Strtol)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(R8Ours)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(R8Strtod)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(PatternOurs)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(PatternPcre2)->Unit(benchmark::kMillisecond)->Iterations(3);

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    OrvexBench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatio("I4Ours", "I4Strtol", "i4 conversion / strtol");
    reporter.PrintRatio("R8Ours", "R8Strtod", "r8 conversion / strtod");
    reporter.PrintRatio("PatternOurs", "PatternPcre2", "string facet with pattern / bare PCRE2");
    benchmark::Shutdown();
    return 0;
}
