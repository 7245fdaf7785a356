// Drives a text writer from a short script, so that each output case is one line.
// Steps are separated by '|': "<name uri" starts an element (uri optional), ">"
// ends it, "@name uri=value" writes an attribute, "#text" text, "!text" a comment,
// "?text" a processing instruction, "$text" an in-line schema, "^uri type" an
// xsi:type, "+alias uri" and "=uri" change namespaces, "Dn" starts the document
// with the writer's declaration number n (an encoding, or a Fast Infoset
// declaration), "E" ends the document, "*name uri=text" writes a whole element with
// text and nothing else in one call.
#pragma once

#include <cstdlib>
#include <string>

#include "orvexxml/xml/XmlTextWriter.h"
#include "orvexxml/xml/detail/WriterAccess.h"

namespace OrvexTest {

// The enumeration that a writer's WriteStartDocument takes (declared only, for decltype).
template <typename C, typename A>
A StartDocumentArgument(void (C::*)(A));

template <typename Writer>
void RunWriterScript(Writer& w, const std::string& script)
{
    std::size_t start = 0;
    while (start <= script.size()) {
        std::size_t end = script.find('|', start);
        if (end == std::string::npos) end = script.size();
        const std::string step = script.substr(start, end - start);
        start = end + 1;
        if (step.empty()) continue;
        const std::string rest = step.substr(1);
        const std::size_t blank = rest.find(' ');
        const std::string first = rest.substr(0, blank);
        const std::string second = blank == std::string::npos ? "" : rest.substr(blank + 1);
        switch (step[0]) {
            case '<': w.WriteStartElement(first, second); break;
            case '>': w.WriteEndElement(); break;
            case '#': w.WriteText(rest); break;
            case '!': w.WriteComment(rest); break;
            case '?': w.WriteProcessingInstruction(rest); break;
            case '$': w.WriteInlineSchema(rest); break;
            case '^': w.WriteXsiType(first, second); break;
            case '+': w.AddNamespace(first, second); break;
            case '=': w.SetDefaultNamespace(rest); break;
            case 'D':
                w.WriteStartDocument(
                    static_cast<decltype(StartDocumentArgument(&Writer::WriteStartDocument))>(std::atoi(rest.c_str())));
                break;
            case 'E': w.WriteEndDocument(); break;
            case '@':
            case '*': {
                const std::size_t equals = rest.find('=');
                const std::string name = rest.substr(0, equals);
                const std::size_t nameBlank = name.find(' ');
                const std::string localName = name.substr(0, nameBlank);
                const std::string uri = nameBlank == std::string::npos ? "" : name.substr(nameBlank + 1);
                const std::string value = equals == std::string::npos ? "" : rest.substr(equals + 1);
                if (step[0] == '@')
                    w.WriteAttribute(localName, uri, value);
                else
                    OrvexXmlLib5::Detail::CWriterAccess::WriteSimpleElement(&w, localName, uri, value);
                break;
            }
        }
    }
}

inline std::string WriteScript(const std::string& script, bool formatted = false,
                               OrvexXmlLib5::EOLType eol = OrvexXmlLib5::EOL_LF)
{
    OrvexXmlLib5::CXmlTextWriter writer;
    writer.SetFormatted(formatted);
    writer.SetEOLType(eol);
    RunWriterScript(writer, script);
    return writer.GetString();
}

}  // namespace OrvexTest
