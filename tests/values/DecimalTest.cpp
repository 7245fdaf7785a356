#include "orvexxml/values/Decimal.h"

#include "TestUtil.h"

#include <chrono>
#include <cstdint>
#include <limits>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

using namespace OrvexXmlLib5;

namespace {

std::string BadCharMessage(int position, const std::string& text)
{
    return "The string representing a Decimal, contained an invalid char at position " + std::to_string(position) +
           " [" + text + "]";
}

// Restores the process-wide number of places when a test ends.
struct MaxPlacesScope
{
    explicit MaxPlacesScope(int places) { CDecimal::SetMaxDecimalPlaces(places); }
    ~MaxPlacesScope() { CDecimal::SetMaxDecimalPlaces(30); }
};

// v / 10^places as the shortest decimal text.
std::string ScaledText(__int128 v, int places)
{
    const std::size_t n = static_cast<std::size_t>(places);
    unsigned __int128 m = v < 0 ? -static_cast<unsigned __int128>(v) : static_cast<unsigned __int128>(v);
    std::string digits;
    do
        digits.insert(digits.begin(), static_cast<char>('0' + static_cast<int>(m % 10)));
    while ((m /= 10) > 0);
    if (digits.size() <= n)
        digits.insert(0, n + 1 - digits.size(), '0');
    std::string text = digits.substr(0, digits.size() - n) + "." + digits.substr(digits.size() - n);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.')
        text.pop_back();
    return text == "0" ? text : (v < 0 ? "-" : "") + text;
}

}  // namespace

TEST(Decimal, ParseAndPrintTable)
{
    const std::pair<const char*, const char*> cases[] = {
        {"", "0"},           {".", "0"},          {"-", "0"},           {"5.", "5"},
        {".5", "0.5"},       {"-.5", "-0.5"},     {" 1 2 . 3 4 ", "12.34"}, {"1-2", "-12"},
        {"1e", "1"},         {"1e 5", "100000"},  {"1E+2", "100"},      {"1E-2", "0.01"},
        {"1.10", "1.1"},     {"100.00", "100"},   {"1.05", "1.05"},     {"-0", "0"},
        {"+-+3", "3"},       {"1e-0", "1"},       {"12345e-3", "12.345"}, {"1e-40", "0"},
        {"0.1000000000000", "0.1"}, {"1e+-5", "0.00001"}, {"1.2345678901234567890123456789012", "1.234567890123456789012345678901"},
        {"0.0000000000000000000000000000005", "0"}, {"0.0000000000000000000000000000006", "0.000000000000000000000000000001"},
        {"-0.99e0", "-0.99"}, {"\t\r\n7\n", "7"},
        {"12345.0000000000000000000000000667000000067", "12345.0000000000000000000000000667"},
        {"0.99999999999999999999999999999951", "1"}, {"-0.99999999999999999999999999999951", "-1"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(CDecimal(c.first).ToString(), c.second) << "[" << c.first << "]";
    EXPECT_EQ(CDecimal("1.7E+308").ToString(), "17" + std::string(307, '0'));
}

TEST(Decimal, ParseFailsAtTheFirstBadPosition)
{
    const std::pair<const char*, int> cases[] = {
        {"1.2.3", 3}, {"abc", 0}, {"1e5x", 3}, {"1e5 ", 3}, {"1.2 x", 4}, {"1e+-5 5", 5},
        {"12a", 2},   {"1..2", 2}, {"1e5e", 3}, {"inf", 0}, {"1.5-", 3}, {"1e.5", 2},
        {"1e10001", 6}, {"1e99999999999999999999999999999999999999", 6},
    };
    for (const auto& c : cases)
        EXPECT_THROW_MSG(CDecimal(c.first), COrvexInvalidValueException, BadCharMessage(c.second, c.first));
    EXPECT_THROW_MSG(CDecimal(static_cast<const char*>(nullptr)), COrvexInvalidValueException, BadCharMessage(0, ""));
}

TEST(Decimal, HugeExponentsStayBounded)
{
    const auto start = std::chrono::steady_clock::now();
    EXPECT_THROW(CDecimal("1e999999999"), COrvexInvalidValueException);
    EXPECT_EQ(CDecimal("1e-999999999").ToString(), "0");
    EXPECT_EQ(CDecimal("-5e-99999999999999999999999999999999999999999").ToString(), "0");
    EXPECT_EQ(CDecimal("1e10000").ToString().size(), 10001u);
    EXPECT_EQ(CDecimal("0.5e-30").ToString(), "0");
    EXPECT_EQ(CDecimal("0.6e-30").ToString(), "0.000000000000000000000000000001");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));

    const std::string longWhole(700, '9');
    EXPECT_EQ(CDecimal(longWhole.c_str()).ToString(), longWhole);
    const std::string longFraction = "0." + std::string(700, '3');
    EXPECT_EQ(CDecimal(longFraction.c_str()).ToString(), "0." + std::string(30, '3'));

    // Long runs with an exponent stay linear: scaling by ten is a digit move.
    const auto longStart = std::chrono::steady_clock::now();
    const std::string manyDigits(200000, '7');
    EXPECT_EQ(CDecimal(("0." + manyDigits + "e3").c_str()).ToString(), "777." + std::string(29, '7') + "8");
    EXPECT_EQ(CDecimal((manyDigits + "e-199990").c_str()).ToString(), "7777777777." + std::string(29, '7') + "8");
    EXPECT_EQ(CDecimal(("-" + manyDigits + "." + manyDigits + "E+2").c_str()).ToString().size(),
              1 + 200002 + 1 + 30u);
    EXPECT_LT(std::chrono::steady_clock::now() - longStart, std::chrono::seconds(5));
}

