#include "orvexxml/xml/detail/InputInflater.h"

#include <zlib.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <memory>
#include <string>

#include "orvexxml/frame/FormatString.h"
#include "orvexxml/frame/OrvexException.h"

namespace OrvexXmlLib5 {
namespace Detail {

namespace {

constexpr std::size_t ChunkSize = 0x10000;
// 15 window bits, plus 32: zlib and gzip headers are both recognised.
constexpr int AutoDetectWindowBits = 15 + 32;

struct CInflateStream
{
    z_stream stream;
    bool initialised;

    CInflateStream() : initialised(false)
    {
        std::memset(&stream, 0, sizeof stream);
        initialised = inflateInit2(&stream, AutoDetectWindowBits) == Z_OK;
    }
    ~CInflateStream()
    {
        if (initialised) inflateEnd(&stream);
    }
    CInflateStream(const CInflateStream&) = delete;
    CInflateStream& operator=(const CInflateStream&) = delete;
};

}  // namespace

bool InflateStream(const unsigned char* data, std::size_t length, std::uint64_t maxSize, CBinaryData& out)
{
    out.Clear();
    if (!data || length == 0) return false;
    CInflateStream inflater;
    if (!inflater.initialised) return false;
    z_stream& stream = inflater.stream;

    // zlib counts in 32 bits per call: input beyond that is handed over in pieces.
    std::size_t inRest = length;
    stream.next_in = const_cast<Bytef*>(data);
    std::uint64_t total = 0;
    std::unique_ptr<unsigned char[]> buffer(new unsigned char[ChunkSize]);
    unsigned char* const chunk = buffer.get();
    int result;
    do {
        if (stream.avail_in == 0 && inRest > 0) {
            stream.avail_in = static_cast<uInt>(std::min<std::size_t>(inRest, UINT_MAX));
            inRest -= stream.avail_in;
        }
        stream.next_out = chunk;
        stream.avail_out = static_cast<uInt>(ChunkSize);
        result = inflate(&stream, Z_NO_FLUSH);
        const std::size_t produced = ChunkSize - stream.avail_out;
        if (produced > 0) {
            total += produced;
            if (maxSize != 0 && total > maxSize) {
                out.Clear();
                throw COrvexException(FormatString(
                    "The inflated input is larger than the limit of [%s] bytes set in the serialization context.",
                    std::to_string(maxSize).c_str()));
            }
            out.Append(chunk, static_cast<unsigned long>(produced));
        }
        // A stop for want of input is only the end of a piece while pieces are left.
        if (result == Z_BUF_ERROR && stream.avail_in == 0 && inRest > 0) result = Z_OK;
    } while (result == Z_OK);

    if (result != Z_STREAM_END) {
        out.Clear();
        return false;
    }
    return true;
}

}  // namespace Detail
}  // namespace OrvexXmlLib5
