// The commands of orvex. Each takes the arguments after its name and gives the exit
// status: 0 done, 1 bad input or a failed read or write (the library's message on
// standard error), 2 a command line it cannot run (thrown as CUsageError).
#pragma once

#include <string>
#include <vector>

namespace OrvexTool {

enum ExitStatus
{
    Exit_Ok = 0,
    Exit_Failure = 1,
    Exit_Usage = 2
};

int RunConvert(const std::vector<std::string>& arguments);
int RunShow(const std::vector<std::string>& arguments);
int RunStats(const std::vector<std::string>& arguments);

// The --help text of a command; the program's own for an empty or unknown name.
const char* HelpText(const std::string& command);

}  // namespace OrvexTool
