// All-group records of untyped content. A wildcard record takes the element
// at the cursor on the first offer, whichever other record might have
// fitted, so it belongs last in its table.
#include "NxElementInfoAll.h"

#include "ElementInfoShared.h"

namespace NxXmlLib9Data {

using namespace NxXmlLib9;
using namespace ElementInfoShared;

// ---- CElementInfoAllUntpdMnd ------------------------------------------------

CElementInfoAllUntpdMnd::CElementInfoAllUntpdMnd(const char* name, const char* elementNamespace, int propertyIndex,
                                                 const char* namespaceWildcard, const char* targetNamespace)
    : CElementInfoAll(name, elementNamespace, propertyIndex),
      m_wildcard(namespaceWildcard, targetNamespace)
{
}

bool CElementInfoAllUntpdMnd::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                                           CXmlWriter* writer) const
{
    return ElementToXmlCls(*this, context, object, writer, false);
}

bool CElementInfoAllUntpdMnd::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                                             CXmlElement* parent, CXmlElement** cursor, const char*, XmlElementType)
{
    if (!*cursor)
        return false;
    CXmlElement* const next = ReadUntyped(*this, ReadExistingObject(*this, object), parent, *cursor, context);
    const bool moved = next != *cursor;
    *cursor = next;
    return moved;
}

bool CElementInfoAllUntpdMnd::Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool found,
                                       bool mustThrow) const
{
    return ValidateMandatory(*this, found, mustThrow);
}

// ---- CElementInfoAllUntpdOpt ------------------------------------------------

CElementInfoAllUntpdOpt::CElementInfoAllUntpdOpt(const char* name, const char* elementNamespace, int propertyIndex,
                                                 const char* namespaceWildcard, const char* targetNamespace)
    : CElementInfoAll(name, elementNamespace, propertyIndex),
      m_wildcard(namespaceWildcard, targetNamespace)
{
}

bool CElementInfoAllUntpdOpt::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                                           CXmlWriter* writer) const
{
    return ElementToXmlCls(*this, context, object, writer, false);
}

bool CElementInfoAllUntpdOpt::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                                             CXmlElement* parent, CXmlElement** cursor, const char* classNamespace,
                                             XmlElementType)
{
    return ReadOptionalWildcard(*this, m_wildcard, object, parent, cursor, classNamespace, context);
}

bool CElementInfoAllUntpdOpt::Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool, bool) const
{
    return true;
}

} // namespace NxXmlLib9Data
