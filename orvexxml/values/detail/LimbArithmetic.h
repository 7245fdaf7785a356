// The arithmetic of CBigInteger on limbs of nine decimal digits, for the operations
// whose cost grows faster than the length: product, quotient and square root.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "orvexxml/values/detail/DigitVector.h"

namespace OrvexXmlLib5 {
namespace detail {

// Base 10^9, least significant limb first, no zero limbs at the top: zero is empty.
// A decimal base makes the conversion from and to digits linear, so the digit
// vectors of CBigInteger stay its representation and its text forms are untouched.
using Limb = std::uint32_t;
using Limbs = std::vector<Limb>;

constexpr Limb kLimbBase = 1000000000;
constexpr std::size_t kLimbDigits = 9;

// Below this many limbs in the shorter factor the schoolbook product is faster than
// splitting in halves (Karatsuba). 40 limbs are 360 digits.
constexpr std::size_t kKaratsubaLimbs = 40;
// From this many limbs in the shorter factor on, products go through number-
// theoretic transforms (where the compiler has 128-bit integers). 1500 limbs are
// 13500 digits.
constexpr std::size_t kTransformLimbs = 1500;
// Quotients of at least this many limbs by divisors of at least this many limbs go
// through a Newton reciprocal; below it long division costs less.
constexpr std::size_t kNewtonLimbs = 80;

// Digits as CBigInteger keeps them: values 0 to 9, least significant first.
Limbs LimbsFromDigits(const CDigitVector& digits);
// Zero gives the single digit 0.
void DigitsFromLimbs(const Limbs& limbs, CDigitVector& digits);

Limbs Multiply(const Limbs& a, const Limbs& b);
// Truncating division; b must not be zero.
void Divide(const Limbs& a, const Limbs& b, Limbs& quotient, Limbs& remainder);
// The floor of the square root; zero gives zero.
Limbs SquareRoot(const Limbs& n);

}  // namespace detail
}  // namespace OrvexXmlLib5
