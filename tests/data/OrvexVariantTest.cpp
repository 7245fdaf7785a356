#include "orvexxml/data/OrvexVariant.h"

#include <cmath>

#include "TestUtil.h"
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/frame/XmlObjectBase.h"

using namespace OrvexXmlLib5;
using Rule = CWhitespaceUtils::WhitespaceRule;

namespace {

// Counts its own destruction so that a test sees the last reference go.
class CountedObject : public CXmlObjectBase
{
public:
    explicit CountedObject(int* destroyed) : m_destroyed(destroyed) {}
    ~CountedObject() override { ++*m_destroyed; }
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return ""; }
    std::string GetNamespace() const override { return ""; }
    int References()
    {
        AddRef();
        return Release();
    }

protected:
    void ToXml_Int(CXmlWriter*, bool, const char*, const CXmlSerializationContext&, bool) const override {}
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement*, const CXmlSerializationContext&, bool) override
    {
        return nullptr;
    }

private:
    int* m_destroyed;
};

}  // namespace

TEST(OrvexVariant, NewVariantIsInvalid)
{
    OrvexVariant v;
    EXPECT_FALSE(v.IsValid());
    EXPECT_EQ(v.GetItemType(), ItemType_Invalid);
    EXPECT_THROW_MSG(v.ToString(nullptr), COrvexException, "Invalid Type 0 to convert to string");
    EXPECT_THROW_MSG(v.GetType(), COrvexException, "Invalid Type 0");
}

TEST(OrvexVariant, EachPlainKindSetsTypeNameAndText)
{
    OrvexVariant v;
    const struct
    {
        void (*set)(OrvexVariant&);
        const char* type;
        const char* text;
    } cases[] = {
        {[](OrvexVariant& x) { x.SetI1(char(-3)); }, "i1", "-3"},
        {[](OrvexVariant& x) { x.SetI2(-300); }, "i2", "-300"},
        {[](OrvexVariant& x) { x.SetI4(-5); }, "i4", "-5"},
        {[](OrvexVariant& x) { x.SetI8(-9000000000LL); }, "i8", "-9000000000"},
        {[](OrvexVariant& x) { x.SetUI1(200); }, "ui1", "200"},
        {[](OrvexVariant& x) { x.SetUI2(60000); }, "ui2", "60000"},
        {[](OrvexVariant& x) { x.SetUI4(4000000000u); }, "ui4", "4000000000"},
        {[](OrvexVariant& x) { x.SetUI8(18446744073709551615ull); }, "ui8", "18446744073709551615"},
        {[](OrvexVariant& x) { x.SetR4(0.5f); }, "r4", "0.5"},
        {[](OrvexVariant& x) { x.SetR8(0.1); }, "r8", "0.1"},
        {[](OrvexVariant& x) { x.SetYear(99); }, "year", "99"},
        {[](OrvexVariant& x) { x.SetMonth(5); }, "month", "--05"},
        {[](OrvexVariant& x) { x.SetDay(7); }, "day", "---07"},
        {[](OrvexVariant& x) { x.SetChar('z'); }, "char", "z"},
        {[](OrvexVariant& x) { x.SetString("text"); }, "string", "text"},
        {[](OrvexVariant& x) { x.SetBoolean(true); }, "boolean", "true"},
    };
    for (const auto& c : cases) {
        c.set(v);
        EXPECT_TRUE(v.IsValid());
        EXPECT_EQ(v.GetType(), c.type);
        EXPECT_EQ(v.ToString(nullptr), c.text) << c.type;
        OrvexVariant copy(v);
        EXPECT_EQ(copy.ToString(nullptr), c.text) << c.type;
    }
    v.SetR8(1.25);
    EXPECT_EQ(v.ToString("%.3f"), "1.250");
}

