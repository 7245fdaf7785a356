#include "orvexxml/data/BinaryData.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <csignal>
#include <dirent.h>
#include <iterator>
#include <string>
#include <vector>
#include <sys/resource.h>
#include <sys/stat.h>

#include "TestUtil.h"
#include "orvexxml/frame/OrvexException.h"

using namespace OrvexXmlLib5;

namespace {

std::string ReadFile(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

unsigned char* Bytes(const char* text)
{
    return reinterpret_cast<unsigned char*>(const_cast<char*>(text));
}

}  // namespace

TEST(BinaryDataSharing, CopiesShareUntilOneSideWrites)
{
    CBinaryData a("hello"), b(a), c, d(a);
    EXPECT_EQ(a.GetData(), b.GetData());
    b.Append(" world");
    c = a;
    c.SetBuffer("other");
    d[0] = 'J';
    EXPECT_EQ(a.GetString() + " " + b.GetString() + " " + c.GetString() + " " + d.GetString(),
              "hello hello world other Jello");

    // Writing through GetData() is not a write of the object: the sharer sees it.
    CBinaryData e(a);
    e.GetData()[0] = 'C';
    EXPECT_EQ(a.GetString(), "Cello");

    a = a;
    EXPECT_EQ(a.GetString(), "Cello");
    const CBinaryData none;
    EXPECT_EQ(CBinaryData(none).GetData(), nullptr);
}

TEST(BinaryDataCapacity, CopyingHolderAndGrowth)
{
    CBinaryData small("0123456789");
    EXPECT_EQ(small.GetCapacity(), 4096u);

    const std::string big(5000, 'x'), more(5001, 'y');
    CBinaryData buffer(big.c_str());
    EXPECT_EQ(buffer.GetCapacity(), 10000u);
    buffer.Append(more.c_str());
    EXPECT_EQ(buffer.GetCapacity(), 20002u);
    EXPECT_EQ(buffer.GetString(), big + more);

    unsigned char* owned = new unsigned char[10];
    std::memset(owned, 'a', 10);
    CBinaryData taken(owned, 10, true);
    EXPECT_EQ(taken.GetData(), owned);
    EXPECT_EQ(taken.GetCapacity(), 10u);
    taken.Append(static_cast<unsigned char>('b'));
    EXPECT_EQ(taken.GetCapacity(), 22u);
    EXPECT_EQ(taken.GetString(), "aaaaaaaaaab");

    CBinaryData bytes;
    for (int i = 0; i < 100000; ++i) bytes.Append(static_cast<unsigned char>(i));
    EXPECT_EQ(bytes.GetLength(), 100000u);
    EXPECT_EQ(bytes[99999], static_cast<unsigned char>(99999));
}

TEST(BinaryDataAccess, IndexAndStringForms)
{
    const unsigned char raw[] = {0x41, 0x00, 0x42};
    CBinaryData data(const_cast<unsigned char*>(raw), 3, false);
    EXPECT_EQ(data.GetString().size(), 3u);
    EXPECT_EQ(data[2], 0x42);
    EXPECT_THROW_MSG(data[3], COrvexException, "Index Out of range [3]");
    const CBinaryData empty;
    EXPECT_THROW_MSG(empty[0], COrvexException, "Index Out of range [0]");
    EXPECT_EQ(empty.GetString() + std::to_string(empty.GetLength()), "0");
    CBinaryData mutableEmpty;
    EXPECT_THROW_MSG(mutableEmpty[4294967295u], COrvexException, "Index Out of range [-1]");
}

TEST(BinaryDataCompare, NullHolderDiffersFromEmptyHolder)
{
    CBinaryData none, otherNone, zero(""), otherZero;
    otherZero.Append(CBinaryData());
    EXPECT_TRUE(none == otherNone && none != zero && zero == otherZero);
    EXPECT_FALSE(none == zero);
    EXPECT_NE(otherZero.GetData(), nullptr);
    EXPECT_TRUE(CBinaryData("abc") == CBinaryData("abc"));
    EXPECT_TRUE(CBinaryData("abc") != CBinaryData("abd") && CBinaryData("abc") != CBinaryData("ab"));
}

TEST(BinaryDataAppend, SelfAndOtherObjects)
{
    CBinaryData a("ab");
    a.Append(a);
    CBinaryData b(a);
    b.Append(a);
    b.Append(Bytes("xyz"), 2);
    EXPECT_EQ(a.GetString() + " " + b.GetString(), "abab ababababxy");

    // A source inside the buffer itself survives the reallocation of growth.
    unsigned char* own = new unsigned char[4];
    std::memcpy(own, "wxyz", 4);
    CBinaryData c(own, 4, true);
    c.Append(c.GetData() + 1, 3);
    EXPECT_EQ(c.GetString(), "wxyzxyz");
}

TEST(BinaryDataRelease, CallerGetsPrivateArray)
{
    CBinaryData a("data");
    CBinaryData b(a);
    unsigned char* released = b.ReleaseData();
    ASSERT_NE(released, nullptr);
    EXPECT_EQ(std::string(reinterpret_cast<char*>(released), 4), "data");
    EXPECT_NE(released, a.GetData());
    delete[] released;
    EXPECT_EQ(a.GetString(), "data");
    EXPECT_EQ(b.GetLength(), 0u);
    EXPECT_EQ(b.GetData(), nullptr);
    b.Append("x");
    EXPECT_EQ(b.GetString(), "x");
    CBinaryData none;
    EXPECT_EQ(none.ReleaseData(), nullptr);

    CDataHolder shared{nullptr, 0, 0, 2};
    EXPECT_THROW_MSG(shared.ReleaseData(), COrvexException, "Failed to release data. [RefCount=2]");
}

TEST(BinaryDataFile, WritesMarkAndBytesAndReportsErrno)
{
    const std::string path = OrvexTest::TempPath("binary_data.bin");
    const unsigned char raw[] = {0x1F, 0x8B, 0x00, 0xFF};
    CBinaryData data(const_cast<unsigned char*>(raw), 4, false);
    const struct { CBinaryData data; XmlEncoding encoding; std::string bytes; } writes[] = {
        {data, Encoding_UTF8, std::string("\x1F\x8B\x00\xFF", 4)},
        {data, Encoding_UTF16, std::string("\xFF\xFE\x1F\x8B\x00\xFF", 6)},
        {CBinaryData(), Encoding_UTF16_NoDeclaration, "\xFF\xFE"}, {CBinaryData(), Encoding_Unspecified, ""}};
    for (const auto& w : writes) {
        w.data.ToFile(path.c_str(), w.encoding);
        EXPECT_EQ(ReadFile(path), w.bytes) << w.encoding;
    }
    // errno in hex: ENOENT, EINVAL, ENOSPC.
    const std::string missing = OrvexTest::TempPath("no/such/dir/file.bin");
    const std::pair<const char*, std::string> failures[] = {
        {missing.c_str(), missing + "] error [0x00000002]"}, {nullptr, "(null)] error [0x00000016]"},
        {"/dev/full", "/dev/full] error [0x0000001C]"}};
    for (const auto& f : failures)
        EXPECT_THROW_MSG(data.ToFile(f.first, Encoding_UTF8), COrvexException,
                         "Failed to write data to the file [" + f.second);
}

// Names in the folder of path that start with its file name, path itself included.
std::vector<std::string> FilesLike(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    const std::string folder = path.substr(0, slash), name = path.substr(slash + 1);
    std::vector<std::string> found;
    if (DIR* dir = opendir(folder.c_str())) {
        while (const dirent* entry = readdir(dir))
            if (std::string(entry->d_name).compare(0, name.size(), name) == 0) found.push_back(entry->d_name);
        closedir(dir);
    }
    return found;
}

TEST(BinaryDataFile, AFailedWriteLeavesThePreviousFileAndNoPartOfTheNewOne)
{
    const std::string path = OrvexTest::TempPath("binary_data_replace.bin");
    std::remove(path.c_str());
    CBinaryData("old contents").ToFile(path.c_str(), Encoding_UTF8);
    ASSERT_EQ(0, chmod(path.c_str(), 0640));

    // A file size limit makes the write fail part way, with EFBIG instead of the signal.
    const std::string big(100000, 'x');
    struct rlimit saved;
    getrlimit(RLIMIT_FSIZE, &saved);
    struct rlimit limit = saved;
    limit.rlim_cur = 4096;
    auto previous = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &limit);
    bool threw = false;
    try {
        CBinaryData(big.c_str()).ToFile(path.c_str(), Encoding_UTF8);
    } catch (const COrvexException& e) {
        threw = true;
        EXPECT_EQ("Failed to write data to the file [" + path + "] error [0x0000001B]", e.GetMessage());
    }
    setrlimit(RLIMIT_FSIZE, &saved);
    std::signal(SIGXFSZ, previous);
    EXPECT_TRUE(threw);
    EXPECT_EQ("old contents", ReadFile(path));
    EXPECT_EQ(std::vector<std::string>{"binary_data_replace.bin"}, FilesLike(path));

