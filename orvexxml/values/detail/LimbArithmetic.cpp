#include "orvexxml/values/detail/LimbArithmetic.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace OrvexXmlLib5 {
namespace detail {

namespace {

using Wide = std::uint64_t;

void Trim(Limbs& v)
{
    while (!v.empty() && v.back() == 0) v.pop_back();
}

int Compare(const Limbs& a, const Limbs& b)
{
    if (a.size() != b.size()) return a.size() < b.size() ? -1 : 1;
    for (std::size_t i = a.size(); i-- > 0;)
        if (a[i] != b[i]) return a[i] < b[i] ? -1 : 1;
    return 0;
}

// r[0..rn) += x[0..xn); the carry out of r's top is dropped, which callers rule out
// by giving r room.
void AddInto(Limb* r, std::size_t rn, const Limb* x, std::size_t xn)
{
    Limb carry = 0;
    std::size_t i = 0;
    for (; i < xn; ++i) {
        const Limb t = r[i] + x[i] + carry;
        carry = t >= kLimbBase;
        r[i] = carry ? t - kLimbBase : t;
    }
    for (; carry && i < rn; ++i) {
        const Limb t = r[i] + 1;
        carry = t >= kLimbBase;
        r[i] = carry ? 0 : t;
    }
}

// r[0..rn) -= x[0..xn), for r >= x.
void SubtractFrom(Limb* r, std::size_t rn, const Limb* x, std::size_t xn)
{
    Limb borrow = 0;
    std::size_t i = 0;
    for (; i < xn; ++i) {
        const Limb s = x[i] + borrow;
        borrow = r[i] < s;
        r[i] = borrow ? r[i] + kLimbBase - s : r[i] - s;
    }
    for (; borrow && i < rn; ++i) {
        borrow = r[i] == 0;
        r[i] = borrow ? kLimbBase - 1 : r[i] - 1;
    }
}

Limbs Add(const Limbs& a, const Limbs& b)
{
    const Limbs& longer = a.size() >= b.size() ? a : b;
    const Limbs& shorter = a.size() >= b.size() ? b : a;
    Limbs r(longer);
    r.push_back(0);
    AddInto(r.data(), r.size(), shorter.data(), shorter.size());
    Trim(r);
    return r;
}

// a - b for a >= b.
Limbs Subtract(const Limbs& a, const Limbs& b)
{
    Limbs r(a);
    SubtractFrom(r.data(), r.size(), b.data(), b.size());
    Trim(r);
    return r;
}

// a * B^k.
Limbs ShiftUp(const Limbs& a, std::size_t k)
{
    if (a.empty()) return a;
    Limbs r(k, 0);
    r.insert(r.end(), a.begin(), a.end());
    return r;
}

// floor(a / B^k).
Limbs ShiftDown(const Limbs& a, std::size_t k)
{
    if (k >= a.size()) return Limbs();
    return Limbs(a.begin() + static_cast<std::ptrdiff_t>(k), a.end());
}

// Divides in place by a single limb and gives the remainder.
Limb DivideBySmall(Limbs& a, Limb d)
{
    Wide r = 0;
    for (std::size_t i = a.size(); i-- > 0;) {
        const Wide cur = r * kLimbBase + a[i];
        a[i] = static_cast<Limb>(cur / d);
        r = cur % d;
    }
    Trim(a);
    return static_cast<Limb>(r);
}

// out[0..na+nb) = a * b; out need not be cleared.
void MultiplySchoolbook(const Limb* a, std::size_t na, const Limb* b, std::size_t nb, Limb* out)
{
    std::fill(out, out + na + nb, 0);
    for (std::size_t i = 0; i < na; ++i) {
        const Wide ai = a[i];
        if (ai == 0) continue;
        Wide carry = 0;
        Limb* row = out + i;
        for (std::size_t j = 0; j < nb; ++j) {
            // At most (B-1)^2 + 2(B-1) < 2^64.
            const Wide t = ai * b[j] + row[j] + carry;
            carry = t / kLimbBase;
            row[j] = static_cast<Limb>(t - carry * kLimbBase);
        }
        row[nb] = static_cast<Limb>(carry);
    }
}

#if defined(__SIZEOF_INT128__)
#define ORVEX_LIMB_TRANSFORM 1
__extension__ typedef unsigned __int128 Wide128;

// Products of long factors as a convolution, computed by number-theoretic
// transforms modulo three primes of the form c 2^k + 1 (3 is a primitive root of
// each) and put together by the Chinese remainder theorem. Every column sum of a
// product of limbs is below 2^23 (B - 1)^2 < p1 p2 p3, so it comes out exact for
// transforms of up to 2^23 points, products of up to 75 million digits.
constexpr std::size_t kTransformMaxPoints = std::size_t(1) << 23;

template <std::uint32_t P>
struct Transform
{
    static std::uint32_t Power(Wide base, Wide exponent)
    {
        Wide result = 1;
        base %= P;
        for (; exponent > 0; exponent >>= 1) {
            if (exponent & 1) result = result * base % P;
            base = base * base % P;
        }
        return static_cast<std::uint32_t>(result);
    }

