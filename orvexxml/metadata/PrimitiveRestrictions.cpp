#include "orvexxml/metadata/PrimitiveRestrictions.h"

#include "orvexxml/data/BinaryData.h"
#include "orvexxml/frame/FormatString.h"
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/metadata/detail/XsdPattern.h"
#include "orvexxml/platform/CodePage.h"
#include "orvexxml/values/Conversions.h"
#include "orvexxml/values/detail/QuotedValue.h"

#include <any>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

namespace OrvexXmlLib5 {

namespace {

using Rule = CWhitespaceUtils::WhitespaceRule;

// The four bounds in their fixed order; the first that fails ends the check.
// Written as negated tests so that a NaN fails every bound that is set.
template <typename T, typename Parse, typename Fail>
void CheckBounds(const T& value, const CPrimitiveRestrictions& r, Parse parse, Fail fail)
{
    if (!r.GetMinInclusive().empty() && !(value >= parse(r.GetMinInclusive(), Rule::Collapse))) fail();
    if (!r.GetMaxInclusive().empty() && !(value <= parse(r.GetMaxInclusive(), Rule::Collapse))) fail();
    if (!r.GetMinExclusive().empty() && !(value > parse(r.GetMinExclusive(), Rule::Collapse))) fail();
    if (!r.GetMaxExclusive().empty() && !(value < parse(r.GetMaxExclusive(), Rule::Collapse))) fail();
}

template <typename T, typename Parse>
void CheckSmallNumber(const char* name, T value, const CPrimitiveRestrictions& r, Parse parse)
{
    CheckBounds(value, r, parse, [&] {
        throw COrvexException(FormatString("Invalid Value for %s [%d]", name, static_cast<int>(value)));
    });
}

template <typename T, typename Parse, typename Print>
void CheckWideNumber(const char* name, const T& value, const CPrimitiveRestrictions& r, Parse parse, Print print)
{
    CheckBounds(value, r, parse, [&] {
        throw COrvexException(
            FormatString("Invalid Value for %s [%s]", name, detail::QuotedValue(print(value)).c_str()));
    });
}

template <typename T, typename Parse>
void CheckFloating(const char* name, T value, const CPrimitiveRestrictions& r, Parse parse)
{
    CheckBounds(value, r, parse, [&] {
        throw COrvexException(FormatString("Invalid Value for %s [%f]", name, static_cast<double>(value)));
    });
}

// Values with a partial order: a bound fails only on the one answer that breaks
// it, so an indeterminate comparison passes every bound.
template <typename T, typename Parse>
void CheckOrdered(const char* name, const T& value, const CPrimitiveRestrictions& r, Parse parse)
{
    auto compare = [&](const std::string& bound) { return value.CompareTo(parse(bound, Rule::Collapse)); };
    bool valid = true;
    if (!r.GetMinInclusive().empty() && compare(r.GetMinInclusive()) == CDateTime::LessThan) valid = false;
    if (valid && !r.GetMaxInclusive().empty() && compare(r.GetMaxInclusive()) == CDateTime::GreaterThan) valid = false;
    if (valid && !r.GetMinExclusive().empty()) {
        const CDateTime::DTCompareResult result = compare(r.GetMinExclusive());
        valid = result == CDateTime::GreaterThan || result == CDateTime::Indeterminate;
    }
    if (valid && !r.GetMaxExclusive().empty()) {
        const CDateTime::DTCompareResult result = compare(r.GetMaxExclusive());
        valid = result == CDateTime::LessThan || result == CDateTime::Indeterminate;
    }
    if (!valid)
        throw COrvexException(
            FormatString("Invalid Value for %s [%s]", name, detail::QuotedValue(value.ToString()).c_str()));
}

// Lengths in bytes; a binary value has no bounds and no pattern. The value shows in
// hexadecimal whatever its encoding.
void CheckBinary(const char* name, const CBinaryData& value, const CPrimitiveRestrictions& r)
{
    const long long length = static_cast<long long>(value.GetLength());
    bool valid = true;
    if (r.GetMinLength() > -1 && length < r.GetMinLength()) valid = false;
    if (valid && r.GetMaxLength() > -1 && length > r.GetMaxLength()) valid = false;
    if (valid && r.GetLength() > -1 && length != r.GetLength()) valid = false;
    if (!valid)
        throw COrvexException(
            FormatString("Invalid Value for %s [%s]", name, detail::QuotedValue(value.GetAsHexString()).c_str()));
}

bool IsAscii(const std::string& text)
{
    for (char c : text)
        if (static_cast<unsigned char>(c) >= 0x80) return false;
    return true;
}

void CheckString(const char* name, const std::string& value, const CPrimitiveRestrictions& r)
{
    const long long length = static_cast<long long>(value.size());
    bool valid = true;
    if (r.GetMinLength() > -1 && length < r.GetMinLength()) valid = false;
    if (valid && r.GetMaxLength() > -1 && length > r.GetMaxLength()) valid = false;
    if (valid && r.GetLength() > -1 && length != r.GetLength()) valid = false;
    if (valid && !r.GetPattern().empty()) {
        if (Platform::LocalIsUtf8() && IsAscii(value))
            valid = Detail::MatchXsdPattern(r.GetPattern(), value, name);
        else
            valid = Detail::MatchXsdPattern(r.GetPattern(), LocalToUtf8Bytes(value).GetString(), name);
    }
    if (!valid)
        throw COrvexException(FormatString("Invalid Value for %s [%s]", name, detail::QuotedValue(value).c_str()));
}

std::string TextOrEmpty(const char* text)
{
    return text ? std::string(text) : std::string();
}

}  // namespace

// The four bounds, in the order of the getters, as parsed for values of one type;
// empty where a bound is unset or its text does not parse (its check then parses
// it again and fails as before).
struct CPrimitiveRestrictions::BoundCache
{
    ItemType type;
    std::any bounds[4];
};

namespace {

// A parse function for the bounds of r that gives each bound from the cache, made
// once per descriptor and type, instead of from its text for every value. Other
// texts, and bounds that do not parse, still go through parse.
// Cache is CPrimitiveRestrictions::BoundCache, named by deduction from the friend.
template <typename Parse, typename Cache>
class CachedParse
{
public:
    using Parsed = std::decay_t<decltype(std::declval<Parse&>()(std::string(), Rule::Collapse))>;

