// The sequence family's base and its repeating-element records.
#include "NxElementInfoSeq.h"

#include "ElementInfoShared.h"

namespace NxXmlLib9Data {

using namespace NxXmlLib9;
using namespace ElementInfoShared;

bool CElementInfoSeq::Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool, bool) const
{
    ThrowNeverCalled();
}

// ---- CElementInfoSeqCol -----------------------------------------------------

bool CElementInfoSeqCol::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                                      CXmlWriter* writer) const
{
    return ElementToXmlCountedCol(*this, context, object, writer);
}

bool CElementInfoSeqCol::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                                        CXmlElement* parent, CXmlElement** cursor, const char*,
                                        XmlElementType parentType)
{
    const CSmartPtr<CXmlCollectionBase> collection = ReadCollection(*this, object);
    *cursor = FromXml_Int(collection, parent, *cursor, context, false);
    return CheckCountAfterRead(*collection, context, parentType);
}

bool CElementInfoSeqCol::CheckCountAfterRead(const CXmlCollectionBase& collection,
                                             const CXmlSerializationContext& context, XmlElementType parentType)
{
    if (parentType != XmlElementType_Element)
        return collection.IsValidCount(context);
    collection.ValidateCount(context);
    return true;
}

// ---- The collections by kind ------------------------------------------------

CElementInfoSeqClsCol::CElementInfoSeqClsCol(const char* name, const char* elementNamespace, int propertyIndex,
                                             XmlElementType xmlElementType)
    : CElementInfoSeqCol(name, elementNamespace, propertyIndex), m_xmlElementType(xmlElementType)
{
}

void CElementInfoSeqClsCol::PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                                      const CXmlGeneratedClass* object, CXmlWriter* writer) const
{
    PseudoCollectionAttributesToXml(*this, m_xmlElementType, context, object, writer);
}

CElementInfoSeqAbsClsCol::CElementInfoSeqAbsClsCol(const char* name, const char* elementNamespace, int propertyIndex,
                                                   XmlElementType xmlElementType)
    : CElementInfoSeqCol(name, elementNamespace, propertyIndex), m_xmlElementType(xmlElementType)
{
}

void CElementInfoSeqAbsClsCol::PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                                         const CXmlGeneratedClass* object, CXmlWriter* writer) const
{
    PseudoCollectionAttributesToXml(*this, m_xmlElementType, context, object, writer);
}

CElementInfoSeqPrimCol::CElementInfoSeqPrimCol(const char* name, const char* elementNamespace, int propertyIndex)
    : CElementInfoSeqCol(name, elementNamespace, propertyIndex)
{
}

CElementInfoSeqEnumCol::CElementInfoSeqEnumCol(const char* name, const char* elementNamespace, int propertyIndex)
    : CElementInfoSeqCol(name, elementNamespace, propertyIndex)
{
}

CElementInfoSeqUntpdCol::CElementInfoSeqUntpdCol(const char* name, const char* elementNamespace, int propertyIndex)
    : CElementInfoSeqCol(name, elementNamespace, propertyIndex)
{
}

bool CElementInfoSeqUntpdCol::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                                             CXmlElement* parent, CXmlElement** cursor, const char*,
                                             XmlElementType parentType)
{
    const CSmartPtr<CElementCol> collection = ReadElementCollection(*this, object);
    *cursor = ReadUntypedRun(*this, *collection, parent, *cursor, context);
    return CheckCountAfterRead(*collection, context, parentType);
}

} // namespace NxXmlLib9Data
