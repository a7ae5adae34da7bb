// The all family's repeating-element records, which no table can hold: an
// all group has no repeating members. They keep their writing and reading
// all the same.
#include "NxElementInfoAll.h"

#include "ElementInfoShared.h"

namespace NxXmlLib9Data {

using namespace NxXmlLib9;
using namespace ElementInfoShared;

bool CElementInfoAllCol::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                                      CXmlWriter* writer) const
{
    return ElementToXmlCountedCol(*this, context, object, writer);
}

bool CElementInfoAllCol::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                                        CXmlElement* parent, CXmlElement** cursor, const char*, XmlElementType)
{
    const CSmartPtr<CXmlCollectionBase> collection = ReadCollection(*this, object);
    *cursor = FromXml_Int(collection, parent, *cursor, context, false);
    return false;
}

CElementInfoAllClsCol::CElementInfoAllClsCol(const char* name, const char* elementNamespace, int propertyIndex,
                                             XmlElementType xmlElementType)
    : CElementInfoAllCol(name, elementNamespace, propertyIndex), m_xmlElementType(xmlElementType)
{
}

void CElementInfoAllClsCol::PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                                      const CXmlGeneratedClass* object, CXmlWriter* writer) const
{
    PseudoCollectionAttributesToXml(*this, m_xmlElementType, context, object, writer);
}

CElementInfoAllAbsClsCol::CElementInfoAllAbsClsCol(const char* name, const char* elementNamespace, int propertyIndex,
                                                   XmlElementType xmlElementType)
    : CElementInfoAllCol(name, elementNamespace, propertyIndex), m_xmlElementType(xmlElementType)
{
}

void CElementInfoAllAbsClsCol::PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                                         const CXmlGeneratedClass* object, CXmlWriter* writer) const
{
    PseudoCollectionAttributesToXml(*this, m_xmlElementType, context, object, writer);
}

CElementInfoAllPrimCol::CElementInfoAllPrimCol(const char* name, const char* elementNamespace, int propertyIndex)
    : CElementInfoAllCol(name, elementNamespace, propertyIndex)
{
}

CElementInfoAllUntpdCol::CElementInfoAllUntpdCol(const char* name, const char* elementNamespace, int propertyIndex)
    : CElementInfoAllCol(name, elementNamespace, propertyIndex)
{
}

CElementInfoAllEnumCol::CElementInfoAllEnumCol(const char* name, const char* elementNamespace, int propertyIndex)
    : CElementInfoAll(name, elementNamespace, propertyIndex)
{
}

} // namespace NxXmlLib9Data
