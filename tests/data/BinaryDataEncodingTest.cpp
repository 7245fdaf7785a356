#include <random>
#include <zlib.h>

#include "TestUtil.h"
#include "orvexxml/data/BinaryData.h"
#include "orvexxml/data/detail/ByteCodecs.h"

using namespace OrvexXmlLib5;

namespace {

CBinaryData FromBytes(const std::string& bytes)
{
    return CBinaryData(reinterpret_cast<unsigned char*>(const_cast<char*>(bytes.data())),
                       static_cast<unsigned long>(bytes.size()), false);
}

std::string RandomBytes(std::size_t length, unsigned seed)
{
    std::mt19937 rng(seed);
    std::string out(length, '\0');
    for (char& c : out) c = static_cast<char>(rng());
    return out;
}

std::string XmlLikeText(std::size_t length)
{
    std::string out;
    for (int i = 0; out.size() < length; ++i)
        out += "<item id=\"" + std::to_string(i * 7919 % 100003) + "\">n" + std::to_string(i) + "</item>\n";
    return out.substr(0, length);
}

// zlib's own inflate of at most limit bytes; windowBits 15 + 16 takes only a gzip
// member, 15 only a zlib stream.
std::string Inflate(const unsigned char* data, std::size_t length, int windowBits, std::size_t limit)
{
    z_stream s{};
    std::string out(limit, '\0');
    EXPECT_EQ(inflateInit2(&s, windowBits), Z_OK);
    s.next_in = const_cast<unsigned char*>(data), s.avail_in = static_cast<uInt>(length);
    s.next_out = reinterpret_cast<Bytef*>(&out[0]), s.avail_out = static_cast<uInt>(out.size());
    EXPECT_EQ(inflate(&s, Z_FINISH), Z_STREAM_END);
    EXPECT_EQ(s.avail_in, 0u);
    out.resize(s.total_out);
    inflateEnd(&s);
    return out;
}

}  // namespace

TEST(BinaryDataHex, EncodesUpperCaseAndDecodesEitherCase)
{
    EXPECT_EQ(FromBytes("\x0A\xFF").GetAsHexString(), "0AFF");
    EXPECT_EQ(CBinaryData().GetAsHexString(), "");
    // Every byte round trips through the upper case; the lower case is read too.
    std::string all;
    for (int i = 0; i < 256; ++i) all += static_cast<char>(i);
    CBinaryData back;
    back.SetAsHexString("0aFf");
    EXPECT_EQ(back.GetString(), "\x0A\xFF");
    back.SetAsHexString(FromBytes(all).GetAsHexString().c_str());
    EXPECT_EQ(back.GetString(), all);
    back.SetAsHexString("");
    EXPECT_NE(back, CBinaryData());
    EXPECT_EQ(back.GetLength(), 0u);
}

TEST(BinaryDataHex, FailsOnTheFirstBadCharacterAndKeepsTheOldContents)
{
    // An odd length reads the terminator as the bad character; the message ends there.
    const std::string terminator("Invalid char in hex string [");
    // clang-format off
    const std::pair<const char*, std::string> cases[] = {
        {"ABC", terminator}, {"0A0", terminator}, {"0G", "Invalid char in hex string [G]"},
        {"G0", "Invalid char in hex string [G]"}, {"0A 0B", "Invalid char in hex string [ ]"},
        {"0A0B\n", "Invalid char in hex string [\n]"}, {"0AxZ", "Invalid char in hex string [x]"},
        {"0A-", "Invalid char in hex string [-]"}, {"\xC3\xA9", "Invalid char in hex string [\xC3]"}};
    // clang-format on
    for (const auto& c : cases) {
        CBinaryData b("keep");
        EXPECT_THROW_MSG(b.SetAsHexString(c.first), COrvexException, c.second);
        EXPECT_EQ(b.GetString(), "keep") << c.first;
    }
}

