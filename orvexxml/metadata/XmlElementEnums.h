// The content model of a generated class and how a class or a child stands in the
// document. Both are stored in generated tables, so their numbers are fixed; the
// fixed underlying type lets any number reach the walks that refuse it.
#pragma once

namespace OrvexXmlLib5 {

// The content model of a generated class.
enum XmlElementGroupType : int
{
    // The descriptors are tried in table order, once each.
    ElementGroup_Sequence = 0,
    // The first descriptor that matches wins.
    ElementGroup_Choice = 1,
    // Any order; each descriptor is tried against each child.
    ElementGroup_All = 2
};

// How a class or a child stands in the document.
enum XmlElementType : int
{
    // A start tag with its attributes, and children inside it.
    ElementType_Element = 0,
    // No element of its own: children stand among the enclosing element's children
    // and attributes go into the enclosing start tag. Other values behave alike,
    // except that they write no attributes through their parent.
    ElementType_Pseudo = 1
};

}  // namespace OrvexXmlLib5

// The descriptors live in their own namespace and use the public classes freely.
namespace OrvexXmlLib5Data {
using namespace OrvexXmlLib5;
}  // namespace OrvexXmlLib5Data
