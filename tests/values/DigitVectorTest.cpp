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
            switch (rng() % 9) {
                case 0:
                    v.push_back(value);
                    expected.push_back(value);
                    break;
                case 1:
                    if (!expected.empty()) {
                        v.pop_back();
                        expected.pop_back();
                    }
                    break;
                case 2:
                    v.resize(n);
                    expected.resize(n);
                    break;
                case 3:
                    v.assign(n, value);
                    expected.assign(n, value);
                    break;
                case 4: {
                    const std::size_t at = expected.empty() ? 0 : rng() % expected.size();
                    v.insert(v.begin() + at, n, value);
                    expected.insert(expected.begin() + static_cast<std::ptrdiff_t>(at), n, value);
                    break;
                }
                case 5: {
                    const std::size_t from = expected.empty() ? 0 : rng() % expected.size();
                    const std::size_t to = from + (expected.size() - from) / 2;
                    v.erase(v.begin() + from, v.begin() + to);
                    expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(from),
                                   expected.begin() + static_cast<std::ptrdiff_t>(to));
                    break;
                }
                case 6: {  // a range out of the vector itself
                    const std::size_t from = expected.empty() ? 0 : rng() % expected.size();
                    v.assign(v.begin() + from, v.end());
                    expected.assign(expected.begin() + static_cast<std::ptrdiff_t>(from), expected.end());
                    break;
                }
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
