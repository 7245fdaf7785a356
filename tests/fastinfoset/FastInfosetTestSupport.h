// Shared by the Fast Infoset writer tests: the writer driven by the scripts of
// tests/xml/WriterScript.h, the committed vectors, and the Java oracle where it can run.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include "TestUtil.h"
#include "examples/ExamplePaths.h"
#include "orvexxml/fastinfoset/FastInfosetWriter.h"
#include "xml/WriterScript.h"

namespace OrvexTest {

inline std::string WriteFastInfosetScript(const std::string& script)
{
    OrvexXmlLib5::CFastInfosetWriter writer;
    RunWriterScript(writer, script);
    return writer.GetOutput().GetString();
}

// Octets as upper-case hex pairs separated by blanks, the form of the expectations.
inline std::string Hex(const std::string& bytes)
{
    static const char digits[] = "0123456789ABCDEF";
    std::string text;
    for (unsigned char c : bytes) text += {' ', digits[c >> 4], digits[c & 15]};
    return text.empty() ? text : text.substr(1);
}

inline std::string ReadBinaryFile(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream content;
    content << in.rdbuf();
    return content.str();
}

inline void WriteBinaryFile(const std::string& path, const std::string& bytes)
{
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

// A committed vector: tests/fastinfoset/writer-vectors/NAME.xml and the bytes that the
// Java library writes for it, NAME.finf (made by make.sh there).
inline std::string VectorPath(const std::string& file)
{
    return OrvexExamples::ExamplePath("../tests/fastinfoset/writer-vectors/" + file);
}

// The Java Fast Infoset library behind the fi-oracle script beside the work
// trees; FI_ORACLE names another. Empty when it or java is missing.
inline std::string OraclePath()
{
    if (std::system("command -v java >/dev/null 2>&1") != 0) return "";
    const char* named = std::getenv("FI_ORACLE");
    const std::string path = named ? named : OrvexExamples::ExamplePath("../../shared/tools/fi-oracle/fi-oracle");
    std::ifstream probe(path);
    return probe ? path : "";
}

// Runs the oracle with the arguments and gives what it printed; a failure of the
// tool gives the text "oracle failed" and its exit status.
inline std::string RunOracle(const std::string& oracle, const std::string& arguments)
{
    const std::string command = "'" + oracle + "' " + arguments + " 2>/dev/null";
    FILE* pipe = popen(command.c_str(), "r");
    if (!pipe) return "oracle failed to start";
    std::string output;
    char buffer[65536];
    std::size_t count;
    while ((count = std::fread(buffer, 1, sizeof(buffer), pipe)) > 0) output.append(buffer, count);
    const int status = pclose(pipe);
    if (status != 0) return "oracle failed " + std::to_string(status);
    return output;
}

}  // namespace OrvexTest
