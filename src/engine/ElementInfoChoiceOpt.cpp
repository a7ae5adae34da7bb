// The optional members of a choice. Child objects are set before they read
// (the generated setter records the selection), and a member that then
// reads nothing takes its selection back.
#include "NxElementInfoChoice.h"

#include "ElementInfoShared.h"

namespace NxXmlLib9Data {

using namespace NxXmlLib9;
using namespace ElementInfoShared;

// ---- CElementInfoChoiceClsOpt -----------------------------------------------

CElementInfoChoiceClsOpt::CElementInfoChoiceClsOpt(const char* name, const char* elementNamespace, int propertyIndex,
                                                   XmlElementType xmlElementType, ClassFactoryFunction factory,
                                                   int classNumber)
    : CElementInfoChoice(name, elementNamespace, propertyIndex),
      m_xmlElementType(xmlElementType),
      m_factory(factory),
      m_classNumber(classNumber)
{
}

// The only record that tells its child it stands in an optional choice.
bool CElementInfoChoiceClsOpt::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                                            CXmlWriter* writer) const
{
    return ElementToXmlCls(*this, context, object, writer, true);
}

bool CElementInfoChoiceClsOpt::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                                              CXmlElement* parent, CXmlElement** cursor, const char*, XmlElementType)
{
    if (m_xmlElementType == XmlElementType_Element) {
        if (!IsThisElement(context, *cursor))
            return false;
        const CSmartPtr<CXmlObjectBase> child = CreateByClassNumber(*this, m_factory, m_classNumber);
        StoreObject(*this, object, child);
        ReadOwnElement(*this, child, context, cursor, true);
        return true;
    }
    if (!*cursor)
        return false;
    const CSmartPtr<CXmlObjectBase> child = CreateByClassNumber(*this, m_factory, m_classNumber);
    StoreObject(*this, object, child);
    CXmlElement* const next = ReadFromParent(*this, child, parent, *cursor, context);
    if (next != *cursor) {
        *cursor = next;
        return true;
    }
    StoreObject(*this, object, nullptr);
    return false;
}

void CElementInfoChoiceClsOpt::PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                                         const CXmlGeneratedClass* object, CXmlWriter* writer) const
{
    PseudoObjectAttributesToXml(*this, m_xmlElementType, context, object, writer);
}

// ---- CElementInfoChoiceAbsClsOpt --------------------------------------------

CElementInfoChoiceAbsClsOpt::CElementInfoChoiceAbsClsOpt(const char* name, const char* elementNamespace,
                                                         int propertyIndex, XmlElementType xmlElementType,
                                                         ElementFactoryFunction factory)
    : CElementInfoChoice(name, elementNamespace, propertyIndex), m_xmlElementType(xmlElementType), m_factory(factory)
{
}

bool CElementInfoChoiceAbsClsOpt::ElementToXml(const CXmlSerializationContext& context,
                                               const CXmlGeneratedClass* object, CXmlWriter* writer) const
{
    return ElementToXmlCls(*this, context, object, writer, false);
}

// The property is set to what the factory gave, even to nothing.
bool CElementInfoChoiceAbsClsOpt::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                                                 CXmlElement*, CXmlElement** cursor, const char*, XmlElementType)
{
    if (!IsThisElement(context, *cursor))
        return false;
    const CSmartPtr<CXmlObjectBase> child = m_factory ? m_factory(*cursor) : CSmartPtr<CXmlObjectBase>();
    StoreObject(*this, object, child);
    if (!child)
        return false;
    ReadOwnElement(*this, child, context, cursor, false);
    return true;
}

void CElementInfoChoiceAbsClsOpt::PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                                            const CXmlGeneratedClass* object, CXmlWriter* writer) const
{
    PseudoObjectAttributesToXml(*this, m_xmlElementType, context, object, writer);
}

// ---- CElementInfoChoicePrimOpt ----------------------------------------------

CElementInfoChoicePrimOpt::CElementInfoChoicePrimOpt(const char* name, const char* elementNamespace, int propertyIndex,
                                                     ItemType type, const char* format,
                                                     CWhitespaceUtils::WhitespaceRule rule,
                                                     const CPrimitiveRestrictions& restrictions)
    : CElementInfoChoice(name, elementNamespace, propertyIndex, type, format, rule, restrictions)
{
}

bool CElementInfoChoicePrimOpt::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                                             CXmlWriter* writer) const
{
    return ElementToXmlPrimOpt(*this, m_format, context, object, writer);
}

bool CElementInfoChoicePrimOpt::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                                               CXmlElement*, CXmlElement** cursor, const char*, XmlElementType)
{
    return TakePrimitive(*this, m_itemType, m_whitespaceRule, context, object, cursor);
}

// ---- CElementInfoChoiceEnumOpt ----------------------------------------------

CElementInfoChoiceEnumOpt::CElementInfoChoiceEnumOpt(const char* name, const char* elementNamespace, int propertyIndex,
                                                     EnumToTextFunction toText, EnumFromTextFunction fromText)
    : CElementInfoChoice(name, elementNamespace, propertyIndex), m_toText(toText), m_fromText(fromText)
{
}

bool CElementInfoChoiceEnumOpt::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                                             CXmlWriter* writer) const
{
    return ElementToXmlEnumOpt(*this, m_toText, context, object, writer);
}

bool CElementInfoChoiceEnumOpt::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                                               CXmlElement*, CXmlElement** cursor, const char*, XmlElementType)
{
    return TakeEnum(*this, m_fromText, context, object, cursor);
}

// ---- CElementInfoChoiceUntpdOpt ---------------------------------------------

CElementInfoChoiceUntpdOpt::CElementInfoChoiceUntpdOpt(const char* name, const char* elementNamespace,
                                                       int propertyIndex, const char* namespaceWildcard,
                                                       const char* targetNamespace)
    : CElementInfoChoice(name, elementNamespace, propertyIndex),
      m_wildcard(namespaceWildcard, targetNamespace)
{
}

bool CElementInfoChoiceUntpdOpt::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                                              CXmlWriter* writer) const
{
    return ElementToXmlCls(*this, context, object, writer, false);
}

// A member that reads nothing clears the property again.
bool CElementInfoChoiceUntpdOpt::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                                                CXmlElement* parent, CXmlElement** cursor, const char* classNamespace,
                                                XmlElementType)
{
    if (!*cursor)
        return false;
    if (ReadOptionalWildcard(*this, m_wildcard, object, parent, cursor, classNamespace, context))
        return true;
    StoreObject(*this, object, nullptr);
    return false;
}

} // namespace NxXmlLib9Data
