#include "NxClassFactory.h"

#include "NxXmlDocument.h"

namespace NxXmlLib9 {

namespace {

const std::string XSI_NAMESPACE = "http://www.w3.org/2001/XMLSchema-instance";

const std::string& TypeAttribute(const CXmlElement* element)
{
    return element->GetAttribute("type", XSI_NAMESPACE);
}

} // namespace

CClassfactoryBase::~CClassfactoryBase() = default;

std::string CClassfactoryBase::GetElementType(CXmlElement* element)
{
    if (!element)
        return std::string();
    const std::string& value = TypeAttribute(element);
    const size_t colon = value.find(':');
    return colon == std::string::npos ? value : value.substr(colon + 1);
}

std::string CClassfactoryBase::GetElementTypeNamespaceUri(CXmlElement* element)
{
    if (!element)
        return std::string();
    const std::string& value = TypeAttribute(element);
    const size_t colon = value.find(':');
    if (colon != std::string::npos && element->GetDocument()) {
        std::string uri = element->GetDocument()->LookupNamespaceFromAlias(value.substr(0, colon).c_str());
        if (!uri.empty())
            return uri;
    }
    return element->GetNamespaceURI();
}

} // namespace NxXmlLib9
