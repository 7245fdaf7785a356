#include "tools/orvex/OutputForm.h"

#include <zlib.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

namespace OrvexTool {

using namespace OrvexXmlLib5;

namespace {

// The library's compression fits its output into the length of its input, as its
// stream writers expect, and so refuses a document of a few bytes. The tool writes
// whatever it is asked to: such a document is deflated here with the same settings
// (level 1), into a buffer that zlib says is large enough.
CBinaryData DeflateGrowing(const CBinaryData& bytes, CompressionType compression)
{
    z_stream stream{};
    const int windowBits = compression == Compression_GZIP ? 15 + 16 : 15;
    if (deflateInit2(&stream, 1, Z_DEFLATED, windowBits, 8, Z_DEFAULT_STRATEGY) != Z_OK)
        throw COrvexException("Failed to compress data: zlib could not start");
    const uLong bound = deflateBound(&stream, bytes.GetLength()) + 32;
    std::unique_ptr<unsigned char[]> out(new unsigned char[bound]);
    stream.next_in = bytes.GetData();
    stream.avail_in = static_cast<uInt>(bytes.GetLength());
    stream.next_out = out.get();
    stream.avail_out = static_cast<uInt>(bound);
    const int result = deflate(&stream, Z_FINISH);
    const uLong written = stream.total_out;
    deflateEnd(&stream);
    if (result != Z_STREAM_END) throw COrvexException("Failed to compress data: zlib ended with " + std::to_string(result));
    return CBinaryData(out.get(), static_cast<unsigned long>(written), false);
}

}  // namespace

std::string COutputForm::Describe() const
{
    std::string text = fastInfoset ? "Fast Infoset" : utf16 ? "XML (UTF-16)" : "XML";
    if (compression == Compression_GZIP) text += "+gzip";
    if (compression == Compression_ZLIB) text += "+zlib";
    return text;
}

CBinaryData Encode(const CElement& element, const COutputForm& form)
{
    CXmlSerializationContext context;
    CBinaryData bytes;
    if (form.fastInfoset) {
        bytes = element.ToFastInfosetStream(form.declaration ? FInfoDecl_Plain : FInfoDecl_None, context);
    } else if (form.utf16) {
        unsigned char mark[2] = {0xFF, 0xFE};
        bytes = CBinaryData(mark, 2, false);
        bytes.Append(element.ToXmlStream(form.declaration, form.formatted, Encoding_UTF16, form.eol, context));
    } else {
        bytes = element.ToXmlStream(form.declaration, form.formatted, Encoding_UTF8, form.eol, context);
    }
    if (form.compression == Compression_None) return bytes;
    try {
        return bytes.CompressData(form.compression);
    } catch (const COrvexException&) {
        return DeflateGrowing(bytes, form.compression);
    }
}

void WriteOutput(const std::string& path, const CBinaryData& bytes)
{
    if (path != "-") {
        bytes.ToFile(path.c_str(), Encoding_Unspecified);
        return;
    }
    const std::size_t length = bytes.GetLength();
    if ((length > 0 && std::fwrite(bytes.GetData(), 1, length, stdout) != length) || std::fflush(stdout) != 0)
        throw COrvexException(std::string("Failed to write to the standard output: ") + std::strerror(errno));
}

}  // namespace OrvexTool