TEST(Decimal, ArithmeticTable)
{
    struct Case { const char* a; char op; const char* b; const char* result; };
    const Case cases[] = {
        // Sums, differences and products of every sign are held against exact integers below;
        // these rows give each compound form and the rounding of the last kept place.
        {"0.10", '+', "0.20", "0.3"},   {"-0.99", '-', "0.01", "-1"},  {"-3", '*', "-0.5", "1.5"},
        {"1", '/', "3", "0.333333333333333333333333333333"}, {"2", '/', "3", "0.666666666666666666666666666667"},
        {"-2", '/', "3", "-0.666666666666666666666666666667"},         {"10", '/', "4", "2.5"},
        {"7", '/', "-2", "-3.5"}, {"0.000000000000001", '*', "0.000000000000001", "0.000000000000000000000000000001"},
        {"0.0000000000000001", '*', "0.000000000000001", "0"},
    };
    for (const Case& c : cases) {
        const CDecimal a(c.a), b(c.b);
        CDecimal r, compound(a);
        switch (c.op) {
        case '+': r = a + b; compound += b; break;
        case '-': r = a - b; compound -= b; break;
        case '*': r = a * b; compound *= b; break;
        default: r = a / b; compound /= b; break;
        }
        EXPECT_EQ(r.ToString(), c.result) << c.a << c.op << c.b;
        EXPECT_EQ(compound.ToString(), c.result) << c.a << c.op << c.b;
    }
    const CDecimal minusHalf = CDecimal("0.5") - CDecimal(1);
    EXPECT_TRUE(minusHalf < CDecimal(0));
    EXPECT_EQ(minusHalf.ToBigInteger().ToString(), "0");
    EXPECT_THROW_MSG(CDecimal(1) / CDecimal(0), COrvexInvalidValueException, "ERROR: Overflow in operator/!");
    EXPECT_THROW_MSG(CDecimal(1) / CDecimal("-0.0"), COrvexInvalidValueException, "ERROR: Overflow in operator/!");

    CDecimal doubleNegated(-5), other(-3);
    doubleNegated.Negate(), other.Negate();
    EXPECT_EQ((doubleNegated + other).ToString(), "8");
}

TEST(Decimal, MaxDecimalPlaces)
{
    EXPECT_EQ(CDecimal::GetMaxDecimalPlaces(), 30);
    {
        MaxPlacesScope scope(2);
        const std::pair<CDecimal, const char*> cases[] = {
            {CDecimal(1) / CDecimal(3), "0.33"}, {CDecimal("1.2345"), "1.23"}, {CDecimal("1.235"), "1.23"},
            {CDecimal("1.2351"), "1.24"},        {CDecimal("1.2049"), "1.2"},
            {CDecimal("1.2") / CDecimal("0.99999"), "1.2"}, {CDecimal("0.05") * CDecimal("0.5"), "0.02"}};
        for (const auto& c : cases) EXPECT_EQ(c.first.ToString(), c.second);
        MaxPlacesScope zero(0);
        EXPECT_EQ((CDecimal(7) / CDecimal(2)).ToString(), "3");
        EXPECT_EQ((CDecimal(8) / CDecimal(3)).ToString(), "3");
    }
    EXPECT_THROW_MSG(CDecimal::SetMaxDecimalPlaces(-1), COrvexInvalidParamException,
                     "The number of decimal places must be between 0 and 1000000 [-1]");
    EXPECT_THROW(CDecimal::SetMaxDecimalPlaces(1000001), COrvexInvalidParamException);
    EXPECT_EQ(CDecimal::GetMaxDecimalPlaces(), 30);
}

