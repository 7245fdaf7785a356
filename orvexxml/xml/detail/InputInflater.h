// The first step of reading bytes or a file: a gzip or zlib stream is inflated,
// anything else is left for the next step exactly as it came.
#pragma once

#include <cstddef>
#include <cstdint>

#include "orvexxml/data/BinaryData.h"

namespace OrvexXmlLib5 {
namespace Detail {

// Inflates data as a zlib or a gzip stream, whichever its header says, in chunks of
// 64 KiB. Gives true with the whole inflated data in out only when the stream ends
// properly; gives false, with out empty, for data that is no complete stream
// (plain text, Fast Infoset, a cut or corrupt stream). Once more than maxSize bytes
// come out (0: no limit) fails with COrvexException, since the input is then
// either hostile or larger than the caller admits.
bool InflateStream(const unsigned char* data, std::size_t length, std::uint64_t maxSize, CBinaryData& out);

}  // namespace Detail
}  // namespace OrvexXmlLib5
