#include "orvexxml/values/BigInteger.h"

#include <cstdint>
#include <initializer_list>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "TestUtil.h"
#include "orvexxml/values/Decimal.h"

using namespace OrvexXmlLib5;

namespace {

std::string Int128Text(__int128 v)
{
    unsigned __int128 m = v < 0 ? -static_cast<unsigned __int128>(v) : static_cast<unsigned __int128>(v);
    std::string s;
    do
        s.insert(s.begin(), static_cast<char>('0' + static_cast<int>(m % 10)));
    while ((m /= 10) > 0);
    return v < 0 ? "-" + s : s;
}

// The texts of the values, one blank between: a row of results in one comparison.
std::string Texts(std::initializer_list<CBigInteger> values)
{
    std::string out;
    for (const CBigInteger& v : values) out += (out.empty() ? "" : " ") + v.ToString();
    return out;
}

// Exposes the digit-vector layer.
class DigitLayer : public CBigInteger
{
public:
    using CBigInteger::Build, CBigInteger::Compare, CBigInteger::Divide, CBigInteger::Position, CBigInteger::ShiftLeft,
        CBigInteger::Subtract;
    using Digits = CBigInteger::Digits;
};

}  // namespace

TEST(BigInteger, ParseAndPrintTable)
{
    const std::pair<const char*, const char*> cases[] = {
        {"", "0"},         {"   ", "0"},       {"-", "0"},          {"0", "0"},      {"-0", "0"},
        {"+12", "12"},     {"12-34", "34"},    {"12\n", "0"},       {"  42  ", "42"}, {"007", "7"},
        {"-123", "-123"},  {"\t5", "5"},       {"12.9", "13"},      {"12.5", "12"},  {"-12.5", "-12"},
        {"-12.6", "-13"},  {"1E+3", "1000"},   {"2.5e1", "25"},     {"  -9 ", "-9"}, {"- 5", "-5"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(CBigInteger(c.first).ToString(), c.second) << "[" << c.first << "]";

    const std::string maxDouble = CBigInteger("1.7E+308").ToString();
    EXPECT_EQ(maxDouble, "17" + std::string(307, '0'));
    EXPECT_EQ(CBigInteger::MAX_DOUBLE.ToString(), maxDouble);
    EXPECT_EQ(CBigInteger::MIN_DOUBLE.ToString(), "-" + maxDouble);
    EXPECT_EQ(CBigInteger::MIN_LONGLONG.ToString(), "-9223372036854775808");

    EXPECT_THROW_MSG(CBigInteger("abc"), COrvexInvalidValueException,
                     "The string representing a Decimal, contained an invalid char at position 0 [abc]");
    EXPECT_THROW_MSG(CBigInteger(static_cast<const char*>(nullptr)), COrvexInvalidValueException,
                     "The string representing a Decimal, contained an invalid char at position 0 []");
}

TEST(BigInteger, SignRulesOfTheFourOperations)
{
    struct Case { long long a, b; const char *sum, *difference, *product, *quotient, *remainder; };
    const Case cases[] = {
        {7, 2, "9", "5", "14", "3", "1"},          {-7, 2, "-5", "-9", "-14", "-3", "-1"},
        {7, -2, "5", "9", "-14", "-3", "1"},       {-7, -2, "-9", "-5", "14", "3", "-1"},
        {0, 5, "5", "-5", "0", "0", "0"},          {5, 5, "10", "0", "25", "1", "0"},
        {-5, 5, "0", "-10", "-25", "-1", "0"},     {1000, 1, "1001", "999", "1000", "1000", "0"},
        {1, 1000, "1001", "-999", "1000", "0", "1"}, {999, 1, "1000", "998", "999", "999", "0"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::to_string(c.a) + " " + std::to_string(c.b));
        const CBigInteger a(c.a), b(c.b);
        CBigInteger x[5] = {a, a, a, a, a};
        x[0] += b, x[1] -= b, x[2] *= b, x[3] /= b, x[4] %= b;
        const CBigInteger plain[5] = {a + b, a - b, a * b, a / b, a % b};
        const char* const expected[5] = {c.sum, c.difference, c.product, c.quotient, c.remainder};
        for (int op = 0; op < 5; ++op) {
            EXPECT_EQ(plain[op].ToString(), expected[op]) << op;
            EXPECT_EQ(x[op].ToString(), expected[op]) << op;
        }
    }
    CBigInteger self(12);
    EXPECT_EQ(Texts({self += self, self -= self}), "24 0");
}

TEST(BigInteger, DivisionByZeroFails)
{
    CBigInteger a(5);
    const CBigInteger zero;
    EXPECT_THROW_MSG(a / zero, COrvexInvalidValueException, "ERROR: Overflow in operator/!");
    EXPECT_THROW_MSG(a % zero, COrvexInvalidValueException, "ERROR: Overflow in operator%!");
    EXPECT_THROW_MSG(a /= zero, COrvexInvalidValueException, "ERROR: Overflow in operator /=!");
    EXPECT_THROW_MSG(a %= zero, COrvexInvalidValueException, "ERROR: Overflow in operator%=!");
    EXPECT_THROW_MSG(CBigInteger(0) / CBigInteger("-"), COrvexInvalidValueException, "ERROR: Overflow in operator/!");
    EXPECT_EQ(a.ToString(), "5");
}

// The order agrees with equality, which ignores the sign of a zero.
TEST(BigInteger, NegativeZeroEqualsZeroAndOrdersWithIt)
{
    CBigInteger z;
    z.Negate();
    const CBigInteger zero;
    EXPECT_EQ(z.ToString(), "0");
    EXPECT_TRUE(z == zero && z <= zero && z >= zero && CBigInteger("-") == zero && (zero + z) == zero);
    EXPECT_FALSE(zero < z || z < zero || z > zero || zero > z);
    EXPECT_TRUE(CBigInteger(-1) < z && z < CBigInteger(1) && CBigInteger(1) > z && z > CBigInteger(-1));

    // Unary minus negates in place; GetAbs and GetNegative leave the object alone.
    CBigInteger x(3);
    EXPECT_EQ(&-x, &x);
    EXPECT_EQ(Texts({x.GetAbs(), x.GetNegative(), x}), "3 3 -3");
}

TEST(BigInteger, ConversionLimits)
{
    const std::pair<const char*, long long> ints[] = {
        {"2147483647", 2147483647LL}, {"-2147483648", -2147483648LL}, {"0", 0}, {"-", 0}, {"-17", -17}};
    for (const auto& c : ints)
        EXPECT_EQ(static_cast<int>(CBigInteger(c.first)), c.second) << c.first;
    for (const char* bad : {"2147483648", "-2147483649", "99999999999999999999"})
        EXPECT_THROW_MSG(static_cast<int>(CBigInteger(bad)), COrvexInvalidValueException,
                         "ERROR: Domain in operator int()!");

    EXPECT_EQ(static_cast<std::int64_t>(CBigInteger("9223372036854775807")), INT64_MAX);
    EXPECT_EQ(static_cast<std::int64_t>(CBigInteger("-9223372036854775808")), INT64_MIN);
    EXPECT_EQ(static_cast<std::int64_t>(CBigInteger(-42)), -42);
    for (const char* bad : {"9223372036854775808", "-9223372036854775809"})
        EXPECT_THROW_MSG(static_cast<std::int64_t>(CBigInteger(bad)), COrvexInvalidValueException,
                         "ERROR: Domain in operator int()!");
    EXPECT_EQ(Texts({CBigInteger(INT64_MIN), CBigInteger(UINT64_MAX), CBigInteger(4294967295u)}),
              "-9223372036854775808 18446744073709551615 4294967295");
}

TEST(BigInteger, FromDoubleRoundsHalfDown)
{
    const std::pair<double, const char*> cases[] = {
        {0.5, "0"},  {1.5, "1"},  {-1.5, "-1"}, {2.6, "3"},       {2.5, "2"},
        {-0.4, "0"}, {0.0, "0"},  {1e20, "100000000000000000000"}, {123456.0, "123456"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(CBigInteger(c.first).ToString(), c.second) << c.first;
    EXPECT_EQ(CBigInteger(1e308).ToString().size(), 309u);
    EXPECT_THROW(CBigInteger(std::numeric_limits<double>::infinity()), COrvexOverFlowException);
    EXPECT_THROW(CBigInteger(std::numeric_limits<double>::quiet_NaN()), COrvexOverFlowException);
}

TEST(BigInteger, SquareRootAndPow10)
{
    const std::pair<const char*, const char*> cases[] = {
        {"99", "9"}, {"100", "10"}, {"1", "1"}, {"2", "1"}, {"10000000000000000000000", "100000000000"},
        {"123456789012345678901234567890", "351364182882014"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(CBigInteger(c.first).SquareRoot().ToString(), c.second) << c.first;
    EXPECT_THROW_MSG(CBigInteger(-4).SquareRoot(), COrvexInvalidValueException,
                     "ERROR: Negative Number in function SquareRoot()!");
    EXPECT_THROW_MSG(CBigInteger(0).SquareRoot(), COrvexInvalidValueException, "ERROR: Overflow in operator/!");
    EXPECT_EQ(Texts({CBigInteger::Pow10(0), CBigInteger::Pow10(12)}), "1 1000000000000");
}

TEST(BigInteger, DigitLayer)
{
    DigitLayer::Digits v;
    DigitLayer::Build(std::string("12ab"), v);
    EXPECT_TRUE(v.empty());
    EXPECT_EQ(DigitLayer::Position(v), 1);
    EXPECT_EQ(DigitLayer::Compare(v, DigitLayer::Digits{0}), 0);
    DigitLayer::Build(std::string("x0042"), v);
    EXPECT_EQ(v, (DigitLayer::Digits{2, 4}));
    DigitLayer::ShiftLeft(v, 3);
    EXPECT_EQ(v, (DigitLayer::Digits{0, 0, 0, 2, 4}));
    DigitLayer::Digits d;
    DigitLayer::Subtract(DigitLayer::Digits{0, 0, 0, 1}, DigitLayer::Digits{1}, d);
    EXPECT_EQ(d, (DigitLayer::Digits{9, 9, 9}));
    DigitLayer::Digits q, r;
    DigitLayer::Divide(DigitLayer::Digits{3}, DigitLayer::Digits{0, 1}, q, r);
    EXPECT_EQ(q, DigitLayer::Digits{0});
    EXPECT_EQ(r, DigitLayer::Digits{3});
}

TEST(BigInteger, RandomOperationsAgreeWithInt128)
{
    std::mt19937_64 rng(20261122);
    for (int n = 0; n < 4000; ++n) {
        const int bits = 1 + static_cast<int>(rng() % 62);
        const std::int64_t a = static_cast<std::int64_t>(rng() >> (64 - bits)) * ((rng() & 1) ? -1 : 1);
        const std::int64_t b = static_cast<std::int64_t>(rng() >> (1 + rng() % 63)) * ((rng() & 1) ? -1 : 1);
        const __int128 wide = static_cast<__int128>(a) * (static_cast<__int128>(rng()) + 1);
        const CBigInteger A(a), B(b), W(Int128Text(wide).c_str());
        EXPECT_EQ((A + B).ToString(), Int128Text(static_cast<__int128>(a) + b));
        EXPECT_EQ((A - B).ToString(), Int128Text(static_cast<__int128>(a) - b));
        EXPECT_EQ((A * B).ToString(), Int128Text(static_cast<__int128>(a) * b));
        EXPECT_EQ((W + B).ToString(), Int128Text(wide + b));
        if (b != 0) {
            EXPECT_EQ((A / B).ToString(), Int128Text(a / b)) << a << " / " << b;
            EXPECT_EQ((A % B).ToString(), Int128Text(a % b)) << a << " % " << b;
            EXPECT_EQ((W / B).ToString(), Int128Text(wide / b));
            EXPECT_EQ((W % B).ToString(), Int128Text(wide % b));
        }
        if (a != 0 && b != 0) {
            EXPECT_EQ(A < B, a < b);
            EXPECT_EQ(A >= B, a >= b);
            EXPECT_EQ(A == B, a == b);
        }
        EXPECT_EQ(static_cast<std::int64_t>(A), a);
    }
}

TEST(BigInteger, DefaultAndMovedFromValuesActAsZeroEverywhere)
{
    // A default value holds no digit until it needs one; every operation must see
    // the zero that a parsed "0" is.
    const CBigInteger seven(7), minusThree(-3);
    auto zeros = [] {
        std::vector<CBigInteger> values(3);
        values[1] = CBigInteger("0");
        CBigInteger source(5);
        CBigInteger moved(std::move(source));
        values[2] = source;  // moved from: still a value
        return values;
    };
    for (CBigInteger zero : zeros()) {
        EXPECT_EQ(Texts({zero, zero + seven, seven - zero, zero - seven, zero * minusThree, zero / seven, zero % seven,
                         zero.GetNegative()}),
                  "0 7 7 -7 0 0 0 0");
        EXPECT_THROW(seven / zero, COrvexException);
        EXPECT_TRUE(zero == CBigInteger(0));
        EXPECT_TRUE(zero < seven && minusThree < zero);
        EXPECT_EQ(static_cast<int>(zero), 0);
        EXPECT_EQ(static_cast<std::int64_t>(zero), 0);
        EXPECT_THROW_MSG(zero.SquareRoot(), COrvexInvalidValueException, "ERROR: Overflow in operator/!");
        CBigInteger sum = zero, product = zero, difference = zero;
        EXPECT_EQ(Texts({sum += minusThree, product *= seven, difference -= minusThree}), "-3 0 3");
        EXPECT_EQ(CDecimal(zero).ToString(), CDecimal(CBigInteger(0)).ToString());
    }
}