TEST(Decimal, FixedPlacesRoundHalfAwayFromZero)
{
    struct Case { const char* value; int places; const char* text; };
    const Case cases[] = {
        {"1.005", 2, "1.01"}, {"12.5", 0, "13."},   {"-1.5", 3, "-1.500"}, {"1", 2, "1.00"},
        {"1.095", 2, "1.1"},  {"0.995", 2, "1.0"},  {"-12.5", 0, "-13."}, {"1.004", 2, "1.00"},
        {"-0.001", 2, "-0.00"}, {"123.456", 1, "123.5"}, {"0", 0, "0."},   {"2.25", 1, "2.3"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(CDecimal(c.value).ToString(c.places), c.text) << c.value << " " << c.places;
    // Where a half is cut by the divider rule instead, it goes towards zero.
    for (const auto& c : {std::make_pair("1.25", "1"), {"2.5", "2"}, {"-2.5", "-2"}, {"-2.51", "-3"}})
        EXPECT_EQ(CDecimal(c.first).ToBigInteger().ToString(), c.second) << c.first;
    EXPECT_THROW(CDecimal(1).ToString(-1), COrvexInvalidParamException);
}

TEST(Decimal, IncrementAndDecrement)
{
    // The postfix forms return the changed copy and leave the object as it was.
    CDecimal x("1.5");
    EXPECT_EQ(x++.ToString() + " " + x.ToString() + " " + x--.ToString(), "2.5 1.5 0.5");
    EXPECT_EQ((++x).ToString(), "2.5");
    EXPECT_EQ(x.ToString(), "2.5");
    EXPECT_EQ((--(--(--x))).ToString(), "-0.5");
}

TEST(Decimal, ConversionLimits)
{
    const std::pair<const char*, std::int32_t> longs[] = {
        {"2147483647.4", 2147483647}, {"-2147483648.5", INT32_MIN}, {"1.5", 1}, {"1.6", 2}, {"-1.6", -2}, {"-0.4", 0}};
    for (const auto& c : longs)
        EXPECT_EQ(CDecimal(c.first).ToLong(), c.second) << c.first;
    for (const char* bad : {"2147483647.6", "-2147483648.6", "1e20"})
        EXPECT_THROW_MSG(CDecimal(bad).ToLong(), COrvexOverFlowException,
                         "The Decimal value if to large to fit into a LONG");

    EXPECT_EQ(CDecimal("9223372036854775807").ToLongLong(), INT64_MAX);
    EXPECT_EQ(CDecimal("-9223372036854775808.5").ToLongLong(), INT64_MIN);
    for (const char* bad : {"9223372036854775807.6", "-9223372036854775809"})
        EXPECT_THROW_MSG(CDecimal(bad).ToLongLong(), COrvexOverFlowException,
                         "The Decimal value if to large to fit into a LONGLONG");

    for (const auto& c : {std::make_pair("0.1", 0.1), {"-2.5", -2.5}, {"1.7E+308", 1.7e308}, {"-1.7E+308", -1.7e308}})
        EXPECT_EQ(CDecimal(c.first).ToDouble(), c.second) << c.first;
    for (const char* bad : {"1.8E+308", "-1.71E+308"})
        EXPECT_THROW_MSG(CDecimal(bad).ToDouble(), COrvexOverFlowException,
                         "The Decimal value if to large to fit into a Double");
    EXPECT_EQ(CDecimal("123456789012345678901234567890.5").ToBigInteger().ToString(), "123456789012345678901234567890");
}

TEST(Decimal, FromDoubleAndIntegers)
{
    const std::pair<double, const char*> cases[] = {
        {0.1, "0.1"}, {-2.5, "-2.5"}, {1.0 / 3, "0.3333333333333"}, {-0.0, "0"}, {1e-14, "0"}, {123456789.0, "123456789"}};
    for (const auto& c : cases)
        EXPECT_EQ(CDecimal(c.first).ToString(), c.second) << c.first;
    EXPECT_EQ(CDecimal(1e308).ToString().size(), 309u);
    EXPECT_THROW_MSG(CDecimal(std::numeric_limits<double>::infinity()), COrvexInvalidValueException,
                     BadCharMessage(0, "inf\n"));
    EXPECT_EQ(CDecimal(INT64_MIN).ToString(), "-9223372036854775808");
    EXPECT_EQ(CDecimal(CBigInteger("-77")).ToString(), "-77");
    EXPECT_EQ(CBigInteger(CDecimal("12.9")).ToString(), "13");
}

// Every pair of values, zeros and zero fractions of either sign and fractions of
// different lengths included, orders the way their numbers do and agrees with equality, so sorting and map keys work.
TEST(Decimal, OrderIsAStrictWeakOrderThatAgreesWithEquality)
{
    CBigInteger negativeZero;
    negativeZero.Negate();
    const std::vector<std::pair<CDecimal, double>> values = {
        {CDecimal("-59.0"), -59}, {CDecimal("-59.00"), -59}, {CDecimal("-59"), -59}, {CDecimal("-0"), 0},
        {CDecimal("0.000"), 0}, {CDecimal("-0.0"), 0}, {CDecimal("-"), 0}, {CDecimal(negativeZero), 0},
        {CDecimal("0.5") - CDecimal("0.5"), 0}, {CDecimal("-.5"), -0.5}, {CDecimal("-0.50"), -0.5},
        {CDecimal("0.5"), 0.5}, {CDecimal("-59.5") + CDecimal("0.5"), -59}, {CDecimal("1.25"), 1.25},
        {CDecimal("-1.25"), -1.25}, {CDecimal("59.00"), 59}, {CDecimal("-58.99"), -58.99}, {CDecimal("1.5"), 1.5},
        {CDecimal("2"), 2}, {CDecimal("2.000"), 2}, {CDecimal("0.001"), 0.001}, {CDecimal("0.01"), 0.01},
        {CDecimal("10"), 10}, {CDecimal("9.99"), 9.99}, {CDecimal("-0.25"), -0.25}, {CDecimal("-1"), -1},
        {CDecimal("-1.5"), -1.5}};
    for (const auto& a : values)
        for (const auto& b : values) {
            const CDecimal &x = a.first, &y = b.first;
            const int expected = (a.second > b.second) - (a.second < b.second);
            EXPECT_EQ((x < y) + 2 * (x == y) + 4 * (x > y) + 8 * (x <= y) + 16 * (x >= y) + 32 * (x != y),
                      (expected < 0) + 2 * (expected == 0) + 4 * (expected > 0) + 8 * (expected <= 0) +
                          16 * (expected >= 0) + 32 * (expected != 0))
                << x.ToString() << " against " << y.ToString();
        }
    std::map<CDecimal, int> keys;
    for (const auto& v : values) ++keys[v.first];
    EXPECT_EQ(keys.size(), 17u);
    EXPECT_EQ(keys[CDecimal(0)], 6);
    EXPECT_EQ(keys[CDecimal(-59)], 4);
}

TEST(Decimal, RandomOperationsAgreeWithInt128)
{
    std::mt19937_64 rng(42);
    for (int n = 0; n < 3000; ++n) {
        const int pa = static_cast<int>(rng() % 7), pb = static_cast<int>(rng() % 7);
        const std::int64_t a = static_cast<std::int64_t>(rng() >> (20 + rng() % 44)) * ((rng() & 1) ? -1 : 1);
        const std::int64_t b = static_cast<std::int64_t>(rng() >> (20 + rng() % 44)) * ((rng() & 1) ? -1 : 1);
        const CDecimal A(ScaledText(a, pa).c_str()), B(ScaledText(b, pb).c_str());
        EXPECT_EQ(A.ToString(), ScaledText(a, pa));
        // On the common scale of 10^6 both are exact integers.
        __int128 sa = a, sb = b;
        for (int i = pa; i < 6; ++i)
            sa *= 10;
        for (int i = pb; i < 6; ++i)
            sb *= 10;
        EXPECT_EQ((A + B).ToString(), ScaledText(sa + sb, 6));
        EXPECT_EQ((A - B).ToString(), ScaledText(sa - sb, 6));
        EXPECT_EQ((A * B).ToString(), ScaledText(sa * sb, 12));
        EXPECT_EQ(A < B, sa < sb);
        EXPECT_EQ(A == B, sa == sb);
        if (b != 0 && pa == 0 && pb == 0 && a % b == 0) {
            EXPECT_EQ((A / B).ToString(), ScaledText(a / b, 0));
        }
        if (b != 0) {
            const CDecimal residue = A / B * B - A;
            EXPECT_EQ(residue.ToString(0), residue < CDecimal(0) ? "-0." : "0.");
        }
    }
}

TEST(Decimal, DefaultValueActsAsZeroEverywhere)
{
    const CDecimal zero, parsed("0"), half("0.5"), minusTwo("-2");
    const auto results = [&](const CDecimal& z) {
        std::string out;
        for (const CDecimal& v : {z, z + half, z - half, half - z, z * minusTwo, z / minusTwo}) out += v.ToString() + " ";
        return out + z.ToBigInteger().ToString();
    };
    EXPECT_EQ(results(zero), results(parsed));
    EXPECT_EQ(results(zero), "0 0.5 -0.5 0.5 0 0 0");
    EXPECT_TRUE(zero == parsed && minusTwo < zero && zero < half);
}
