// Big numbers: decimal text in and out against strtod/snprintf on the same texts,
// and the arithmetic on 1000-digit integers. Prints the ratios at the end.
#include "orvexxml/values/BigInteger.h"
#include "orvexxml/values/Decimal.h"

#include "BenchSupport.h"
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <random>
#include <string>
#include <vector>

using namespace OrvexXmlLib5;

namespace {

constexpr std::size_t kTexts = 1000000;

struct Corpus
{
    std::vector<std::string> texts;
    std::vector<int> places;  // fraction digits of each text, for snprintf
    std::vector<CDecimal> decimals;
    std::vector<double> doubles;
};

// Amounts and small quantities as they appear in documents: "12345.67", "-0.005".
const Corpus& TheCorpus()
{
    static const Corpus corpus = [] {
        Corpus c;
        std::mt19937 rng(1234);
        c.texts.reserve(kTexts);
        for (std::size_t i = 0; i < kTexts; ++i) {
            std::string s = rng() % 5 == 0 ? "-" : "";
            const int wholeDigits = static_cast<int>(rng() % 7);
            s += wholeDigits == 0 ? "0" : std::to_string(rng() % 1000000 + 1).substr(0, static_cast<std::size_t>(wholeDigits));
            const int fractionDigits = static_cast<int>(rng() % 5);
            if (fractionDigits > 0) {
                s.push_back('.');
                for (int k = 0; k < fractionDigits; ++k)
                    s.push_back(static_cast<char>('0' + (k + 1 == fractionDigits ? 1 + rng() % 9 : rng() % 10)));
            }
            c.texts.push_back(s);
            c.places.push_back(fractionDigits);
        }
        c.decimals.reserve(kTexts);
        c.doubles.reserve(kTexts);
        for (const std::string& s : c.texts) {
            c.decimals.emplace_back(s.c_str());
            c.doubles.push_back(std::strtod(s.c_str(), nullptr));
        }
        return c;
    }();
    return corpus;
}

void BM_ParseDecimal(benchmark::State& state)
{
    const Corpus& c = TheCorpus();
    for (auto _ : state) {
        for (const std::string& s : c.texts) {
            CDecimal d(s.c_str());
            benchmark::DoNotOptimize(d);
        }
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * kTexts));
}

void BM_ParseStrtod(benchmark::State& state)
{
    const Corpus& c = TheCorpus();
    for (auto _ : state) {
        for (const std::string& s : c.texts) {
            double d = std::strtod(s.c_str(), nullptr);
            benchmark::DoNotOptimize(d);
        }
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * kTexts));
}

void BM_PrintDecimal(benchmark::State& state)
{
    const Corpus& c = TheCorpus();
    for (auto _ : state) {
        for (const CDecimal& d : c.decimals) {
            std::string s = d.ToString();
            benchmark::DoNotOptimize(s);
        }
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * kTexts));
}

void BM_PrintSnprintf(benchmark::State& state)
{
    const Corpus& c = TheCorpus();
    for (auto _ : state) {
        for (std::size_t i = 0; i < kTexts; ++i) {
            char buffer[64];
            const int n = std::snprintf(buffer, sizeof(buffer), "%.*f", c.places[i], c.doubles[i]);
            std::string s(buffer, static_cast<std::size_t>(n));
            benchmark::DoNotOptimize(s);
        }
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * kTexts));
}

std::string Digits(std::mt19937& rng, std::size_t n)
{
    std::string s(1, static_cast<char>('1' + rng() % 9));
    while (s.size() < n)
        s.push_back(static_cast<char>('0' + rng() % 10));
    return s;
}

// The plain digit-by-digit algorithms over the same digit vectors, as the baseline
// of the arithmetic: a row per digit of b, and division by scaled subtraction.
class DigitLayer : public CBigInteger
{
public:
    using CBigInteger::Add;
    using CBigInteger::Compare;
    using CBigInteger::Position;
    using CBigInteger::ShiftLeft;
    using CBigInteger::Subtract;
    using Digits = CBigInteger::Digits;

    static Digits DigitsOf(const std::string& text)
    {
        Digits v;
        for (auto it = text.rbegin(); it != text.rend(); ++it)
            v.push_back(static_cast<char>(*it - '0'));
        return v;
    }

    static void PlainMultiply(const Digits& a, const Digits& b, Digits& out)
    {
        out.assign(1, 0);
        for (std::size_t i = 0; i < b.size(); ++i) {
            if (b[i] == 0)
                continue;
            Digits row(a.size() + 1, 0);
            int carry = 0;
            for (std::size_t j = 0; j < a.size(); ++j) {
                const int v = a[j] * b[i] + carry;
                row[j] = static_cast<char>(v % 10);
                carry = v / 10;
            }
            row[a.size()] = static_cast<char>(carry);
            if (row.back() == 0)
                row.pop_back();
            ShiftLeft(row, static_cast<int>(i));
            Add(out, row, out);
        }
    }

