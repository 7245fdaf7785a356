// The tagged value through which descriptors read and write properties of any
// primitive type, and the fixed numbers of those types.
#pragma once

#include "orvexxml/Export.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <new>
#include <string>

#include "orvexxml/data/BinaryData.h"
#include "orvexxml/frame/SmartPtr.h"
#include "orvexxml/values/BigInteger.h"
#include "orvexxml/values/DateTime.h"
#include "orvexxml/values/DateTimeSpan.h"
#include "orvexxml/values/Decimal.h"
#include "orvexxml/values/WhitespaceUtils.h"

namespace OrvexXmlLib5 {

class CXmlObjectBase;
class CXmlCollectionBase;
namespace Detail {
class CVariantAccess;
}

// Stored in generated code: the numbers are fixed. The fixed underlying type
// lets any number reach the checks that refuse it.
enum ItemType : int
{
    ItemType_Invalid = 0,
    ItemType_hexBinary = 1,
    ItemType_base64Binary = 2,
    ItemType_i1 = 3,
    ItemType_i2 = 4,
    ItemType_i4 = 5,
    ItemType_i8 = 6,
    ItemType_ui1 = 7,
    ItemType_ui2 = 8,
    ItemType_ui4 = 9,
    ItemType_ui8 = 10,
    ItemType_r4 = 11,
    ItemType_r8 = 12,
    ItemType_duration = 13,
    ItemType_yearMonth = 14,
    ItemType_monthDay = 15,
    ItemType_year = 16,
    ItemType_month = 17,
    ItemType_day = 18,
    ItemType_date = 19,
    ItemType_datetime = 20,
    ItemType_time = 21,
    ItemType_char = 22,
    ItemType_string = 23,
    ItemType_boolean = 24,
    ItemType_decimal = 25,
    ItemType_integer = 26,
    ItemType_XmlObject = 27,
    ItemType_XmlCollection = 28
};

namespace Detail {
// The size of the largest of the classes T.
template <typename... T>
constexpr std::size_t LargestOf()
{
    std::size_t size = 0;
    for (std::size_t each : {sizeof(T)...}) size = each > size ? each : size;
    return size;
}

// Bytes for any one of the classes T, aligned for each.
template <typename... T>
struct CRoomFor
{
    alignas(T...) unsigned char bytes[LargestOf<T...>()];
};
}  // namespace Detail

// Getters of the in-place kinds do not look at the type: the caller knows it from
// the descriptor. The variant owns what it holds; the two object kinds hold one
// reference each. The string and the value classes are held in the variant itself,
// without an allocation of their own; a getter of one of them gives the empty
// value unless the variant holds that kind. A binary copy shares the bytes with
// its source until either side writes them.
struct ORVEXXML_API OrvexVariant
{
public:
    OrvexVariant() : m_type(ItemType_Invalid) { m_value.bits = 0; }
    // Shares or copies the value of other as its assignment does.
    OrvexVariant(const OrvexVariant& other);
    ~OrvexVariant() { Clear(); }

    // Assigning a variant to itself leaves it invalid. A source type above 28
    // fails with "Unknown Type" and leaves this variant invalid.
    const OrvexVariant& operator=(const OrvexVariant& other);

    // False when nothing is held (ItemType_Invalid).
    bool IsValid() const { return m_type != ItemType_Invalid; }
    // The type of the value held; ItemType_Invalid when none is.
    ItemType GetItemType() const { return m_type; }
    // Frees what is held; the variant is then invalid.
    void Clear();
    // The same as Clear.
    void SetInvalid() { Clear(); }