TEST(OrvexVariant, FromStringParsesEachKindAndKeepsOldValueOnFailure)
{
    OrvexVariant v;
    v.FromString("12", ItemType_i2, Rule::Collapse);
    EXPECT_EQ(v.GetI2(), 12);
    v.FromString("18446744073709551615", ItemType_ui8, Rule::Collapse);
    EXPECT_EQ(v.GetUI8(), 18446744073709551615ull);
    EXPECT_EQ(v.GetItemType(), ItemType_ui8);
    v.FromString(" a  b ", ItemType_string, Rule::Collapse);
    EXPECT_EQ(v.GetString(), "a b");
    v.FromString("FALSE", ItemType_boolean, Rule::Preserve);
    EXPECT_FALSE(v.GetBoolean());
    v.FromString("2.5", ItemType_r4, Rule::Preserve);
    EXPECT_EQ(v.GetR4(), 2.5f);
    v.FromString("-1", ItemType_ui4, Rule::Preserve);
    EXPECT_EQ(v.GetUI4(), 4294967295u);

    v.SetString("kept");
    EXPECT_THROW_MSG(v.FromString("abc", ItemType_i4, Rule::Preserve), COrvexInvalidValueException,
                     "The value [abc] can not be converted to a i4");
    EXPECT_EQ(v.GetString(), "kept");
    const ItemType noText[] = {ItemType_Invalid, ItemType_XmlObject, ItemType_XmlCollection, static_cast<ItemType>(99)};
    for (ItemType type : noText)
        EXPECT_THROW_MSG(v.FromString("1", type, Rule::Preserve), COrvexException,
                         "Invalid Type " + std::to_string(int(type)) + " to convert to string");
    EXPECT_EQ(v.GetString(), "kept");
}

TEST(OrvexVariant, GettersReadTheSameBytesWhateverTheType)
{
    OrvexVariant v;
    v.SetI1(char(-1));
    EXPECT_EQ(v.GetChar(), char(-1));
    EXPECT_EQ(v.GetUI1(), 255);
    EXPECT_TRUE(v.GetBoolean());
    EXPECT_EQ(v.GetI4(), 255);  // a setter clears the whole word first
    v.SetI4(0x12345678);
    EXPECT_EQ(v.GetUI2(), 0x5678);
    EXPECT_EQ(v.GetYear(), 0x5678);
    v.SetI8(-2);
    EXPECT_EQ(v.GetUI8(), 18446744073709551614ull);
}

TEST(OrvexVariant, CopyAndSelfAssignment)
{
    OrvexVariant a;
    a.SetString("source");
    OrvexVariant b(a);
    b.SetString("changed");
    EXPECT_EQ(a.GetString(), "source");
    OrvexVariant c;
    c.SetI4(3);
    c = a;
    EXPECT_EQ(c.GetType(), "string");
    EXPECT_EQ(c.GetString(), "source");
    a = a;
    EXPECT_FALSE(a.IsValid());
    c.SetInvalid();
    EXPECT_FALSE(c.IsValid());
    OrvexVariant empty;
    b = empty;
    EXPECT_FALSE(b.IsValid());
}

TEST(OrvexVariant, ObjectKindHoldsOneReference)
{
    int destroyed = 0;
    CountedObject* object = new CountedObject(&destroyed);
    CSmartPtr<CXmlObjectBase> keep(object);
    {
        OrvexVariant v;
        v.SetXmlObject(object);
        EXPECT_EQ(object->References(), 2);
        EXPECT_EQ(v.GetItemType(), ItemType_XmlObject);
        EXPECT_THROW_MSG(v.GetType(), COrvexException, "Invalid Type 27");
        EXPECT_THROW_MSG(v.ToString(nullptr), COrvexException, "Invalid Type 27 to convert to string");
        {
            OrvexVariant copy(v);
            EXPECT_EQ(object->References(), 3);
            EXPECT_EQ(copy.GetXmlObject().Get(), object);
        }
        EXPECT_EQ(object->References(), 2);
        v.SetXmlObject(object);
        EXPECT_EQ(object->References(), 2);
        v.SetI4(1);
        EXPECT_EQ(object->References(), 1);
        v.SetXmlObject(object);
    }
    EXPECT_EQ(object->References(), 1);
    EXPECT_EQ(destroyed, 0);
    keep = nullptr;
    EXPECT_EQ(destroyed, 1);

    // The variant alone keeps an object alive.
    OrvexVariant owner;
    owner.SetXmlObject(new CountedObject(&destroyed));
    OrvexVariant second(owner);
    owner.Clear();
    EXPECT_EQ(destroyed, 1);
    second.SetString("x");
    EXPECT_EQ(destroyed, 2);

    OrvexVariant none;
    none.SetXmlObject(nullptr);
    EXPECT_EQ(none.GetItemType(), ItemType_XmlObject);
    EXPECT_TRUE(none.GetXmlObject().IsNull());
    OrvexVariant noneCopy(none);
    EXPECT_EQ(noneCopy.GetItemType(), ItemType_XmlObject);
    none.Clear();
}

// ---- Value-class kinds and the date parts ----