    CachedParse(const CPrimitiveRestrictions& r, std::atomic<Cache*>& slot, ItemType type, Parse parse)
        : m_r(r), m_parse(parse), m_cache(slot.load(std::memory_order_acquire))
    {
        if (m_cache) {
            // Made for another type: this one parses as before.
            if (m_cache->type != type) m_cache = nullptr;
            return;
        }
        std::unique_ptr<Cache> made(new Cache());
        made->type = type;
        const std::string* texts[4] = {&r.GetMinInclusive(), &r.GetMaxInclusive(), &r.GetMinExclusive(),
                                       &r.GetMaxExclusive()};
        for (int i = 0; i < 4; ++i) {
            if (texts[i]->empty()) continue;
            try {
                made->bounds[i] = m_parse(*texts[i], Rule::Collapse);
            } catch (...) {
                // Left empty: the check that needs it fails with the parser's exception.
            }
        }
        Cache* expected = nullptr;
        if (slot.compare_exchange_strong(expected, made.get(), std::memory_order_acq_rel, std::memory_order_acquire)) {
            m_cache = made.release();
        } else {
            // Another thread published first: its cache serves when it is for this type,
            // and this one goes.
            m_cache = expected->type == type ? expected : nullptr;
            m_own = std::move(made);
            if (!m_cache) m_cache = m_own.get();
        }
    }

