// CompressData against zlib's own one-shot calls at level 1, and the hex and base64
// codecs against plain textbook loops, on the same 20 MB of XML-like text. Prints
// ours/baseline ratios of CPU time at the end (CPU time, because the machine is shared).
#include <zlib.h>

#include "BenchSupport.h"
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

#include "orvexxml/data/BinaryData.h"

using namespace OrvexXmlLib5;

namespace {

constexpr std::size_t InputSize = 20u << 20;

const std::string& Input()
{
    static const std::string text = [] {
        std::string out;
        out.reserve(InputSize + 256);
        out += "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<orders>\n";
        unsigned seed = 12345;
        for (unsigned i = 0; out.size() < InputSize; ++i) {
            seed = seed * 1103515245u + 12345u;
            out += "  <order id=\"" + std::to_string(i) + "\" customer=\"C" + std::to_string(seed % 9973) +
                   "\">\n    <item sku=\"SKU-" + std::to_string((seed >> 8) % 100000) + "\" qty=\"" +
                   std::to_string(seed % 17 + 1) + "\">Widget " + std::to_string((seed >> 4) % 4099) +
                   "</item>\n    <price currency=\"EUR\">" + std::to_string((seed >> 3) % 100000 / 100.0) +
                   "</price>\n  </order>\n";
        }
        out.resize(InputSize);
        return out;
    }();
    return text;
}

CBinaryData InputData()
{
    const std::string& text = Input();
    return CBinaryData(reinterpret_cast<unsigned char*>(const_cast<char*>(text.data())),
                       static_cast<unsigned long>(text.size()), false);
}

const unsigned char* InputBytes()
{
    return reinterpret_cast<const unsigned char*>(Input().data());
}

// CompressData works in place, so every round starts from a fresh private copy.
void Compress(benchmark::State& state, CompressionType type)
{
    std::size_t size = 0;
    for (auto _ : state) {
        state.PauseTiming();
        CBinaryData data = InputData();
        state.ResumeTiming();
        data.CompressData(type);
        size = data.GetLength();
        benchmark::DoNotOptimize(data.GetData());
    }
    state.counters["bytes_out"] = static_cast<double>(size);
}

void GzipOurs(benchmark::State& state)
{
    Compress(state, Compression_GZIP);
}

void ZlibOurs(benchmark::State& state)
{
    Compress(state, Compression_ZLIB);
}

void ZlibCompress2(benchmark::State& state)
{
    std::size_t size = 0;
    for (auto _ : state) {
        uLongf length = compressBound(static_cast<uLong>(InputSize));
        std::vector<unsigned char> out(length);
        if (compress2(out.data(), &length, InputBytes(), static_cast<uLong>(InputSize), 1) != Z_OK) std::abort();
        size = length;
        benchmark::DoNotOptimize(out.data());
    }
    state.counters["bytes_out"] = static_cast<double>(size);
}

// zlib's one-shot gzip: deflateInit2 with the gzip wrapper and one finishing deflate.
void GzipZlibOneShot(benchmark::State& state)
{
    std::size_t size = 0;
    for (auto _ : state) {
        z_stream s{};
        deflateInit2(&s, 1, Z_DEFLATED, 15 + 16, 8, Z_DEFAULT_STRATEGY);
        std::vector<unsigned char> out(deflateBound(&s, static_cast<uLong>(InputSize)));
        s.next_in = const_cast<unsigned char*>(InputBytes());
        s.avail_in = static_cast<uInt>(InputSize);
        s.next_out = out.data();
        s.avail_out = static_cast<uInt>(out.size());
        if (deflate(&s, Z_FINISH) != Z_STREAM_END) std::abort();
        size = s.total_out;
        deflateEnd(&s);
        benchmark::DoNotOptimize(out.data());
    }
    state.counters["bytes_out"] = static_cast<double>(size);
}

const char* const Alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// Textbook base64: a bit accumulator and one append per character.
std::string NaiveBase64Encode(const std::string& bytes)
{
    std::string out;
    unsigned accumulator = 0;
    int bits = 0;
    for (unsigned char c : bytes) {
        accumulator = accumulator << 8 | c;
        bits += 8;
        while (bits >= 6) {
            bits -= 6;
            out.push_back(Alphabet[(accumulator >> bits) & 0x3F]);
        }
    }
    if (bits > 0) out.push_back(Alphabet[(accumulator << (6 - bits)) & 0x3F]);
    while (out.size() % 4) out.push_back('=');
    return out;
}

std::string NaiveBase64Decode(const std::string& text)
{
    int value[256];
    for (int& v : value) v = -1;
    for (int i = 0; i < 64; ++i) value[static_cast<unsigned char>(Alphabet[i])] = i;
    std::string out;
    unsigned accumulator = 0;
    int bits = 0;
    for (unsigned char c : text) {
        if (value[c] < 0) continue;
        accumulator = accumulator << 6 | static_cast<unsigned>(value[c]);
        bits += 6;
        if (bits >= 8) {
            bits -= 8;
            out.push_back(static_cast<char>((accumulator >> bits) & 0xFF));
        }
    }
    return out;
}

std::string NaiveHexEncode(const std::string& bytes)
{
    static const char digits[] = "0123456789ABCDEF";
    std::string out;
    for (unsigned char c : bytes) {
        out.push_back(digits[c >> 4]);
        out.push_back(digits[c & 0xF]);
    }
    return out;
}

int NaiveHexDigit(char c)
{
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    std::abort();
}

std::string NaiveHexDecode(const std::string& text)
{
    std::string out;
    for (std::size_t i = 0; i + 1 < text.size(); i += 2)
        out.push_back(static_cast<char>(NaiveHexDigit(text[i]) << 4 | NaiveHexDigit(text[i + 1])));
    return out;
}

// One untimed round first, so that no side pays for the first touch of fresh pages.
template <typename RoundTrip>
void Measure(benchmark::State& state, RoundTrip roundTrip)
{
    if (roundTrip() != InputSize) std::abort();
    for (auto _ : state)
        if (roundTrip() != InputSize) std::abort();
}

void Base64Ours(benchmark::State& state)
{
    const CBinaryData data = InputData();
    Measure(state, [&] {
        CBinaryData back;
        back.SetAsBase64(data.GetAsBase64().c_str());
        return back.GetLength();
    });
}

void Base64Naive(benchmark::State& state)
{
    Measure(state, [] { return NaiveBase64Decode(NaiveBase64Encode(Input())).size(); });
}

void HexOurs(benchmark::State& state)
{
    const CBinaryData data = InputData();
    Measure(state, [&] {
        CBinaryData back;
        back.SetAsHexString(data.GetAsHexString().c_str());
        return back.GetLength();
    });
}

void HexNaive(benchmark::State& state)
{
    Measure(state, [] { return NaiveHexDecode(NaiveHexEncode(Input())).size(); });
}

}  // namespace

BENCHMARK(GzipOurs)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(GzipZlibOneShot)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(ZlibOurs)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(ZlibCompress2)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(Base64Ours)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(Base64Naive)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(HexOurs)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(HexNaive)->Unit(benchmark::kMillisecond)->Iterations(3);

int main(int argc, char** argv)
{
    Input();  // generated once, outside every measurement
    benchmark::Initialize(&argc, argv);
    OrvexBench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatio("GzipOurs", "ZlibCompress2", "gzip CompressData / compress2");
    reporter.PrintRatio("GzipOurs", "GzipZlibOneShot", "gzip CompressData / zlib one-shot gzip");
    reporter.PrintRatio("ZlibOurs", "ZlibCompress2", "zlib CompressData / compress2");
    reporter.PrintRatio("Base64Ours", "Base64Naive", "base64 encode+decode / per-character loop");
    reporter.PrintRatio("HexOurs", "HexNaive", "hex encode+decode / per-character loop");
    benchmark::Shutdown();
    return 0;
}
