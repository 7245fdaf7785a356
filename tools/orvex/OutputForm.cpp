#include "tools/orvex/OutputForm.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace OrvexTool {

using namespace OrvexXmlLib5;

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
    } catch (const COrvexException& e) {
        throw COrvexException("The output of " + std::to_string(bytes.GetLength()) +
                                  " bytes is too small to compress: the compressed form would be longer",
                              e);
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