TEST(OrvexVariantValueKinds, FromStringToStringRoundTripOfEachKind)
{
    const struct
    {
        ItemType type;
        const char* text;
        const char* name;
        const char* written;
    } cases[] = {
        {ItemType_duration, "P1Y2M3DT4H5M6.789S", "duration", "P1Y2M3DT4H5M6.789S"},
        {ItemType_duration, " -PT0S ", "duration", "-PT0S"},
        {ItemType_yearMonth, "2000-05", "yearMonth", "2000-05"},
        {ItemType_yearMonth, "2000", "yearMonth", "2000"},
        {ItemType_monthDay, "--05-01Z", "monthDay", "--05-01Z"},
        {ItemType_monthDay, "--05--", "monthDay", "--05"},
        {ItemType_year, "2000-05-06", "year", "2000"},
        {ItemType_year, "-0001", "year", "65535"},
        {ItemType_month, "--12", "month", "--12"},
        {ItemType_month, "2000-05", "month", "--05"},
        {ItemType_day, "---07", "day", "---07"},
        {ItemType_day, "--02-29", "day", "---29"},
        {ItemType_date, "-0044-03-15", "date", "-0044-03-15"},
        {ItemType_date, "--05", "date", "--05"},
        {ItemType_datetime, "2000-01-01T12:00:00.5+05:30", "datetime", "2000-01-01T12:00:00.5+05:30"},
        {ItemType_datetime, "2000-01-01ZT23:59:59", "datetime", "2000-01-01T23:59:59Z"},
        {ItemType_time, "12:00:00.123456789", "time", "12:00:00.123456789"},
        {ItemType_time, "12:00:00+24:00", "time", "12:00:00+00:00"},
        {ItemType_decimal, "-000.50", "decimal", "-0.5"},
        {ItemType_decimal, "1E3", "decimal", "1000"},
        {ItemType_integer, "123456789012345678901234567890", "integer", "123456789012345678901234567890"},
        {ItemType_integer, "-0", "integer", "0"},
    };
    for (const auto& c : cases) {
        OrvexVariant v;
        v.FromString(c.text, c.type, Rule::Collapse);
        EXPECT_EQ(v.GetItemType(), c.type) << c.text;
        EXPECT_EQ(v.GetType(), c.name);
        const std::string written = v.ToString(nullptr);
        EXPECT_EQ(written, c.written) << c.text;
        OrvexVariant again;
        if (c.type == ItemType_year) continue;  // a year is written without its four-digit form
        again.FromString(written, c.type, Rule::Preserve);
        EXPECT_EQ(again.ToString(nullptr), written);
        OrvexVariant copy(again);
        again.Clear();
        EXPECT_EQ(copy.ToString(nullptr), written);
    }
    OrvexVariant year;
    year.SetYear(99);
    EXPECT_THROW_MSG(year.FromString(year.ToString(nullptr), ItemType_year, Rule::Collapse), COrvexInvalidValueException,
                     "Invalid XSD Date [99] expected CCYY-MM-DD[Z|[+|-]hh:mm]");
    EXPECT_EQ(year.GetYear(), 99);
}

TEST(OrvexVariantValueKinds, SettersGettersAndTheSharedDateObject)
{
    OrvexVariant v;
    CDateTime time;
    time.SetTime(10, 20, 30);
    v.SetDate(time);
    EXPECT_EQ(v.GetType(), "date");
    // The kind of the variant and that of the value are independent.
    EXPECT_EQ(v.ToString(nullptr), "10:20:30");
    EXPECT_EQ(v.GetDateTime().GetType(), CDateTime::time);
    EXPECT_EQ(v.GetYearMonth().GetHour(), 10);
    EXPECT_EQ(v.GetMonthDay().GetMinute(), 20);
    EXPECT_EQ(v.GetTime().GetSecond(), 30);

    v.SetDuration(CDateTimeSpan(0, 0, 1, 2, 3, 4));
    EXPECT_EQ(v.GetDuration().GetDays(), 1u);
    v.SetDecimal(CDecimal("2.675"));
    EXPECT_EQ(v.ToString("2"), "2.68");
    EXPECT_EQ(v.ToString(nullptr), "2.675");
    EXPECT_EQ(v.ToString("%.1f"), "3.");
    v.SetInteger(CBigInteger(-7));
    EXPECT_EQ(v.GetInteger().ToString(), "-7");
    // A string after a decimal frees the decimal (the leak check of the sanitizer build sees it).
    v.SetDecimal(CDecimal("1.5"));
    v.SetString("text");
    EXPECT_EQ(v.GetString(), "text");

    const struct
    {
        void (*set)(OrvexVariant&);
        const char* name;
    } kinds[] = {
        {[](OrvexVariant& x) { x.SetHexBinary(CBinaryData("ab")); }, "hexBinary"},
        {[](OrvexVariant& x) { x.SetBase64Binary(CBinaryData("ab")); }, "base64Binary"},
        {[](OrvexVariant& x) { x.SetDuration(CDateTimeSpan()); }, "duration"},
        {[](OrvexVariant& x) { x.SetYearMonth(CDateTime()); }, "yearMonth"},
        {[](OrvexVariant& x) { x.SetMonthDay(CDateTime()); }, "monthDay"},
        {[](OrvexVariant& x) { x.SetDate(CDateTime()); }, "date"},
        {[](OrvexVariant& x) { x.SetDateTime(CDateTime()); }, "datetime"},
        {[](OrvexVariant& x) { x.SetTime(CDateTime()); }, "time"},
        {[](OrvexVariant& x) { x.SetDecimal(CDecimal()); }, "decimal"},
        {[](OrvexVariant& x) { x.SetInteger(CBigInteger()); }, "integer"},
    };
    for (const auto& k : kinds) {
        k.set(v);
        EXPECT_EQ(v.GetType(), k.name);
        OrvexVariant copy;
        copy.SetI4(1);
        copy = v;
        EXPECT_EQ(copy.GetType(), k.name);
        v = v;
        EXPECT_FALSE(v.IsValid());
    }
    v.SetTime(CDateTime());
    EXPECT_EQ(v.ToString(nullptr), "Invalid Year Zero");
}

