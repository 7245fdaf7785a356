// A stateless mix-in that takes the class's own name and does nothing with it.
#pragma once

#include "orvexxml/Export.h"

namespace OrvexXmlLib5 {

// A base that generated classes name themselves to; it keeps nothing.
class ORVEXXML_API CInstanceMonitor
{
public:
    // Takes the name of the class and ignores it.
    explicit CInstanceMonitor(const char* /*className*/) {}
};

}  // namespace OrvexXmlLib5
