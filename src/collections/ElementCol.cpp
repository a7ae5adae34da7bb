// The collection of untyped elements.
#include "NxUntyped.h"

#include "NxXmlDocument.h"
#include "NxXmlObjectHelper.h"
#include "collections/UntypedCollectionItems.h"
#include "foundation/TextArgument.h"

namespace NxXmlLib9 {

namespace {

// With no namespace given, a keyword restriction is taken over as text: the
// elements added by name then carry the keyword as their namespace.
std::string DefaultElementNamespace(const std::string& namespaceUri, const std::string& restriction)
{
    if (namespaceUri.empty() && restriction.size() > 1 && restriction.compare(0, 2, "##") == 0)
        return restriction;
    return namespaceUri;
}

} // namespace

CElementCol::CElementCol(const char* namespaceUri, const char* restriction, const char* targetNamespace,
                         int /*minOccurs*/, int /*maxOccurs*/)
    : CInstanceMonitor("CElementCol"), m_restriction("##any"), m_targetNamespace(OrEmpty(targetNamespace))
{
    const std::string namespaceText = OrEmpty(namespaceUri);
    const std::string restrictionText = OrEmpty(restriction);
    CXmlObjectHelper::TestNamespace(namespaceText, restrictionText, m_targetNamespace);
    m_defaultNamespace = DefaultElementNamespace(namespaceText, restrictionText);
}

CElementCol::~CElementCol() = default;

CXmlObjectBase* CElementCol::GetBase() { return this; }

std::string CElementCol::GetTargetNamespace() const { return m_targetNamespace; }

std::string CElementCol::GetNamespace() const { return m_targetNamespace; }

CSmartPtr<CElement> CElementCol::Add(const char* name)
{
    if (m_defaultNamespace.empty())
        throw CNxInvalidStateException("A Namespace has not been set for this Collection");
    CSmartPtr<CElement> element(
        new CElement(name, m_defaultNamespace.c_str(), m_restriction.c_str(), m_targetNamespace.c_str()));
    AppendItem(element);
    return element;
}

CSmartPtr<CElement> CElementCol::Add(const char* name, const char* namespaceUri)
{
    CXmlObjectHelper::TestNamespace(OrEmpty(namespaceUri), m_restriction, m_targetNamespace);
    CSmartPtr<CElement> element(
        new CElement(name, namespaceUri, m_restriction.c_str(), m_targetNamespace.c_str()));
    AppendItem(element);
    return element;
}

CSmartPtr<CElement> CElementCol::Add(CElement* element)
{
    Throw_IfPropertyIsNull(element, "CElement");
    CSmartPtr<CElement> held(element);
    CXmlObjectHelper::TestNamespace(element->GetNamespace(), m_restriction, m_targetNamespace);
    AppendItem(element);
    return held;
}

CSmartPtr<CElement> CElementCol::Item(int index) const
{
    return ItemAt<CElement>(*this, index);
}

// The clone keeps the source's default namespace as it is: made again from
// its present fields, a collection whose default was left empty would take
// its "##any" restriction as default instead.
CSmartPtr<CElementCol> CElementCol::Clone() const
{
    CSmartPtr<CElementCol> clone(new CElementCol(m_defaultNamespace.c_str(), m_restriction.c_str(),
                                                 m_targetNamespace.c_str(), GetMinOccurs(), GetMaxOccurs()));
    clone->m_defaultNamespace = m_defaultNamespace;
    CloneItems<CElement>(*this, *clone);
    return clone;
}

void CElementCol::ToXml_Int(CXmlWriter* writer, bool, const char* elementNamespace,
                            const CXmlSerializationContext& context, bool) const
{
    ValidateCount(context);
    ItemsToXml_Int(writer, elementNamespace, context);
}

// Reads siblings from cursor on into new elements while accept admits them
// and each consumes its element; returns the first left over, or null at the
// end of the siblings.
template <class Accept>
CXmlElement* CElementCol::ReadRun(CXmlElement* parent, CXmlElement* cursor, const CXmlSerializationContext& context,
                                  const std::string& restriction, Accept accept)
{
    while (cursor) {
        if (!accept(cursor))
            return cursor;
        CSmartPtr<CElement> element(new CElement(cursor->GetLocalName().c_str(),
                                                 cursor->GetNamespaceURI().c_str(), restriction.c_str(),
                                                 m_targetNamespace.c_str()));
        CXmlElement* next = CXmlObjectBase::FromXml_Int(element, parent, cursor, context);
        if (next == cursor)
            return cursor;
        Add(element);
        cursor = next;
    }
    return nullptr;
}

CXmlElement* CElementCol::FromXml_Int(CXmlElement* element, CXmlElement* cursor,
                                      const CXmlSerializationContext& context, bool)
{
    return ReadRun(element, cursor, context, m_restriction, [this](const CXmlElement* current) {
        return CXmlObjectHelper::IsNamespaceValid(current->GetNamespaceURI(), m_restriction, m_targetNamespace);
    });
}

CXmlElement* CElementCol::FromXmlLockElementName_Int(std::string name, std::string namespaceUri,
                                                     CXmlElement* parent, CXmlElement* element,
                                                     const CXmlSerializationContext& context, bool)
{
    static const std::string anyNamespace = "##any";
    return ReadRun(parent, element, context, anyNamespace, [&name, &namespaceUri](const CXmlElement* current) {
        return current->GetLocalName() == name && current->GetNamespaceURI() == namespaceUri;
    });
}

} // namespace NxXmlLib9
