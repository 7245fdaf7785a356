// Long numbers: every product, quotient and root algorithm, at and around the
// lengths where one hands over to the next, against identities and against
// results computed by Python's integers (BigIntegerVectors.inc).
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/metadata/PrimitiveRestrictions.h"
#include "orvexxml/values/BigInteger.h"
#include "orvexxml/values/Conversions.h"
#include "orvexxml/values/Decimal.h"

#include "TestUtil.h"

#include <cstdint>
#include <cstring>
#include <random>
#include <string>

using namespace OrvexXmlLib5;

namespace {

// The generator that big_integer_vectors.py repeats: n digits, the first never 0.
std::string SeededDigits(std::uint64_t seed, std::size_t n)
{
    std::string s(n, '0');
    std::uint64_t x = seed;
    for (std::size_t i = 0; i < n; ++i) {
        x = x * 6364136223846793005ull + 1442695040888963407ull;
        const int d = static_cast<int>((x >> 33) % 10);
        s[i] = static_cast<char>('0' + (i == 0 && d == 0 ? 1 : d));
    }
    return s;
}

// Length, first and last characters, and the digits' value modulo 10^9 + 7 and 998244353.
struct Fingerprint { std::size_t length; const char *head, *tail; std::uint32_t mod1, mod2; };

// op is '*', '/', '%' or 's' (the square root of a); the operands come from SeededDigits.
struct Vector
{
    char op;
    std::uint64_t seedA;
    std::size_t digitsA;
    bool negativeA;
    std::uint64_t seedB;
    std::size_t digitsB;
    bool negativeB;
    Fingerprint result;
};

const Vector kVectors[] = {
#include "BigIntegerVectors.inc"
};

std::uint32_t DigitsModulo(const std::string& text, std::uint64_t p)
{
    std::uint64_t v = 0;
    for (char c : text)
        if (c >= '0' && c <= '9') v = (v * 10 + static_cast<std::uint64_t>(c - '0')) % p;
    return static_cast<std::uint32_t>(v);
}

void ExpectFingerprint(const std::string& text, const Fingerprint& f, const std::string& what)
{
    EXPECT_EQ(text.size(), f.length) << what;
    const std::size_t tailLength = std::strlen(f.tail);
    EXPECT_EQ(text.substr(0, std::strlen(f.head)), f.head) << what;
    EXPECT_EQ(text.size() >= tailLength ? text.substr(text.size() - tailLength) : text, f.tail) << what;
    EXPECT_EQ(DigitsModulo(text, 1000000007), f.mod1) << what;
    EXPECT_EQ(DigitsModulo(text, 998244353), f.mod2) << what;
}

// Random digits with long runs of 0 and of 9, which drive estimates and carries to
// their corrections.
std::string RunnyDigits(std::mt19937_64& rng, std::size_t n)
{
    std::string s;
    while (s.size() < n) {
        const unsigned kind = static_cast<unsigned>(rng() % 4);
        const std::size_t run = 1 + rng() % 30;
        for (std::size_t i = 0; i < run && s.size() < n; ++i)
            s.push_back(kind == 0 ? '0' : kind == 1 ? '9' : static_cast<char>('0' + rng() % 10));
    }
    if (s[0] == '0') s[0] = '1';
    return s;
}

std::string Nines(std::size_t n) { return std::string(n, '9'); }

// 10^n + 1: the top limb 1, the rest zeros but for the lowest.
std::string PowerPlusOne(std::size_t n)
{
    std::string s(n + 1, '0');
    s[0] = '1';
    s[n] = '1';
    return s;
}

// Products checked modulo primes against the operands' own digits: a check that
// shares nothing with the limb arithmetic.
void ExpectProductModuli(const std::string& as, const std::string& bs, const std::string& what)
{
    const CBigInteger product = CBigInteger(as.c_str()) * CBigInteger(bs.c_str());
    const std::string text = product.ToString();
    for (std::uint64_t p : {1000000007ull, 998244353ull, 2147483647ull}) {
        const std::uint64_t expected = std::uint64_t(DigitsModulo(as, p)) * DigitsModulo(bs, p) % p;
        EXPECT_EQ(DigitsModulo(text, p), expected) << what << " modulo " << p;
    }
    // A product of n and m digits has n + m - 1 or n + m digits.
    EXPECT_GE(text.size() + 1, as.size() + bs.size()) << what;
    EXPECT_LE(text.size(), as.size() + bs.size()) << what;
}

// a = q b + r with |r| < |b| and r of the dividend's sign.
void ExpectDivisionIdentity(const CBigInteger& a, const CBigInteger& b, const std::string& what)
{
    const CBigInteger q = a / b;
    const CBigInteger r = a % b;
    EXPECT_EQ((q * b + r).ToString(), a.ToString()) << what;
    EXPECT_TRUE(r.GetAbs() < b.GetAbs()) << what;
    const std::string rs = r.ToString();
    if (rs != "0") {
        EXPECT_EQ(rs[0] == '-', a.ToString()[0] == '-') << what;
    }
}

void ExpectFloorRoot(const CBigInteger& n, const std::string& what)
{
    const CBigInteger s = n.SquareRoot();
    EXPECT_TRUE(s * s <= n) << what;
    const CBigInteger next = s + CBigInteger(1);
    EXPECT_TRUE(n < next * next) << what;
}

}  // namespace

