// Which element a collection reads, and which namespaces a wildcard admits.
#include "NxXmlObjectHelper.h"

#include "NxException.h"
#include "NxSerializationContext.h"
#include "NxXmlDocument.h"
#include "NxXmlObjectBase.h"
#include "foundation/TextArgument.h"

namespace NxXmlLib9 {

namespace {

// The verdict of one token of a wildcard. A token that is not
// a keyword (a URI, or the empty token between two blanks) is compared with
// the whole wildcard rather than with itself, and always admits the
// empty namespace.
bool TokenAdmits(const std::string& token, const std::string& namespaceUri, const std::string& wildcard,
                 const std::string& targetNamespace)
{
    if (token == "##any")
        return true;
    if (token == "##other")
        return namespaceUri != targetNamespace;
    if (token == "##local")
        return namespaceUri.empty();
    if (token == "##targetNamespace")
        return namespaceUri == targetNamespace;
    return namespaceUri == wildcard || namespaceUri.empty();
}

} // namespace

bool CXmlObjectHelper::DoesElementNameMatch(const CXmlSerializationContext& context, const CXmlElement* element,
                                            const std::string& name, const std::string& elementNamespace)
{
    if (element->GetLocalName() != name)
        return false;
    if (context.GetSchemaType() == SchemaTypeNoNamespaces || context.GetIgnoreNamespaces())
        return true;
    return element->GetNamespaceURI() == elementNamespace;
}

bool CXmlObjectHelper::IsNamespaceValid(const std::string& namespaceUri, const std::string& wildcard,
                                        const std::string& targetNamespace)
{
    const size_t blank = wildcard.find(' ');
    if (blank == std::string::npos)
        return TokenAdmits(wildcard, namespaceUri, wildcard, targetNamespace);
    if (TokenAdmits(wildcard.substr(0, blank), namespaceUri, wildcard, targetNamespace))
        return true;
    // The token walk of a list keeps one blank as its remainder after the
    // first token, so every later pass sees the empty token and nothing
    // else. One look at the empty token therefore settles the list; where it
    // refuses, the walk would go round for ever, and the answer is false.
    return TokenAdmits(std::string(), namespaceUri, wildcard, targetNamespace);
}

void CXmlObjectHelper::TestNamespace(const std::string& namespaceUri, const std::string& wildcard,
                                     const std::string& targetNamespace)
{
    if (!IsNamespaceValid(namespaceUri, wildcard, targetNamespace))
        throw CNxInvalidNamespaceException(FormatString(
            "Invalid namespace [%s]. The namespace must be one of [%s] where the target namespace is [%s]",
            namespaceUri.c_str(), wildcard.c_str(), targetNamespace.c_str()));
}

bool CXmlObjectBase::DoesElementNameMatch(const CXmlSerializationContext& context, const CXmlElement* element,
                                          const char* name, const char* elementNamespace) const
{
    return CXmlObjectHelper::DoesElementNameMatch(context, element, OrEmpty(name), OrEmpty(elementNamespace));
}

bool CXmlObjectBase::IsNamespaceValid(const char* namespaceUri, const char* wildcard,
                                      const char* targetNamespace) const
{
    return CXmlObjectHelper::IsNamespaceValid(OrEmpty(namespaceUri), OrEmpty(wildcard), OrEmpty(targetNamespace));
}

void CXmlObjectBase::TestNamespace(const char* namespaceUri, const char* wildcard,
                                   const char* targetNamespace) const
{
    CXmlObjectHelper::TestNamespace(OrEmpty(namespaceUri), OrEmpty(wildcard), OrEmpty(targetNamespace));
}

} // namespace NxXmlLib9
