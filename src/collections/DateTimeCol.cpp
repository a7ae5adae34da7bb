// The date-like collections: their common base, and the kind check that
// each member runs ahead of everything else.
#include "NxTypedCollections.h"

#include "collections/TypedCollectionSteps.h"

namespace NxXmlLib9 {

CdatetimeBaseCol::CdatetimeBaseCol(ItemType itemType, const char* elementName, const char* namespaceUri,
                                   int minOccurs, int maxOccurs, const char* pattern, int minLength, int maxLength,
                                   const char* minInclusive, const char* maxInclusive, const char* minExclusive,
                                   const char* maxExclusive, int length,
                                   CWhitespaceUtils::WhitespaceRule whitespaceRule, const char* format)
    : CXmlTypeCollection(itemType, elementName, namespaceUri, minOccurs, maxOccurs, pattern, minLength, maxLength,
                         minInclusive, maxInclusive, minExclusive, maxExclusive, length, whitespaceRule, format)
{
}

CdatetimeBaseCol::~CdatetimeBaseCol() = default;

int CdatetimeBaseCol::GetCount() const { return m_items.Size(); }

void CdatetimeBaseCol::Clear()
{
    while (GetCount() != 0)
        Remove(0);
}

void CdatetimeBaseCol::Remove(int index) { TypedCollectionSteps::Erase(*this, m_items, index); }

void CdatetimeBaseCol::Add(const CDateTime& value) { AddAt(GetCount(), value); }

CDateTime CdatetimeBaseCol::Item(int index) const
{
    TypedCollectionSteps::ThrowIfNoItemAt(index, m_items.Size());
    return m_items.Get(index);
}

void CdatetimeBaseCol::BaseAddAt(int index, const CDateTime& value)
{
    TypedCollectionSteps::Insert(*this, m_items, index, value, [] {});
}

// Every member writes its items as dateTime, whatever its own item type.
void CdatetimeBaseCol::ToXml_Int(CXmlWriter* writer, bool /*isRoot*/, const char* /*elementNamespace*/,
                                 const CXmlSerializationContext& context, bool /*isOptionalChoice*/) const
{
    TypedCollectionSteps::Write(*this, m_items, writer, context, ItemTypeDateTime,
                                [this](const CDateTime& value) { return ItemToString(value); });
}

template <class Kind>
CDateLikeCol<Kind>::CDateLikeCol(const char* elementName, const char* namespaceUri, int minOccurs, int maxOccurs,
                                 const char* pattern, int minLength, int maxLength, const char* minInclusive,
                                 const char* maxInclusive, const char* minExclusive, const char* maxExclusive,
                                 int length, CWhitespaceUtils::WhitespaceRule whitespaceRule, const char* format)
    : CdatetimeBaseCol(Kind::Type, elementName, namespaceUri, minOccurs, maxOccurs, pattern, minLength, maxLength,
                       minInclusive, maxInclusive, minExclusive, maxExclusive, length, whitespaceRule, format),
      CInstanceMonitor(Kind::ClassName)
{
}

template <class Kind>
CDateLikeCol<Kind>::~CDateLikeCol() = default;

template <class Kind>
void CDateLikeCol<Kind>::AddFromString(std::string text)
{
    Add(Kind::FromString(text, GetWhitespaceRule()));
}

// A value of another kind is refused before any event, even one that could
// be converted; the facets are checked before listeners hear of the add.
template <class Kind>
void CDateLikeCol<Kind>::AddAt(int index, const CDateTime& value)
{
    if (value.GetType() != Kind::DateType)
        throw CNxInvalidParamException(Kind::TypeMessage);
    Kind::CheckFacets(GetElementName().c_str(), value, GetRestrictions());
    BaseAddAt(index, value);
}

template <class Kind>
std::string CDateLikeCol<Kind>::ItemToString(const CDateTime& value) const
{
    return Kind::ToString(value, GetFormat());
}

#define NXXML_DEFINE_DATE_LIKE_COL(name, ...)   \
    template class CDateLikeCol<C##name##Kind>; \
    C##name##Col::~C##name##Col() = default;
NXXML_DATE_LIKE_COLLECTION_KINDS(NXXML_DEFINE_DATE_LIKE_COL)
#undef NXXML_DEFINE_DATE_LIKE_COL

} // namespace NxXmlLib9
