// A stateless mix-in that takes the class's own name and does nothing with it.
#pragma once

#include "orvexxml/Export.h"

namespace OrvexXmlLib5 {

class ORVEXXML_API CInstanceMonitor
{
public:
    explicit CInstanceMonitor(const char* /*className*/) {}
};

}  // namespace OrvexXmlLib5