    // Holds value as ItemType_i1, freeing what was held.
    void SetI1(char value);
    // Holds value as ItemType_i2, freeing what was held.
    void SetI2(short value);
    // Holds value as ItemType_i4, freeing what was held.
    void SetI4(std::int32_t value);
    // Holds value as ItemType_i8, freeing what was held.
    void SetI8(std::int64_t value);
    // Holds value as ItemType_ui1, freeing what was held.
    void SetUI1(unsigned char value);
    // Holds value as ItemType_ui2, freeing what was held.
    void SetUI2(unsigned short value);
    // Holds value as ItemType_ui4, freeing what was held.
    void SetUI4(std::uint32_t value);
    // Holds value as ItemType_ui8, freeing what was held.
    void SetUI8(std::uint64_t value);
    // Holds value as ItemType_r4, freeing what was held.
    void SetR4(float value);
    // Holds value as ItemType_r8, freeing what was held.
    void SetR8(double value);
    // Holds value as ItemType_year, freeing what was held.
    void SetYear(unsigned short value);
    // Holds value as ItemType_month, freeing what was held.
    void SetMonth(unsigned char value);
    // Holds value as ItemType_day, freeing what was held.
    void SetDay(unsigned char value);
    // Holds value as ItemType_char, freeing what was held.
    void SetChar(char value);
    // Holds value as ItemType_string, freeing what was held.
    void SetString(const std::string& value);
    // Holds value as ItemType_boolean, freeing what was held.
    void SetBoolean(bool value);
    // Adds a reference to a non-null object; a null object still sets the type.
    void SetXmlObject(CXmlObjectBase* object);
    // Holds value as ItemType_hexBinary, sharing its bytes.
    void SetHexBinary(const CBinaryData& value);
    // Holds value as ItemType_base64Binary, sharing its bytes.
    void SetBase64Binary(const CBinaryData& value);
    // Holds a copy of value as ItemType_duration.
    void SetDuration(const CDateTimeSpan& value);
    // The five date kinds store the value with whatever CDateTime kind it has.
    void SetYearMonth(const CDateTime& value);
    // Holds a copy of value as ItemType_monthDay.
    void SetMonthDay(const CDateTime& value);
    // Holds a copy of value as ItemType_date.
    void SetDate(const CDateTime& value);
    // Holds a copy of value as ItemType_datetime.
    void SetDateTime(const CDateTime& value);
    // Holds a copy of value as ItemType_time.
    void SetTime(const CDateTime& value);
    // Holds a copy of value as ItemType_decimal.
    void SetDecimal(const CDecimal& value);
    // Holds a copy of value as ItemType_integer.
    void SetInteger(const CBigInteger& value);

    // The value as ItemType_i1; meaningless when another type is held.
    char GetI1() const { return static_cast<char>(m_value.u8); }
    // The value as ItemType_i2; meaningless when another type is held.
    short GetI2() const { return static_cast<short>(m_value.u16); }
    // The value as ItemType_i4; meaningless when another type is held.
    std::int32_t GetI4() const { return static_cast<std::int32_t>(m_value.u32); }
    // The value as ItemType_i8; meaningless when another type is held.
    std::int64_t GetI8() const { return static_cast<std::int64_t>(m_value.bits); }
    // The value as ItemType_ui1; meaningless when another type is held.
    unsigned char GetUI1() const { return m_value.u8; }
    // The value as ItemType_ui2; meaningless when another type is held.
    unsigned short GetUI2() const { return m_value.u16; }
    // The value as ItemType_ui4; meaningless when another type is held.
    std::uint32_t GetUI4() const { return m_value.u32; }
    // The value as ItemType_ui8; meaningless when another type is held.
    std::uint64_t GetUI8() const { return m_value.bits; }
    // The value as ItemType_r4; meaningless when another type is held.
    float GetR4() const { return m_value.r4; }
    // The value as ItemType_r8; meaningless when another type is held.
    double GetR8() const { return m_value.r8; }
    // The value as ItemType_year; meaningless when another type is held.
    unsigned short GetYear() const { return m_value.u16; }
    // The value as ItemType_month; meaningless when another type is held.
    unsigned char GetMonth() const { return m_value.u8; }
    // The value as ItemType_day; meaningless when another type is held.
    unsigned char GetDay() const { return m_value.u8; }
    // The value as ItemType_char; meaningless when another type is held.
    char GetChar() const { return static_cast<char>(m_value.u8); }
    // The value as ItemType_boolean; meaningless when another type is held.
    bool GetBoolean() const { return m_value.u8 != 0; }
    // A copy; empty when no string is held.
    std::string GetString() const { return m_type == ItemType_string ? StringRef() : std::string(); }
    // The held string itself, without a copy; valid until the variant changes.
    const std::string& GetStringRef() const;
    // The object held, with a new reference; for the two object kinds only.
    CSmartPtr<CXmlObjectBase> GetXmlObject() const;
    // The value-class getters give a copy, or the class's empty value when nothing
    // is held. The binary pair reads one CBinaryData, the five date getters one CDateTime.
    CBinaryData GetHexBinary() const { return Held<CBinaryData>(); }
    // A copy of the ItemType_base64Binary value; the empty value when none is held.
    CBinaryData GetBase64Binary() const { return Held<CBinaryData>(); }
    // A copy of the ItemType_duration value; the empty value when none is held.
    CDateTimeSpan GetDuration() const { return Held<CDateTimeSpan>(); }
    // A copy of the ItemType_yearMonth value; the empty value when none is held.
    CDateTime GetYearMonth() const { return Held<CDateTime>(); }
    // A copy of the ItemType_monthDay value; the empty value when none is held.
    CDateTime GetMonthDay() const { return Held<CDateTime>(); }
    // A copy of the ItemType_date value; the empty value when none is held.
    CDateTime GetDate() const { return Held<CDateTime>(); }
    // A copy of the ItemType_datetime value; the empty value when none is held.
    CDateTime GetDateTime() const { return Held<CDateTime>(); }
    // A copy of the ItemType_time value; the empty value when none is held.
    CDateTime GetTime() const { return Held<CDateTime>(); }
    // A copy of the ItemType_decimal value; the empty value when none is held.
    CDecimal GetDecimal() const { return Held<CDecimal>(); }
    // A copy of the ItemType_integer value; the empty value when none is held.
    CBigInteger GetInteger() const { return Held<CBigInteger>(); }
    // The collection kind (28) is held, copied and released through its
    // CXmlObjectBase part like the object kind; a null collection still sets the type.
    void SetXmlCollection(CXmlCollectionBase* collection);
    // Null when the variant holds no collection.
    CSmartPtr<CXmlCollectionBase> GetXmlCollection() const;

