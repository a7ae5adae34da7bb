// What the schema compiler's tests share: running a program, scratch files,
// the independent validator, and reading a document of any compiled schema.
#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <cstdio>
#include <string>

#include "NxXmlLib9.h"
#include "StreamTestFiles.h"
#include "basics.h"
#include "invoice.h"
#include "naming.h"
#include "orders.h"
#include "structure.h"

namespace NxXsdTest {

struct CommandResult {
    int status = -1;
    std::string output; // standard output and error together
};

inline CommandResult Run(const std::string& command)
{
    CommandResult result;
    FILE* pipe = popen((command + " 2>&1").c_str(), "r");
    if (!pipe)
        return result;
    char buffer[4096];
    for (size_t n; (n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;)
        result.output.append(buffer, n);
    const int status = pclose(pipe);
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return result;
}

inline std::string Quoted(const std::string& text) { return "'" + text + "'"; }

// A fresh directory under the test's scratch folder.
inline std::string ScratchDir(const std::string& name)
{
    const std::string dir = std::string(NXXSD_SCRATCH_DIR) + "/" + name;
    Run("rm -rf " + Quoted(dir) + " && mkdir -p " + Quoted(dir));
    return dir;
}

using NxTest::ReadFileBytes;
using NxTest::WriteFileBytes;

inline std::string SchemaPath(const std::string& name) { return std::string(NXXSD_SCHEMA_DIR) + "/" + name; }

enum class Verdict { Valid, Invalid, NoValidator };

// What python3-xmlschema says of the document; its reason in *reason.
inline Verdict Validate(const std::string& schema, const std::string& documentPath, std::string* reason = nullptr)
{
    const CommandResult result = Run(std::string(NXXSD_PYTHON) + " " + NXXSD_VALIDATE + " " + Quoted(schema) + " " +
                                     Quoted(documentPath));
    if (reason)
        *reason = result.output;
    if (result.status == 0)
        return Verdict::Valid;
    return result.status == 1 ? Verdict::Invalid : Verdict::NoValidator;
}

// Writing under a context that declares every namespace once on the root,
// with a prefix of its own: the document tree, like many readers, keeps
// one meaning per prefix.
inline const NxXmlLib9::CXmlSerializationContext& Aliased()
{
    static const NxXmlLib9::CXmlSerializationContext context = [] {
        NxXmlLib9::CXmlSerializationContext made;
        basics::AddbasicsNamespaceAliases(made);
        orders::AddordersNamespaceAliases(made);
        invoice::AddinvoiceNamespaceAliases(made);
        return made;
    }();
    return context;
}

// A new object for the document element of xml, from whichever compiled
// schema declares it; null when none does.
inline NxXmlLib9::CSmartPtr<NxXmlLib9::CXmlGeneratedClass> ObjectForDocument(const std::string& xml)
{
    NxXmlLib9::CXmlDocument document;
    document.LoadXml(xml.c_str());
    const NxXmlLib9::CXmlElement* root = document.GetDocumentElement();
    const char* name = root->GetLocalName().c_str();
    const char* ns = root->GetNamespaceURI().c_str();
    for (auto create : {&basics::CreateDocumentElement, &structure::CreateDocumentElement,
                        &naming::CreateDocumentElement, &orders::CreateDocumentElement,
                        &invoice::CreateDocumentElement})
        if (NxXmlLib9::CSmartPtr<NxXmlLib9::CXmlGeneratedClass> object = create(name, ns))
            return object;
    return NxXmlLib9::CSmartPtr<NxXmlLib9::CXmlGeneratedClass>();
}

// Reads xml into the object its root names and writes that object again,
// unformatted: indenting would add to the text of untyped content.
inline std::string ReadAndWrite(const std::string& xml)
{
    NxXmlLib9::CSmartPtr<NxXmlLib9::CXmlGeneratedClass> object = ObjectForDocument(xml);
    if (!object)
        return "(no class for the document element)";
    try {
        object->FromXml(xml.c_str());
        return object->ToXml(true, false, NxXmlLib9::EOLTypeLF, Aliased());
    } catch (const NxXmlLib9::CNxException& failure) {
        return "(failed: " + failure.GetFullMessage() + ")";
    }
}

} // namespace NxXsdTest