TEST(BigIntegerLarge, AgreesWithPythonOnFixedVectors)
{
    for (const Vector& v : kVectors) {
        const std::string as = (v.negativeA ? "-" : "") + SeededDigits(v.seedA, v.digitsA);
        const CBigInteger a(as.c_str());
        const std::string what = std::string(1, v.op) + " of " + std::to_string(v.digitsA) + " digits";
        if (v.op == 's') {
            ExpectFingerprint(a.SquareRoot().ToString(), v.result, what);
            continue;
        }
        const CBigInteger b(((v.negativeB ? "-" : "") + SeededDigits(v.seedB, v.digitsB)).c_str());
        const CBigInteger r = v.op == '*' ? a * b : v.op == '/' ? a / b : a % b;
        ExpectFingerprint(r.ToString(), v.result, what + " by " + std::to_string(v.digitsB));
    }
}

TEST(BigIntegerLarge, ProductsAroundEachAlgorithmBoundary)
{
    // Nine digits a limb; Karatsuba from 40 limbs (360 digits) in the shorter factor,
    // transforms from 1500 limbs (13500 digits), pieces when one factor is at least
    // twice the other.
    const std::size_t lengths[][2] = {
        {8, 9},       {9, 9},         {9, 10},        {18, 19},       {27, 27},       {351, 351},  {359, 360},
        {360, 360},   {361, 361},     {719, 360},     {720, 360},     {721, 361},     {5000, 361}, {5000, 359},
        {2000, 1999}, {13499, 13499}, {13500, 13500}, {13501, 13400}, {40000, 13500}, {13500, 9},
    };
    std::mt19937_64 rng(2024);
    for (const auto& l : lengths) {
        const std::string what = std::to_string(l[0]) + " x " + std::to_string(l[1]);
        ExpectProductModuli(RunnyDigits(rng, l[0]), RunnyDigits(rng, l[1]), what);
        // All nines, every column and carry at its largest: (10^n - 1)(10^m - 1) = 10^(n+m) - 10^n - 10^m + 1.
        const CBigInteger n9(Nines(l[0]).c_str()), m9(Nines(l[1]).c_str());
        const CBigInteger expected = CBigInteger::Pow10(static_cast<unsigned>(l[0] + l[1])) -
                                     CBigInteger::Pow10(static_cast<unsigned>(l[0])) -
                                     CBigInteger::Pow10(static_cast<unsigned>(l[1])) + CBigInteger(1);
        EXPECT_EQ((n9 * m9).ToString(), expected.ToString()) << what;
        EXPECT_EQ((n9 * m9 / m9).ToString(), Nines(l[0])) << what;
    }
}

