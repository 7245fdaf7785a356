// The arguments of one orvex command: options from a fixed table, each given at
// most once, and the operands in order. "-" alone is an operand (standard input or
// output); "--" ends the options.
#pragma once

#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace OrvexTool {

// A command line the program cannot run; the message says what is wrong.
class CUsageError : public std::runtime_error
{
public:
    explicit CUsageError(const std::string& message) : std::runtime_error(message) {}
};

struct COptionSpec
{
    const char* name;  // with its dashes, "--to"
    bool takesValue;   // "--to fi" and "--to=fi" both give the value
};

class CCommandLine
{
public:
    // Fails with CUsageError on an unknown option, a missing value, or an option given twice.
    CCommandLine(const std::vector<std::string>& arguments, const std::vector<COptionSpec>& accepted);

    bool Has(const std::string& name) const { return m_options.count(name) != 0; }
    // The option's value, or fallback when it was not given.
    std::string Value(const std::string& name, const std::string& fallback) const;
    const std::vector<std::string>& Operands() const { return m_operands; }
    // Fails with CUsageError unless there are exactly count operands.
    void RequireOperands(std::size_t count, const char* what) const;

private:
    std::map<std::string, std::string> m_options;
    std::vector<std::string> m_operands;
};

// A byte count such as 4096, 64K, 256M or 2G; fails with CUsageError otherwise.
unsigned long long ParseSize(const std::string& option, const std::string& text);

}  // namespace OrvexTool
