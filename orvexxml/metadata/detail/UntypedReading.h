// The steps that the untyped (xs:any) descriptors of the sequence and choice groups
// share: the name test of a wildcard, the read of one optional element, and the
// read of a run into a CElementCol.
#pragma once

#include <string>

#include "orvexxml/collections/Element.h"
#include "orvexxml/frame/XmlSerializationContext.h"

namespace OrvexXmlLib5 {
class CXmlElement;
}

namespace OrvexXmlLib5Data {
using namespace OrvexXmlLib5;

namespace Detail {

// True when a descriptor named name takes element: the wildcard "AnyElement"
// takes any, another name only that local name.
bool UntypedNameMatches(const std::string& name, const CXmlElement* element);

// Reads *current into a new element of the wildcard's namespace when the name
// matches; gives the element and sets next to the first element not consumed
// (next equals current when nothing was taken).
CSmartPtr<CElement> ReadOptionalUntyped(const std::string& name, const std::string& defaultNamespace,
                                        const std::string& namespaceConstraint, const std::string& targetNamespace,
                                        CXmlElement* parent, CXmlElement* current,
                                        const CXmlSerializationContext& context, CXmlElement*& next);

// Reads a run into collection: every sibling for "AnyElement", otherwise the
// siblings of that local name in the namespace of the first one. A null
// position reads nothing. Gives the first element not consumed.
CXmlElement* ReadUntypedRun(const std::string& name, CXmlCollectionBase* collection, CXmlElement* parent,
                            CXmlElement* current, const CXmlSerializationContext& context);

}  // namespace Detail
}  // namespace OrvexXmlLib5Data
