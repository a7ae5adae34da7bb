// Sequence records of primitive values and enumerations.
#include "NxElementInfoSeq.h"

#include "ElementInfoShared.h"

namespace NxXmlLib9Data {

using namespace NxXmlLib9;
using namespace ElementInfoShared;

// ---- CElementInfoSeqPrimMnd -------------------------------------------------

CElementInfoSeqPrimMnd::CElementInfoSeqPrimMnd(const char* name, const char* elementNamespace, int propertyIndex,
                                               ItemType type, const char* format, CWhitespaceUtils::WhitespaceRule rule,
                                               const CPrimitiveRestrictions& restrictions)
    : CElementInfoSeq(name, elementNamespace, propertyIndex, type, format, rule, restrictions)
{
}

bool CElementInfoSeqPrimMnd::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                                          CXmlWriter* writer) const
{
    return ElementToXmlPrim(*this, m_format, context, object, writer);
}

// At a pseudo level it runs over unknown elements while the context allows.
// No facet check here: the generated setter may make one.
bool CElementInfoSeqPrimMnd::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                                            CXmlElement*, CXmlElement** cursor, const char*, XmlElementType parentType)
{
    return ReadRequiredElement(*this, context, cursor, parentType, PseudoLevelSeek::SkipWhileUnknownAllowed,
                               [&] { StorePrimitive(*this, m_itemType, m_whitespaceRule, object, cursor); });
}

// ---- CElementInfoSeqPrimOpt -------------------------------------------------

CElementInfoSeqPrimOpt::CElementInfoSeqPrimOpt(const char* name, const char* elementNamespace, int propertyIndex,
                                               ItemType type, const char* format, CWhitespaceUtils::WhitespaceRule rule,
                                               const CPrimitiveRestrictions& restrictions)
    : CElementInfoSeq(name, elementNamespace, propertyIndex, type, format, rule, restrictions)
{
}

bool CElementInfoSeqPrimOpt::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                                          CXmlWriter* writer) const
{
    return ElementToXmlPrimOpt(*this, m_format, context, object, writer);
}

bool CElementInfoSeqPrimOpt::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                                            CXmlElement*, CXmlElement** cursor, const char*, XmlElementType)
{
    TakePrimitive(*this, m_itemType, m_whitespaceRule, context, object, cursor);
    return true; // an absent optional is satisfied
}

// ---- CElementInfoSeqEnumMnd -------------------------------------------------

CElementInfoSeqEnumMnd::CElementInfoSeqEnumMnd(const char* name, const char* elementNamespace, int propertyIndex,
                                               EnumToTextFunction toText, EnumFromTextFunction fromText)
    : CElementInfoSeq(name, elementNamespace, propertyIndex), m_fromText(fromText), m_toText(toText)
{
}

bool CElementInfoSeqEnumMnd::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                                          CXmlWriter* writer) const
{
    return ElementToXmlEnum(*this, m_toText, context, object, writer);
}

// Unlike the primitive record it never skips at a pseudo level.
bool CElementInfoSeqEnumMnd::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                                            CXmlElement*, CXmlElement** cursor, const char*, XmlElementType parentType)
{
    return ReadRequiredElement(*this, context, cursor, parentType, PseudoLevelSeek::RefuseAtOnce,
                               [&] { StoreEnum(*this, m_fromText, object, cursor); });
}

// ---- CElementInfoSeqEnumOpt -------------------------------------------------

CElementInfoSeqEnumOpt::CElementInfoSeqEnumOpt(const char* name, const char* elementNamespace, int propertyIndex,
                                               EnumToTextFunction toText, EnumFromTextFunction fromText)
    : CElementInfoSeq(name, elementNamespace, propertyIndex), m_toText(toText), m_fromText(fromText)
{
}

bool CElementInfoSeqEnumOpt::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                                          CXmlWriter* writer) const
{
    return ElementToXmlEnumOpt(*this, m_toText, context, object, writer);
}

bool CElementInfoSeqEnumOpt::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                                            CXmlElement*, CXmlElement** cursor, const char*, XmlElementType)
{
    TakeEnum(*this, m_fromText, context, object, cursor);
    return true;
}

} // namespace NxXmlLib9Data
