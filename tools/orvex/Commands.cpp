#include "tools/orvex/Commands.h"

#include "tools/common/TreeDump.h"
#include "tools/orvex/CommandLine.h"
#include "tools/orvex/DocumentStats.h"
#include "tools/orvex/InputDocument.h"
#include "tools/orvex/OutputForm.h"
#include "tools/orvex/ProgressLine.h"

#include <cstdio>
#include <iomanip>
#include <iostream>
#include <memory>
#include <sstream>
#include <unistd.h>

namespace OrvexTool {

using namespace OrvexXmlLib5;

namespace {

const char* const ProgramHelp =
    "usage: orvex COMMAND [OPTIONS] ARGUMENTS\n"
    "\n"
    "Converts and inspects XML documents of any kind, with no schema, through the\n"
    "OrvexXml library. Input is XML text (UTF-8 or UTF-16), Fast Infoset, or the gzip\n"
    "or zlib stream of either, recognised from its bytes; \"-\" is standard input.\n"
    "\n"
    "commands:\n"
    "  convert IN OUT   write the document in another form\n"
    "  show IN          print the tree: names with namespaces, attributes, text\n"
    "  stats IN         count elements, attributes, names and values, and compare\n"
    "                   the size of the document in each output form\n"
    "  help [COMMAND]   this text, or the options of one command\n"
    "\n"
    "Each command takes --help. orvex --version prints the library version.\n"
    "\n"
    "exit status:\n"
    "  0  done\n"
    "  1  bad input (not well-formed, truncated, unreadable) or a failed read or write;\n"
    "     the library's message, with its chain of causes, is on standard error\n"
    "  2  usage error: unknown command or option, missing or extra operands\n";

const char* const ConvertHelp =
    "usage: orvex convert [OPTIONS] IN OUT\n"
    "\n"
    "Reads IN in any form and writes it to OUT as XML text (the default) or Fast\n"
    "Infoset. \"-\" for IN or OUT is standard input or output. OUT is written to a\n"
    "temporary file beside it and renamed once complete: a failure leaves no partial\n"
    "file, and an existing OUT stays as it was.\n"
    "\n"
    "  --to xml|fi          output form: XML text or Fast Infoset (default xml)\n"
    "  --gzip               compress the output as a gzip member\n"
    "  --zlib               compress the output as a zlib stream\n"
    "  --utf16              XML text in UTF-16 (little-endian, byte order mark FF FE)\n"
    "  --indent             XML text indented with tabs, one element a line (default)\n"
    "  --compact            XML text with no added white space\n"
    "  --eol lf|crlf        line ends of XML text (default lf)\n"
    "  --declaration        write the XML declaration (default for XML; for Fast\n"
    "                       Infoset the declaration <?xml encoding='finf'?>)\n"
    "  --no-declaration     leave the declaration out (default for Fast Infoset)\n"
    "  --keep-blank         keep text of white space alone in elements that have\n"
    "                       child elements (the indentation between them), which\n"
    "                       is otherwise dropped\n"
    "  --max-inflated SIZE  most bytes a compressed input may inflate to, such as\n"
    "                       512M; 0 lifts the limit (default 256M)\n"
    "  --help               this text\n"
    "\n"
    "The document goes through an untyped element tree: elements, attributes,\n"
    "namespaces and text are kept; comments, processing instructions and the\n"
    "document type declaration are not, and an element keeps its text as one\n"
    "string, written after its child elements. Elements nested more than 1000\n"
    "levels deep fail as bad input. Binary output is not written to a terminal.\n"
    "\n"
    "Exit status: 0 done, 1 bad input or failed read or write, 2 usage error.\n";

const char* const ShowHelp =
    "usage: orvex show [OPTIONS] IN\n"
    "\n"
    "Prints the form of IN, the namespace prefixes it declares, and its tree: one\n"
    "line per element as {namespace}name, one per attribute (@name = \"value\") and\n"
    "the element's text with surrounding blanks removed.\n"
    "\n"
    "  --max-inflated SIZE  most bytes a compressed input may inflate to (default 256M)\n"
    "  --help               this text\n"
    "\n"
    "Exit status: 0 done, 1 bad input or failed read, 2 usage error.\n";

const char* const StatsHelp =
    "usage: orvex stats [OPTIONS] IN\n"
    "\n"
    "Counts the elements, attributes, distinct names, namespaces and values of IN\n"
    "and its depth, and gives its size as compact XML text, XML+gzip, Fast Infoset\n"
    "and Fast Infoset+gzip, so as to show what each form saves on this document.\n"
    "\n"
    "  --keep-blank         measure the sizes with the indentation between child\n"
    "                       elements kept, as orvex convert --keep-blank writes\n"
    "  --max-inflated SIZE  most bytes a compressed input may inflate to (default 256M)\n"
    "  --help               this text\n"
    "\n"
    "Exit status: 0 done, 1 bad input or failed read, 2 usage error.\n";

// Prints what went wrong with subject, the library's chain one cause a line.
int ReportFailure(const std::string& subject, const COrvexException& e)
{
    std::cerr << "orvex: " << subject;
    if (e.GetLocation().IsKnown()) std::cerr << " (" << e.GetLocation().ToString() << ")";
    std::istringstream lines(e.GetFullMessage());
    std::string line;
    bool first = true;
    while (std::getline(lines, line)) {
        std::cerr << (first ? ": " : "\n  caused by: ") << line;
        first = false;
    }
    std::cerr << "\n";
    return Exit_Failure;
}

// How messages and reports name an input or output.
std::string Subject(const std::string& path, const char* standardStream)
{
    return path == "-" ? std::string(standardStream) : path;
}

// Prints help when the command line asks for it; true when it did.
bool AnswerHelp(const CCommandLine& line, const char* help)
{
    if (!line.Has("--help")) return false;
    std::cout << help;
    return true;
}

// The end of a command that printed a report: a failed write to standard output fails.
int ReportWritten()
{
    std::cout.flush();
    if (std::cout) return Exit_Ok;
    std::cerr << "orvex: standard output: Failed to write to the standard output\n";
    return Exit_Failure;
}

std::uint64_t MaxInflatedSize(const CCommandLine& line)
{
    if (!line.Has("--max-inflated")) return CXmlSerializationContext::DefaultMaxInflatedSize;
    return ParseSize("--max-inflated", line.Value("--max-inflated", ""));
}

// The options of convert turned into an output form; contradictions are usage errors.
COutputForm ReadOutputForm(const CCommandLine& line)
{
    COutputForm form;
    const std::string to = line.Value("--to", "xml");
    if (to != "xml" && to != "fi") throw CUsageError("--to takes xml or fi, not \"" + to + "\"");
    form.fastInfoset = to == "fi";
    if (line.Has("--gzip") && line.Has("--zlib")) throw CUsageError("--gzip and --zlib exclude each other");
    if (line.Has("--gzip")) form.compression = Compression_GZIP;
    if (line.Has("--zlib")) form.compression = Compression_ZLIB;
    if (line.Has("--indent") && line.Has("--compact")) throw CUsageError("--indent and --compact exclude each other");
    if (line.Has("--declaration") && line.Has("--no-declaration"))
        throw CUsageError("--declaration and --no-declaration exclude each other");
    if (form.fastInfoset) {
        for (const char* textOnly : {"--utf16", "--indent", "--compact", "--eol"})
            if (line.Has(textOnly)) throw CUsageError(std::string(textOnly) + " applies to XML text, not to --to fi");
        form.declaration = line.Has("--declaration");
        return form;
    }
    form.utf16 = line.Has("--utf16");
    form.formatted = !line.Has("--compact");
    const std::string eol = line.Value("--eol", "lf");
    if (eol != "lf" && eol != "crlf") throw CUsageError("--eol takes lf or crlf, not \"" + eol + "\"");
    form.eol = eol == "crlf" ? EOL_CRLF : EOL_LF;
    form.declaration = !line.Has("--no-declaration");
    return form;
}

std::string Percent(std::uint64_t part, std::uint64_t whole)
{
    std::ostringstream text;
    text << std::fixed << std::setprecision(1) << (whole ? 100.0 * part / whole : 0.0) << "%";
    return text.str();
}

}  // namespace

const char* HelpText(const std::string& command)
{
    if (command == "convert") return ConvertHelp;
    if (command == "show") return ShowHelp;
    if (command == "stats") return StatsHelp;
    return ProgramHelp;
}

int RunConvert(const std::vector<std::string>& arguments)
{
    const CCommandLine line(arguments, {{"--to", true},
                                        {"--gzip", false},
                                        {"--zlib", false},
                                        {"--utf16", false},
                                        {"--indent", false},
                                        {"--compact", false},
                                        {"--eol", true},
                                        {"--declaration", false},
                                        {"--no-declaration", false},
                                        {"--keep-blank", false},
                                        {"--max-inflated", true},
                                        {"--help", false}});
    if (AnswerHelp(line, ConvertHelp)) return Exit_Ok;
    const COutputForm form = ReadOutputForm(line);
    const std::uint64_t maxInflated = MaxInflatedSize(line);
    line.RequireOperands(2, "operands: orvex convert IN OUT");
    const std::string& in = line.Operands()[0];
    const std::string& out = line.Operands()[1];
    if (out == "-" && ::isatty(STDOUT_FILENO) == 1 && (form.fastInfoset || form.compression != Compression_None))
        throw CUsageError("will not write " + form.Describe() + " to a terminal; give a file or a pipe as OUT");

    CProgressLine progress(Subject(in, "standard input"), CInputDocument::InputSize(in));
    CSmartPtr<CElement> element;
    try {
        const CInputDocument input(in, maxInflated, &progress);
        progress.SetStep("building the element tree");
        element = input.ToElement(line.Has("--keep-blank"));
    } catch (const COrvexException& e) {
        progress.Finish();
        return ReportFailure(Subject(in, "standard input"), e);
    }
    try {
        progress.SetStep("writing " + form.Describe());
        const CBinaryData bytes = Encode(*element, form);
        progress.SetStep("saving");
        WriteOutput(out, bytes);
    } catch (const COrvexException& e) {
        progress.Finish();
        return ReportFailure(Subject(out, "standard output"), e);
    }
    return Exit_Ok;
}

int RunShow(const std::vector<std::string>& arguments)
{
    const CCommandLine line(arguments, {{"--max-inflated", true}, {"--help", false}});
    if (AnswerHelp(line, ShowHelp)) return Exit_Ok;
    const std::uint64_t maxInflated = MaxInflatedSize(line);
    line.RequireOperands(1, "operand: orvex show IN");
    const std::string& in = line.Operands()[0];
    CProgressLine progress(Subject(in, "standard input"), CInputDocument::InputSize(in));
    std::unique_ptr<CInputDocument> input;
    try {
        input.reset(new CInputDocument(in, maxInflated, &progress));
    } catch (const COrvexException& e) {
        progress.Finish();
        return ReportFailure(Subject(in, "standard input"), e);
    }
    progress.Finish();
    std::cout << "Document: " << Subject(in, "(standard input)") << "\n"
              << "Form: " << DescribeInputForm(input->GetForm()) << ", " << input->GetSize() << " bytes\n"
              << "\nPrefixes:\n";
    OrvexTools::PrintPrefixes(input->GetDocument(), std::cout);
    std::cout << "\nTree ({namespace}name, @attribute, text):\n";
    OrvexTools::PrintTree(input->GetRoot(), std::cout);
    return ReportWritten();
}

int RunStats(const std::vector<std::string>& arguments)
{
    const CCommandLine line(arguments, {{"--keep-blank", false}, {"--max-inflated", true}, {"--help", false}});
    if (AnswerHelp(line, StatsHelp)) return Exit_Ok;
    const std::uint64_t maxInflated = MaxInflatedSize(line);
    line.RequireOperands(1, "operand: orvex stats IN");
    const std::string& in = line.Operands()[0];
    CProgressLine progress(Subject(in, "standard input"), CInputDocument::InputSize(in));
    CDocumentStats stats;
    InputForm inputForm;
    std::uint64_t inputSize;
    // Each output form with its size, or the reason it has none.
    std::vector<std::pair<std::string, std::string>> sizes;
    std::uint64_t xmlSize = 0;
    try {
        const CInputDocument input(in, maxInflated, &progress);
        inputForm = input.GetForm();
        inputSize = input.GetSize();
        progress.SetStep("counting");
        stats = CDocumentStats::Count(input.GetRoot());
        progress.SetStep("building the element tree");
        const CSmartPtr<CElement> element = input.ToElement(line.Has("--keep-blank"));
        for (const bool fastInfoset : {false, true})
            for (const CompressionType compression : {Compression_None, Compression_GZIP}) {
                COutputForm form;
                form.fastInfoset = fastInfoset;
                form.compression = compression;
                form.formatted = false;
                form.declaration = !fastInfoset;
                progress.SetStep("writing " + form.Describe());
                std::string shown;
                try {
                    const std::uint64_t size = Encode(*element, form).GetLength();
                    if (!fastInfoset && compression == Compression_None) xmlSize = size;
                    shown = std::to_string(size) + "  " + Percent(size, xmlSize);
                } catch (const COrvexException&) {
                    // Only compression fails here: the document is too small to gain from it.
                    shown = "-  (compressed would be longer)";
                }
                sizes.emplace_back(form.Describe(), shown);
            }
    } catch (const COrvexException& e) {
        progress.Finish();
        return ReportFailure(Subject(in, "standard input"), e);
    }
    progress.Finish();
    std::cout << "document         " << Subject(in, "(standard input)") << "\n"
              << "input            " << DescribeInputForm(inputForm) << ", " << inputSize << " bytes\n"
              << "elements         " << stats.elements << "\n"
              << "attributes       " << stats.attributes;
    if (stats.schemaAttributes) std::cout << " (" << stats.schemaAttributes << " xmlns or xsi:)";
    std::cout << "\n"
              << "element names    " << stats.elementNames << " distinct\n"
              << "attribute names  " << stats.attributeNames << " distinct\n"
              << "namespaces       " << stats.namespaces << "\n"
              << "values           " << stats.values << " (" << stats.distinctValues << " distinct, "
              << stats.textBytes << " bytes)\n"
              << "depth            " << stats.depth << "\n"
              << "size as (bytes, share of XML):\n";
    for (const auto& [name, shown] : sizes) std::cout << "  " << std::left << std::setw(19) << name << shown << "\n";
    return ReportWritten();
}

}  // namespace OrvexTool