    // A successful write replaces the file whole and keeps its permissions.
    CBinaryData(big.c_str()).ToFile(path.c_str(), Encoding_UTF16);
    EXPECT_EQ("\xFF\xFE" + big, ReadFile(path));
    struct stat info;
    ASSERT_EQ(0, stat(path.c_str(), &info));
    EXPECT_EQ(0640u, info.st_mode & 07777);
    EXPECT_EQ(std::vector<std::string>{"binary_data_replace.bin"}, FilesLike(path));

    // A device is written in place, never replaced.
    CBinaryData("gone").ToFile("/dev/null", Encoding_UTF8);
    ASSERT_EQ(0, stat("/dev/null", &info));
    EXPECT_TRUE(S_ISCHR(info.st_mode));
}

TEST(BinaryDataText, LocalAndWideToUtf8AndUtf16)
{
    EXPECT_EQ(LocalToUtf8Bytes("\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80").GetString(),
              "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
    EXPECT_EQ(LocalToUtf8Bytes(std::string("a\0b", 3)).GetLength(), 3u);
    EXPECT_TRUE(LocalToUtf8Bytes("") == CBinaryData());
    // An invalid byte is replaced, as the code page conversion does.
    EXPECT_EQ(LocalToUtf8Bytes("a\xFF").GetString(), "a\xEF\xBF\xBD");

    EXPECT_EQ(LocalToUtf16Bytes("A\xC3\xA9").GetString(), std::string("A\0\xE9\0", 4));
    EXPECT_EQ(LocalToUtf16Bytes("\xF0\x9F\x98\x80").GetString(), std::string("\x3D\xD8\x00\xDE", 4));
    EXPECT_TRUE(LocalToUtf16Bytes("") == CBinaryData());

    const char16_t pair[] = {u'x', 0xD83D, 0xDE00, 0x7FF, 0x800, 0xFFFF, 0};
    EXPECT_EQ(WideToUtf8Bytes(pair).GetString(), "x\xF0\x9F\x98\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF");
    // A lone high, a lone low and a high surrogate at the end each give nothing.
    const char16_t broken[][4] = {{u'a', 0xD83D, u'b', 0}, {u'a', 0xDE00, 0}, {u'a', 0xD83D, 0}};
    for (const auto& text : broken)
        EXPECT_TRUE(WideToUtf8Bytes(text) == CBinaryData());
    const unsigned short shortText[] = {0x48, 0x69, 0};
    EXPECT_EQ(WideToUtf8Bytes(shortText).GetString(), "Hi");
    EXPECT_TRUE(WideToUtf8Bytes(static_cast<const char16_t*>(nullptr)) == CBinaryData());
}