    static void PlainDivide(const Digits& a, const Digits& b, Digits& q, Digits& r)
    {
        if (Compare(a, b) < 0) {
            q.assign(1, 0);
            r = a;
            return;
        }
        const int s = Position(a) - Position(b) - 1;
        Digits d = b, m{1};
        if (s >= 1) {
            ShiftLeft(d, s);
            ShiftLeft(m, s);
        }
        r = a;
        q.assign(1, 0);
        while (Compare(r, d) >= 0) {
            Add(q, m, q);
            Subtract(r, d, r);
        }
        if (Compare(r, b) >= 0) {
            Digits q2, r2;
            PlainDivide(r, b, q2, r2);
            r = r2;
            Add(q, q2, q);
        }
    }
};

void BM_PlainMultiply1000(benchmark::State& state)
{
    std::mt19937 rng(5);
    const DigitLayer::Digits a = DigitLayer::DigitsOf(Digits(rng, 1000)), b = DigitLayer::DigitsOf(Digits(rng, 1000));
    for (auto _ : state) {
        DigitLayer::Digits p;
        DigitLayer::PlainMultiply(a, b, p);
        benchmark::DoNotOptimize(p);
    }
}

void BM_PlainDivide2000By1000(benchmark::State& state)
{
    std::mt19937 rng(6);
    const DigitLayer::Digits a = DigitLayer::DigitsOf(Digits(rng, 2000)), b = DigitLayer::DigitsOf(Digits(rng, 1000));
    for (auto _ : state) {
        DigitLayer::Digits q, r;
        DigitLayer::PlainDivide(a, b, q, r);
        benchmark::DoNotOptimize(q);
    }
}

void BM_Multiply1000(benchmark::State& state)
{
    std::mt19937 rng(5);
    const CBigInteger a(Digits(rng, 1000).c_str()), b(Digits(rng, 1000).c_str());
    for (auto _ : state) {
        CBigInteger p = a * b;
        benchmark::DoNotOptimize(p);
    }
}

void BM_Divide2000By1000(benchmark::State& state)
{
    std::mt19937 rng(6);
    const CBigInteger a(Digits(rng, 2000).c_str()), b(Digits(rng, 1000).c_str());
    for (auto _ : state) {
        CBigInteger q = a / b;
        benchmark::DoNotOptimize(q);
    }
}

void BM_Remainder1000By500(benchmark::State& state)
{
    std::mt19937 rng(7);
    const CBigInteger a(Digits(rng, 1000).c_str()), b(Digits(rng, 500).c_str());
    for (auto _ : state) {
        CBigInteger q = a % b;
        benchmark::DoNotOptimize(q);
    }
}

void BM_DecimalDivide1000(benchmark::State& state)
{
    std::mt19937 rng(8);
    const CDecimal a((Digits(rng, 1000) + "." + Digits(rng, 20)).c_str());
    const CDecimal b((Digits(rng, 500) + "." + Digits(rng, 20)).c_str());
    for (auto _ : state) {
        CDecimal q = a / b;
        benchmark::DoNotOptimize(q);
    }
}

}  // namespace

BENCHMARK(BM_ParseDecimal)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_ParseStrtod)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_PrintDecimal)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_PrintSnprintf)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_Multiply1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_PlainMultiply1000)->Unit(benchmark::kMicrosecond)->Iterations(20);
BENCHMARK(BM_PlainDivide2000By1000)->Unit(benchmark::kMicrosecond)->Iterations(2);
BENCHMARK(BM_Divide2000By1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Remainder1000By500)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_DecimalDivide1000)->Unit(benchmark::kMicrosecond);

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    TheCorpus();
    OrvexBench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    std::printf("\nOne million decimal texts:\n");
    reporter.PrintRatio("BM_ParseDecimal", "BM_ParseStrtod", "CDecimal parse / strtod");
    reporter.PrintRatio("BM_PrintDecimal", "BM_PrintSnprintf", "CDecimal print / snprintf");
    std::printf("\n1000-digit integers, against digit-by-digit schoolbook work:\n");
    reporter.PrintRatio("BM_Multiply1000", "BM_PlainMultiply1000", "multiply 1000 x 1000 digits");
    reporter.PrintRatio("BM_Divide2000By1000", "BM_PlainDivide2000By1000", "divide 2000 by 1000 digits");
    for (const char* name : {"BM_Multiply1000", "BM_Divide2000By1000", "BM_Remainder1000By500", "BM_DecimalDivide1000"})
        if (reporter.Has(name)) std::printf("%-22s %9.1f us\n", name, reporter.Get(name).cpu * 1e6);
    benchmark::Shutdown();
    return 0;
}
