#include "orvexxml/data/OrvexVariant.h"

#include <utility>

#include "orvexxml/frame/FormatString.h"
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/frame/XmlObjectBase.h"
#include "orvexxml/values/Conversions.h"

namespace OrvexXmlLib5 {

namespace {

const char* const TypeNames[] = {nullptr,     "hexBinary", "base64Binary", "i1",      "i2",      "i4",     "i8",
                                 "ui1",       "ui2",       "ui4",          "ui8",     "r4",      "r8",     "duration",
                                 "yearMonth", "monthDay",  "year",         "month",   "day",     "date",   "datetime",
                                 "time",      "char",      "string",       "boolean", "decimal", "integer"};

[[noreturn]] void ThrowNoText(int type)
{
    throw COrvexException(FormatString("Invalid Type %d to convert to string", type));
}

// Destroys the value of class T made in place at held.
template <typename T>
void Destroy(unsigned char* held)
{
    std::launder(reinterpret_cast<T*>(held))->~T();
}

}  // namespace

template <typename T>
void OrvexVariant::SetHeld(ItemType type, T value)
{
    // Moving the string and the value classes does not fail.
    Clear();
    new (m_value.held.bytes) T(std::move(value));
    m_type = type;
}

OrvexVariant::OrvexVariant(const OrvexVariant& other) : m_type(ItemType_Invalid)
{
    m_value.bits = 0;
    *this = other;
}

const OrvexVariant& OrvexVariant::operator=(const OrvexVariant& other)
{
    Clear();
    const ItemType type = other.m_type;
    if (static_cast<unsigned>(type) > ItemType_XmlCollection) throw COrvexException("Unknown Type");
    // A copy that fails leaves this variant invalid.
    switch (type) {
        case ItemType_string:
            // A borrowed string is copied: the copy holds its own.
            new (m_value.held.bytes) std::string(other.StringRef());
            break;
        case ItemType_hexBinary:
        case ItemType_base64Binary:
            new (m_value.held.bytes) CBinaryData(other.Ref<CBinaryData>());
            break;
        case ItemType_duration:
            new (m_value.held.bytes) CDateTimeSpan(other.Ref<CDateTimeSpan>());
            break;
        case ItemType_yearMonth:
        case ItemType_monthDay:
        case ItemType_date:
        case ItemType_datetime:
        case ItemType_time:
            new (m_value.held.bytes) CDateTime(other.Ref<CDateTime>());
            break;
        case ItemType_decimal:
            new (m_value.held.bytes) CDecimal(other.Ref<CDecimal>());
            break;
        case ItemType_integer:
            new (m_value.held.bytes) CBigInteger(other.Ref<CBigInteger>());
            break;
        case ItemType_XmlObject:
        case ItemType_XmlCollection:
            m_value.object = other.m_value.object;
            if (m_value.object) m_value.object->AddRef();
            break;
        default:
            // In-place kinds: the whole word carries the value with its zero padding.
            m_value.bits = other.m_value.bits;
            break;
    }
    m_type = type;
    return *this;
}

void OrvexVariant::Clear()
{
    switch (m_type) {
        case ItemType_string:
            if (!m_borrowed) Destroy<std::string>(m_value.held.bytes);
            break;
        case ItemType_hexBinary:
        case ItemType_base64Binary:
            Destroy<CBinaryData>(m_value.held.bytes);
            break;
        case ItemType_duration:
            Destroy<CDateTimeSpan>(m_value.held.bytes);
            break;
        case ItemType_yearMonth:
        case ItemType_monthDay:
        case ItemType_date:
        case ItemType_datetime:
        case ItemType_time:
            Destroy<CDateTime>(m_value.held.bytes);
            break;
        case ItemType_decimal:
            Destroy<CDecimal>(m_value.held.bytes);
            break;
        case ItemType_integer:
            Destroy<CBigInteger>(m_value.held.bytes);
            break;
        case ItemType_XmlObject:
        case ItemType_XmlCollection:
            if (m_value.object) {
                CXmlObjectBase* object = m_value.object;
                m_value.object = nullptr;
                object->Release();
            }
            break;
        default:
            break;
    }
    m_type = ItemType_Invalid;
    m_borrowed = false;
    m_value.bits = 0;
}

void OrvexVariant::SetI1(char value)
{
    Clear();
    m_type = ItemType_i1;
    m_value.u8 = static_cast<std::uint8_t>(value);
}

void OrvexVariant::SetI2(short value)
{
    Clear();
    m_type = ItemType_i2;
    m_value.u16 = static_cast<std::uint16_t>(value);
}

void OrvexVariant::SetI4(std::int32_t value)
{
    Clear();
    m_type = ItemType_i4;
    m_value.u32 = static_cast<std::uint32_t>(value);
}

void OrvexVariant::SetI8(std::int64_t value)
{
    Clear();
    m_type = ItemType_i8;
    m_value.bits = static_cast<std::uint64_t>(value);
}

void OrvexVariant::SetUI1(unsigned char value)
{
    Clear();
    m_type = ItemType_ui1;
    m_value.u8 = value;
}

void OrvexVariant::SetUI2(unsigned short value)
{
    Clear();
    m_type = ItemType_ui2;
    m_value.u16 = value;
}

void OrvexVariant::SetUI4(std::uint32_t value)
{
    Clear();
    m_type = ItemType_ui4;
    m_value.u32 = value;
}

void OrvexVariant::SetUI8(std::uint64_t value)
{
    Clear();
    m_type = ItemType_ui8;
    m_value.bits = value;
}

void OrvexVariant::SetR4(float value)
{
    Clear();
    m_type = ItemType_r4;
    m_value.r4 = value;
}

void OrvexVariant::SetR8(double value)
{
    Clear();
    m_type = ItemType_r8;
    m_value.r8 = value;
}

void OrvexVariant::SetYear(unsigned short value)
{
    Clear();
    m_type = ItemType_year;
    m_value.u16 = value;
}

void OrvexVariant::SetMonth(unsigned char value)
{
    Clear();
    m_type = ItemType_month;
    m_value.u8 = value;
}

void OrvexVariant::SetDay(unsigned char value)
{
    Clear();
    m_type = ItemType_day;
    m_value.u8 = value;
}

void OrvexVariant::SetChar(char value)
{
    Clear();
    m_type = ItemType_char;
    m_value.u8 = static_cast<std::uint8_t>(value);
}

void OrvexVariant::SetString(const std::string& value)
{
    // Copied before the old contents go, so that a failure leaves them.
    SetHeld(ItemType_string, std::string(value));
}

void OrvexVariant::SetBoolean(bool value)
{
    Clear();
    m_type = ItemType_boolean;
    m_value.u8 = value ? 1 : 0;
}

void OrvexVariant::SetXmlObject(CXmlObjectBase* object)
{
    // The reference is taken first: setting the object the variant already holds
    // must not destroy it on the way.
    if (object) object->AddRef();
    Clear();
    m_type = ItemType_XmlObject;
    m_value.object = object;
}

void OrvexVariant::SetHexBinary(const CBinaryData& value)
{
    SetHeld(ItemType_hexBinary, value);
}

void OrvexVariant::SetBase64Binary(const CBinaryData& value)
{
    SetHeld(ItemType_base64Binary, value);
}

void OrvexVariant::SetDuration(const CDateTimeSpan& value)
{
    SetHeld(ItemType_duration, value);
}

void OrvexVariant::SetYearMonth(const CDateTime& value)
{
    SetHeld(ItemType_yearMonth, value);
}

void OrvexVariant::SetMonthDay(const CDateTime& value)
{
    SetHeld(ItemType_monthDay, value);
}

void OrvexVariant::SetDate(const CDateTime& value)
{
    SetHeld(ItemType_date, value);
}

void OrvexVariant::SetDateTime(const CDateTime& value)
{
    SetHeld(ItemType_datetime, value);
}

void OrvexVariant::SetTime(const CDateTime& value)
{
    SetHeld(ItemType_time, value);
}

void OrvexVariant::SetDecimal(const CDecimal& value)
{
    SetHeld(ItemType_decimal, value);
}

void OrvexVariant::SetInteger(const CBigInteger& value)
{
    SetHeld(ItemType_integer, value);
}

const std::string& OrvexVariant::GetStringRef() const
{
    static const std::string empty;
    return m_type == ItemType_string ? StringRef() : empty;
}

CSmartPtr<CXmlObjectBase> OrvexVariant::GetXmlObject() const
{
    return CSmartPtr<CXmlObjectBase>(m_value.object);
}

std::string OrvexVariant::GetType() const
{
    const int type = static_cast<int>(m_type);
    if (type < 1 || type > 26) throw COrvexException(FormatString("Invalid Type %d", type));
    return TypeNames[type];
}

std::string OrvexVariant::ToString(const char* format) const
{
    switch (m_type) {
        case ItemType_i1:
            return CConversions::i1ToString(GetI1());
        case ItemType_i2:
            return CConversions::i2ToString(GetI2());
        case ItemType_i4:
            return CConversions::i4ToString(GetI4());
        case ItemType_i8:
            return CConversions::i8ToString(GetI8());
        case ItemType_ui1:
            return CConversions::ui1ToString(GetUI1());
        case ItemType_ui2:
            return CConversions::ui2ToString(GetUI2());
        case ItemType_ui4:
            return CConversions::ui4ToString(GetUI4());
        case ItemType_ui8:
            return CConversions::ui8ToString(GetUI8());
        case ItemType_r4:
            return CConversions::r4ToString(GetR4(), format);
        case ItemType_r8:
            return CConversions::r8ToString(GetR8(), format);
        case ItemType_year:
            return CConversions::yearToString(GetYear());
        case ItemType_month:
            return CConversions::monthToString(GetMonth());
        case ItemType_day:
            return CConversions::dayToString(GetDay());
        case ItemType_char:
            return CConversions::charToString(GetChar());
        case ItemType_string:
            return CConversions::stringToString(StringRef());
        case ItemType_boolean:
            return CConversions::booleanToString(GetBoolean());
        case ItemType_hexBinary:
            return CConversions::hexBinaryToString(Held<CBinaryData>());
        case ItemType_base64Binary:
            return CConversions::base64BinaryToString(Held<CBinaryData>());
        case ItemType_duration:
            return CConversions::durationToString(Held<CDateTimeSpan>());
        // The five date forms are one: the value's own CDateTime kind gives the form.
        case ItemType_yearMonth:
            return CConversions::yearMonthToString(Held<CDateTime>());
        case ItemType_monthDay:
            return CConversions::monthDayToString(Held<CDateTime>());
        case ItemType_date:
            return CConversions::dateToString(Held<CDateTime>());
        case ItemType_datetime:
            return CConversions::datetimeToString(Held<CDateTime>());
        case ItemType_time:
            return CConversions::timeToString(Held<CDateTime>());
        case ItemType_decimal:
            return CConversions::decimalToString(Held<CDecimal>(), format);
        case ItemType_integer:
            return CConversions::integerToString(Held<CBigInteger>());
        default:
            ThrowNoText(static_cast<int>(m_type));
    }
}

void OrvexVariant::FromString(const std::string& text, ItemType type, CWhitespaceUtils::WhitespaceRule rule)
{
    // Each parser runs before the setter: a failure leaves the old value.
    switch (type) {
        case ItemType_i1:
            SetI1(CConversions::i1FromString(text, rule));
            return;
        case ItemType_i2:
            SetI2(CConversions::i2FromString(text, rule));
            return;
        case ItemType_i4:
            SetI4(CConversions::i4FromString(text, rule));
            return;
        case ItemType_i8:
            SetI8(CConversions::i8FromString(text, rule));
            return;
        case ItemType_ui1:
            SetUI1(CConversions::ui1FromString(text, rule));
            return;
        case ItemType_ui2:
            SetUI2(CConversions::ui2FromString(text, rule));
            return;
        case ItemType_ui4:
            SetUI4(CConversions::ui4FromString(text, rule));
            return;
        case ItemType_ui8:
            SetUI8(CConversions::ui8FromString(text, rule));
            return;
        case ItemType_r4:
            SetR4(CConversions::r4FromString(text, rule));
            return;
        case ItemType_r8:
            SetR8(CConversions::r8FromString(text, rule));
            return;
        case ItemType_char:
            SetChar(CConversions::charFromString(text, rule));
            return;
        case ItemType_string: {
            SetHeld(ItemType_string, CConversions::stringFromString(text, rule));
            return;
        }
        case ItemType_boolean:
            SetBoolean(CConversions::booleanFromString(text, rule));
            return;
        // The date parts take their number from a parsed date form.
        case ItemType_year:
            SetYear(CConversions::yearFromString(text, rule));
            return;
        case ItemType_month:
            SetMonth(CConversions::monthFromString(text, rule));
            return;
        case ItemType_day:
            SetDay(CConversions::dayFromString(text, rule));
            return;
        // The value classes: as their setters, with the parsed value moved in, not copied.
        case ItemType_hexBinary:
            SetHeld(ItemType_hexBinary, CConversions::hexBinaryFromString(text, rule));
            return;
        case ItemType_base64Binary:
            SetHeld(ItemType_base64Binary, CConversions::base64BinaryFromString(text, rule));
            return;
        case ItemType_duration:
            SetHeld(ItemType_duration, CConversions::durationFromString(text, rule));
            return;
        case ItemType_yearMonth:
            SetHeld(ItemType_yearMonth, CConversions::yearMonthFromString(text, rule));
            return;
        case ItemType_monthDay:
            SetHeld(ItemType_monthDay, CConversions::monthDayFromString(text, rule));
            return;
        case ItemType_date:
            SetHeld(ItemType_date, CConversions::dateFromString(text, rule));
            return;
        case ItemType_datetime:
            SetHeld(ItemType_datetime, CConversions::datetimeFromString(text, rule));
            return;
        case ItemType_time:
            SetHeld(ItemType_time, CConversions::timeFromString(text, rule));
            return;
        case ItemType_decimal:
            SetHeld(ItemType_decimal, CConversions::decimalFromString(text, rule));
            return;
        case ItemType_integer:
            SetHeld(ItemType_integer, CConversions::integerFromString(text, rule));
            return;
        default:
            ThrowNoText(static_cast<int>(type));
    }
}

void OrvexVariant::SetStringLent(const std::string& text)
{
    if (!m_mayBorrow) {
        SetString(text);
        return;
    }
    Clear();
    m_value.borrowed = &text;
    m_borrowed = true;
    m_type = ItemType_string;
}

void OrvexVariant::FromStringBorrowing(const std::string& text, ItemType type, CWhitespaceUtils::WhitespaceRule rule)
{
    if (type != ItemType_string) {
        FromString(text, type, rule);
        return;
    }
    // As FromString: the rule runs before anything changes.
    std::string scratch;
    const std::string& processed = CWhitespaceUtils::ApplyRule(rule, text, scratch);
    if (&processed != &text) {
        SetHeld(ItemType_string, std::move(scratch));
        return;
    }
    Clear();
    m_value.borrowed = &text;
    m_borrowed = true;
    m_type = ItemType_string;
}

}  // namespace OrvexXmlLib5
