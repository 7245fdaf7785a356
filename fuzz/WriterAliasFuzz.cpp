// The writer under a caller's namespace alias map, default namespace and processing
// instructions taken from the fuzzer's bytes. The alias map itself is checked
// against a plain map; the written text of an example object must read back and
// write again to the same text whenever every alias is a usable prefix.
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>

#include "FuzzSupport.h"

using namespace OrvexFuzz;

namespace {

const char* const kSamples[] = {
    "<purchaseOrder orderDate='1999-10-20'><shipTo country='US'><name>Alice Smith</name><street>123 Maple "
    "Street</street><city>Mill Valley</city><state>CA</state><zip>90952</zip></shipTo><billTo country='US'><name>"
    "Robert Smith</name><street>8 Oak Avenue</street><city>Old Town</city><state>PA</state><zip>95819</zip></billTo>"
    "<comment>Hurry</comment><items><item partNum='872-AA'><productName>Lawnmower</productName><quantity>1</quantity>"
    "<USPrice>148.95</USPrice></item></items></purchaseOrder>",
    "<o:Order xmlns:o='urn:orvex:order' xmlns:x='urn:x' id='42' status='held' x:flag='1'><o:Customer vip='true'>"
    "<o:Name>Ada</o:Name><o:Address country='GB'><o:Street>1 Way</o:Street><o:City>Leeds</o:City></o:Address>"
    "</o:Customer><o:Line sku='A1'><o:Quantity>3</o:Quantity>blue pens</o:Line><o:Note>by noon</o:Note></o:Order>",
    "<lib:Library xmlns:lib='urn:orvex:library' xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' name='R'>"
    "<lib:Address country='GB'><lib:Street>4 Mill Lane</lib:Street><lib:City>Ely</lib:City></lib:Address>"
    "<lib:Book isbn='9780141439518'><lib:Title>P</lib:Title><lib:Author>J</lib:Author><lib:Genre>fiction</lib:Genre>"
    "<lib:Edition><lib:Print pages='432'><lib:Binding>paperback</lib:Binding></lib:Print></lib:Edition></lib:Book>"
    "<lib:Member id='M0001'><lib:Name>Ada</lib:Name><lib:Membership xsi:type='lib:AdultMembership'><lib:Since>2019"
    "</lib:Since><lib:Fee>25</lib:Fee></lib:Membership></lib:Member></lib:Library>",
    "<e:echo xmlns:e='urn:e' xmlns:f='urn:f' a='1' f:b='2'><f:child>text</f:child><plain/></e:echo>",
};

bool IsPrefix(const std::string& alias)
{
    if (alias.empty()) return false;
    if (alias.size() >= 3 && (alias[0] | 0x20) == 'x' && (alias[1] | 0x20) == 'm' && (alias[2] | 0x20) == 'l')
        return false;
    for (std::size_t i = 0; i < alias.size(); ++i) {
        const char c = alias[i];
        const bool letter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
        const bool other = (c >= '0' && c <= '9') || c == '-' || c == '.';
        if (!letter && !(i > 0 && other)) return false;
    }
    return true;
}

// Text that needs no escaping in an attribute value and is valid XML character data.
bool IsPlainValue(const std::string& text)
{
    for (unsigned char c : text)
        if (c < 0x20 || c >= 0x7F || c == '<' || c == '&' || c == '"' || c == '\'') return false;
    return true;
}

// Checks the alias map's own operations against a plain map of URI to alias.
void CheckMap(CByteCursor& cursor, CNamespaceAliasMap& map, std::map<std::string, std::string>& model)
{
    const int steps = cursor.Byte() % 8;
    for (int step = 0; step < steps; ++step) {
        const std::uint8_t op = cursor.Byte();
        // The map takes C strings: each ends at its first zero byte.
        const std::string alias = cursor.Until('\x01').c_str(), uri = cursor.Until('\x01').c_str();
        switch (op % 5) {
            case 0: {
                // An empty alias, or one another URI already holds, is refused and
                // leaves the map as it was.
                bool refused = alias.empty();
                for (const auto& entry : model) refused = refused || (entry.second == alias && entry.first != uri);
                try {
                    map.Add(alias.c_str(), uri.c_str());
                    Check(!refused, "Add accepted an alias it must refuse");
                    model[uri] = alias;
                } catch (const COrvexInvalidParamException&) {
                    Check(refused, "Add refused a valid alias");
                }
                break;
            }
            case 1:
                map.RemoveNamespace(uri.c_str());
                model.erase(uri);
                break;
            case 2: {
                bool found = false;
                for (const auto& entry : model) found = found || entry.second == alias;
                Check(map.DoesAliasExist(alias.c_str()) == found, "DoesAliasExist");
                Check(map.DoesNamespaceExist(uri.c_str()) == (model.count(uri) != 0), "DoesNamespaceExist");
                std::string expected;
                for (const auto& entry : model)
                    if (entry.second == alias) {
                        expected = entry.first;
                        break;
                    }
                try {
                    const std::string uriOfAlias = map.GetNamespaceFromAlias(alias.c_str());
                    Check(found && uriOfAlias == expected, "GetNamespaceFromAlias");
                } catch (const COrvexException&) {
                    Check(!found, "GetNamespaceFromAlias failed for a known alias");
                }
                break;
            }
            case 3: {
                const int index = static_cast<int>(static_cast<std::int8_t>(op)) / 5;
                std::string expected;
                auto it = model.begin();
                for (int i = index < 0 ? 0 : index; it != model.end() && i > 0; --i) ++it;
                if (it != model.end()) expected = it->first;
                Check(map.GetNamespaceAt(index) == expected, "GetNamespaceAt");
                break;
            }
            default:
                // An unknown URI leaves an entry with an empty alias behind.
                Check(map.GetAliasFromNamespace(uri.c_str()) == (model.count(uri) ? model[uri] : std::string()),
                      "GetAliasFromNamespace");
                model.emplace(uri, std::string());
                break;
        }
        Check(map.GetNamespaceCount() == static_cast<int>(model.size()), "GetNamespaceCount");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size > 16 * 1024) return 0;
    CByteCursor cursor(data, size);
    const std::uint8_t flags = cursor.Byte();
    const int which = flags % CExample::Count;
    CXmlSerializationContext context;
    std::map<std::string, std::string> model;
    CheckMap(cursor, context.GetNamespaceAliases(), model);
    const std::string defaultNamespace = cursor.Until('\x01').c_str();
    context.SetDefaultNamespaceURI(defaultNamespace.c_str());
    std::string instruction;
    if (flags & 0x10) {
        instruction = cursor.Until('\x01').c_str();
        context.GetProcessingInstructions().push_back(instruction);
    }

    CExample example(which);
    example.Object().FromXml(kSamples[which]);
    std::string written;
    try {
        written = example.Object().ToXml(flags & 0x20, flags & 0x40, (flags & 0x80) ? EOL_CRLF : EOL_LF, context);
    } catch (const COrvexException&) {
        return 0;
    }

    // Only a caller's map of usable prefixes and plain URIs promises readable output.
    // Elements in no namespace are written unprefixed whatever the default namespace
    // is, so a default namespace other than that of every element changes the document.
    static const char* const kOwnNamespaces[] = {"", "urn:orvex:order", "urn:orvex:library", ""};
    bool usable = (defaultNamespace.empty() || defaultNamespace == kOwnNamespaces[which]) &&
                  (instruction.empty() || instruction == "<?a b?>");
    std::map<std::string, int> aliasUses;
    for (const auto& entry : model) {
        usable = usable && IsPrefix(entry.second) && !entry.first.empty() && IsPlainValue(entry.first);
        usable = usable && ++aliasUses[entry.second] == 1;
    }
    if (!usable) return 0;
    CExample again(which);
    CXmlSerializationContext reading;
    try {
        again.Object().FromXml(written.c_str(), reading);
    } catch (const COrvexException& e) {
        Fail("a write under usable aliases does not read back", written, e.GetFullMessage());
    }
    std::string rewritten;
    try {
        rewritten = again.Object().ToXml(flags & 0x20, flags & 0x40, (flags & 0x80) ? EOL_CRLF : EOL_LF, context);
    } catch (const COrvexException& e) {
        Fail("what was read back does not write", written, e.GetFullMessage());
    }
    // Indentation joins the text of mixed content, so only the plain form is a fixed point.
    if (!(flags & 0x40) && rewritten != written) Fail("the second write differs from the first", written, rewritten);
    return 0;
}
