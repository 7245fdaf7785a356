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

// A string member is lent only to a variant that allows it; anyone else's variant,
// and every copy of a lending one, holds its own string.
TEST(VariantAccess, StringMembersAreLentOnlyWhereAllowed)
{
    std::string member = "a member long enough for the heap";
    OrvexVariant plain;
    CVariantAccess::LendString(plain, member);
    EXPECT_NE(&plain.GetStringRef(), &member);

    OrvexVariant lending;
    CVariantAccess::AllowLending(lending);
    CVariantAccess::LendString(lending, member);
    EXPECT_EQ(&lending.GetStringRef(), &member);
    OrvexVariant copy(lending);
    CVariantAccess::LendString(copy, member);
    EXPECT_NE(&copy.GetStringRef(), &member);

    // Still allowed after the variant changes kind.
    lending.SetI4(7);
    CVariantAccess::LendString(lending, member);
    EXPECT_EQ(&lending.GetStringRef(), &member);
    member = "changed";
    EXPECT_EQ(lending.GetStringRef(), "changed");
    EXPECT_EQ(plain.GetStringRef(), "a member long enough for the heap");
    EXPECT_EQ(copy.GetStringRef(), "a member long enough for the heap");
}
