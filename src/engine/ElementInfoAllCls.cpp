// All-group records of child objects: of a known class, and substitutable.
// They never fail for an element that is not theirs; Validate settles
// absence once the walk is over, whatever the context says.
#include "NxElementInfoAll.h"

#include "ElementInfoShared.h"
#include "NxException.h"

namespace NxXmlLib9Data {

using namespace NxXmlLib9;
using namespace ElementInfoShared;

namespace {

// Reading a substitutable child of an all group was never finished.
[[noreturn]] void ThrowNotImplementedFully(const char* function)
{
    throw CNxException(std::string(function)
                       + "::ElementFromXml, has not been implemented fully, contact support@orvane.example");
}

} // namespace

// ---- CElementInfoAllClsMnd --------------------------------------------------

CElementInfoAllClsMnd::CElementInfoAllClsMnd(const char* name, const char* elementNamespace, int propertyIndex,
                                             XmlElementType xmlElementType, ClassFactoryFunction factory,
                                             int classNumber, bool contentRequired)
    : CElementInfoAll(name, elementNamespace, propertyIndex),
      m_xmlElementType(xmlElementType),
      m_contentRequired(contentRequired),
      m_factory(factory),
      m_classNumber(classNumber)
{
}

bool CElementInfoAllClsMnd::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                                         CXmlWriter* writer) const
{
    return ElementToXmlCls(*this, context, object, writer, false);
}

// The child exists already. A pseudo child answers whether it moved the
// cursor.
bool CElementInfoAllClsMnd::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                                           CXmlElement* parent, CXmlElement** cursor, const char*, XmlElementType)
{
    if (m_xmlElementType == XmlElementType_Element) {
        if (!IsThisElement(context, *cursor))
            return false;
        ReadOwnElement(*this, ReadExistingObject(*this, object), context, cursor, false);
        return true;
    }
    CXmlElement* const next = ReadFromParent(*this, ReadExistingObject(*this, object), parent, *cursor, context);
    const bool moved = next != *cursor;
    *cursor = next;
    return moved;
}

// A real child that the table does not require passes as if found.
bool CElementInfoAllClsMnd::Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool found,
                                     bool mustThrow) const
{
    if (found || !mustThrow)
        return found;
    if (m_xmlElementType == XmlElementType_Pseudo || m_contentRequired)
        ThrowMandatoryElementMissing(*this);
    return true;
}

void CElementInfoAllClsMnd::PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                                      const CXmlGeneratedClass* object, CXmlWriter* writer) const
{
    PseudoObjectAttributesToXml(*this, m_xmlElementType, context, object, writer);
}

// ---- CElementInfoAllClsOpt --------------------------------------------------

CElementInfoAllClsOpt::CElementInfoAllClsOpt(const char* name, const char* elementNamespace, int propertyIndex,
                                             XmlElementType xmlElementType, ClassFactoryFunction factory,
                                             int classNumber)
    : CElementInfoAll(name, elementNamespace, propertyIndex),
      m_xmlElementType(xmlElementType),
      m_factory(factory),
      m_classNumber(classNumber)
{
}

bool CElementInfoAllClsOpt::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                                         CXmlWriter* writer) const
{
    return ElementToXmlCls(*this, context, object, writer, false);
}

// The property is set after the child has read; a pseudo child that read
// nothing is dropped.
bool CElementInfoAllClsOpt::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                                           CXmlElement* parent, CXmlElement** cursor, const char*, XmlElementType)
{
    return ReadOptionalChild(*this, m_xmlElementType, m_factory, m_classNumber, context, object, parent, cursor);
}

bool CElementInfoAllClsOpt::Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool, bool) const
{
    return true;
}

void CElementInfoAllClsOpt::PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                                      const CXmlGeneratedClass* object, CXmlWriter* writer) const
{
    PseudoObjectAttributesToXml(*this, m_xmlElementType, context, object, writer);
}

// ---- CElementInfoAllAbsClsMnd -----------------------------------------------

CElementInfoAllAbsClsMnd::CElementInfoAllAbsClsMnd(const char* name, const char* elementNamespace, int propertyIndex,
                                                   XmlElementType xmlElementType, ElementFactoryFunction factory,
                                                   int classNumber)
    : CElementInfoAll(name, elementNamespace, propertyIndex),
      m_xmlElementType(xmlElementType),
      m_factory(factory),
      m_classNumber(classNumber)
{
}

bool CElementInfoAllAbsClsMnd::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                                            CXmlWriter* writer) const
{
    return ElementToXmlCls(*this, context, object, writer, false);
}

bool CElementInfoAllAbsClsMnd::ElementFromXml(const CXmlSerializationContext&, CXmlGeneratedClass*, CXmlElement*,
                                              CXmlElement**, const char*, XmlElementType)
{
    ThrowNotImplementedFully("CElementInfoAllAbsClsMnd");
}

bool CElementInfoAllAbsClsMnd::Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool found,
                                        bool mustThrow) const
{
    return ValidateMandatory(*this, found, mustThrow);
}

void CElementInfoAllAbsClsMnd::PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                                         const CXmlGeneratedClass* object, CXmlWriter* writer) const
{
    PseudoObjectAttributesToXml(*this, m_xmlElementType, context, object, writer);
}

// ---- CElementInfoAllAbsClsOpt -----------------------------------------------

CElementInfoAllAbsClsOpt::CElementInfoAllAbsClsOpt(const char* name, const char* elementNamespace, int propertyIndex,
                                                   XmlElementType xmlElementType, ElementFactoryFunction factory)
    : CElementInfoAll(name, elementNamespace, propertyIndex), m_xmlElementType(xmlElementType), m_factory(factory)
{
}

bool CElementInfoAllAbsClsOpt::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                                            CXmlWriter* writer) const
{
    return ElementToXmlCls(*this, context, object, writer, false);
}

bool CElementInfoAllAbsClsOpt::ElementFromXml(const CXmlSerializationContext&, CXmlGeneratedClass*, CXmlElement*,
                                              CXmlElement**, const char*, XmlElementType)
{
    ThrowNotImplementedFully("CElementInfoAllAbsClsOpt");
}

bool CElementInfoAllAbsClsOpt::Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool, bool) const
{
    return true;
}

void CElementInfoAllAbsClsOpt::PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                                         const CXmlGeneratedClass* object, CXmlWriter* writer) const
{
    PseudoObjectAttributesToXml(*this, m_xmlElementType, context, object, writer);
}

} // namespace NxXmlLib9Data
