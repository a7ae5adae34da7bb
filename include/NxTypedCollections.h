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
    typedef CItemVector<T> Storage;
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

struct ChexBinaryKind : CPrimitiveKind<CBinaryData, ItemTypeHexBinary,
                                       &CConversions::hexBinaryToString, &CConversions::hexBinaryFromString,
                                       &CXmlObjectHelper::CheckRestrictionForhexBinary> {
    static constexpr const char* ClassName = "ChexBinaryCol";
};
struct Cbase64BinaryKind : CPrimitiveKind<CBinaryData, ItemTypeBase64Binary,
                                          &CConversions::base64BinaryToString, &CConversions::base64BinaryFromString,
                                          &CXmlObjectHelper::CheckRestrictionForbase64Binary> {
    static constexpr const char* ClassName = "Cbase64BinaryCol";
};
struct Ci1Kind : CPrimitiveKind<char, ItemTypeI1,
                                &CConversions::i1ToString, &CConversions::i1FromString,
                                &CXmlObjectHelper::CheckRestrictionFori1> {
    static constexpr const char* ClassName = "Ci1Col";
};
struct Ci2Kind : CPrimitiveKind<short, ItemTypeI2,
                                &CConversions::i2ToString, &CConversions::i2FromString,
                                &CXmlObjectHelper::CheckRestrictionFori2> {
    static constexpr const char* ClassName = "Ci2Col";
};
struct Ci4Kind : CPrimitiveKind<long, ItemTypeI4,
                                &CConversions::i4ToString, &CConversions::i4FromString,
                                &CXmlObjectHelper::CheckRestrictionFori4> {
    static constexpr const char* ClassName = "Ci4Col";
};
struct Ci8Kind : CPrimitiveKind<long long, ItemTypeI8,
                                &CConversions::i8ToString, &CConversions::i8FromString,
                                &CXmlObjectHelper::CheckRestrictionFori8> {
    static constexpr const char* ClassName = "Ci8Col";
};
struct Cui1Kind : CPrimitiveKind<unsigned char, ItemTypeUI1,
                                 &CConversions::ui1ToString, &CConversions::ui1FromString,
                                 &CXmlObjectHelper::CheckRestrictionForui1> {
    static constexpr const char* ClassName = "Cui1Col";
};
struct Cui2Kind : CPrimitiveKind<unsigned short, ItemTypeUI2,
                                 &CConversions::ui2ToString, &CConversions::ui2FromString,
                                 &CXmlObjectHelper::CheckRestrictionForui2> {
    static constexpr const char* ClassName = "Cui2Col";
};
struct Cui4Kind : CPrimitiveKind<unsigned long, ItemTypeUI4,
                                 &CConversions::ui4ToString, &CConversions::ui4FromString,
                                 &CXmlObjectHelper::CheckRestrictionForui4> {
    static constexpr const char* ClassName = "Cui4Col";
};
struct Cui8Kind : CPrimitiveKind<unsigned long long, ItemTypeUI8,
                                 &CConversions::ui8ToString, &CConversions::ui8FromString,
                                 &CXmlObjectHelper::CheckRestrictionForui8> {
    static constexpr const char* ClassName = "Cui8Col";
};
struct Cr4Kind : CPrimitiveKind<float, ItemTypeR4,
                                &CConversions::r4ToString, &CConversions::r4FromString,
                                &CXmlObjectHelper::CheckRestrictionForr4> {
    static constexpr const char* ClassName = "Cr4Col";
};
struct Cr8Kind : CPrimitiveKind<double, ItemTypeR8,
                                &CConversions::r8ToString, &CConversions::r8FromString,
                                &CXmlObjectHelper::CheckRestrictionForr8> {
    static constexpr const char* ClassName = "Cr8Col";
};
struct CdurationKind : CPrimitiveKind<CDateTimeSpan, ItemTypeDuration,
                                      &CConversions::durationToString, &CConversions::durationFromString,
                                      &CXmlObjectHelper::CheckRestrictionForduration> {
    static constexpr const char* ClassName = "CdurationCol";
};
struct CyearKind : CPrimitiveKind<unsigned short, ItemTypeYear,
                                  &CConversions::yearToString, &CConversions::yearFromString,
                                  &CXmlObjectHelper::CheckRestrictionForyear> {
    static constexpr const char* ClassName = "CyearCol";
};
struct CmonthKind : CPrimitiveKind<unsigned char, ItemTypeMonth,
                                   &CConversions::monthToString, &CConversions::monthFromString,
                                   &CXmlObjectHelper::CheckRestrictionFormonth> {
    static constexpr const char* ClassName = "CmonthCol";
};
struct CdayKind : CPrimitiveKind<unsigned char, ItemTypeDay,
                                 &CConversions::dayToString, &CConversions::dayFromString,
                                 &CXmlObjectHelper::CheckRestrictionForday> {
    static constexpr const char* ClassName = "CdayCol";
};
struct CstringKind : CPrimitiveKind<std::string, ItemTypeString,
                                    &CConversions::stringToString, &CConversions::stringFromString,
                                    &CXmlObjectHelper::CheckRestrictionForstring> {
    static constexpr const char* ClassName = "CstringCol";
};
struct CdecimalKind : CPrimitiveKind<CDecimal, ItemTypeDecimal,
                                     &CConversions::decimalToString, &CConversions::decimalFromString,
                                     &CXmlObjectHelper::CheckRestrictionFordecimal> {
    static constexpr const char* ClassName = "CdecimalCol";
};
struct CintegerKind : CPrimitiveKind<CBigInteger, ItemTypeInteger,
                                     &CConversions::integerToString, &CConversions::integerFromString,
                                     &CXmlObjectHelper::CheckRestrictionForinteger> {
    static constexpr const char* ClassName = "CintegerCol";
};
// The only kind with storage of its own: one bit per value.
struct CbooleanKind : CPrimitiveKind<bool, ItemTypeBoolean,
                                     &CConversions::booleanToString, &CConversions::booleanFromString,
                                     &CXmlObjectHelper::CheckRestrictionForboolean> {
    static constexpr const char* ClassName = "CbooleanCol";
    typedef CBitVector Storage;
};

