// Base of the generated factories that pick a concrete class for a
// substitutable element from the element's xsi:type attribute.
#pragma once

#include <string>

namespace NxXmlLib9 {

class CXmlElement;

class CClassfactoryBase {
public:
    CClassfactoryBase() = default;
    virtual ~CClassfactoryBase();

    // Local part of the element's xsi:type value: what follows the first
    // colon, or the whole value when there is none. An element without the
    // attribute (or a null element) gives the empty string.
    static std::string GetElementType(CXmlElement* element);
    // Namespace of the element's xsi:type value. A prefix is resolved in the
    // element's document; a prefix that resolves to nothing, a value without
    // a prefix and a missing attribute all give the element's own namespace.
    // The default namespace declaration is deliberately not consulted.
    static std::string GetElementTypeNamespaceUri(CXmlElement* element);
};

} // namespace NxXmlLib9
