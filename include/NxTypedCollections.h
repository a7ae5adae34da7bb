// The collections of primitive values, one class C<type>Col per XSD kind,
// which generated code uses for a repeated element of that kind.
//
// All of them behave alike: they tell their listeners of each add and
// removal, check every added value against the facets of the element, and
// write one element per item. The behaviour is written once, in
// CPrimitiveCol; what sets one kind apart (stored type, ItemType, the text
// conversions and the facet check) is a small kind record, and each
// named class is a thin declaration over the two.
//
// Two families differ: CbooleanCol packs its values one bit each, and the
// date-like collections share CdatetimeBaseCol, which refuses a date of the
// wrong kind and writes every item with the dateTime item type.
#pragma once

#include <cstdint>
#include <string>
#include <type_traits>
#include <vector>

#include "NxCollectionBase.h"
#include "NxConversions.h"
#include "NxDateTime.h"
#include "NxFoundation.h"
#include "NxXmlObjectHelper.h"

namespace NxXmlLib9 {

// ---- Storage -----------------------------------------------------------------

// Items held by value in one contiguous vector.
template <class T>
class CItemVector {
public:
    int Size() const { return static_cast<int>(m_items.size()); }
    const T& Get(int index) const { return m_items[static_cast<size_t>(index)]; }
    void InsertAt(int index, const T& value) { m_items.insert(m_items.begin() + index, value); }
    void EraseAt(int index) { m_items.erase(m_items.begin() + index); }

private:
    std::vector<T> m_items;
};

// Booleans one bit each, in 64-bit words. Inserting or erasing moves every
// bit above the position by one place, across word boundaries. Bits beyond
// the count are always zero, and no word is kept beyond the last one used.
class CBitVector {
public:
    CBitVector() : m_count(0) {}
    int Size() const { return m_count; }
    bool Get(int index) const;
    void InsertAt(int index, bool value);
    void EraseAt(int index);

private:
    std::vector<std::uint64_t> m_words;
    int m_count;
};

// ---- Kind records ------------------------------------------------------------

// What sets one collection of primitives apart from another: the stored type,
// the ItemType it is written with, its conversions to and from text (static
// operations of CConversions) and its facet check (a static operation of
// CXmlObjectHelper).
template <class T, ItemType kItemType, auto ToText, auto FromText, auto Check>
struct CPrimitiveKind {
    typedef T Stored;
    // Numbers and strings are passed by value, value classes by constant
    // reference.
    typedef std::conditional_t<std::is_scalar_v<T> || std::is_same_v<T, std::string>, T, const T&> Argument;
    // Booleans pack one bit each; every other kind holds its values whole.
    typedef std::conditional_t<std::is_same_v<T, bool>, CBitVector, CItemVector<T>> Storage;
    static constexpr ItemType Type = kItemType;

    // Reals and decimals print with the collection's format; the other kinds
    // have none.
    static std::string ToString(const T& value, const char* format)
    {
        if constexpr (std::is_invocable_v<decltype(ToText), const T&, const char*>)
            return ToText(value, format);
        else
            return ToText(value);
    }
    static T FromString(const std::string& text, CWhitespaceUtils::WhitespaceRule rule)
    {
        return FromText(text, rule);
    }
    static void CheckFacets(const char* name, const T& value, const CPrimitiveRestrictions& restrictions)
    {
        Check(name, value, restrictions);
    }
};

// ---- The shared behaviour ----------------------------------------------------

// A collection of primitive values of one kind. Every add tells listeners
// "add" (with a pointer to the value) before anything is checked, then
// checks the index and the facets, inserts, and tells them "add complete" and
// "change". Every removal tells them "remove" with the index before the index
// is checked, erases, and tells them "remove complete" with index 0 and
// "change".
template <class Kind>
class CPrimitiveCol : public CXmlTypeCollection, public CInstanceMonitor {
public:
    typedef typename Kind::Stored Stored;
    typedef typename Kind::Argument Argument;

    CPrimitiveCol(const char* elementName, const char* namespaceUri, int minOccurs, int maxOccurs,
                  const char* pattern, int minLength, int maxLength, const char* minInclusive,
                  const char* maxInclusive, const char* minExclusive, const char* maxExclusive, int length,
                  CWhitespaceUtils::WhitespaceRule whitespaceRule, const char* format);
    CPrimitiveCol(const CPrimitiveCol&) = delete;
    CPrimitiveCol& operator=(const CPrimitiveCol&) = delete;
    // Frees the items without telling the listeners.
    ~CPrimitiveCol() override;

