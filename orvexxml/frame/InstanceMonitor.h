// A stateless mix-in that takes the class's own name and does nothing with it.
#pragma once

namespace OrvexXmlLib5 {

class CInstanceMonitor
{
public:
    explicit CInstanceMonitor(const char* /*className*/) {}
};

}  // namespace OrvexXmlLib5