// The date-like kinds also name the CDateTime kind they accept and the
// message that refuses any other.
struct CdatetimeKind : CPrimitiveKind<CDateTime, ItemTypeDateTime,
                                      &CConversions::datetimeToString, &CConversions::datetimeFromString,
                                      &CXmlObjectHelper::CheckRestrictionFordatetime> {
    static constexpr const char* ClassName = "CdatetimeCol";
    static constexpr CDateTime::DTType DateType = CDateTime::dt_dateTime;
    static constexpr const char* TypeMessage = "Dates added to this collection must be of type dt_dateTime";
};
struct CdateKind : CPrimitiveKind<CDateTime, ItemTypeDate,
                                  &CConversions::dateToString, &CConversions::dateFromString,
                                  &CXmlObjectHelper::CheckRestrictionFordate> {
    static constexpr const char* ClassName = "CdateCol";
    static constexpr CDateTime::DTType DateType = CDateTime::dt_date;
    static constexpr const char* TypeMessage = "Dates added to this collection must be of type dt_date";
};
struct CyearMonthKind : CPrimitiveKind<CDateTime, ItemTypeYearMonth,
                                       &CConversions::yearMonthToString, &CConversions::yearMonthFromString,
                                       &CXmlObjectHelper::CheckRestrictionForyearMonth> {
    static constexpr const char* ClassName = "CyearMonthCol";
    static constexpr CDateTime::DTType DateType = CDateTime::dt_gYearMonth;
    static constexpr const char* TypeMessage = "Dates added to this collection must be of type dt_gYearMonth";
};
struct CtimeKind : CPrimitiveKind<CDateTime, ItemTypeTime,
                                  &CConversions::timeToString, &CConversions::timeFromString,
                                  &CXmlObjectHelper::CheckRestrictionFortime> {
    static constexpr const char* ClassName = "CtimeCol";
    static constexpr CDateTime::DTType DateType = CDateTime::dt_time;
    static constexpr const char* TypeMessage = "Dates added to this collection must be of type dt_time";
};
struct CmonthDayKind : CPrimitiveKind<CDateTime, ItemTypeMonthDay,
                                      &CConversions::monthDayToString, &CConversions::monthDayFromString,
                                      &CXmlObjectHelper::CheckRestrictionFormonthDay> {
    static constexpr const char* ClassName = "CmonthDayCol";
    static constexpr CDateTime::DTType DateType = CDateTime::dt_gMonthDay;
    static constexpr const char* TypeMessage = "Dates added to this collection must be of type dt_gMonthDay";
};

// The members are instantiated once, inside the library.
extern template class CPrimitiveCol<ChexBinaryKind>;
extern template class CPrimitiveCol<Cbase64BinaryKind>;
extern template class CPrimitiveCol<Ci1Kind>;
extern template class CPrimitiveCol<Ci2Kind>;
extern template class CPrimitiveCol<Ci4Kind>;
extern template class CPrimitiveCol<Ci8Kind>;
extern template class CPrimitiveCol<Cui1Kind>;
extern template class CPrimitiveCol<Cui2Kind>;
extern template class CPrimitiveCol<Cui4Kind>;
extern template class CPrimitiveCol<Cui8Kind>;
extern template class CPrimitiveCol<Cr4Kind>;
extern template class CPrimitiveCol<Cr8Kind>;
extern template class CPrimitiveCol<CdurationKind>;
extern template class CPrimitiveCol<CyearKind>;
extern template class CPrimitiveCol<CmonthKind>;
extern template class CPrimitiveCol<CdayKind>;
extern template class CPrimitiveCol<CstringKind>;
extern template class CPrimitiveCol<CdecimalKind>;
extern template class CPrimitiveCol<CintegerKind>;
extern template class CPrimitiveCol<CbooleanKind>;
extern template class CDateLikeCol<CdatetimeKind>;
extern template class CDateLikeCol<CdateKind>;
extern template class CDateLikeCol<CyearMonthKind>;
extern template class CDateLikeCol<CtimeKind>;
extern template class CDateLikeCol<CmonthDayKind>;

