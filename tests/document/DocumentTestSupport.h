// Helpers shared by the document and parser tests.
#pragma once

#include <gtest/gtest.h>

#include "NxXmlLib9.h"
#include "ScopedCType.h"

#include <cstdio>
#include <functional>
#include <string>
#include <unistd.h>

namespace NxTest {

// A file in the temporary folder, removed at the end of the test.
class TempFile {
public:
    explicit TempFile(const std::string& content)
    {
        char path[] = "/tmp/nxxml_document_XXXXXX";
        const int descriptor = mkstemp(path);
        if (descriptor >= 0) {
            m_path = path;
            FILE* file = fdopen(descriptor, "wb");
            if (!content.empty())
                std::fwrite(content.data(), 1, content.size(), file);
            std::fclose(file);
        }
    }
    ~TempFile()
    {
        if (!m_path.empty())
            std::remove(m_path.c_str());
    }
    const std::string& Path() const { return m_path; }

private:
    std::string m_path;
};

// The message of the CNxException that load throws; fails the test when it
// throws nothing or something else.
inline std::string FailureOf(const std::function<void()>& load)
{
    try {
        load();
    } catch (const NxXmlLib9::CNxException& failure) {
        return failure.GetMessage();
    } catch (...) {
        ADD_FAILURE() << "not a CNxException";
        return std::string();
    }
    ADD_FAILURE() << "nothing thrown";
    return std::string();
}

inline std::string ParseFailure(const char* xml,
                                const NxXmlLib9::CXmlSerializationContext& context =
                                    NxXmlLib9::CXmlSerializationContext::m_defaultContext)
{
    NxXmlLib9::CXmlDocument document(context);
    return FailureOf([&] { document.LoadXml(xml); });
}

// Names of the children of element, in order, joined by commas.
inline std::string ChildNames(const NxXmlLib9::CXmlElement* element)
{
    std::string names;
    for (const NxXmlLib9::CXmlElement* child = element->GetFirstElement(); child;
         child = child->GetNextSiblingElement()) {
        if (!names.empty())
            names += ',';
        names += child->GetLocalName();
    }
    return names;
}

} // namespace NxTest
