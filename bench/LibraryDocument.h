// The lending-library document of the benchmarks: books of every edition kind,
// with and without the optional members, then the members of both membership
// kinds, indented as people write it. Shared by the programs that read it.
#pragma once

#include <cstddef>
#include <string>

namespace OrvexBench {

// A document of about targetBytes with memberCount members at the end (at least
// one book, so that every size has both kinds of content).
inline std::string MakeLibraryDocument(std::size_t targetBytes, int memberCount)
{
    std::string xml;
    xml.reserve(targetBytes + (1 << 20));
    xml +=
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<lib:Library xmlns:lib=\"urn:orvex:library\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\""
        " name=\"Riverside Lending Library\">\n"
        "  <lib:Address country=\"GB\">\n    <lib:Street>4 Mill Lane</lib:Street>\n"
        "    <lib:City>Ely</lib:City>\n    <lib:Postcode>CB7 4AA</lib:Postcode>\n  </lib:Address>\n";
    static const char* const genres[] = {"fiction", "science", "history", "poetry"};
    std::string members;
    for (int i = 0; i < memberCount; ++i) {
        const std::string n = std::to_string(1000 + i);
        members += "  <lib:Member id=\"M" + n + "\">\n    <lib:Name>Reader number " + n + "</lib:Name>\n";
        if (i % 2)
            members +=
                "    <lib:Membership xsi:type=\"lib:AdultMembership\">\n      <lib:Since>2019</lib:Since>\n"
                "      <lib:Fee>25.00</lib:Fee>\n    </lib:Membership>\n"
                "    <lib:Email>reader" +
                n + "@example.org</lib:Email>\n";
        else
            members +=
                "    <lib:Membership xsi:type=\"lib:StudentMembership\">\n"
                "      <lib:Since>2023</lib:Since>\n      <lib:School>Ely College</lib:School>\n"
                "      <lib:Graduation>2026</lib:Graduation>\n    </lib:Membership>\n";
        members += "  </lib:Member>\n";
    }
    for (int book = 0; book == 0 || xml.size() + members.size() < targetBytes; ++book) {
        const std::string n = std::to_string(book);
        std::string isbn = "978" + std::to_string(1000000000 + book);
        xml += "  <lib:Book isbn=\"" + isbn + "\"" + (book % 3 ? " lang=\"en\"" : "") +
               ">\n"
               "    <lib:Title>Collected Stories, volume " +
               n +
               "</lib:Title>\n"
               "    <lib:Author>Author of book " +
               n +
               "</lib:Author>\n"
               "    <lib:Genre>" +
               genres[book % 4] + "</lib:Genre>\n";
        if (book % 2) xml += "    <lib:Year>" + std::to_string(1800 + book % 220) + "</lib:Year>\n";
        if (book % 5) xml += "    <lib:Price>" + std::to_string(5 + book % 40) + ".99</lib:Price>\n";
        if (book % 4 == 1) xml += "    <lib:Condition>worn</lib:Condition>\n";
        switch (book % 3) {
            case 0:
                xml += "    <lib:Edition>\n      <lib:Print pages=\"" + std::to_string(100 + book % 900) +
                       "\"><lib:Binding>hardcover</lib:Binding></lib:Print>\n    </lib:Edition>\n";
                break;
            case 1:
                xml += "    <lib:Edition><lib:Ebook>epub</lib:Ebook></lib:Edition>\n";
                break;
            default:
                xml += "    <lib:Edition><lib:Audio>" + std::to_string(60 + book % 600) +
                       "</lib:Audio></lib:Edition>\n";
        }
        xml += "  </lib:Book>\n";
    }
    xml += members;
    xml += "</lib:Library>\n";
    return xml;
}

}  // namespace OrvexBench
