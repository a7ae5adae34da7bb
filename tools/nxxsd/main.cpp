// nxxsd: compiles XML Schema files into C++ classes of the library.
//
//   nxxsd [--output-dir DIR] [--cpp-namespace NS] SCHEMA.xsd...
//
// Writes NAME.h and NAME.cpp for each schema named, into DIR. Exit status 0
// on success, 1 with a message naming file and construct on failure.
// --depfile FILE also writes, in the form make reads, which schema files the
// outputs depend on, so that a build reruns the compiler when an included
// or imported schema changes.
#include <clocale>
#include <cstring>
#include <fstream>
#include <iostream>
#include <sstream>

#include "CodeEmitter.h"
#include "Naming.h"
#include "NxXmlLib9.h"
#include "SchemaReader.h"

namespace {

const char* const kUsage = "usage: nxxsd [--output-dir DIR] [--cpp-namespace NS] [--depfile FILE] SCHEMA.xsd...\n";

// A path as make reads it in a rule.
std::string MakeEscaped(const std::string& path)
{
    std::string escaped;
    for (char c : path) {
        if (c == ' ' || c == '#' || c == '\\')
            escaped += '\\';
        if (c == '$')
            escaped += '$';
        escaped += c;
    }
    return escaped;
}

std::string BaseName(const std::string& path)
{
    const size_t slash = path.rfind('/');
    std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
    if (name.size() > 4 && name.compare(name.size() - 4, 4, ".xsd") == 0)
        name.resize(name.size() - 4);
    return name;
}

// Writes the file only when its text changed, so that a build depending on
// it does not redo work for an unchanged schema.
void WriteIfChanged(const std::string& path, const std::string& text)
{
    {
        std::ifstream in(path, std::ios::binary);
        if (in) {
            std::ostringstream old;
            old << in.rdbuf();
            if (old.str() == text)
                return;
        }
    }
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << text;
    out.close();
    if (!out)
        throw nxxsd::CompileError {path + ": cannot write the file"};
}

bool IsQualifiedIdentifier(const std::string& text)
{
    if (text.empty())
        return false;
    for (size_t at = 0; at <= text.size();) {
        const size_t end = text.find("::", at);
        const std::string part = text.substr(at, end == std::string::npos ? std::string::npos : end - at);
        if (part.empty() || nxxsd::MakeIdentifier(part) != part)
            return false;
        if (end == std::string::npos)
            break;
        at = end + 2;
    }
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    // The document tree holds text in the code page of the locale: under
    // UTF-8 every XML name comes through unchanged.
    if (!std::setlocale(LC_CTYPE, "C.UTF-8"))
        std::setlocale(LC_CTYPE, "");
    std::string outputDir = ".";
    std::string cppNamespace;
    std::string depfile;
    nxxsd::Model model;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if ((arg == "--output-dir" || arg == "--cpp-namespace" || arg == "--depfile") && i + 1 < argc)
            (arg == "--output-dir" ? outputDir : arg == "--depfile" ? depfile : cppNamespace) = argv[++i];
        else if (arg == "--help" || arg == "-h") {
            std::cout << kUsage;
            return 0;
        } else if (!arg.empty() && arg[0] == '-') {
            std::cerr << "nxxsd: unknown option " << arg << "\n" << kUsage;
            return 1;
        } else
            model.files.push_back(nxxsd::OutputFile {arg, BaseName(arg), ""});
    }
    if (model.files.empty()) {
        std::cerr << kUsage;
        return 1;
    }
    if (!cppNamespace.empty() && !IsQualifiedIdentifier(cppNamespace)) {
        std::cerr << "nxxsd: --cpp-namespace " << cppNamespace << " is not a C++ namespace name\n";
        return 1;
    }
    for (size_t i = 0; i < model.files.size(); ++i) {
        for (size_t j = 0; j < i; ++j)
            if (model.files[j].baseName == model.files[i].baseName) {
                std::cerr << "nxxsd: " << model.files[i].path << ": a second schema named " << model.files[i].baseName
                          << " would overwrite the output of " << model.files[j].path << "\n";
                return 1;
            }
        model.files[i].cppNamespace = cppNamespace.empty() ? nxxsd::MakeIdentifier(model.files[i].baseName)
                                                           : cppNamespace;
    }
    try {
        nxxsd::SchemaReader reader(model);
        for (size_t i = 0; i < model.files.size(); ++i)
            reader.Load(model.files[i].path, static_cast<int>(i));
        reader.Compile();
        for (const std::string& warning : reader.Warnings())
            std::cerr << "nxxsd: warning: " << warning << "\n";
        std::string targets;
        for (size_t i = 0; i < model.files.size(); ++i) {
            const std::string stem = outputDir + "/" + model.files[i].baseName;
            WriteIfChanged(stem + ".h", nxxsd::EmitHeader(model, static_cast<int>(i)));
            WriteIfChanged(stem + ".cpp", nxxsd::EmitSource(model, static_cast<int>(i)));
            targets += MakeEscaped(stem + ".h") + " " + MakeEscaped(stem + ".cpp") + " ";
        }
        if (!depfile.empty()) {
            std::string rule = targets + ":";
            for (const std::string& file : reader.Files())
                rule += " \\\n  " + MakeEscaped(file);
            WriteIfChanged(depfile, rule + "\n");
        }
    } catch (const nxxsd::CompileError& error) {
        std::cerr << "nxxsd: error: " << error.message << "\n";
        return 1;
    } catch (const NxXmlLib9::CNxException& failure) {
        std::cerr << "nxxsd: error: " << failure.GetFullMessage() << "\n";
        return 1;
    }
    return 0;
}