// Short operands heavy in 0 and 9 drive the quotient estimates and carries of the
// schoolbook kernels to their corrections.
TEST(BigIntegerLarge, ShortOperandsKeepEveryIdentity)
{
    std::mt19937_64 rng(99);
    for (int n = 0; n < 1500; ++n) {
        const std::string as = RunnyDigits(rng, 1 + rng() % 70), bs = RunnyDigits(rng, 1 + rng() % 40);
        const std::string what = as + " and -" + bs;
        const CBigInteger a(as.c_str()), b(("-" + bs).c_str()), one(1);
        ASSERT_EQ(a.ToString(), as);
        ExpectProductModuli(as, bs, what);
        ExpectDivisionIdentity(a, b, what);
        EXPECT_EQ((a + b - b).ToString(), as) << what;
        EXPECT_EQ((a * a).SquareRoot().ToString(), as) << what;
        // A dividend a |b| + r with r one below |b|.
        const CBigInteger divisor = b.GetAbs(), below = a * divisor + divisor - one;
        EXPECT_EQ((below / divisor).ToString(), as) << what;
        EXPECT_EQ((below % divisor).ToString(), (divisor - one).ToString()) << what;
    }
}

TEST(BigIntegerLarge, QuotientsAndRemaindersKeepTheirIdentities)
{
    // Newton's reciprocal takes over when divisor and quotient both reach 80 limbs
    // (720 digits); the reciprocal recurses from 80 limbs of precision on.
    const std::size_t lengths[][2] = {
        {30, 19},     {1439, 720}, {1440, 720},  {1441, 721},   {1450, 719},    {2000, 700},
        {3000, 1500}, {5000, 729}, {9000, 4000}, {20000, 9000}, {20000, 19000}, {40000, 20000},
    };
    std::mt19937_64 rng(77);
    for (const auto& l : lengths) {
        const std::string what = std::to_string(l[0]) + " / " + std::to_string(l[1]);
        const CBigInteger a(RunnyDigits(rng, l[0]).c_str());
        const CBigInteger b(RunnyDigits(rng, l[1]).c_str());
        // The signs are applied outside the magnitude kernels; short operands test them.
        ExpectDivisionIdentity(a, b, what);
        // Exact multiples and one below the next: the estimate must land on both sides.
        const CBigInteger q(RunnyDigits(rng, l[0] - l[1] + 1).c_str());
        EXPECT_EQ((q * b / b).ToString(), q.ToString()) << what;
        EXPECT_EQ((q * b % b).ToString(), "0") << what;
        const CBigInteger below = q * b + b - CBigInteger(1);
        EXPECT_EQ((below / b).ToString(), q.ToString()) << what;
        EXPECT_EQ((below % b).ToString(), (b - CBigInteger(1)).ToString()) << what;
        // Divisors whose top limb is 1 or 999999999.
        ExpectDivisionIdentity(a, CBigInteger(PowerPlusOne(l[1]).c_str()), what + " by 10^n + 1");
        ExpectDivisionIdentity(a, CBigInteger(Nines(l[1]).c_str()), what + " by nines");
        ExpectDivisionIdentity(CBigInteger(Nines(l[0]).c_str()), CBigInteger(Nines(l[1]).c_str()), "nines " + what);
    }
}

TEST(BigIntegerLarge, SquareRootIsTheFloor)
{
    std::mt19937_64 rng(5);
    for (std::size_t digits : {1, 2, 9, 17, 18, 19, 20, 27, 28, 40, 63, 64, 100, 1000, 1441, 1442, 5001, 20000}) {
        const std::string what = std::to_string(digits) + " digits";
        const CBigInteger n(RunnyDigits(rng, digits).c_str());
        ExpectFloorRoot(n, what);
        ExpectFloorRoot(CBigInteger(Nines(digits).c_str()), "nines of " + what);
        ExpectFloorRoot(CBigInteger::Pow10(static_cast<unsigned>(digits)), "10^" + what);
        // Around a perfect square: x^2 - 1, x^2 and x^2 + 2x (the last below (x+1)^2).
        const CBigInteger x(RunnyDigits(rng, digits).c_str());
        const CBigInteger square = x * x;
        const CBigInteger below = x - CBigInteger(1);
        EXPECT_EQ(square.SquareRoot().ToString(), x.ToString()) << what;
        EXPECT_EQ((square - CBigInteger(1)).SquareRoot().ToString(), below.ToString()) << what;
        EXPECT_EQ((square + x + x).SquareRoot().ToString(), x.ToString()) << what;
    }
    EXPECT_EQ(CBigInteger("999999999999999999").SquareRoot().ToString(), "999999999");
    EXPECT_EQ(CBigInteger("1000000000000000000").SquareRoot().ToString(), "1000000000");
}

