// How the stream and file entry points pack their output bytes; the numbers are
// part of the interface.
#pragma once

namespace OrvexXmlLib5 {

// The packing of the bytes of a stream or file entry point.
enum CompressionType
{
    Compression_None = 0,
    Compression_GZIP = 1,  // deflate in a gzip member
    Compression_ZLIB = 2   // deflate in a zlib stream; not for the file entry points
};

}  // namespace OrvexXmlLib5