    // AddAt at the end.
    void Add(Argument value);
    // An index equal to the count appends; outside 0 to count the add fails
    // with CNxInvalidParamException after the "add" event went out.
    void AddAt(int index, Argument value);
    Stored Item(int index) const;

    int GetCount() const override;
    // Removes from the front one at a time, so listeners hear every removal.
    void Clear() override;
    void Remove(int index) override;
    // Converts with the collection's whitespace rule and adds; conversion
    // and facet failures pass through unchanged.
    void AddFromString(std::string text) override;

protected:
    // Checks the count against the bounds first, then writes one element per
    // item with the collection's own element name and namespace.
    void ToXml_Int(CXmlWriter* writer, bool isRoot, const char* elementNamespace,
                   const CXmlSerializationContext& context, bool isOptionalChoice) const override;

private:
    typename Kind::Storage m_items;
};

// ---- The date-like family ----------------------------------------------------

// Base of the collections of dates, times, dateTimes, gYearMonths and
// gMonthDays. A derived class decides which kind of CDateTime it accepts and
// how an item prints; the base holds the items, adds them through BaseAddAt
// and writes them, always with ItemTypeDateTime whatever the collection's own
// item type is.
class CdatetimeBaseCol : public CXmlTypeCollection {
public:
    CdatetimeBaseCol(ItemType itemType, const char* elementName, const char* namespaceUri, int minOccurs,
                     int maxOccurs, const char* pattern, int minLength, int maxLength, const char* minInclusive,
                     const char* maxInclusive, const char* minExclusive, const char* maxExclusive, int length,
                     CWhitespaceUtils::WhitespaceRule whitespaceRule, const char* format);
    CdatetimeBaseCol(const CdatetimeBaseCol&) = delete;
    CdatetimeBaseCol& operator=(const CdatetimeBaseCol&) = delete;
    // Frees the items without telling the listeners.
    ~CdatetimeBaseCol() override;

    int GetCount() const override;
    void Clear() override;
    void Remove(int index) override;

    // AddAt at the end.
    virtual void Add(const CDateTime& value);
    // Checks the kind of the value and its facets, then BaseAddAt.
    virtual void AddAt(int index, const CDateTime& value) = 0;
    virtual CDateTime Item(int index) const;
    virtual std::string ItemToString(const CDateTime& value) const = 0;

    // The add with its events and index check, but no check of kind or
    // facets.
    void BaseAddAt(int index, const CDateTime& value);

protected:
    void ToXml_Int(CXmlWriter* writer, bool isRoot, const char* elementNamespace,
                   const CXmlSerializationContext& context, bool isOptionalChoice) const override;

private:
    CItemVector<CDateTime> m_items;
};

// A date-like collection of one kind. Unlike the other collections it
// refuses a value of the wrong kind before any event, and checks the facets
// before the "add" event goes out.
template <class Kind>
class CDateLikeCol : public CdatetimeBaseCol, public CInstanceMonitor {
public:
    CDateLikeCol(const char* elementName, const char* namespaceUri, int minOccurs, int maxOccurs,
                 const char* pattern, int minLength, int maxLength, const char* minInclusive,
                 const char* maxInclusive, const char* minExclusive, const char* maxExclusive, int length,
                 CWhitespaceUtils::WhitespaceRule whitespaceRule, const char* format);
    ~CDateLikeCol() override;

