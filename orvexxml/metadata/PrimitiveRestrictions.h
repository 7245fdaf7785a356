// The facets of a primitive type as generated code states them, and the test of
// a value held in an OrvexVariant against them.
#pragma once

#include "orvexxml/Export.h"

#include <memory>
#include <atomic>
#include <string>

#include "orvexxml/data/OrvexVariant.h"

namespace OrvexXmlLib5 {

// Bounds are kept as text in the lexical form of the type and parsed at each test.
// An integer facet is set when it is greater than -1; a text facet when it is not empty.
class ORVEXXML_API CPrimitiveRestrictions
{
public:
    // Facets unset: empty texts, -1 for the integers.
    CPrimitiveRestrictions();
    // Null texts count as empty.
    CPrimitiveRestrictions(const char* pattern, int minLength, int maxLength, const char* minInclusive,
                           const char* maxInclusive, const char* minExclusive, const char* maxExclusive, int length);
    // Copies every facet. Safe while other threads check other.
    CPrimitiveRestrictions(const CPrimitiveRestrictions& other);
    // The same as the copy.
    CPrimitiveRestrictions& operator=(const CPrimitiveRestrictions& other);
    virtual ~CPrimitiveRestrictions();

    // The pattern in XSD syntax; empty for none.
    const std::string& GetPattern() const { return m_pattern; }
    // The least length; -1 for none.
    int GetMinLength() const { return m_minLength; }
    // The greatest length; -1 for none.
    int GetMaxLength() const { return m_maxLength; }
    // The inclusive lower bound; empty for none.
    const std::string& GetMinInclusive() const { return m_minInclusive; }
    // The inclusive upper bound; empty for none.
    const std::string& GetMaxInclusive() const { return m_maxInclusive; }
    // The exclusive lower bound; empty for none.
    const std::string& GetMinExclusive() const { return m_minExclusive; }
    // The exclusive upper bound; empty for none.
    const std::string& GetMaxExclusive() const { return m_maxExclusive; }
    // The exact length; -1 for none.
    int GetLength() const { return m_length; }

private:
    friend ORVEXXML_API void CheckPrimitiveRestriction(const char* name, const OrvexVariant& value, ItemType type,
                                                       const CPrimitiveRestrictions& restrictions);
    // The bounds parsed for the checks, made at the first check and published once;
    // owned by this object. A copy starts without one and makes its own.
    struct BoundCache;
    mutable std::atomic<BoundCache*> m_boundCache{nullptr};

    std::string m_pattern;
    int m_minLength;
    int m_maxLength;
    std::string m_minInclusive;
    std::string m_maxInclusive;
    std::string m_minExclusive;
    std::string m_maxExclusive;
    int m_length;
};

// Tests value, read as type (not by the variant's own tag), against the facets.
// A broken facet fails with COrvexException "Invalid Value for <name> [<value>]";
// a bound that does not parse fails as its conversion does; a pattern that does
// not compile fails with "Invalid Regular Expression: ..."; the char type and
// unknown types fail with COrvexInvalidValueException "unknown type [...]".
ORVEXXML_API void CheckPrimitiveRestriction(const char* name, const OrvexVariant& value, ItemType type,
                               const CPrimitiveRestrictions& restrictions);

}  // namespace OrvexXmlLib5
