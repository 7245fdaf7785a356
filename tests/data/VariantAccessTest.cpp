#include "orvexxml/data/detail/VariantAccess.h"

#include "TestUtil.h"
#include "orvexxml/frame/OrvexException.h"

using namespace OrvexXmlLib5;
using Detail::CVariantAccess;
using Rule = CWhitespaceUtils::WhitespaceRule;

// A string the rule leaves as it is is lent, not copied; every way out of the
// variant (copy, assignment, setter) takes its own string.
TEST(VariantAccess, LentStringIsReadInPlaceAndCopiedOnTheWayOut)
{
    std::string text = "as it is, long enough for the heap";
    OrvexVariant v;
    CVariantAccess::FromTextLent(v, text, ItemType_string, Rule::Collapse);
    EXPECT_EQ(&v.GetStringRef(), &text);
    EXPECT_EQ(v.GetType(), "string");
    EXPECT_EQ(v.ToString(nullptr), text);

    OrvexVariant copy(v);
    OrvexVariant assigned;
    assigned = v;
    OrvexVariant set;
    set.SetString(v.GetStringRef());
    v.SetString(v.GetStringRef());  // from its own lent text: now held
    text = "changed";
    for (const OrvexVariant* each : {&copy, &assigned, &set, &v})
        EXPECT_EQ(each->GetString(), "as it is, long enough for the heap");

    CVariantAccess::FromTextLent(v, text, ItemType_string, Rule::Preserve);
    v.Clear();
    EXPECT_EQ(text, "changed");
    EXPECT_EQ(v.GetStringRef(), "");
    CVariantAccess::FromTextLent(v, text, ItemType_string, Rule::Preserve);
    v = v;
    EXPECT_FALSE(v.IsValid());
}

// A string the rule changes, and every other kind, are held as FromString holds
// them; a failure leaves the lent string in place.
TEST(VariantAccess, ChangedTextAndOtherKindsAreHeld)
{
    const std::string spaced = "  two   words ";
    OrvexVariant v;
    CVariantAccess::FromTextLent(v, spaced, ItemType_string, Rule::Collapse);
    EXPECT_NE(&v.GetStringRef(), &spaced);
    EXPECT_EQ(v.GetStringRef(), "two words");

    const std::string kept = "kept";
    CVariantAccess::FromTextLent(v, kept, ItemType_string, Rule::Replace);
    EXPECT_THROW_MSG(CVariantAccess::FromTextLent(v, std::string("x"), ItemType_i4, Rule::Collapse),
                     COrvexInvalidValueException, "The value [x] can not be converted to a i4");
    EXPECT_EQ(&v.GetStringRef(), &kept);
    EXPECT_THROW_MSG(CVariantAccess::FromTextLent(v, kept, ItemType_string, static_cast<Rule>(9)), COrvexException,
                     "Unknown WhitespaceRule");
    EXPECT_EQ(&v.GetStringRef(), &kept);

    CVariantAccess::FromTextLent(v, std::string(" 42 "), ItemType_i4, Rule::Collapse);
    EXPECT_EQ(v.GetI4(), 42);
}
