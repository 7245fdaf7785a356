// orvex-gen: writes the classes of this library for XML Schema files.
//
//   orvex-gen [-I dir]... [--namespace name] [--include-prefix path] [--depfile file]
//             -o dir schema.xsd[=OutputName]...
//
// Each schema named writes OutputName.h and OutputName.cpp (by default the file's
// own name, e.g. po.xsd -> Po.h); files it includes or imports are read for their
// components, and a component used from a file that is not named is an error.
// Nothing is written unless every file maps; an error names the file and line.
// --depfile writes the schema files read, in make's syntax, for the build to watch.
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "Binder.h"
#include "CppEmitter.h"
#include "Layout.h"
#include "NameMapper.h"
#include "SchemaReader.h"

namespace {

int Usage()
{
    std::cerr << "usage: orvex-gen [-I dir]... [--namespace name] [--include-prefix path] [--depfile file] -o dir "
                 "schema.xsd[=OutputName]...\n";
    return 2;
}

// Rewrites a file only when its content changes, so that builds stay incremental.
void WriteIfChanged(const std::string& path, const std::string& content)
{
    std::ifstream in(path, std::ios::binary);
    if (in) {
        std::ostringstream old;
        old << in.rdbuf();
        if (old.str() == content) return;
    }
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << content;
    if (!out) throw OrvexGen::CSchemaException("cannot write " + path);
}

}  // namespace

int main(int argc, char** argv)
{
    using namespace OrvexGen;
    std::vector<std::string> searchPath;
    std::vector<std::pair<std::string, std::string>> schemas;
    std::string outputDir;
    std::string depfile;
    CEmitOptions options;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        auto next = [&]() -> std::string { return ++i < argc ? argv[i] : std::string(); };
        if (arg == "-I")
            searchPath.push_back(next());
        else if (arg.compare(0, 2, "-I") == 0)
            searchPath.push_back(arg.substr(2));
        else if (arg == "-o")
            outputDir = next();
        else if (arg == "--namespace")
            options.cppNamespace = next();
        else if (arg == "--include-prefix")
            options.includePrefix = next();
        else if (arg == "--depfile")
            depfile = next();
        else if (!arg.empty() && arg[0] == '-')
            return Usage();
        else {
            const auto eq = arg.find('=');
            const std::string path = arg.substr(0, eq);
            std::string name = eq == std::string::npos ? std::string() : arg.substr(eq + 1);
            if (name.empty()) name = UpperFirst(Identifier(std::filesystem::path(path).stem().string()));
            schemas.emplace_back(path, name);
        }
    }
    if (schemas.empty() || outputDir.empty()) return Usage();
    try {
        CSchemaSet set;
        CSchemaReader reader(set, searchPath);
        for (const auto& schema : schemas) reader.ReadRoot(schema.first, schema.second);
        CBinder binder(set);
        binder.Bind();
        std::vector<CFileModel*> files;
        for (const auto& file : binder.Files()) files.push_back(file.get());
        AssignNames(files, binder.Classes(), binder.Enums());
        LayOut(files, binder.Classes(), binder.Enums());
        // Everything is produced before anything is written.
        std::vector<std::pair<std::string, std::string>> outputs;
        for (const CFileModel* file : files) {
            CCppEmitter emitter(*file, options);
            outputs.emplace_back(outputDir + "/" + file->outputName + ".h", emitter.Header());
            outputs.emplace_back(outputDir + "/" + file->outputName + ".cpp", emitter.Source());
        }
        std::filesystem::create_directories(outputDir);
        for (const auto& output : outputs) WriteIfChanged(output.first, output.second);
        if (!depfile.empty()) {
            // The first output stands for all of them; spaces in paths are escaped for make.
            auto escaped = [](const std::string& path) {
                std::string out;
                for (char c : path) out += c == ' ' ? std::string("\\ ") : std::string(1, c);
                return out;
            };
            std::string rule = escaped(outputs.front().first) + ":";
            for (const auto& doc : set.documents) rule += " \\\n  " + escaped(doc->path);
            WriteIfChanged(depfile, rule + "\n");
        }
    } catch (const OrvexXmlLib5::COrvexException& e) {
        std::cerr << "orvex-gen: " << e.what() << "\n";
        return 1;
    } catch (const std::exception& e) {
        std::cerr << "orvex-gen: " << e.what() << "\n";
        return 1;
    }
    return 0;
}
