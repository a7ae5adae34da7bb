// Sequence records of untyped content: a wildcard element, or an element of
// a known name whose content has no class.
#include "NxElementInfoSeq.h"

#include "ElementInfoShared.h"
#include "NxException.h"

namespace NxXmlLib9Data {

using namespace NxXmlLib9;
using namespace ElementInfoShared;

// ---- CElementInfoSeqUntpdMnd ------------------------------------------------

CElementInfoSeqUntpdMnd::CElementInfoSeqUntpdMnd(const char* name, const char* elementNamespace, int propertyIndex,
                                                 const char* namespaceWildcard, const char* targetNamespace)
    : CElementInfoSeq(name, elementNamespace, propertyIndex),
      m_wildcard(namespaceWildcard, targetNamespace)
{
}

bool CElementInfoSeqUntpdMnd::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                                           CXmlWriter* writer) const
{
    return ElementToXmlCls(*this, context, object, writer, false);
}

// The element held already reads what it admits. An end of input fails at
// a pseudo level too; neither option of the context is looked at.
bool CElementInfoSeqUntpdMnd::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                                             CXmlElement* parent, CXmlElement** cursor, const char*,
                                             XmlElementType parentType)
{
    if (!*cursor)
        ThrowRequiredElementMissing(*this);
    CXmlElement* const next = ReadUntyped(*this, ReadExistingObject(*this, object), parent, *cursor, context);
    if (next == *cursor) {
        if (parentType != XmlElementType_Element)
            return false;
        throw CNxValidationException(
            FormatString("Failed to find the required element from namespace [%s]", m_namespace.c_str()));
    }
    *cursor = next;
    return true;
}

// ---- CElementInfoSeqUntpdOpt ------------------------------------------------

CElementInfoSeqUntpdOpt::CElementInfoSeqUntpdOpt(const char* name, const char* elementNamespace, int propertyIndex,
                                                 const char* namespaceWildcard, const char* targetNamespace)
    : CElementInfoSeq(name, elementNamespace, propertyIndex),
      m_wildcard(namespaceWildcard, targetNamespace)
{
}

bool CElementInfoSeqUntpdOpt::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                                           CXmlWriter* writer) const
{
    return ElementToXmlCls(*this, context, object, writer, false);
}

// A new element is made for each try; it is kept only when it read.
bool CElementInfoSeqUntpdOpt::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                                             CXmlElement* parent, CXmlElement** cursor, const char* classNamespace,
                                             XmlElementType)
{
    ReadOptionalWildcard(*this, m_wildcard, object, parent, cursor, classNamespace, context);
    return true;
}

} // namespace NxXmlLib9Data
