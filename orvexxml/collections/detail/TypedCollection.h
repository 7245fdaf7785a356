// What every typed value collection shares: the argument list that generated code
// passes to it, the index tests, and the one macro that declares a concrete class.
#pragma once

#include <string>
#include <type_traits>

#include "orvexxml/Export.h"
#include "orvexxml/frame/InstanceMonitor.h"
#include "orvexxml/values/WhitespaceUtils.h"
#include "orvexxml/xml/XmlWriter.h"
#include "orvexxml/xml/detail/WriterAccess.h"

// The constructor arguments of every typed collection, in the order generated code
// passes them; the seven from pattern to length are the facets of one item.
#define ORVEXXML_TYPED_COL_PARAMETERS                                                                       \
    const char *name, const char *namespaceUri, int minOccurs, int maxOccurs, const char *pattern,           \
        int minLength, int maxLength, const char *minInclusive, const char *maxInclusive,                    \
        const char *minExclusive, const char *maxExclusive, int length, CWhitespaceUtils::WhitespaceRule rule, \
        const char *format
#define ORVEXXML_TYPED_COL_ARGUMENTS                                                                         \
    name, namespaceUri, minOccurs, maxOccurs, pattern, minLength, maxLength, minInclusive, maxInclusive,     \
        minExclusive, maxExclusive, length, rule, format

// Declares the public class Class on the shared implementation given as the rest of
// the arguments (a template-id, commas allowed). The class adds nothing but its
// constructor and its own name in CInstanceMonitor: generated code sees one
// concrete class per type, the library keeps one definition of the behaviour.
#define ORVEXXML_TYPED_COLLECTION(Class, ...)                                   \
    class ORVEXXML_API Class : public __VA_ARGS__, public CInstanceMonitor      \
    {                                                                           \
    public:                                                                     \
        /** The arguments, in the order generated code passes them: the item   \
            element's name and namespace, minOccurs and maxOccurs (-1: unbounded), \
            the facets pattern, minLength, maxLength, minInclusive, maxInclusive, \
            minExclusive, maxExclusive and length, the whitespace rule and the  \
            number format. */                                                   \
        Class(ORVEXXML_TYPED_COL_PARAMETERS)                                    \
            : __VA_ARGS__(ORVEXXML_TYPED_COL_ARGUMENTS), CInstanceMonitor(#Class) \
        {                                                                       \
        }                                                                       \
    }

namespace OrvexXmlLib5 {
namespace Detail {

// Fails with COrvexInvalidParamException "Index out of range" unless index is
// from 0 to count: the positions where an item can go in.
ORVEXXML_API void CheckInsertIndex(int index, int count);
// Fails with COrvexInvalidParamException "Index %d is out of range, use 0 - %d"
// unless index names an item.
ORVEXXML_API void CheckItemIndex(int index, int count);

// Numbers and strings are taken by value, as generated setters pass them; the value
// classes by reference.
template <typename T>
using TypedColArgument =
    std::conditional_t<std::is_arithmetic<T>::value || std::is_same<T, std::string>::value, T, const T&>;

// Calls a text conversion with the collection's number format when the conversion
// takes one (r4, r8, decimal), and without it otherwise.
template <typename Convert, typename T>
auto ItemText(Convert convert, const T& value, const char* format, int) -> decltype(convert(value, format))
{
    return convert(value, format);
}
template <typename Convert, typename T>
std::string ItemText(Convert convert, const T& value, const char*, long)
{
    return convert(value);
}

// One element per item, under the collection's own name and namespace. The facets
// are not tested again: they were when the items were added.
template <typename Items, typename Text>
void WriteTypedItems(CXmlWriter* writer, const std::string& name, const std::string& namespaceUri,
                     const Items& items, Text text)
{
    for (const auto& item : items) {
        CWriterAccess::WriteSimpleElement(writer, name, namespaceUri, text(item));
    }
}

}  // namespace Detail
}  // namespace OrvexXmlLib5
