// The untyped element: construction, its namespace rules, its accessors and
// its copies.
#include "NxUntyped.h"

#include <cstring>

#include "NxXmlObjectHelper.h"
#include "foundation/TextArgument.h"

namespace NxXmlLib9 {

namespace {

bool IsRestrictionKeyword(const char* text)
{
    return text && (std::strcmp(text, "##any") == 0 || std::strcmp(text, "##other") == 0 ||
                    std::strcmp(text, "##local") == 0 || std::strcmp(text, "##targetNamespace") == 0);
}

// The two-argument constructor has no restriction argument that a keyword
// could stand for, so a keyword in the namespace place is refused.
const char* NamespaceNotKeyword(const char* namespaceUri)
{
    if (IsRestrictionKeyword(namespaceUri))
        throw CNxInvalidNamespaceException(FormatString("Invalid Namespace [%s]", namespaceUri));
    return namespaceUri;
}

} // namespace

CElement::CElement(const char* name) : CInstanceMonitor("CElement") { Init(name, "", "##any", ""); }

CElement::CElement(const char* name, const char* namespaceUri) : CInstanceMonitor("CElement")
{
    NamespaceNotKeyword(namespaceUri);
    Init(name, namespaceUri, namespaceUri, "");
}

CElement::CElement(const char* name, const char* namespaceUri, const char* restriction, const char* targetNamespace)
    : CInstanceMonitor("CElement")
{
    Init(name, namespaceUri, restriction, targetNamespace);
}

CElement::~CElement() = default;

CXmlObjectBase* CElement::GetBase() { return this; }

std::string CElement::GetTargetNamespace() const { return m_namespace; }

std::string CElement::GetNamespace() const { return m_namespace; }

void CElement::Init(const char* name, const char* namespaceUri, const char* restriction,
                    const char* targetNamespace)
{
    if (!name)
        throw CNxInvalidNamespaceException("Element Name must have a value");
    if (!restriction)
        throw CNxInvalidNamespaceException("Namespace Restriction must have a value");
    if (!targetNamespace)
        throw CNxInvalidNamespaceException("Target Namespace must have a value");
    const std::string namespaceText = OrEmpty(namespaceUri);
    CXmlObjectHelper::TestNamespace(namespaceText, restriction, targetNamespace);

    // New empty collections, which admit any namespace, are made when
    // first needed, over this namespace.
    m_name = name;
    m_namespace = namespaceText;
    m_restriction = restriction;
    m_targetNamespace = targetNamespace;
    m_collectionNamespace = namespaceText;
    m_attributes = nullptr;
    m_elements = nullptr;
}

CAttributeCol& CElement::Attributes() const
{
    return m_attributes.GetOrMake(
        [this] { return new CAttributeCol(m_collectionNamespace.c_str(), "##any", m_targetNamespace.c_str()); });
}

CElementCol& CElement::Elements() const
{
    return m_elements.GetOrMake(
        [this] { return new CElementCol(m_collectionNamespace.c_str(), "##any", m_targetNamespace.c_str(), 0, -1); });
}

CSmartPtr<CElement> CElement::Clone() const
{
    CSmartPtr<CElement> clone(
        new CElement(m_name.c_str(), m_namespace.c_str(), m_restriction.c_str(), m_targetNamespace.c_str()));
    clone->m_collectionNamespace = m_collectionNamespace;
    if (m_attributes)
        clone->m_attributes = m_attributes->Clone();
    if (m_elements)
        clone->m_elements = m_elements->Clone();
    clone->m_text = m_text;
    return clone;
}

void CElement::SetNamespaceRestrictions(const char* restriction, const char* targetNamespace)
{
    const std::string restrictionText = OrEmpty(restriction);
    const std::string targetText = OrEmpty(targetNamespace);
    try {
        CXmlObjectHelper::TestNamespace(m_namespace, restrictionText, targetText);
    } catch (const CNxException& e) {
        // Name first, then namespace, whatever the words of the text suggest.
        throw new CNxInvalidNamespaceException(
            FormatString("The namespace %s in the class %s is invalid against restriction %s", m_name.c_str(),
                         m_namespace.c_str(), restrictionText.c_str()),
            e);
    }
    for (CNode* node = m_attributes ? m_attributes->begin() : nullptr; node; node = node->next)
        if (node->item)
            CXmlObjectHelper::TestNamespace(node->item->GetNamespace(), restrictionText, targetText);
    for (CNode* node = m_elements ? m_elements->begin() : nullptr; node; node = node->next)
        if (CElement* child = dynamic_cast<CElement*>(static_cast<CXmlObjectBase*>(node->item)))
            child->SetNamespaceRestrictions(restriction, targetNamespace);
}

void CElement::SetName(const char* name)
{
    FireOnChangeName(name);
    m_name = OrEmpty(name);
}

void CElement::SetText(const char* text)
{
    FireOnChangeText(text);
    m_text = OrEmpty(text);
}

void CElement::SetNamespace(const char* namespaceUri)
{
    FireOnChangeNamespace(namespaceUri);
    m_namespace = OrEmpty(namespaceUri);
}

void CElement::SetDefaultNamespace(const char* namespaceUri) { m_defaultNamespace = OrEmpty(namespaceUri); }

CSmartPtr<CAttributeCol> CElement::GetAttributes() const { return &Attributes(); }

CSmartPtr<CElementCol> CElement::GetElements() const { return &Elements(); }

void CElement::FireOnChangeName(const char*) {}

void CElement::FireOnChangeText(const char*) {}

void CElement::FireOnChangeNamespace(const char*) {}

} // namespace NxXmlLib9