TEST(BinaryDataBase64, KnownVectorsAndRoundTrips)
{
    // clang-format off
    const char* vectors[][2] = {{"", ""}, {"f", "Zg=="}, {"fo", "Zm8="}, {"foo", "Zm9v"}, {"foob", "Zm9vYg=="},
        {"fooba", "Zm9vYmE="}, {"foobar", "Zm9vYmFy"}};
    // clang-format on
    CBinaryData b;
    for (const auto& v : vectors) {
        EXPECT_EQ(CBinaryData(v[0]).GetAsBase64(), v[1]);
        b.SetAsBase64(v[1]);
        EXPECT_EQ(b.GetString(), v[0]);
    }
    EXPECT_EQ(CBinaryData().GetAsBase64(), "");
    for (std::size_t length = 0; length < 70; ++length) {
        const std::string bytes = RandomBytes(length, static_cast<unsigned>(length));
        b.SetAsBase64(FromBytes(bytes).GetAsBase64().c_str());
        EXPECT_EQ(b.GetString(), bytes);
    }
    const std::string longText = FromBytes(RandomBytes(100000, 7)).GetAsBase64();
    EXPECT_EQ(longText.size(), 133336u);
    EXPECT_EQ(longText.find_first_of("\r\n"), std::string::npos);
}

TEST(BinaryDataBase64, DecodesLenientlyAndNeverFails)
{
    // clang-format off
    const std::pair<const char*, std::string> cases[] = {
        {"QU=JD", "ABC"}, {"=Q=U=J=D=", "ABC"}, {"Zm9v=YmFy", "foobar"}, {"Zm9vYmFy====", "foobar"},
        {"QUJD QUJD", ""}, {"QUJD\n", ""}, {"QU\tJD", ""}, {"QUJ!", ""}, {"Q", ""}, {"QQ", "A"}, {"QUI", "AB"},
        {"====", ""},
        {"\xD1\xD5JD", "ABC"},        // the top bit is ignored: Q and U
        {"QQ==QQ==", "\x41\x04\x10"}  // padding inside is skipped and the bits run on
    };
    // clang-format on
    for (const auto& c : cases) {
        CBinaryData b("old");
        b.SetAsBase64(c.first);
        EXPECT_EQ(b.GetString(), c.second) << c.first;
        EXPECT_NE(b, CBinaryData()) << c.first;
    }
    CBinaryData fromNull("old");
    fromNull.SetAsBase64(nullptr);
    EXPECT_EQ(fromNull.GetLength(), 0u);
}

TEST(BinaryDataByteEncoding, TypedListsReadMostSignificantOctetFirst)
{
    struct Case { const char* hex; ByteEncoding encoding; std::string text; };
    const Case cases[] = {// clang-format off
        {"410042", ByteEncoding_Text, std::string("A\0B", 3)}, {"0AFF", ByteEncoding_Hex, "0AFF"},
        {"414243", ByteEncoding_Base64, "QUJD"}, {"0001FFFF", ByteEncoding_Short, "1 -1"},
        {"80007FFF", ByteEncoding_Short, "-32768 32767"}, {"00000100", ByteEncoding_Int, "256"},
        {"800000007FFFFFFF", ByteEncoding_Int, "-2147483648 2147483647"}, {"FFFFFFFFFFFFFFFE", ByteEncoding_Long, "-2"},
        {"8000000000000000", ByteEncoding_Long, "-9223372036854775808"},
        {"3F800000C0200000", ByteEncoding_Float, "1 -2.5"}, {"3FF8000000000000", ByteEncoding_Double, "1.5"},
        {"2D", ByteEncoding_Boolean, "true true"}, {"09", ByteEncoding_Boolean, "true false false true"},
        {"70FF", ByteEncoding_Boolean, "false false false false true"}, {"F0", ByteEncoding_Boolean, ""},
        {"ABABABABABABABABABABABABABABABAB01010101010101010101010101010101", ByteEncoding_Uuid,
         "ABABABABABABABABABABABABABABABAB 01010101010101010101010101010101"},
        {"", ByteEncoding_Int, ""}, {"", ByteEncoding_Boolean, ""}};
    // clang-format on
    for (const auto& c : cases) {
        CBinaryData b;
        b.SetAsHexString(c.hex);
        EXPECT_EQ(b.GetAsString(c.encoding), c.text) << c.hex;
    }
}

TEST(BinaryDataByteEncoding, FailuresNameTheEncodingAndTheFirstByte)
{
    const std::pair<int, const char*> cases[] = {// clang-format off
        {ByteEncoding_Short, "SHORT"}, {ByteEncoding_Int, "INT"}, {ByteEncoding_Long, "LONG"},
        {ByteEncoding_Float, "FLOAT"}, {ByteEncoding_Double, "DOUBLE"}, {ByteEncoding_Uuid, "UUID"}, {10, ""}, {-1, ""}};
    // clang-format on
    const CBinaryData fiveBytes("xyzuv");
    for (const auto& c : cases) {
        const std::string message =
            *c.second ? std::string("Invalid value [x] for ") + c.second + " byte encoding." : "Unknown byte encoding.";
        EXPECT_THROW_MSG(fiveBytes.GetAsString(static_cast<ByteEncoding>(c.first)), COrvexException, message);
        EXPECT_EQ(CBinaryData().GetAsString(static_cast<ByteEncoding>(c.first)), "");
    }
}

