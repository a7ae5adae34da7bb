// All-group records of primitive values and enumerations: each takes its
// element when it is at the cursor, and says so.
#include "NxElementInfoAll.h"

#include "ElementInfoShared.h"

namespace NxXmlLib9Data {

using namespace NxXmlLib9;
using namespace ElementInfoShared;

// ---- CElementInfoAllPrimMnd -------------------------------------------------

CElementInfoAllPrimMnd::CElementInfoAllPrimMnd(const char* name, const char* elementNamespace, int propertyIndex,
                                               ItemType type, const char* format, CWhitespaceUtils::WhitespaceRule rule,
                                               const CPrimitiveRestrictions& restrictions)
    : CElementInfoAll(name, elementNamespace, propertyIndex, type, format, rule, restrictions)
{
}

bool CElementInfoAllPrimMnd::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                                          CXmlWriter* writer) const
{
    return ElementToXmlPrim(*this, m_format, context, object, writer);
}

bool CElementInfoAllPrimMnd::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                                            CXmlElement*, CXmlElement** cursor, const char*, XmlElementType)
{
    return TakePrimitive(*this, m_itemType, m_whitespaceRule, context, object, cursor);
}

bool CElementInfoAllPrimMnd::Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool found,
                                      bool mustThrow) const
{
    return ValidateMandatory(*this, found, mustThrow);
}

// ---- CElementInfoAllPrimOpt -------------------------------------------------

CElementInfoAllPrimOpt::CElementInfoAllPrimOpt(const char* name, const char* elementNamespace, int propertyIndex,
                                               ItemType type, const char* format, CWhitespaceUtils::WhitespaceRule rule,
                                               const CPrimitiveRestrictions& restrictions)
    : CElementInfoAll(name, elementNamespace, propertyIndex, type, format, rule, restrictions)
{
}

bool CElementInfoAllPrimOpt::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                                          CXmlWriter* writer) const
{
    return ElementToXmlPrimOpt(*this, m_format, context, object, writer);
}

bool CElementInfoAllPrimOpt::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                                            CXmlElement*, CXmlElement** cursor, const char*, XmlElementType)
{
    return TakePrimitive(*this, m_itemType, m_whitespaceRule, context, object, cursor);
}

bool CElementInfoAllPrimOpt::Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool, bool) const
{
    return true;
}

// ---- CElementInfoAllEnumMnd -------------------------------------------------

CElementInfoAllEnumMnd::CElementInfoAllEnumMnd(const char* name, const char* elementNamespace, int propertyIndex,
                                               EnumToTextFunction toText, EnumFromTextFunction fromText)
    : CElementInfoAll(name, elementNamespace, propertyIndex), m_toText(toText), m_fromText(fromText)
{
}

bool CElementInfoAllEnumMnd::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                                          CXmlWriter* writer) const
{
    return ElementToXmlEnum(*this, m_toText, context, object, writer);
}

bool CElementInfoAllEnumMnd::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                                            CXmlElement*, CXmlElement** cursor, const char*, XmlElementType)
{
    return TakeEnum(*this, m_fromText, context, object, cursor);
}

bool CElementInfoAllEnumMnd::Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool found,
                                      bool mustThrow) const
{
    return ValidateMandatory(*this, found, mustThrow);
}

// ---- CElementInfoAllEnumOpt -------------------------------------------------

CElementInfoAllEnumOpt::CElementInfoAllEnumOpt(const char* name, const char* elementNamespace, int propertyIndex,
                                               EnumToTextFunction toText, EnumFromTextFunction fromText)
    : CElementInfoAll(name, elementNamespace, propertyIndex), m_toText(toText), m_fromText(fromText)
{
}

bool CElementInfoAllEnumOpt::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                                          CXmlWriter* writer) const
{
    return ElementToXmlEnumOpt(*this, m_toText, context, object, writer);
}

bool CElementInfoAllEnumOpt::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                                            CXmlElement*, CXmlElement** cursor, const char*, XmlElementType)
{
    return TakeEnum(*this, m_fromText, context, object, cursor);
}

bool CElementInfoAllEnumOpt::Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool, bool) const
{
    return true;
}

} // namespace NxXmlLib9Data
