#include "orvexxml/values/detail/DigitVector.h"

#include <random>
#include <utility>
#include <vector>

#include "TestUtil.h"

using OrvexXmlLib5::detail::CDigitVector;

namespace {

std::vector<char> Elements(const CDigitVector& v)
{
    return std::vector<char>(v.begin(), v.end());
}

}  // namespace

// Random runs of every operation against std::vector<char>, across the border
// between the room in the object and the heap, in both directions.
TEST(DigitVector, BehavesAsStdVectorAcrossTheLocalRoom)
{
    std::mt19937_64 rng(18);
    for (int run = 0; run < 200; ++run) {
        CDigitVector v;
        std::vector<char> expected;
        for (int step = 0; step < 60; ++step) {
            const char value = static_cast<char>(rng() % 10);
            const std::size_t n = static_cast<std::size_t>(rng() % 24);
            const auto at = static_cast<std::ptrdiff_t>(expected.empty() ? 0 : rng() % expected.size());
            const auto half = at + (static_cast<std::ptrdiff_t>(expected.size()) - at) / 2;
            // The same operation on the vector under test and on the reference.
            const auto both = [&](auto op) { op(v), op(expected); };
            switch (rng() % 9) {
                case 0: both([&](auto& x) { x.push_back(value); }); break;
                case 1: if (!expected.empty()) both([](auto& x) { x.pop_back(); }); break;
                case 2: both([&](auto& x) { x.resize(n); }); break;
                case 3: both([&](auto& x) { x.assign(n, value); }); break;
                case 4: both([&](auto& x) { x.insert(x.begin() + at, n, value); }); break;
                case 5: both([&](auto& x) { x.erase(x.begin() + at, x.begin() + half); }); break;
                case 6:  // a range out of the vector itself
                    v.assign(v.begin() + at, v.end());
                    expected = std::vector<char>(expected.begin() + at, expected.end());
                    break;
                case 7: {
                    CDigitVector moved(std::move(v));
                    EXPECT_TRUE(v.empty());
                    v = std::move(moved);
                    EXPECT_TRUE(moved.empty());
                    break;
                }
                default: {
                    const CDigitVector copy(v);
                    v.push_back(value);
                    EXPECT_EQ(Elements(copy), expected);
                    v = copy;
                    break;
                }
            }
            ASSERT_EQ(Elements(v), expected) << "run " << run << " step " << step;
            ASSERT_EQ(v.empty(), expected.empty());
        }
    }
}

TEST(DigitVector, ConstructionAndComparison)
{
    EXPECT_EQ(Elements(CDigitVector(3)), (std::vector<char>{0, 0, 0}));
    EXPECT_EQ(Elements(CDigitVector(20, 7)), std::vector<char>(20, 7));
    CDigitVector v{1, 2, 3};
    EXPECT_EQ(v, (CDigitVector{1, 2, 3}));
    EXPECT_NE(v, (CDigitVector{1, 2}));
    v = {4};
    EXPECT_EQ(v.back(), 4);
    EXPECT_EQ(CDigitVector(), CDigitVector{});
}
