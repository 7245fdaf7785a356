// The depth cap of the recursive walks. Reading and writing recurse once per level
// of generated classes and untyped elements; a schema type that contains itself, or
// untyped content, would let a hostile document nest deep enough to overflow the
// stack. One counter per thread spans every kind of object, since the two kinds nest
// inside each other.
#pragma once

namespace OrvexXmlLib5 {
namespace Detail {

class CNestingGuard
{
public:
    static constexpr int MaxNesting = 1000;

    // Enters one level; past MaxNesting fails with COrvexException
    // "Elements are nested deeper than 1000 levels".
    CNestingGuard();
    ~CNestingGuard();
    CNestingGuard(const CNestingGuard&) = delete;
    CNestingGuard& operator=(const CNestingGuard&) = delete;
};

}  // namespace Detail
}  // namespace OrvexXmlLib5