TEST(BinaryDataCompression, BothWrappersInflateBackWithZlib)
{
    for (const std::string& text : {std::string(10000, 'a'), XmlLikeText(1 << 20)}) {
        CBinaryData gzip = FromBytes(text);
        CBinaryData sharer(gzip);
        CBinaryData result = gzip.CompressData(Compression_GZIP);
        EXPECT_EQ(result.GetData(), gzip.GetData());
        EXPECT_EQ(sharer.GetString(), text);
        // Magic, deflate, no flags; byte 8 is zlib's mark of the fastest level.
        EXPECT_EQ(gzip.GetString().substr(0, 4), std::string("\x1F\x8B\x08\x00", 4));
        EXPECT_EQ(gzip[8], 4);
        EXPECT_EQ(Inflate(gzip.GetData(), gzip.GetLength(), 15 + 16, text.size() + 1), text);

        CBinaryData zlib = FromBytes(text);
        zlib.CompressData(Compression_ZLIB);
        EXPECT_EQ(zlib.GetString().substr(0, 2), "\x78\x01");
        EXPECT_EQ(Inflate(zlib.GetData(), zlib.GetLength(), 15, text.size() + 1), text);
    }
}

TEST(BinaryDataCompression, OutputLongerThanTheInputFailsAndKeepsTheData)
{
    // zlib reports a full output as Z_BUF_ERROR when the finishing call finds no room
    // at all and as Z_OK when it ran out of room on the way.
    const std::tuple<std::string, CompressionType, const char*> cases[] = {
        // clang-format off
        {"0123456789", Compression_GZIP, "-5"}, {"0123456789", Compression_ZLIB, "0"},
        {RandomBytes(5000, 3), Compression_GZIP, "0"}, {RandomBytes(5000, 3), Compression_ZLIB, "0"},
        {"", Compression_GZIP, "-5"}, {"", Compression_ZLIB, "-5"}};
    // clang-format on
    for (const auto& [bytes, type, code] : cases) {
        CBinaryData b = FromBytes(bytes);
        EXPECT_THROW_MSG(b.CompressData(type), COrvexException,
                         std::string("Failed to compress data. [Error Code: ") + code + "]");
        EXPECT_EQ(b.GetString(), bytes);
    }
    EXPECT_THROW_MSG(CBinaryData().CompressData(Compression_GZIP), COrvexException,
                     "Failed to compress data. [Error Code: -5]");
    CBinaryData plain("text");
    EXPECT_EQ(plain.CompressData(Compression_None).GetData(), plain.GetData());
    EXPECT_EQ(plain.GetString(), "text");
}

TEST(BinaryDataCompression, BuffersInPiecesGiveTheSameStream)
{
    // Buffers beyond 4 GB reach zlib in pieces; pieces of 1000 bytes stand in for them.
    const std::string text = XmlLikeText(300000);
    const auto* in = reinterpret_cast<const unsigned char*>(text.data());
    for (bool gzip : {true, false}) {
        std::string whole(text.size(), '\0'), pieces(text.size(), '\0');
        std::size_t wholeLength = 0, piecesLength = 0;
        auto* wholeOut = reinterpret_cast<unsigned char*>(&whole[0]);
        auto* piecesOut = reinterpret_cast<unsigned char*>(&pieces[0]);
        EXPECT_EQ(Detail::DeflateInto(in, text.size(), wholeOut, text.size(), gzip, wholeLength), Z_STREAM_END);
        EXPECT_EQ(Detail::DeflateInto(in, text.size(), piecesOut, text.size(), gzip, piecesLength, 1000), Z_STREAM_END);
        EXPECT_EQ(pieces.substr(0, piecesLength), whole.substr(0, wholeLength));
        EXPECT_EQ(Inflate(piecesOut, piecesLength, gzip ? 15 + 16 : 15, text.size() + 1), text);
        EXPECT_NE(Detail::DeflateInto(in, text.size(), piecesOut, 100, gzip, piecesLength, 10), Z_STREAM_END);
    }
}
