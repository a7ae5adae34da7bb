// What the parts of the schema reader share: the record of one schema file
// and small questions about the elements of a schema document.
#pragma once

#include <climits>
#include <cstdlib>
#include <string>
#include <vector>

#include "NxXmlLib9.h"
#include "SchemaReader.h"
#include "TypeMapping.h"

namespace nxxsd {

using NxXmlLib9::CXmlDocument;
using NxXmlLib9::CXmlElement;

// One schema file as read: its tree, target namespace and form defaults,
// and the output file its components go to.
struct SchemaReader::Doc {
    std::string path;         // as named by the command line or the including schema
    std::string resolvedPath; // absolute, links resolved
    CXmlDocument xml;
    std::string tns;
    bool qualifiedElements = false;
    bool qualifiedAttributes = false;
    int file = 0;
};

inline bool IsXsd(const CXmlElement* node, const char* name)
{
    return node->GetNamespaceURI() == kXsdNamespace && node->GetLocalName() == name;
}

inline const std::string& Attr(const CXmlElement* node, const char* name)
{
    return node->GetAttribute(name, "");
}

inline bool HasAttr(const CXmlElement* node, const char* name)
{
    for (const NxXmlLib9::CXmlAttribute* attribute : node->GetAttributes())
        if (attribute->GetLocalName() == name && attribute->GetNamespaceURI().empty())
            return true;
    return false;
}

inline std::string Directory(const std::string& path)
{
    const size_t slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

// Children in the XML Schema namespace other than annotations.
inline std::vector<const CXmlElement*> Children(const CXmlElement* node)
{
    std::vector<const CXmlElement*> children;
    for (const CXmlElement* child = node->GetFirstElement(); child; child = child->GetNextSiblingElement())
        if (!IsXsd(child, "annotation"))
            children.push_back(child);
    return children;
}

inline const CXmlElement* ChildNamed(const CXmlElement* node, const char* name)
{
    for (const CXmlElement* child : Children(node))
        if (IsXsd(child, name))
            return child;
    return nullptr;
}

inline bool IsCompositor(const CXmlElement* node)
{
    return IsXsd(node, "sequence") || IsXsd(node, "choice") || IsXsd(node, "all") || IsXsd(node, "group");
}

inline Group GroupOf(const CXmlElement* compositor)
{
    if (IsXsd(compositor, "choice"))
        return Group::Choice;
    if (IsXsd(compositor, "all"))
        return Group::All;
    return Group::Sequence;
}

inline int ParseOccurs(const std::string& text, int fallback)
{
    if (text.empty())
        return fallback;
    if (text == "unbounded")
        return -1;
    const long value = std::strtol(text.c_str(), nullptr, 10);
    return value > INT_MAX ? -1 : static_cast<int>(value);
}

// The occurrence of a member from its bounds and the group it stands in: a
// choice knows no mandatory member.
inline Occurs OccursOf(int minOccurs, int maxOccurs, Group group)
{
    if (maxOccurs != 1)
        return Occurs::Col;
    return minOccurs == 0 || group == Group::Choice ? Occurs::Opt : Occurs::Mnd;
}


} // namespace nxxsd
