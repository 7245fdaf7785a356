#include "tools/orvex/CommandLine.h"

#include <cctype>
#include <limits>

namespace OrvexTool {

CCommandLine::CCommandLine(const std::vector<std::string>& arguments, const std::vector<COptionSpec>& accepted)
{
    bool optionsEnded = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (optionsEnded || argument == "-" || argument.empty() || argument[0] != '-') {
            m_operands.push_back(argument);
            continue;
        }
        if (argument == "--") {
            optionsEnded = true;
            continue;
        }
        const std::size_t equals = argument.find('=');
        const std::string name = argument.substr(0, equals);
        const COptionSpec* spec = nullptr;
        for (const COptionSpec& candidate : accepted)
            if (name == candidate.name) spec = &candidate;
        if (!spec) throw CUsageError("unknown option " + name);
        if (m_options.count(name)) throw CUsageError("option " + name + " given twice");
        std::string value;
        if (spec->takesValue) {
            if (equals != std::string::npos)
                value = argument.substr(equals + 1);
            else if (i + 1 < arguments.size())
                value = arguments[++i];
            else
                throw CUsageError("option " + name + " needs a value");
        } else if (equals != std::string::npos) {
            throw CUsageError("option " + name + " takes no value");
        }
        m_options[name] = value;
    }
}

std::string CCommandLine::Value(const std::string& name, const std::string& fallback) const
{
    const auto found = m_options.find(name);
    return found == m_options.end() ? fallback : found->second;
}

void CCommandLine::RequireOperands(std::size_t count, const char* what) const
{
    if (m_operands.size() < count) throw CUsageError(std::string("missing ") + what);
    if (m_operands.size() > count) throw CUsageError("unexpected operand " + m_operands[count]);
}

unsigned long long ParseSize(const std::string& option, const std::string& text)
{
    unsigned long long value = 0;
    std::size_t i = 0;
    const unsigned long long limit = std::numeric_limits<unsigned long long>::max() / 10;
    for (; i < text.size() && std::isdigit(static_cast<unsigned char>(text[i])); ++i) {
        if (value > limit) throw CUsageError(option + ": " + text + " is too large");
        value = value * 10 + static_cast<unsigned>(text[i] - '0');
    }
    if (i == 0) throw CUsageError(option + " wants a size such as 4096, 64K or 256M, not \"" + text + "\"");
    const std::string unit = text.substr(i);
    unsigned shift = 0;
    if (unit == "K" || unit == "k")
        shift = 10;
    else if (unit == "M" || unit == "m")
        shift = 20;
    else if (unit == "G" || unit == "g")
        shift = 30;
    else if (!unit.empty())
        throw CUsageError(option + " wants a size such as 4096, 64K or 256M, not \"" + text + "\"");
    if (shift && value > (std::numeric_limits<unsigned long long>::max() >> shift))
        throw CUsageError(option + ": " + text + " is too large");
    return value << shift;
}

}  // namespace OrvexTool