TEST(BigIntegerLarge, DecimalQuotientsAtManyPlaces)
{
    const int places = CDecimal::GetMaxDecimalPlaces();
    CDecimal::SetMaxDecimalPlaces(20000);
    // 1/7: the period 142857 throughout; digits 20001 and 20002 are "28", so the
    // last kept digit, 4, stays.
    const std::string seventh = (CDecimal(1) / CDecimal(7)).ToString();
    // 1/(10^900 - 1), a quotient by a long divisor: a 1 every 900 places, the zeros
    // after the last one dropped.
    const std::string nines = (CDecimal(1) / CDecimal(Nines(900).c_str())).ToString();
    CDecimal::SetMaxDecimalPlaces(places);
    std::string expected = "0.";
    while (expected.size() < 20002) expected += "142857";
    expected.resize(20002);
    EXPECT_EQ(seventh, expected);
    expected = "0.";
    for (int k = 0; k < 22; ++k) expected += std::string(899, '0') + "1";
    EXPECT_EQ(nines, expected);
}

TEST(QuotedValue, LongValuesAreCutInMessagesOnly)
{
    using Invalid = COrvexInvalidValueException;
    using Rule = CWhitespaceUtils::WhitespaceRule;
    const std::string exact(256, '7');
    const std::string longer(257, '7');
    const std::string huge(1000000, '7');
    const std::string cut = exact + "...";
    EXPECT_THROW_MSG(CDecimal((exact + "x").c_str()), Invalid,
                     "The string representing a Decimal, contained an invalid char at position 256 [" + cut + "]");
    EXPECT_THROW_MSG(CDecimal((huge + "x").c_str()), Invalid,
                     "The string representing a Decimal, contained an invalid char at position 1000000 [" + cut + "]");
    EXPECT_THROW_MSG(CConversions::i4FromString(exact, Rule::Preserve), Invalid,
                     "The value [" + exact + "] is to large to fit in a i4");
    EXPECT_THROW_MSG(CConversions::i4FromString(longer, Rule::Preserve), Invalid,
                     "The value [" + cut + "] is to large to fit in a i4");
    EXPECT_THROW_MSG(CConversions::r8FromString(huge + "x", Rule::Preserve), Invalid,
                     "The value [" + cut + "] can not be converted to a r8");
    // The cut never splits a UTF-8 sequence: "é" (2 bytes) across byte 256 goes whole.
    const std::string accented = std::string(255, 'a') + "\xC3\xA9" + "bbb";
    EXPECT_THROW_MSG(CConversions::charFromString(accented, Rule::Preserve), Invalid,
                     "The value [" + std::string(255, 'a') +
                         "...] can not be a char as it is either empty of greater than 1 char long");
    // A facet failure on a huge integer quotes its first 256 digits.
    OrvexVariant v;
    v.SetInteger(CBigInteger(huge.c_str()));
    EXPECT_THROW_MSG(
        CheckPrimitiveRestriction("n", v, ItemType_integer,
                                  CPrimitiveRestrictions(nullptr, -1, -1, nullptr, "5", nullptr, nullptr, -1)),
        COrvexException, "Invalid Value for n [" + cut + "]");
    // The value itself keeps every digit.
    EXPECT_EQ(CBigInteger(huge.c_str()).ToString(), huge);
}
