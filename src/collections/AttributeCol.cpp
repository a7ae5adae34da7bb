// The collection of untyped attributes.
#include "NxUntyped.h"

#include "NxXmlDocument.h"
#include "NxXmlObjectHelper.h"
#include "collections/UntypedCollectionItems.h"
#include "foundation/TextArgument.h"

namespace NxXmlLib9 {

namespace {

// A restriction that lists URIs lends its first one as the default
// namespace when none is given; a keyword lends nothing.
std::string DefaultAttributeNamespace(const char* namespaceUri, const char* restriction)
{
    std::string result = OrEmpty(namespaceUri);
    if (result.empty()) {
        const std::string text = OrEmpty(restriction);
        const std::string token = text.substr(0, text.find(' '));
        if (token.size() > 1 && token[0] != '#' && token[1] != '#')
            result = token;
    }
    return result;
}

} // namespace

CAttributeCol::CAttributeCol(const char* namespaceUri, const char* restriction, const char* targetNamespace)
    : CXmlCollection("", DefaultAttributeNamespace(namespaceUri, restriction).c_str(), 0, -1),
      CInstanceMonitor("CAttributeCol"),
      m_restriction(OrEmpty(restriction)),
      m_targetNamespace(OrEmpty(targetNamespace))
{
}

CAttributeCol::~CAttributeCol() = default;

CXmlObjectBase* CAttributeCol::GetBase() { return this; }

std::string CAttributeCol::GetTargetNamespace() const { return GetNamespace(); }

CSmartPtr<CAttribute> CAttributeCol::Add(const char* name) { return Add(name, ""); }

CSmartPtr<CAttribute> CAttributeCol::Add(const char* name, const char* value)
{
    return Add(name, value, GetNamespace().c_str());
}

CSmartPtr<CAttribute> CAttributeCol::Add(const char* name, const char* value, const char* namespaceUri)
{
    CXmlObjectHelper::TestNamespace(OrEmpty(namespaceUri), m_restriction, m_targetNamespace);
    CSmartPtr<CAttribute> attribute(new CAttribute(name, value, namespaceUri));
    AppendItem(attribute);
    return attribute;
}

CSmartPtr<CAttribute> CAttributeCol::Add(CAttribute* attribute)
{
    Throw_IfPropertyIsNull(attribute, "CAttribute");
    CSmartPtr<CAttribute> held(attribute);
    AppendItem(attribute);
    return held;
}

CSmartPtr<CAttribute> CAttributeCol::Item(int index) const
{
    return ItemAt<CAttribute>(*this, index);
}

CSmartPtr<CAttributeCol> CAttributeCol::Clone() const
{
    CSmartPtr<CAttributeCol> clone(
        new CAttributeCol(GetNamespace().c_str(), m_restriction.c_str(), m_targetNamespace.c_str()));
    CloneItems<CAttribute>(*this, *clone);
    return clone;
}

void CAttributeCol::ToXml_Int(CXmlWriter* writer, bool, const char* elementNamespace,
                              const CXmlSerializationContext& context, bool) const
{
    ItemsToXml_Int(writer, elementNamespace, context);
}

CXmlElement* CAttributeCol::FromXml_Int(CXmlElement* element, CXmlElement* cursor, const CXmlSerializationContext&,
                                        bool)
{
    if (!element)
        return cursor;
    for (const CXmlAttribute* attribute : element->GetAttributes()) {
        if (!CXmlObjectHelper::IsNamespaceValid(attribute->GetNamespaceURI(), m_restriction, m_targetNamespace))
            throw CNxInvalidNamespaceException(
                FormatString("Invalid Attribute [%s]. The attributes namespace is Inappropriate.",
                             attribute->GetLocalName().c_str()));
        Add(attribute->GetLocalName().c_str(), attribute->GetValue().c_str(), attribute->GetNamespaceURI().c_str());
    }
    return cursor;
}

} // namespace NxXmlLib9
