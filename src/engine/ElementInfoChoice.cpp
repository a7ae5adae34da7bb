// The choice family's base and its repeating members.
#include "NxElementInfoChoice.h"

#include "ElementInfoShared.h"

namespace NxXmlLib9Data {

using namespace NxXmlLib9;
using namespace ElementInfoShared;

bool CElementInfoChoice::Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool, bool) const
{
    ThrowNeverCalled();
}

// ---- CElementInfoChoiceCol --------------------------------------------------

// Unlike the sequence family, no check of the bounds: an empty collection
// writes nothing and the walker tries the next member.
bool CElementInfoChoiceCol::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                                         CXmlWriter* writer) const
{
    return ElementToXmlCol(*this, context, object, writer);
}

bool CElementInfoChoiceCol::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                                           CXmlElement* parent, CXmlElement** cursor, const char*,
                                           XmlElementType parentType)
{
    const CSmartPtr<CXmlCollectionBase> collection = ReadCollection(*this, object);
    CXmlElement* const next = FromXml_Int(collection, parent, *cursor, context, false);
    return SelectRun(*collection, next, cursor, context, parentType);
}

bool CElementInfoChoiceCol::SelectRun(const CXmlCollectionBase& collection, CXmlElement* next, CXmlElement** cursor,
                                      const CXmlSerializationContext& context, XmlElementType parentType)
{
    if (next == *cursor)
        return false;
    if (parentType != XmlElementType_Element) {
        if (!collection.IsValidCount(context))
            return false; // the cursor stays where it was
        *cursor = next;
        return true;
    }
    *cursor = next;
    collection.ValidateCount(context);
    return true;
}

// ---- The collections by kind ------------------------------------------------

CElementInfoChoiceClsCol::CElementInfoChoiceClsCol(const char* name, const char* elementNamespace, int propertyIndex,
                                                   XmlElementType xmlElementType)
    : CElementInfoChoiceCol(name, elementNamespace, propertyIndex), m_xmlElementType(xmlElementType)
{
}

void CElementInfoChoiceClsCol::PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                                         const CXmlGeneratedClass* object, CXmlWriter* writer) const
{
    PseudoCollectionAttributesToXml(*this, m_xmlElementType, context, object, writer);
}

CElementInfoChoiceAbsClsCol::CElementInfoChoiceAbsClsCol(const char* name, const char* elementNamespace,
                                                         int propertyIndex, XmlElementType xmlElementType)
    : CElementInfoChoiceCol(name, elementNamespace, propertyIndex), m_xmlElementType(xmlElementType)
{
}

void CElementInfoChoiceAbsClsCol::PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                                            const CXmlGeneratedClass* object, CXmlWriter* writer) const
{
    PseudoCollectionAttributesToXml(*this, m_xmlElementType, context, object, writer);
}

CElementInfoChoicePrimCol::CElementInfoChoicePrimCol(const char* name, const char* elementNamespace, int propertyIndex)
    : CElementInfoChoiceCol(name, elementNamespace, propertyIndex)
{
}

CElementInfoChoiceEnumCol::CElementInfoChoiceEnumCol(const char* name, const char* elementNamespace, int propertyIndex)
    : CElementInfoChoiceCol(name, elementNamespace, propertyIndex)
{
}

CElementInfoChoiceUntpdCol::CElementInfoChoiceUntpdCol(const char* name, const char* elementNamespace,
                                                       int propertyIndex)
    : CElementInfoChoiceCol(name, elementNamespace, propertyIndex)
{
}

bool CElementInfoChoiceUntpdCol::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                                                CXmlElement* parent, CXmlElement** cursor, const char*,
                                                XmlElementType parentType)
{
    const CSmartPtr<CElementCol> collection = ReadElementCollection(*this, object);
    CXmlElement* const next = ReadUntypedRun(*this, *collection, parent, *cursor, context);
    return SelectRun(*collection, next, cursor, context, parentType);
}

} // namespace NxXmlLib9Data