    static void Run(std::vector<std::uint32_t>& a, bool inverse)
    {
        const std::size_t n = a.size();
        for (std::size_t i = 1, j = 0; i < n; ++i) {
            std::size_t bit = n >> 1;
            for (; j & bit; bit >>= 1) j ^= bit;
            j ^= bit;
            if (i < j) std::swap(a[i], a[j]);
        }
        std::vector<std::uint32_t> roots(n / 2);
        for (std::size_t len = 2; len <= n; len <<= 1) {
            std::uint32_t w = Power(3, (P - 1) / len);
            if (inverse) w = Power(w, P - 2);
            const std::size_t half = len / 2;
            roots[0] = 1;
            for (std::size_t k = 1; k < half; ++k) roots[k] = static_cast<std::uint32_t>(Wide(roots[k - 1]) * w % P);
            for (std::size_t i = 0; i < n; i += len) {
                std::uint32_t* lo = a.data() + i;
                std::uint32_t* hi = lo + half;
                for (std::size_t k = 0; k < half; ++k) {
                    const std::uint32_t u = lo[k];
                    const std::uint32_t v = static_cast<std::uint32_t>(Wide(hi[k]) * roots[k] % P);
                    lo[k] = u + v >= P ? u + v - P : u + v;
                    hi[k] = u >= v ? u - v : u + P - v;
                }
            }
        }
        if (inverse) {
            const Wide scale = Power(n, P - 2);
            for (std::uint32_t& x : a) x = static_cast<std::uint32_t>(x * scale % P);
        }
    }

