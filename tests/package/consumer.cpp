#include <orvexxml/OrvexXmlLib5.h>

#include <iostream>

int main()
{
    using namespace OrvexXmlLib5;
    try {
        throw COrvexInvalidValueException(FormatString("package %s works", "OrvexXml"));
    } catch (const COrvexException& e) {
        std::cout << e.GetMessage() << "\n";
        return e.GetMessage() == "package OrvexXml works" ? 0 : 1;
    }
}
