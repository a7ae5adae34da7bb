// The base of the collections of primitive values and their reading loop.
#include "NxCollectionBase.h"

#include "NxXmlDocument.h"
#include "NxXmlObjectHelper.h"

namespace NxXmlLib9 {

CXmlTypeCollection::CXmlTypeCollection(ItemType itemType, const char* elementName, const char* namespaceUri,
                                       int minOccurs, int maxOccurs, const char* pattern, int minLength,
                                       int maxLength, const char* minInclusive, const char* maxInclusive,
                                       const char* minExclusive, const char* maxExclusive, int length,
                                       CWhitespaceUtils::WhitespaceRule whitespaceRule, const char* format)
    : CXmlCollectionBase(elementName, namespaceUri, minOccurs, maxOccurs),
      m_itemType(itemType),
      m_format(format),
      m_whitespaceRule(whitespaceRule)
{
    const bool noText = (!pattern || !*pattern) && (!minInclusive || !*minInclusive) &&
                        (!maxInclusive || !*maxInclusive) && (!minExclusive || !*minExclusive) &&
                        (!maxExclusive || !*maxExclusive);
    const CPrimitiveRestrictions& none = NoFacets();
    if (!noText || minLength != none.MinLength || maxLength != none.MaxLength || length != none.Length)
        m_restrictions.reset(new CPrimitiveRestrictions(pattern, minLength, maxLength, minInclusive, maxInclusive,
                                                        minExclusive, maxExclusive, length));
}

const CPrimitiveRestrictions& CXmlTypeCollection::NoFacets()
{
    static const CPrimitiveRestrictions none;
    return none;
}

CXmlTypeCollection::~CXmlTypeCollection() = default;

CXmlElement* CXmlTypeCollection::FromXml_Int(CXmlElement* /*element*/, CXmlElement* cursor,
                                             const CXmlSerializationContext& context, bool /*isOptionalChoice*/)
{
    const std::string name = GetElementName();
    const std::string elementNamespace = GetNamespace();
    for (; cursor; cursor = cursor->GetNextSiblingElement()) {
        if (!CXmlObjectHelper::DoesElementNameMatch(context, cursor, name, elementNamespace))
            return cursor;
        AddFromString(cursor->GetText());
    }
    return nullptr;
}

} // namespace NxXmlLib9