    // The cyclic convolution of a and b modulo P over n points.
    static std::vector<std::uint32_t> Convolve(const Limb* a, std::size_t na, const Limb* b, std::size_t nb,
                                               std::size_t n)
    {
        std::vector<std::uint32_t> fa(n, 0);
        std::vector<std::uint32_t> fb(n, 0);
        for (std::size_t i = 0; i < na; ++i) fa[i] = a[i] % P;
        for (std::size_t i = 0; i < nb; ++i) fb[i] = b[i] % P;
        Run(fa, false);
        Run(fb, false);
        for (std::size_t i = 0; i < n; ++i) fa[i] = static_cast<std::uint32_t>(Wide(fa[i]) * fb[i] % P);
        Run(fa, true);
        return fa;
    }
};

constexpr std::uint32_t kPrime1 = 998244353;  // 119 * 2^23 + 1
constexpr std::uint32_t kPrime2 = 167772161;  // 5 * 2^25 + 1
constexpr std::uint32_t kPrime3 = 469762049;  // 7 * 2^26 + 1

void MultiplyTransform(const Limb* a, std::size_t na, const Limb* b, std::size_t nb, Limb* out)
{
    std::size_t n = 1;
    while (n < na + nb) n <<= 1;
    const std::vector<std::uint32_t> r1 = Transform<kPrime1>::Convolve(a, na, b, nb, n);
    const std::vector<std::uint32_t> r2 = Transform<kPrime2>::Convolve(a, na, b, nb, n);
    const std::vector<std::uint32_t> r3 = Transform<kPrime3>::Convolve(a, na, b, nb, n);
    // Garner's form: x = x1 + p1 (t2 + p2 t3), each t below its prime.
    const Wide inverse1 = Transform<kPrime2>::Power(kPrime1, kPrime2 - 2);
    const Wide p12 = Wide(kPrime1) * kPrime2;
    const Wide inverse12 = Transform<kPrime3>::Power(p12 % kPrime3, kPrime3 - 2);
    Wide128 carry = 0;
    for (std::size_t i = 0; i < na + nb; ++i) {
        const Wide x1 = r1[i];
        const Wide t2 = (r2[i] + kPrime2 - x1 % kPrime2) % kPrime2 * inverse1 % kPrime2;
        const Wide x12 = x1 + Wide(kPrime1) * t2;
        const Wide t3 = (r3[i] + kPrime3 - x12 % kPrime3) % kPrime3 * inverse12 % kPrime3;
        const Wide128 column = Wide128(p12) * t3 + x12 + carry;
        carry = column / kLimbBase;
        out[i] = static_cast<Limb>(column - carry * kLimbBase);
    }
}
#endif

void MultiplyInto(const Limb* a, std::size_t na, const Limb* b, std::size_t nb, Limb* out);

// The length without the zero limbs at the top.
std::size_t Significant(const Limb* v, std::size_t n)
{
    while (n > 0 && v[n - 1] == 0) --n;
    return n;
}

// Both halves of a split of the longer factor; nb > the split point, so every part is
// non-empty: a = a1 B^m + a0, b = b1 B^m + b0, and
// a b = a1 b1 B^2m + ((a0 + a1)(b0 + b1) - a0 b0 - a1 b1) B^m + a0 b0.
void MultiplyKaratsuba(const Limb* a, std::size_t na, const Limb* b, std::size_t nb, Limb* out)
{
    const std::size_t m = na / 2;
    const Limb* a0 = a;
    const Limb* a1 = a + m;
    const Limb* b0 = b;
    const Limb* b1 = b + m;
    const std::size_t na1 = na - m;
    const std::size_t nb1 = nb - m;

    std::fill(out, out + na + nb, 0);
    MultiplyInto(a0, m, b0, m, out);              // a0 b0 at 0, 2m limbs
    MultiplyInto(a1, na1, b1, nb1, out + 2 * m);  // a1 b1 at 2m, na1 + nb1 limbs

    Limbs sa(std::max(m, na1) + 1, 0);
    std::copy(a0, a0 + m, sa.begin());
    AddInto(sa.data(), sa.size(), a1, na1);
    Limbs sb(std::max(m, nb1) + 1, 0);
    std::copy(b0, b0 + m, sb.begin());
    AddInto(sb.data(), sb.size(), b1, nb1);
    const std::size_t nsa = Significant(sa.data(), sa.size());
    const std::size_t nsb = Significant(sb.data(), sb.size());

    Limbs mid(nsa + nsb + 1, 0);
    if (nsa > 0 && nsb > 0) MultiplyInto(sa.data(), nsa, sb.data(), nsb, mid.data());
    // The parts may carry zero limbs at the top (pieces of a longer number), so the
    // products are subtracted at their real lengths, which mid's value bounds.
    SubtractFrom(mid.data(), mid.size(), out, Significant(out, 2 * m));
    SubtractFrom(mid.data(), mid.size(), out + 2 * m, Significant(out + 2 * m, na1 + nb1));
    AddInto(out + m, na + nb - m, mid.data(), Significant(mid.data(), mid.size()));
}

// out[0..na+nb) = a * b, for factors of any lengths (zero lengths included).
void MultiplyInto(const Limb* a, std::size_t na, const Limb* b, std::size_t nb, Limb* out)
{
    if (na < nb) {
        std::swap(a, b);
        std::swap(na, nb);
    }
    if (nb == 0) {
        std::fill(out, out + na, 0);
        return;
    }
    if (nb < kKaratsubaLimbs) {
        MultiplySchoolbook(a, na, b, nb, out);
        return;
    }
#if defined(ORVEX_LIMB_TRANSFORM)
    if (nb >= kTransformLimbs && na + nb <= kTransformMaxPoints) {
        MultiplyTransform(a, na, b, nb, out);
        return;
    }
#endif
    if (na >= 2 * nb) {
        // Much longer than the other: pieces of the shorter one's length, each a
        // balanced product, added in at their places.
        std::fill(out, out + na + nb, 0);
        Limbs piece(2 * nb);
        for (std::size_t at = 0; at < na; at += nb) {
            const std::size_t len = std::min(nb, na - at);
            MultiplyInto(a + at, len, b, nb, piece.data());
            AddInto(out + at, na + nb - at, piece.data(), len + nb);
        }
        return;
    }
    MultiplyKaratsuba(a, na, b, nb, out);
}

// Long division for a >= b with b of two limbs or more. The divisor is scaled so
// that its top limb is at least B/2; each quotient limb estimated from the top two
// limbs is then at most one too large, which one adding back corrects.
void DivideLong(const Limbs& a, const Limbs& b, Limbs& quotient, Limbs& remainder)
{
    const std::size_t n = b.size();
    const std::size_t m = a.size() - n;
    const Wide d = kLimbBase / (Wide(b[n - 1]) + 1);
    std::vector<std::int64_t> v(n), u(a.size() + 1, 0);
    {
        Wide carry = 0;
        for (std::size_t i = 0; i < n; ++i) {
            const Wide t = b[i] * d + carry;
            v[i] = static_cast<std::int64_t>(t % kLimbBase);
            carry = t / kLimbBase;
        }
        carry = 0;
        for (std::size_t i = 0; i < a.size(); ++i) {
            const Wide t = a[i] * d + carry;
            u[i] = static_cast<std::int64_t>(t % kLimbBase);
            carry = t / kLimbBase;
        }
        u[a.size()] = static_cast<std::int64_t>(carry);
    }
    const std::int64_t base = kLimbBase;
    Limbs q(m + 1, 0);
    for (std::size_t j = m + 1; j-- > 0;) {
        const std::int64_t num = u[j + n] * base + u[j + n - 1];
        std::int64_t qhat = num / v[n - 1];
        std::int64_t rhat = num % v[n - 1];
        while (qhat >= base || qhat * v[n - 2] > rhat * base + u[j + n - 2]) {
            --qhat;
            rhat += v[n - 1];
            if (rhat >= base) break;
        }
        std::int64_t borrow = 0;
        for (std::size_t i = 0; i < n; ++i) {
            const std::int64_t p = qhat * v[i] + borrow;
            borrow = p / base;
            std::int64_t t = u[i + j] - p % base;
            if (t < 0) {
                t += base;
                ++borrow;
            }
            u[i + j] = t;
        }
        u[j + n] -= borrow;
        if (u[j + n] < 0) {
            --qhat;
            std::int64_t c = 0;
            for (std::size_t i = 0; i < n; ++i) {
                const std::int64_t t = u[i + j] + v[i] + c;
                u[i + j] = t % base;
                c = t / base;
            }
            u[j + n] += c;
        }
        q[j] = static_cast<Limb>(qhat);
    }
    // The remainder is the low n limbs, scaled back.
    remainder.assign(n, 0);
    Wide r = 0;
    for (std::size_t i = n; i-- > 0;) {
        const Wide cur = r * kLimbBase + static_cast<Wide>(u[i]);
        remainder[i] = static_cast<Limb>(cur / d);
        r = cur % d;
    }
    Trim(remainder);
    Trim(q);
    quotient = std::move(q);
}

// An approximation of B^(n+k) / d for d of n limbs, off by at most 2 either way.
// Only the top k + 2 limbs of d matter at that precision. Each level computes half
// the precision and doubles it with one Newton step, y + y (B^s - d y) / B^s,
// whose error is the square of the half's relative error.
Limbs Reciprocal(const Limbs& d, std::size_t k)
{
    const std::size_t n = d.size();
    const std::size_t t = std::min(n, k + 2);
    const Limbs top = ShiftDown(d, n - t);
    if (k < kNewtonLimbs) {
        Limbs one(t + k + 1, 0);
        one.back() = 1;
        Limbs x, r;
        if (t == 1) {
            DivideBySmall(one, top[0]);
            x = std::move(one);
        } else {
            DivideLong(one, top, x, r);
        }
        return x;
    }
    const std::size_t h = k / 2 + 1;
    const Limbs y = Reciprocal(top, h);
    // e = B^(t+h) - top y, small next to top y; its sign picks the direction.
    Limbs power(t + h + 1, 0);
    power.back() = 1;
    const Limbs product = Multiply(top, y);
    const Limbs scaled = ShiftUp(y, k - h);
    const std::size_t drop = t + 2 * h - k;
    // y < B^(h+1), so the low `low` limbs of e move y e / B^drop by less than 1/B.
    const std::size_t low = t + h >= k + 2 ? t + h - k - 2 : 0;
    if (Compare(product, power) <= 0) {
        const Limbs e = Subtract(power, product);
        return Add(scaled, ShiftDown(Multiply(y, ShiftDown(e, low)), drop - low));
    }
    const Limbs e = Subtract(product, power);
    const Limbs correction = ShiftDown(Multiply(y, ShiftDown(e, low)), drop - low);
    return Compare(scaled, correction) > 0 ? Subtract(scaled, correction) : Limbs();
}

// a / b through the reciprocal of b, for a >= b: the estimate is off by at most one,
// and the remainder puts it right.
void DivideNewton(const Limbs& a, const Limbs& b, Limbs& quotient, Limbs& remainder)
{
    const std::size_t n = b.size();
    const std::size_t k = a.size() - n + 2;
    const Limbs x = Reciprocal(b, k);
    // Below its top k limbs a changes the estimate by less than 1/B.
    Limbs q = ShiftDown(Multiply(ShiftDown(a, n - 2), x), k + 2);
    Limbs product = Multiply(q, b);
    const Limbs one{1};
    while (Compare(product, a) > 0) {
        q = Subtract(q, one);
        product = Subtract(product, b);
    }
    Limbs r = Subtract(a, product);
    while (Compare(r, b) >= 0) {
        q = Add(q, one);
        r = Subtract(r, b);
    }
    quotient = std::move(q);
    remainder = std::move(r);
}

Limbs FromWide(Wide value)
{
    Limbs r;
    while (value > 0) {
        r.push_back(static_cast<Limb>(value % kLimbBase));
        value /= kLimbBase;
    }
    return r;
}

}  // namespace

Limbs LimbsFromDigits(const CDigitVector& digits)
{
    Limbs limbs((digits.size() + kLimbDigits - 1) / kLimbDigits, 0);
    for (std::size_t i = 0; i < limbs.size(); ++i) {
        Limb limb = 0;
        const std::size_t low = i * kLimbDigits;
        for (std::size_t j = std::min(low + kLimbDigits, digits.size()); j-- > low;)
            limb = limb * 10 + static_cast<Limb>(digits[j]);
        limbs[i] = limb;
    }
    Trim(limbs);
    return limbs;
}

void DigitsFromLimbs(const Limbs& limbs, CDigitVector& digits)
{
    digits.resize(limbs.size() * kLimbDigits);
    for (std::size_t i = 0; i < limbs.size(); ++i) {
        Limb l = limbs[i];
        for (std::size_t j = 0; j < kLimbDigits; ++j) {
            digits[i * kLimbDigits + j] = static_cast<char>(l % 10);
            l /= 10;
        }
    }
    while (digits.size() > 1 && digits.back() == 0) digits.pop_back();
    if (digits.empty()) digits.push_back(0);
}

Limbs Multiply(const Limbs& a, const Limbs& b)
{
    if (a.empty() || b.empty()) return Limbs();
    Limbs r(a.size() + b.size());
    MultiplyInto(a.data(), a.size(), b.data(), b.size(), r.data());
    Trim(r);
    return r;
}

void Divide(const Limbs& a, const Limbs& b, Limbs& quotient, Limbs& remainder)
{
    if (Compare(a, b) < 0) {
        remainder = a;
        quotient.clear();
        return;
    }
    if (b.size() == 1) {
        Limbs q(a);
        const Limb r = DivideBySmall(q, b[0]);
        quotient = std::move(q);
        remainder = FromWide(r);
        return;
    }
    // Long division costs the product of the divisor's and the quotient's lengths.
    if (b.size() < kNewtonLimbs || a.size() - b.size() + 1 < kNewtonLimbs)
        DivideLong(a, b, quotient, remainder);
    else
        DivideNewton(a, b, quotient, remainder);
}

Limbs SquareRoot(const Limbs& n)
{
    if (n.size() <= 2) {
        const Wide v = n.empty() ? 0 : n.size() == 1 ? n[0] : Wide(n[1]) * kLimbBase + n[0];
        Wide x = static_cast<Wide>(std::sqrt(static_cast<double>(v)));
        while (x > 0 && x * x > v) --x;
        while ((x + 1) * (x + 1) <= v) ++x;
        return FromWide(x);
    }
    // The root of the top half, one limb wider than needed, starts Newton's iteration
    // from above: (r + 1) B^k exceeds the root, and one step brings it to within one
    // unit of it, since 2k limbs stay below half the root's length.
    const std::size_t k = std::max<std::size_t>(1, (n.size() - 3) / 4);
    Limbs x = ShiftUp(Add(SquareRoot(ShiftDown(n, 2 * k)), Limbs{1}), k);
    // Newton's step from above never goes below the floor of the root, and goes down
    // while above it; close to it, stepping down by one is cheaper than a division.
    for (;;) {
        Limbs q, r;
        Divide(n, x, q, r);
        Limbs next = Add(x, q);
        DivideBySmall(next, 2);
        if (Compare(next, x) < 0) x = std::move(next);
        Limbs square = Multiply(x, x);
        for (int i = 0; i < 4 && Compare(square, n) > 0; ++i) {
            // (x - 1)^2 = x^2 - 2x + 1
            square = Add(Subtract(square, Add(x, x)), Limbs{1});
            x = Subtract(x, Limbs{1});
        }
        if (Compare(square, n) <= 0) return x;
    }
}

}  // namespace detail
}  // namespace OrvexXmlLib5