// ---- The collections ---------------------------------------------------------
//
// Each takes the arguments of CXmlTypeCollection without the ItemType, which
// its kind supplies.

class ChexBinaryCol : public CPrimitiveCol<ChexBinaryKind> {
public:
    using CPrimitiveCol::CPrimitiveCol;
    ~ChexBinaryCol() override;
};
class Cbase64BinaryCol : public CPrimitiveCol<Cbase64BinaryKind> {
public:
    using CPrimitiveCol::CPrimitiveCol;
    ~Cbase64BinaryCol() override;
};
class Ci1Col : public CPrimitiveCol<Ci1Kind> {
public:
    using CPrimitiveCol::CPrimitiveCol;
    ~Ci1Col() override;
};
class Ci2Col : public CPrimitiveCol<Ci2Kind> {
public:
    using CPrimitiveCol::CPrimitiveCol;
    ~Ci2Col() override;
};
class Ci4Col : public CPrimitiveCol<Ci4Kind> {
public:
    using CPrimitiveCol::CPrimitiveCol;
    ~Ci4Col() override;
};
class Ci8Col : public CPrimitiveCol<Ci8Kind> {
public:
    using CPrimitiveCol::CPrimitiveCol;
    ~Ci8Col() override;
};
class Cui1Col : public CPrimitiveCol<Cui1Kind> {
public:
    using CPrimitiveCol::CPrimitiveCol;
    ~Cui1Col() override;
};
class Cui2Col : public CPrimitiveCol<Cui2Kind> {
public:
    using CPrimitiveCol::CPrimitiveCol;
    ~Cui2Col() override;
};
class Cui4Col : public CPrimitiveCol<Cui4Kind> {
public:
    using CPrimitiveCol::CPrimitiveCol;
    ~Cui4Col() override;
};
class Cui8Col : public CPrimitiveCol<Cui8Kind> {
public:
    using CPrimitiveCol::CPrimitiveCol;
    ~Cui8Col() override;
};
class Cr4Col : public CPrimitiveCol<Cr4Kind> {
public:
    using CPrimitiveCol::CPrimitiveCol;
    ~Cr4Col() override;
};
class Cr8Col : public CPrimitiveCol<Cr8Kind> {
public:
    using CPrimitiveCol::CPrimitiveCol;
    ~Cr8Col() override;
};
class CdurationCol : public CPrimitiveCol<CdurationKind> {
public:
    using CPrimitiveCol::CPrimitiveCol;
    ~CdurationCol() override;
};
class CyearCol : public CPrimitiveCol<CyearKind> {
public:
    using CPrimitiveCol::CPrimitiveCol;
    ~CyearCol() override;
};
class CmonthCol : public CPrimitiveCol<CmonthKind> {
public:
    using CPrimitiveCol::CPrimitiveCol;
    ~CmonthCol() override;
};
class CdayCol : public CPrimitiveCol<CdayKind> {
public:
    using CPrimitiveCol::CPrimitiveCol;
    ~CdayCol() override;
};
class CstringCol : public CPrimitiveCol<CstringKind> {
public:
    using CPrimitiveCol::CPrimitiveCol;
    ~CstringCol() override;
};
class CbooleanCol : public CPrimitiveCol<CbooleanKind> {
public:
    using CPrimitiveCol::CPrimitiveCol;
    ~CbooleanCol() override;
};
class CdecimalCol : public CPrimitiveCol<CdecimalKind> {
public:
    using CPrimitiveCol::CPrimitiveCol;
    ~CdecimalCol() override;
};
class CintegerCol : public CPrimitiveCol<CintegerKind> {
public:
    using CPrimitiveCol::CPrimitiveCol;
    ~CintegerCol() override;
};

class CdatetimeCol : public CDateLikeCol<CdatetimeKind> {
public:
    using CDateLikeCol::CDateLikeCol;
    ~CdatetimeCol() override;
};
class CdateCol : public CDateLikeCol<CdateKind> {
public:
    using CDateLikeCol::CDateLikeCol;
    ~CdateCol() override;
};
class CyearMonthCol : public CDateLikeCol<CyearMonthKind> {
public:
    using CDateLikeCol::CDateLikeCol;
    ~CyearMonthCol() override;
};
class CtimeCol : public CDateLikeCol<CtimeKind> {
public:
    using CDateLikeCol::CDateLikeCol;
    ~CtimeCol() override;
};
class CmonthDayCol : public CDateLikeCol<CmonthDayKind> {
public:
    using CDateLikeCol::CDateLikeCol;
    ~CmonthDayCol() override;
};

} // namespace NxXmlLib9
