// Test helpers of the binary reader: hand-made documents from spaced
// hexadecimal, and the tree they load into as one line of text.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "NxXmlLib9.h"

namespace fi_reader_test {

// The header, version 1, and no optional parts.
inline const std::string kHead = "E0 00 00 01 00 ";

// Bytes of spaced hexadecimal ("E0 00 ..."); a quoted run 'abc' stands for
// its ASCII bytes.
inline std::vector<unsigned char> Bytes(const std::string& hex)
{
    std::vector<unsigned char> bytes;
    for (size_t i = 0; i < hex.size();) {
        if (hex[i] == ' ') {
            ++i;
        } else if (hex[i] == '\'') {
            const size_t end = hex.find('\'', i + 1);
            bytes.insert(bytes.end(), hex.begin() + static_cast<long>(i) + 1, hex.begin() + static_cast<long>(end));
            i = end + 1;
        } else {
            bytes.push_back(static_cast<unsigned char>(std::stoul(hex.substr(i, 2), nullptr, 16)));
            i += 2;
        }
    }
    return bytes;
}

inline void Load(NxXmlLib9::CXmlDocument& document, const std::vector<unsigned char>& bytes)
{
    document.LoadXmlStream(const_cast<unsigned char*>(bytes.data()), static_cast<unsigned long>(bytes.size()));
}

// An element as {namespace}name[attributes]"text"(children); the namespace
// braces only when there is one.
inline std::string Dump(const NxXmlLib9::CXmlElement* element)
{
    if (!element)
        return "-";
    auto qualified = [](const std::string& ns, const std::string& name) {
        return ns.empty() ? name : "{" + ns + "}" + name;
    };
    std::string text = qualified(element->GetNamespaceURI(), element->GetLocalName());
    if (!element->GetAttributes().empty()) {
        text += "[";
        for (const NxXmlLib9::CXmlAttribute* a : element->GetAttributes())
            text += (text.back() == '[' ? "" : " ") + qualified(a->GetNamespaceURI(), a->GetLocalName()) + "=" +
                    a->GetValue();
        text += "]";
    }
    if (!element->GetText().empty())
        text += "\"" + element->GetText() + "\"";
    if (element->GetFirstElement()) {
        text += "(";
        for (const NxXmlLib9::CXmlElement* c = element->GetFirstElement(); c; c = c->GetNextSiblingElement())
            text += (text.back() == '(' ? "" : " ") + Dump(c);
        text += ")";
    }
    return text;
}

// The tree of a document read under the context, or the message of the
// CNxException it raised, prefixed by "!".
inline std::string ReadBytes(const std::vector<unsigned char>& bytes,
                             const NxXmlLib9::CXmlSerializationContext& context =
                                 NxXmlLib9::CXmlSerializationContext::m_defaultContext)
{
    NxXmlLib9::CXmlDocument document(context);
    try {
        Load(document, bytes);
    } catch (const NxXmlLib9::CNxException& e) {
        return "!" + e.GetMessage();
    }
    return Dump(document.GetDocumentElement());
}

inline std::string Read(const std::string& hex,
                        const NxXmlLib9::CXmlSerializationContext& context =
                            NxXmlLib9::CXmlSerializationContext::m_defaultContext)
{
    return ReadBytes(Bytes(hex), context);
}

} // namespace fi_reader_test
