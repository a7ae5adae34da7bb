// The wildcard attribute record.
#include "NxAttributeInfos.h"

#include "NxException.h"
#include "NxGeneratedClass.h"
#include "NxUntyped.h"
#include "NxXmlDocument.h"

namespace NxXmlLib9Data {

using namespace NxXmlLib9;

CAttributeInfoAny::CAttributeInfoAny(const char* name, const char* attributeNamespace, int propertyIndex,
                                     bool optional, const char* namespaceWildcard,
                                     const char* targetNamespace, const char* defaultValue)
    : CAttributeInfo(name, attributeNamespace, propertyIndex, optional, defaultValue),
      m_wildcard(namespaceWildcard, targetNamespace)
{
}

CAttributeInfoAny::~CAttributeInfoAny() = default;

void CAttributeInfoAny::AttributeToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                                       CXmlWriter* writer) const
{
    NxVariant value;
    ReadProperty(object, value);
    const CSmartPtr<CXmlCollectionBase> attributes = value.GetXmlCollection();
    if (!attributes)
        return;
    const std::string targetNamespace = GetTargetNamespace(object);
    ToXml_Int(attributes, writer, false, targetNamespace.c_str(), context, false);
}

bool CAttributeInfoAny::AttributeFromXml(const CXmlSerializationContext&, CXmlGeneratedClass* object,
                                         CXmlAttribute* attribute)
{
    if (!attribute)
        return false;
    // No quiet refusal: an attribute that reaches the wildcard from a
    // namespace it does not admit fails the read.
    TestNamespace(attribute->GetNamespaceURI(), m_wildcard.GetWildcard(), m_wildcard.GetTargetNamespace());
    NxVariant value;
    ReadProperty(object, value);
    const CSmartPtr<CXmlCollectionBase> collection = value.GetXmlCollection();
    CAttributeCol* attributes = dynamic_cast<CAttributeCol*>(static_cast<CXmlCollectionBase*>(collection));
    if (!attributes)
        throw CNxException("Serialization Data Error : The collection should be a CAttributeCol, it was not!");
    attributes->Add(attribute->GetLocalName().c_str(), attribute->GetValue().c_str(),
                    attribute->GetNamespaceURI().c_str());
    return true;
}

void CAttributeInfoAny::Validate(const CXmlSerializationContext&, bool) const {}

} // namespace NxXmlLib9Data
