// orvex: converts and inspects XML documents of any kind from the command line.
#include "tools/orvex/CommandLine.h"
#include "tools/orvex/Commands.h"

#include "orvexxml/OrvexXmlLib5.h"
#include "orvexxml/Version.h"

#include <algorithm>
#include <iostream>
#include <new>
#include <string>
#include <vector>

using namespace OrvexTool;

int main(int argc, char** argv)
{
    const std::vector<std::string> arguments(argv + std::min(argc, 2), argv + argc);
    const std::string command = argc > 1 ? argv[1] : "";
    try {
        if (command == "convert") return RunConvert(arguments);
        if (command == "show") return RunShow(arguments);
        if (command == "stats") return RunStats(arguments);
        if (command == "--help" || command == "-h" || command == "help") {
            if (arguments.size() > 1) throw CUsageError("help takes at most one command");
            std::cout << HelpText(arguments.empty() ? "" : arguments[0]);
            return Exit_Ok;
        }
        if (command == "--version") {
            std::cout << "orvex " << ORVEXXML_VERSION_STRING << " (library " << OrvexXmlLib5::GetLibraryVersionString() << ")\n";
            return Exit_Ok;
        }
        throw CUsageError(command.empty() ? "no command given" : "unknown command \"" + command + "\"");
    } catch (const CUsageError& e) {
        const bool known = command == "convert" || command == "show" || command == "stats";
        std::cerr << "orvex" << (known ? " " + command : std::string()) << ": " << e.what() << "\n"
                  << "Try 'orvex " << (known ? command + " " : std::string()) << "--help'.\n";
        return Exit_Usage;
    } catch (const OrvexXmlLib5::COrvexException& e) {
        std::cerr << "orvex: " << e.GetFullMessage() << "\n";
        return Exit_Failure;
    } catch (const std::bad_alloc&) {
        std::cerr << "orvex: out of memory\n";
        return Exit_Failure;
    } catch (const std::exception& e) {
        std::cerr << "orvex: " << e.what() << "\n";
        return Exit_Failure;
    }
}
