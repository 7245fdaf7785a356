#include "orvexxml/data/OrvexVariant.h"

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

// FromString reaches each setter; the copy and a second parse of the written text
// must give the same text.
TEST(OrvexVariant, FromStringToStringRoundTripOfEachKind)
{
    struct Case { ItemType type; const char *text, *name, *written; };
    const Case cases[] = {
        {ItemType_i1, "-3", "i1", "-3"}, {ItemType_i2, "-300", "i2", "-300"},
        {ItemType_i4, "-5", "i4", "-5"}, {ItemType_i8, "-9000000000", "i8", "-9000000000"},
        {ItemType_ui1, "200", "ui1", "200"}, {ItemType_ui2, "60000", "ui2", "60000"},
        {ItemType_ui4, "-1", "ui4", "4294967295"},
        {ItemType_ui8, "18446744073709551615", "ui8", "18446744073709551615"}, {ItemType_r4, "0.5", "r4", "0.5"},
        {ItemType_r8, "0.1", "r8", "0.1"}, {ItemType_char, " z ", "char", "z"},
        {ItemType_string, " a  b ", "string", "a b"}, {ItemType_boolean, "FALSE", "boolean", "false"},
        {ItemType_hexBinary, " 0aFf ", "hexBinary", "0AFF"}, {ItemType_base64Binary, "QU=JD", "base64Binary", "QUJD"},
        {ItemType_duration, " P1Y2M3DT4H5M6.789S", "duration", "P1Y2M3DT4H5M6.789S"},
        {ItemType_yearMonth, "2000", "yearMonth", "2000"}, {ItemType_monthDay, "--05--", "monthDay", "--05"},
        {ItemType_year, "2000-05-06", "year", "2000"}, {ItemType_month, "2000-05", "month", "--05"},
        {ItemType_day, "--02-29", "day", "---29"}, {ItemType_date, "-0044-03-15", "date", "-0044-03-15"},
        {ItemType_datetime, "2000-01-01ZT23:59:59.5", "datetime", "2000-01-01T23:59:59.5Z"},
        {ItemType_time, "12:00:00.123456789+24:00", "time", "12:00:00.123456789+00:00"},
        {ItemType_decimal, "-000.50", "decimal", "-0.5"},
        {ItemType_integer, "123456789012345678901234567890", "integer", "123456789012345678901234567890"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        OrvexVariant v;
        v.FromString(c.text, c.type, Rule::Collapse);
        EXPECT_EQ(v.GetItemType(), c.type);
        EXPECT_EQ(v.GetType(), c.name);
        EXPECT_EQ(v.ToString(nullptr), c.written);
        OrvexVariant copy(v);
        v.Clear();
        if (c.type != ItemType_year) copy.FromString(copy.ToString(nullptr), c.type, Rule::Preserve);
        EXPECT_EQ(copy.ToString(nullptr), c.written);
    }
    OrvexVariant v;
    v.SetR8(1.25);
    EXPECT_EQ(v.ToString("%.3f"), "1.250");
    v.SetDecimal(CDecimal("2.675"));
    EXPECT_EQ(v.ToString("2"), "2.68");
    // The kind of the variant and that of the value are independent; the five date
    // getters read one object.
    CDateTime time;
    time.SetTime(10, 20, 30);
    v.SetDate(time);  // frees the decimal; the sanitizer build would see a leak
    EXPECT_EQ(v.ToString(nullptr), "10:20:30");
    EXPECT_EQ(v.GetYearMonth().GetHour() + v.GetMonthDay().GetMinute() + v.GetDateTime().GetSecond(), 60);
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

TEST(OrvexVariant, NewCopiedAndSelfAssignedVariants)
{
    OrvexVariant a;
    EXPECT_EQ(a.GetItemType(), ItemType_Invalid);
    EXPECT_THROW_MSG(a.ToString(nullptr), COrvexException, "Invalid Type 0 to convert to string");
    EXPECT_THROW_MSG(a.GetType(), COrvexException, "Invalid Type 0");
    a.SetString("source");
    OrvexVariant b(a), c;
    b.SetString("changed");
    c.SetI4(3);
    c = a;
    EXPECT_EQ(a.GetString() + " " + c.GetType() + " " + c.GetString(), "source string source");
    // Assigning a variant to itself clears it.
    a = a;
    EXPECT_FALSE(a.IsValid());
    b = OrvexVariant();
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
}

TEST(OrvexVariantValueKinds, CopiesAreDeepAndBinaryCopiesShareTheBytes)
{
    OrvexVariant a;
    a.SetInteger(CBigInteger(125));
    OrvexVariant b(a);
    b.FromString("7", ItemType_integer, Rule::Preserve);
    EXPECT_EQ(a.ToString(nullptr), "125");

    CBinaryData bytes("xyz");
    a.SetHexBinary(bytes);
    OrvexVariant c(a);
    EXPECT_EQ(c.GetBase64Binary().GetData(), bytes.GetData());
    CBinaryData written = c.GetHexBinary();
    written[0] = 'q';
    bytes.Clear();
    a.Clear();
    EXPECT_EQ(c.GetHexBinary().GetString(), "xyz");
}

TEST(OrvexVariantValueKinds, BadTextKeepsTheOldValue)
{
    OrvexVariant v;
    v.SetDecimal(CDecimal("1.5"));
    struct Case { ItemType type; const char* text; const char* message; };
    const Case cases[] = {
        {ItemType_i4, "abc", "The value [abc] can not be converted to a i4"},
        {ItemType_decimal, "1..5", "The string representing a Decimal, contained an invalid char at position 2 [1..5]"},
        {ItemType_duration, "P", "Invalid XSD Duration [P] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]"},
        {ItemType_yearMonth, "2000-5", "Invalid XSD Date [2000-5] expected CCYY-MM-DD[Z|[+|-]hh:mm]"},
        {ItemType_datetime, "2000-01-01T25:00:00", "Invalid XSD Time [25:00:00] expected hh:mm:ss[.ff]"},
        {ItemType_time, "12:00:00+25:00", "Invalid TimeZone [25:0]"},
        {ItemType_year, "99", "Invalid XSD Date [99] expected CCYY-MM-DD[Z|[+|-]hh:mm]"},
    };
    for (const auto& c : cases) {
        EXPECT_THROW_MSG(v.FromString(c.text, c.type, Rule::Collapse), COrvexInvalidValueException, c.message);
        EXPECT_EQ(v.ToString(nullptr), "1.5");
    }
    EXPECT_THROW_MSG(v.FromString("2000", ItemType_day, Rule::Collapse), COrvexInvalidStateException,
                     "Failed to GetDay. Invalid Date Type: gYear.");
    EXPECT_THROW_MSG(v.FromString("0G", ItemType_hexBinary, Rule::Collapse), COrvexException,
                     "Invalid char in hex string [G]");
    for (ItemType type : {ItemType_Invalid, ItemType_XmlObject, ItemType_XmlCollection, static_cast<ItemType>(99)})
        EXPECT_THROW_MSG(v.FromString("1", type, Rule::Preserve), COrvexException,
                         "Invalid Type " + std::to_string(int(type)) + " to convert to string");
    EXPECT_EQ(v.GetType(), "decimal");
}

// The string and the value classes live inside the variant: setting one from the
// variant's own value, moving from kind to kind and copying keep every value whole.
TEST(OrvexVariantValueKinds, HeldInPlaceAcrossKindsAndFromItself)
{
    OrvexVariant v;
    v.SetString(std::string(40, 'x'));
    v.SetString(v.GetStringRef());
    EXPECT_EQ(v.GetStringRef(), std::string(40, 'x'));
    v.FromString(" 12.50 ", ItemType_decimal, Rule::Collapse);
    EXPECT_EQ(v.ToString(nullptr), "12.5");
    EXPECT_EQ(v.GetString(), "");  // another kind: the empty value, as for an invalid variant
    v.SetDecimal(v.GetDecimal());
    OrvexVariant copy(v);
    v.FromString("123456789012345678901234567890", ItemType_integer, Rule::Preserve);
    EXPECT_EQ(copy.ToString(nullptr), "12.5");
    EXPECT_EQ(v.ToString(nullptr), "123456789012345678901234567890");
    EXPECT_EQ(v.GetDecimal().ToString(), CDecimal().ToString());
    v.FromString("2001-02-03", ItemType_date, Rule::Collapse);
    EXPECT_EQ(v.GetDateTime().GetDay(), 3);
    copy = v;
    v.FromString("P1D", ItemType_duration, Rule::Collapse);
    v.FromString("6869", ItemType_hexBinary, Rule::Collapse);
    EXPECT_EQ(v.GetBase64Binary().GetString(), "hi");
    EXPECT_EQ(copy.ToString(nullptr), "2001-02-03");
    EXPECT_THROW(v.FromString("not a date", ItemType_date, Rule::Collapse), COrvexException);
    EXPECT_EQ(v.GetHexBinary().GetString(), "hi");
    v.Clear();
    EXPECT_EQ(v.GetStringRef(), "");
}