TEST(OrvexVariantValueKinds, CopiesAreDeepAndBinaryCopiesShareTheBytes)
{
    OrvexVariant a;
    a.SetDecimal(CDecimal("1.25"));
    OrvexVariant b(a);
    b.FromString("7", ItemType_decimal, Rule::Preserve);
    EXPECT_EQ(a.ToString(nullptr), "1.25");
    EXPECT_EQ(b.ToString(nullptr), "7");

    CBinaryData bytes("xyz");
    a.SetHexBinary(bytes);
    OrvexVariant c(a);
    EXPECT_EQ(c.GetBase64Binary().GetData(), bytes.GetData());
    CBinaryData written = c.GetHexBinary();
    written[0] = 'q';
    EXPECT_EQ(written.GetString(), "qyz");
    EXPECT_EQ(a.GetHexBinary().GetString(), "xyz");
    EXPECT_EQ(c.GetHexBinary().GetString(), "xyz");
    bytes.Clear();
    a.Clear();
    EXPECT_EQ(c.GetHexBinary().GetString(), "xyz");
}

TEST(OrvexVariantValueKinds, BadTextKeepsTheOldValue)
{
    OrvexVariant v;
    v.SetDecimal(CDecimal("1.5"));
    const struct
    {
        ItemType type;
        const char* text;
        const char* message;
        bool state;  // COrvexInvalidStateException rather than an invalid value
    } cases[] = {
        {ItemType_decimal, "1..5", "The string representing a Decimal, contained an invalid char at position 2 [1..5]",
         false},
        {ItemType_integer, "0x10", "The string representing a Decimal, contained an invalid char at position 1 [0x10]",
         false},
        {ItemType_duration, "P", "Invalid XSD Duration [P] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]", false},
        {ItemType_yearMonth, "2000-5", "Invalid XSD Date [2000-5] expected CCYY-MM-DD[Z|[+|-]hh:mm]", false},
        {ItemType_monthDay, "--02-30", "Invalid Day [30] (1 <= day <= days in month)", false},
        {ItemType_date, "2001-02-29", "Invalid Day [29] (1 <= day <= days in month", false},
        {ItemType_datetime, "2000-01-01T25:00:00", "Invalid XSD Time [25:00:00] expected hh:mm:ss[.ff]", false},
        {ItemType_time, "12:00:00+25:00", "Invalid TimeZone [25:0]", false},
        {ItemType_year, "--05", "Failed to GetYear. Invalid Date Type: gMonth.", true},
        {ItemType_month, "---07", "Failed to GetMonth. Invalid Date Type: gDay.", true},
        {ItemType_day, "2000", "Failed to GetDay. Invalid Date Type: gYear.", true},
    };
    for (const auto& c : cases) {
        if (c.state)
            EXPECT_THROW_MSG(v.FromString(c.text, c.type, Rule::Collapse), COrvexInvalidStateException, c.message);
        else
            EXPECT_THROW_MSG(v.FromString(c.text, c.type, Rule::Collapse), COrvexInvalidValueException, c.message);
        EXPECT_EQ(v.GetItemType(), ItemType_decimal);
        EXPECT_EQ(v.ToString(nullptr), "1.5");
    }
}
