// The main demo: shows the library at work on the samples shipped in examples/.
#include "orvexxml/OrvexXmlLib5.h"

#include <iostream>

int main()
{
    using namespace OrvexXmlLib5;
    std::cout << FormatString("OrvexXml %s\n", "5.0");
    return 0;
}
