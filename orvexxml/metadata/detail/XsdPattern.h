// xs:pattern facets on PCRE2: the rewriting of the XSD name escapes and a
// per-thread cache of compiled patterns.
#pragma once

#include <string>

namespace OrvexXmlLib5 {
namespace Detail {

// Rewrites \i, \I, \c and \C into PCRE classes; an escaped backslash is left alone.
// The rewriting is textual, so escapes inside square brackets are rewritten too.
std::string TranslateXsdPattern(const std::string& utf8Pattern);

// True when the whole subject (valid UTF-8: it is not checked again) matches the pattern (local encoding) from its
// first byte. A pattern that does not compile fails with COrvexException
// "Invalid Regular Expression: %s Error: '%s' for '%s'" naming the pattern and
// name. Any match error, a resource limit included, counts as no match.
bool MatchXsdPattern(const std::string& pattern, const std::string& utf8Subject, const char* name);

}  // namespace Detail
}  // namespace OrvexXmlLib5
