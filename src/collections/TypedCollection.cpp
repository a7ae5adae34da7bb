// The behaviour shared by the collections of primitive values, and its one
// instantiation per kind.
#include "NxTypedCollections.h"

#include <type_traits>
#include <utility>

#include "collections/TypedCollectionSteps.h"

namespace NxXmlLib9 {

template <class Kind>
CPrimitiveCol<Kind>::CPrimitiveCol(const char* elementName, const char* namespaceUri, int minOccurs,
                                   int maxOccurs, const char* pattern, int minLength, int maxLength,
                                   const char* minInclusive, const char* maxInclusive, const char* minExclusive,
                                   const char* maxExclusive, int length,
                                   CWhitespaceUtils::WhitespaceRule whitespaceRule, const char* format)
    : CXmlTypeCollection(Kind::Type, elementName, namespaceUri, minOccurs, maxOccurs, pattern, minLength,
                         maxLength, minInclusive, maxInclusive, minExclusive, maxExclusive, length, whitespaceRule,
                         format),
      CInstanceMonitor(Kind::ClassName)
{
}

template <class Kind>
CPrimitiveCol<Kind>::~CPrimitiveCol() = default;

template <class Kind>
void CPrimitiveCol<Kind>::Add(Argument value)
{
    AddAt(GetCount(), std::forward<Argument>(value));
}

template <class Kind>
void CPrimitiveCol<Kind>::AddAt(int index, Argument value)
{
    TypedCollectionSteps::Insert(*this, m_items, index, value, [this, &value] {
        // Without a facet every value passes; the check would only copy it.
        if (HasFacets())
            Kind::CheckFacets(GetElementName().c_str(), value, GetRestrictions());
    });
}

template <class Kind>
typename CPrimitiveCol<Kind>::Stored CPrimitiveCol<Kind>::Item(int index) const
{
    TypedCollectionSteps::ThrowIfNoItemAt(index, m_items.Size());
    return m_items.Get(index);
}

template <class Kind>
int CPrimitiveCol<Kind>::GetCount() const
{
    return m_items.Size();
}

template <class Kind>
void CPrimitiveCol<Kind>::Clear()
{
    while (GetCount() != 0)
        Remove(0);
}

template <class Kind>
void CPrimitiveCol<Kind>::Remove(int index)
{
    TypedCollectionSteps::Erase(*this, m_items, index);
}

template <class Kind>
void CPrimitiveCol<Kind>::AddFromString(std::string text)
{
    Add(Kind::FromString(text, GetWhitespaceRule()));
}

template <class Kind>
void CPrimitiveCol<Kind>::ToXml_Int(CXmlWriter* writer, bool /*isRoot*/, const char* /*elementNamespace*/,
                                    const CXmlSerializationContext& context, bool /*isOptionalChoice*/) const
{
    // Strings are their own text and are written in place.
    if constexpr (std::is_same_v<Stored, std::string>) {
        TypedCollectionSteps::Write(*this, m_items, writer, context, GetItemType(),
                                    [](const Stored& value) -> const std::string& { return value; });
    } else {
        const char* format = GetFormat();
        TypedCollectionSteps::Write(*this, m_items, writer, context, GetItemType(),
                                    [format](const Stored& value) { return Kind::ToString(value, format); });
    }
}

#define NXXML_DEFINE_PRIMITIVE_COL(name, ...)   \
    template class CPrimitiveCol<C##name##Kind>; \
    C##name##Col::~C##name##Col() = default;
NXXML_PRIMITIVE_COLLECTION_KINDS(NXXML_DEFINE_PRIMITIVE_COL)
#undef NXXML_DEFINE_PRIMITIVE_COL

} // namespace NxXmlLib9
