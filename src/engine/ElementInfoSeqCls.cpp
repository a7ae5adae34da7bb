// Sequence records of child objects: of a known class, and substitutable.
#include "NxElementInfoSeq.h"

#include "ElementInfoShared.h"
#include "NxException.h"

namespace NxXmlLib9Data {

using namespace NxXmlLib9;
using namespace ElementInfoShared;

// ---- CElementInfoSeqClsMnd --------------------------------------------------

CElementInfoSeqClsMnd::CElementInfoSeqClsMnd(const char* name, const char* elementNamespace, int propertyIndex,
                                             XmlElementType xmlElementType, ClassFactoryFunction factory,
                                             int classNumber, bool contentRequired)
    : CElementInfoSeq(name, elementNamespace, propertyIndex),
      m_xmlElementType(xmlElementType),
      m_contentRequired(contentRequired),
      m_factory(factory),
      m_classNumber(classNumber)
{
}

bool CElementInfoSeqClsMnd::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                                         CXmlWriter* writer) const
{
    return ElementToXmlCls(*this, context, object, writer, false);
}

// The child exists already; this record never makes one.
bool CElementInfoSeqClsMnd::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                                           CXmlElement* parent, CXmlElement** cursor, const char*,
                                           XmlElementType parentType)
{
    const bool realLevel = parentType == XmlElementType_Element;
    if (m_xmlElementType == XmlElementType_Element)
        return ReadRequiredElement(*this, context, cursor, parentType, PseudoLevelSeek::RefuseAtOnce, [&] {
            ReadOwnElement(*this, ReadExistingObject(*this, object), context, cursor, false);
        });

    // A pseudo child: the nested group reads from this level's cursor.
    if (m_contentRequired && !*cursor) {
        if (realLevel)
            ThrowRequiredElementMissing(*this);
        return false;
    }
    CXmlElement* const next = ReadFromParent(*this, ReadExistingObject(*this, object), parent, *cursor, context);
    if (!m_contentRequired) {
        // Refusing lets the sequence walker skip the element and retry.
        if (*cursor && next == *cursor && context.GetIgnoreUnknownElements() && realLevel)
            return false;
        *cursor = next;
        return true;
    }
    if (next != *cursor) {
        *cursor = next;
        return true;
    }
    if (realLevel)
        ThrowRequiredElementMissing(*this);
    return false;
}

void CElementInfoSeqClsMnd::PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                                      const CXmlGeneratedClass* object, CXmlWriter* writer) const
{
    PseudoObjectAttributesToXml(*this, m_xmlElementType, context, object, writer);
}

// ---- CElementInfoSeqClsOpt --------------------------------------------------

CElementInfoSeqClsOpt::CElementInfoSeqClsOpt(const char* name, const char* elementNamespace, int propertyIndex,
                                             XmlElementType xmlElementType, ClassFactoryFunction factory,
                                             int classNumber)
    : CElementInfoSeq(name, elementNamespace, propertyIndex),
      m_xmlElementType(xmlElementType),
      m_factory(factory),
      m_classNumber(classNumber)
{
}

bool CElementInfoSeqClsOpt::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                                         CXmlWriter* writer) const
{
    return ElementToXmlCls(*this, context, object, writer, false);
}

// Always satisfied; the property is set only after the child has read.
bool CElementInfoSeqClsOpt::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                                           CXmlElement* parent, CXmlElement** cursor, const char*, XmlElementType)
{
    ReadOptionalChild(*this, m_xmlElementType, m_factory, m_classNumber, context, object, parent, cursor);
    return true;
}

void CElementInfoSeqClsOpt::PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                                      const CXmlGeneratedClass* object, CXmlWriter* writer) const
{
    PseudoObjectAttributesToXml(*this, m_xmlElementType, context, object, writer);
}

// ---- CElementInfoSeqAbsClsMnd -----------------------------------------------

CElementInfoSeqAbsClsMnd::CElementInfoSeqAbsClsMnd(const char* name, const char* elementNamespace, int propertyIndex,
                                                   XmlElementType xmlElementType, ElementFactoryFunction factory)
    : CElementInfoSeq(name, elementNamespace, propertyIndex), m_xmlElementType(xmlElementType), m_factory(factory)
{
}

bool CElementInfoSeqAbsClsMnd::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                                            CXmlWriter* writer) const
{
    return ElementToXmlCls(*this, context, object, writer, false);
}

// No option of the context lets a missing substitution pass.
bool CElementInfoSeqAbsClsMnd::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                                              CXmlElement*, CXmlElement** cursor, const char*,
                                              XmlElementType parentType)
{
    const CSmartPtr<CXmlObjectBase> child = CreateForElementAtCursor(*this, m_factory, context, *cursor);
    if (!child) {
        if (parentType != XmlElementType_Element)
            return false;
        throw CNxValidationException(
            FormatString("Failed to find a suitable substitution element for [%s]", m_name.c_str()));
    }
    ReadOwnElement(*this, child, context, cursor, false);
    StoreObject(*this, object, child);
    return true;
}

void CElementInfoSeqAbsClsMnd::PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                                         const CXmlGeneratedClass* object, CXmlWriter* writer) const
{
    PseudoObjectAttributesToXml(*this, m_xmlElementType, context, object, writer);
}

// ---- CElementInfoSeqAbsClsOpt -----------------------------------------------

CElementInfoSeqAbsClsOpt::CElementInfoSeqAbsClsOpt(const char* name, const char* elementNamespace, int propertyIndex,
                                                   XmlElementType xmlElementType, ElementFactoryFunction factory)
    : CElementInfoSeq(name, elementNamespace, propertyIndex), m_xmlElementType(xmlElementType), m_factory(factory)
{
}

bool CElementInfoSeqAbsClsOpt::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                                            CXmlWriter* writer) const
{
    return ElementToXmlCls(*this, context, object, writer, false);
}

bool CElementInfoSeqAbsClsOpt::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                                              CXmlElement*, CXmlElement** cursor, const char*, XmlElementType)
{
    const CSmartPtr<CXmlObjectBase> child = CreateForElementAtCursor(*this, m_factory, context, *cursor);
    if (!child)
        return true;
    ReadOwnElement(*this, child, context, cursor, false);
    StoreObject(*this, object, child);
    return true;
}

void CElementInfoSeqAbsClsOpt::PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                                         const CXmlGeneratedClass* object, CXmlWriter* writer) const
{
    PseudoObjectAttributesToXml(*this, m_xmlElementType, context, object, writer);
}

} // namespace NxXmlLib9Data