    void AddFromString(std::string text) override;
    void AddAt(int index, const CDateTime& value) override;
    std::string ItemToString(const CDateTime& value) const override;
};

// ---- The kinds ---------------------------------------------------------------
//
// Each kind is one row of a list: the name its class, conversions and facet
// check are called by, the stored type and the item type. The date-like kinds
// store CDateTime and name instead the CDateTime kind they accept. Everything
// that is made once per kind (the kind record, the class, the explicit
// instantiation and the destructor) is made from these lists.

#define NXXML_PRIMITIVE_COLLECTION_KINDS(X)            \
    X(hexBinary, CBinaryData, ItemTypeHexBinary)       \
    X(base64Binary, CBinaryData, ItemTypeBase64Binary) \
    X(i1, char, ItemTypeI1)                            \
    X(i2, short, ItemTypeI2)                           \
    X(i4, long, ItemTypeI4)                            \
    X(i8, long long, ItemTypeI8)                       \
    X(ui1, unsigned char, ItemTypeUI1)                 \
    X(ui2, unsigned short, ItemTypeUI2)                \
    X(ui4, unsigned long, ItemTypeUI4)                 \
    X(ui8, unsigned long long, ItemTypeUI8)            \
    X(r4, float, ItemTypeR4)                           \
    X(r8, double, ItemTypeR8)                          \
    X(duration, CDateTimeSpan, ItemTypeDuration)       \
    X(year, unsigned short, ItemTypeYear)              \
    X(month, unsigned char, ItemTypeMonth)             \
    X(day, unsigned char, ItemTypeDay)                 \
    X(string, std::string, ItemTypeString)             \
    X(boolean, bool, ItemTypeBoolean)                  \
    X(decimal, CDecimal, ItemTypeDecimal)              \
    X(integer, CBigInteger, ItemTypeInteger)

#define NXXML_DATE_LIKE_COLLECTION_KINDS(X)          \
    X(datetime, ItemTypeDateTime, dt_dateTime)       \
    X(date, ItemTypeDate, dt_date)                   \
    X(yearMonth, ItemTypeYearMonth, dt_gYearMonth)   \
    X(time, ItemTypeTime, dt_time)                   \
    X(monthDay, ItemTypeMonthDay, dt_gMonthDay)

#define NXXML_KIND_BASE(name, stored, itemType)                                                             \
    CPrimitiveKind<stored, itemType, &CConversions::name##ToString, &CConversions::name##FromString,     \
                   &CXmlObjectHelper::CheckRestrictionFor##name>

#define NXXML_PRIMITIVE_KIND(name, stored, itemType)                  \
    struct C##name##Kind : NXXML_KIND_BASE(name, stored, itemType) { \
        static constexpr const char* ClassName = "C" #name "Col";    \
    };
// The date-like kinds also name the CDateTime kind they accept and the
// message that refuses any other.
#define NXXML_DATE_LIKE_KIND(name, itemType, dateType)                                           \
    struct C##name##Kind : NXXML_KIND_BASE(name, CDateTime, itemType) {                        \
        static constexpr const char* ClassName = "C" #name "Col";                               \
        static constexpr CDateTime::DTType DateType = CDateTime::dateType;                       \
        static constexpr const char* TypeMessage = "Dates added to this collection must be of type " #dateType; \
    };
NXXML_PRIMITIVE_COLLECTION_KINDS(NXXML_PRIMITIVE_KIND)
NXXML_DATE_LIKE_COLLECTION_KINDS(NXXML_DATE_LIKE_KIND)
#undef NXXML_DATE_LIKE_KIND
#undef NXXML_PRIMITIVE_KIND
#undef NXXML_KIND_BASE

// The members are instantiated once, inside the library.
#define NXXML_EXTERN_PRIMITIVE_COL(name, ...) extern template class CPrimitiveCol<C##name##Kind>;
#define NXXML_EXTERN_DATE_LIKE_COL(name, ...) extern template class CDateLikeCol<C##name##Kind>;
NXXML_PRIMITIVE_COLLECTION_KINDS(NXXML_EXTERN_PRIMITIVE_COL)
NXXML_DATE_LIKE_COLLECTION_KINDS(NXXML_EXTERN_DATE_LIKE_COL)
#undef NXXML_EXTERN_DATE_LIKE_COL
#undef NXXML_EXTERN_PRIMITIVE_COL

// ---- The collections ---------------------------------------------------------
//
// Each takes the arguments of CXmlTypeCollection without the ItemType, which
// its kind supplies.

#define NXXML_DECLARE_COL(name, Base)                  \
    class C##name##Col : public Base<C##name##Kind> { \
    public:                                           \
        using Base::Base;                             \
        ~C##name##Col() override;                     \
    };
#define NXXML_DECLARE_PRIMITIVE_COL(name, ...) NXXML_DECLARE_COL(name, CPrimitiveCol)
#define NXXML_DECLARE_DATE_LIKE_COL(name, ...) NXXML_DECLARE_COL(name, CDateLikeCol)
NXXML_PRIMITIVE_COLLECTION_KINDS(NXXML_DECLARE_PRIMITIVE_COL)
NXXML_DATE_LIKE_COLLECTION_KINDS(NXXML_DECLARE_DATE_LIKE_COL)
#undef NXXML_DECLARE_DATE_LIKE_COL
#undef NXXML_DECLARE_PRIMITIVE_COL
#undef NXXML_DECLARE_COL

} // namespace NxXmlLib9