    const Parsed& operator()(const std::string& text, Rule rule) const
    {
        if (m_cache) {
            int i = -1;
            if (&text == &m_r.GetMinInclusive()) i = 0;
            else if (&text == &m_r.GetMaxInclusive()) i = 1;
            else if (&text == &m_r.GetMinExclusive()) i = 2;
            else if (&text == &m_r.GetMaxExclusive()) i = 3;
            if (i >= 0 && rule == Rule::Collapse)
                if (const Parsed* parsed = std::any_cast<Parsed>(&m_cache->bounds[i])) return *parsed;
        }
        m_scratch.emplace(m_parse(text, rule));
        return *m_scratch;
    }

private:
    const CPrimitiveRestrictions& m_r;
    Parse m_parse;
    const Cache* m_cache;
    // A cache made here that lost the race to one for another type serves this check only.
    std::shared_ptr<Cache> m_own;
    mutable std::optional<Parsed> m_scratch;
};

template <typename Parse, typename Cache>
CachedParse<Parse, Cache> Cached(const CPrimitiveRestrictions& r, std::atomic<Cache*>& slot, ItemType type,
                                 Parse parse)
{
    return CachedParse<Parse, Cache>(r, slot, type, parse);
}

}  // namespace

CPrimitiveRestrictions::CPrimitiveRestrictions() : m_minLength(-1), m_maxLength(-1), m_length(-1) {}

// The copy does not take the cache (a check in another thread may be publishing it):
// it parses the bounds again at its own first check.
CPrimitiveRestrictions::CPrimitiveRestrictions(const CPrimitiveRestrictions& other)
    : m_pattern(other.m_pattern),
      m_minLength(other.m_minLength),
      m_maxLength(other.m_maxLength),
      m_minInclusive(other.m_minInclusive),
      m_maxInclusive(other.m_maxInclusive),
      m_minExclusive(other.m_minExclusive),
      m_maxExclusive(other.m_maxExclusive),
      m_length(other.m_length)
{
}

CPrimitiveRestrictions& CPrimitiveRestrictions::operator=(const CPrimitiveRestrictions& other)
{
    if (this == &other) return *this;
    // The cache was made from the texts that change now; the next check makes another.
    delete m_boundCache.exchange(nullptr, std::memory_order_acq_rel);
    m_pattern = other.m_pattern;
    m_minLength = other.m_minLength;
    m_maxLength = other.m_maxLength;
    m_minInclusive = other.m_minInclusive;
    m_maxInclusive = other.m_maxInclusive;
    m_minExclusive = other.m_minExclusive;
    m_maxExclusive = other.m_maxExclusive;
    m_length = other.m_length;
    return *this;
}

CPrimitiveRestrictions::CPrimitiveRestrictions(const char* pattern, int minLength, int maxLength,
                                               const char* minInclusive, const char* maxInclusive,
                                               const char* minExclusive, const char* maxExclusive, int length)
    : m_pattern(TextOrEmpty(pattern)),
      m_minLength(minLength),
      m_maxLength(maxLength),
      m_minInclusive(TextOrEmpty(minInclusive)),
      m_maxInclusive(TextOrEmpty(maxInclusive)),
      m_minExclusive(TextOrEmpty(minExclusive)),
      m_maxExclusive(TextOrEmpty(maxExclusive)),
      m_length(length)
{
}

CPrimitiveRestrictions::~CPrimitiveRestrictions()
{
    delete m_boundCache.load(std::memory_order_acquire);
}

void CheckPrimitiveRestriction(const char* name, const OrvexVariant& value, ItemType type,
                               const CPrimitiveRestrictions& restrictions)
{
    const CPrimitiveRestrictions& r = restrictions;
    switch (type) {
        case ItemType_i1:
            CheckSmallNumber(name, value.GetI1(), r, Cached(r, r.m_boundCache, type, CConversions::i1FromString));
            return;
        case ItemType_i2:
            CheckSmallNumber(name, value.GetI2(), r, Cached(r, r.m_boundCache, type, CConversions::i2FromString));
            return;
        case ItemType_i4:
            CheckSmallNumber(name, value.GetI4(), r, Cached(r, r.m_boundCache, type, CConversions::i4FromString));
            return;
        case ItemType_i8:
            CheckWideNumber(name, value.GetI8(), r, Cached(r, r.m_boundCache, type, CConversions::i8FromString), CConversions::i8ToString);
            return;
        case ItemType_ui1:
            CheckSmallNumber(name, value.GetUI1(), r, Cached(r, r.m_boundCache, type, CConversions::ui1FromString));
            return;
        case ItemType_ui2:
            CheckSmallNumber(name, value.GetUI2(), r, Cached(r, r.m_boundCache, type, CConversions::ui2FromString));
            return;
        // A value above the signed range shows as the negative number of its bits.
        case ItemType_ui4:
            CheckSmallNumber(name, value.GetUI4(), r, Cached(r, r.m_boundCache, type, CConversions::ui4FromString));
            return;
        case ItemType_ui8:
            CheckWideNumber(name, value.GetUI8(), r, Cached(r, r.m_boundCache, type, CConversions::ui8FromString), CConversions::ui8ToString);
            return;
        case ItemType_r4:
            CheckFloating(name, value.GetR4(), r, Cached(r, r.m_boundCache, type, CConversions::r4FromString));
            return;
        case ItemType_r8:
            CheckFloating(name, value.GetR8(), r, Cached(r, r.m_boundCache, type, CConversions::r8FromString));
            return;
        case ItemType_string:
            CheckString(name, value.GetStringRef(), r);
            return;
        case ItemType_boolean:
            return;
        case ItemType_hexBinary:
            CheckBinary(name, value.GetHexBinary(), r);
            return;
        case ItemType_base64Binary:
            CheckBinary(name, value.GetBase64Binary(), r);
            return;
        case ItemType_duration:
            CheckOrdered(name, value.GetDuration(), r, Cached(r, r.m_boundCache, type, CConversions::durationFromString));
            return;
        case ItemType_yearMonth:
            CheckOrdered(name, value.GetYearMonth(), r, Cached(r, r.m_boundCache, type, CConversions::yearMonthFromString));
            return;
        case ItemType_monthDay:
            CheckOrdered(name, value.GetMonthDay(), r, Cached(r, r.m_boundCache, type, CConversions::monthDayFromString));
            return;
        case ItemType_date:
            CheckOrdered(name, value.GetDate(), r, Cached(r, r.m_boundCache, type, CConversions::dateFromString));
            return;
        case ItemType_datetime:
            CheckOrdered(name, value.GetDateTime(), r, Cached(r, r.m_boundCache, type, CConversions::datetimeFromString));
            return;
        case ItemType_time:
            CheckOrdered(name, value.GetTime(), r, Cached(r, r.m_boundCache, type, CConversions::timeFromString));
            return;
        // The date parts compare as unsigned numbers: a negative year is above every
        // positive one.
        case ItemType_year:
            CheckSmallNumber(name, value.GetYear(), r, Cached(r, r.m_boundCache, type, CConversions::yearFromString));
            return;
        case ItemType_month:
            CheckSmallNumber(name, value.GetMonth(), r, Cached(r, r.m_boundCache, type, CConversions::monthFromString));
            return;
        case ItemType_day:
            CheckSmallNumber(name, value.GetDay(), r, Cached(r, r.m_boundCache, type, CConversions::dayFromString));
            return;
        case ItemType_decimal:
            CheckWideNumber(name, value.GetDecimal(), r, Cached(r, r.m_boundCache, type, CConversions::decimalFromString),
                            [](const CDecimal& d) { return d.ToString(); });
            return;
        case ItemType_integer:
            CheckWideNumber(name, value.GetInteger(), r, Cached(r, r.m_boundCache, type, CConversions::integerFromString),
                            CConversions::integerToString);
            return;
        default:
            throw COrvexInvalidValueException("unknown type [" + value.GetType() + "]");
    }
}

}  // namespace OrvexXmlLib5