    // The type name; fails with "Invalid Type %d" outside 1 to 26.
    std::string GetType() const;
    // Fails with "Invalid Type %d to convert to string" for kinds without a text form.
    std::string ToString(const char* format) const;
    // Parses text as type and sets it; on failure the variant keeps its old value.
    void FromString(const std::string& text, ItemType type, CWhitespaceUtils::WhitespaceRule rule);

private:
    // Both object kinds are held through their CXmlObjectBase part; the string and
    // the value classes are made in place in held.
    union Value {
        std::uint64_t bits;
        std::uint32_t u32;
        std::uint16_t u16;
        std::uint8_t u8;
        float r4;
        double r8;
        CXmlObjectBase* object;
        void* pointer;
        // The text a reading descriptor lends for the time of one property store.
        const std::string* borrowed;
        Detail::CRoomFor<std::string, CBinaryData, CDateTimeSpan, CDateTime, CDecimal, CBigInteger> held;
    };

    ItemType m_type;
    // With ItemType_string: the string is not held but borrowed (see CVariantAccess).
    bool m_borrowed = false;
    // Set by a writing descriptor on its own variant: a generated class may then lend
    // a string member instead of copying it (see CVariantAccess). Never copied.
    bool m_mayBorrow = false;
    Value m_value;

    friend class Detail::CVariantAccess;

    // The string held or borrowed; only while the variant is of ItemType_string.
    const std::string& StringRef() const { return m_borrowed ? *m_value.borrowed : Ref<std::string>(); }
    // FromString for a caller that keeps text alive and unchanged until this variant
    // changes or ends: a string that the rule leaves as it is is borrowed, not copied.
    void FromStringBorrowing(const std::string& text, ItemType type, CWhitespaceUtils::WhitespaceRule rule);
    // SetString for a caller that keeps text alive and unchanged until this variant
    // changes or ends, when the variant allows it; a copy otherwise.
    void SetStringLent(const std::string& text);

    // Replaces the contents with value, moved in place, under type. The value is
    // made by the caller before the old contents go, so a failure leaves them.
    template <typename T>
    void SetHeld(ItemType type, T value);
    // The held value of kind T; only while the variant holds that kind.
    template <typename T>
    const T& Ref() const
    {
        return *std::launder(reinterpret_cast<const T*>(m_value.held.bytes));
    }
    // True when the type held is of class T (the argument only picks the class).
    bool Holds(const std::string*) const { return m_type == ItemType_string; }
    bool Holds(const CBinaryData*) const { return m_type == ItemType_hexBinary || m_type == ItemType_base64Binary; }
    bool Holds(const CDateTimeSpan*) const { return m_type == ItemType_duration; }
    bool Holds(const CDateTime*) const
    {
        return m_type == ItemType_yearMonth || m_type == ItemType_monthDay || m_type == ItemType_date ||
               m_type == ItemType_datetime || m_type == ItemType_time;
    }
    bool Holds(const CDecimal*) const { return m_type == ItemType_decimal; }
    bool Holds(const CBigInteger*) const { return m_type == ItemType_integer; }
    // The held value of class T, or its empty value when the variant holds another kind.
    template <typename T>
    const T& Held() const
    {
        static const T empty;
        return Holds(static_cast<const T*>(nullptr)) ? Ref<T>() : empty;
    }
};

}  // namespace OrvexXmlLib5
