// Stateless helpers behind the metadata and the collections of generated
// classes.
#pragma once

#include <string>

#include "NxFoundation.h"
#include "NxPrimitiveRestrictions.h"
#include "NxVariant.h"

namespace NxXmlLib9 {

class CXmlElement;
class CXmlSerializationContext;

// A holder of static operations, grouped by concern. Element name and
// namespace matching join this class beside the facet checks.
class CXmlObjectHelper {
public:
    CXmlObjectHelper() = delete;

    // ---- Element name and namespace matching -----------------------------

    // Whether element is the one a collection with that item name and
    // namespace reads. A namespace-free schema compares the local name only;
    // otherwise the local name must match byte for byte and, unless the
    // context ignores namespaces, the namespace URI too. element must not
    // be null.
    static bool DoesElementNameMatch(const CXmlSerializationContext& context, const CXmlElement* element,
                                     const std::string& name, const std::string& elementNamespace);

    // Whether namespaceUri is allowed by a wildcard: "##any",
    // "##other", "##local", "##targetNamespace", a URI, or a list of these
    // separated by blanks. Only the first token of a list is weighed on its
    // own; beyond it a list admits the empty namespace and the namespace
    // that equals the whole list text, and nothing else.
    static bool IsNamespaceValid(const std::string& namespaceUri, const std::string& wildcard,
                                 const std::string& targetNamespace);

    // IsNamespaceValid that throws CNxInvalidNamespaceException naming the
    // three texts when the namespace is not allowed.
    static void TestNamespace(const std::string& namespaceUri, const std::string& wildcard,
                              const std::string& targetNamespace);

    // ---- Facet checks ----------------------------------------------------
    //
    // Each check returns when the value meets every facet present in the
    // record and throws a plain CNxException "Invalid Value for <name>
    // [<value>]" at the first facet it breaks; the text never says which
    // facet that was. Order bounds are parsed at every call with the collapse
    // rule by the conversion of the value's kind, so a malformed bound throws
    // that conversion's own failure instead. Neither the value nor the
    // record is changed.

    // Reads the variant with the getter of type (not the variant's own tag)
    // and runs the check of that kind. A kind without a check (none, char,
    // object, collection, out of range) throws CNxInvalidValueException
    // "unknown type [<the variant's type name>]".
    static void CheckRestriction(const char* name, const NxVariant& value, ItemType type,
                                 const CPrimitiveRestrictions& restrictions);

    // Strings: MinLength, MaxLength, Length (in bytes as held), then Pattern.
    // The order bounds are not looked at.
    static void CheckRestrictionForstring(const char* name, std::string value,
                                          const CPrimitiveRestrictions& restrictions);
    // Booleans have no facet to break.
    static void CheckRestrictionForboolean(const char* name, bool value,
                                           const CPrimitiveRestrictions& restrictions);

    // Numbers: MinInclusive, MaxInclusive, MinExclusive, MaxExclusive, each
    // only when its text is not empty. A real NaN fails every present bound.
    static void CheckRestrictionFori1(const char* name, char value, const CPrimitiveRestrictions& restrictions);
    static void CheckRestrictionFori2(const char* name, short value, const CPrimitiveRestrictions& restrictions);
    static void CheckRestrictionFori4(const char* name, long value, const CPrimitiveRestrictions& restrictions);
    static void CheckRestrictionFori8(const char* name, long long value,
                                      const CPrimitiveRestrictions& restrictions);
    static void CheckRestrictionForui1(const char* name, unsigned char value,
                                       const CPrimitiveRestrictions& restrictions);
    static void CheckRestrictionForui2(const char* name, unsigned short value,
                                       const CPrimitiveRestrictions& restrictions);
    static void CheckRestrictionForui4(const char* name, unsigned long value,
                                       const CPrimitiveRestrictions& restrictions);
    static void CheckRestrictionForui8(const char* name, unsigned long long value,
                                       const CPrimitiveRestrictions& restrictions);
    static void CheckRestrictionForr4(const char* name, float value, const CPrimitiveRestrictions& restrictions);
    static void CheckRestrictionForr8(const char* name, double value, const CPrimitiveRestrictions& restrictions);

    // Binary data: MinLength, MaxLength, Length on the decoded bytes. The
    // failure shows the data in the kind's own text; Pattern is not tested.
    static void CheckRestrictionForhexBinary(const char* name, const CBinaryData& value,
                                             const CPrimitiveRestrictions& restrictions);
    static void CheckRestrictionForbase64Binary(const char* name, const CBinaryData& value,
                                                const CPrimitiveRestrictions& restrictions);

    // Durations and the date kinds are ordered by CompareTo, which may find
    // the order open (a value without a zone within 14 hours of a bound with
    // one, or P1M against P30D); such a value passes that bound.
    static void CheckRestrictionForduration(const char* name, const CDateTimeSpan& value,
                                            const CPrimitiveRestrictions& restrictions);
    static void CheckRestrictionForyearMonth(const char* name, const CDateTime& value,
                                             const CPrimitiveRestrictions& restrictions);
    // The same check as CheckRestrictionForyearMonth, under the name that
    // generated code may also call.
    static void CheckRestrictionFormonthYear(const char* name, const CDateTime& value,
                                             const CPrimitiveRestrictions& restrictions);
    static void CheckRestrictionFormonthDay(const char* name, const CDateTime& value,
                                            const CPrimitiveRestrictions& restrictions);
    static void CheckRestrictionFordate(const char* name, const CDateTime& value,
                                        const CPrimitiveRestrictions& restrictions);
    static void CheckRestrictionFordatetime(const char* name, const CDateTime& value,
                                            const CPrimitiveRestrictions& restrictions);
    static void CheckRestrictionFortime(const char* name, const CDateTime& value,
                                        const CPrimitiveRestrictions& restrictions);

    // Year, month and day are bare numbers with the order tests of the
    // numbers; their bounds are date forms ("2000", "--05", "---17").
    static void CheckRestrictionForyear(const char* name, unsigned short value,
                                        const CPrimitiveRestrictions& restrictions);
    static void CheckRestrictionFormonth(const char* name, unsigned char value,
                                         const CPrimitiveRestrictions& restrictions);
    static void CheckRestrictionForday(const char* name, unsigned char value,
                                       const CPrimitiveRestrictions& restrictions);

    // Decimals and big integers apply the order tests with their own
    // operators; the failure prints the value's own text.
    static void CheckRestrictionFordecimal(const char* name, const CDecimal& value,
                                           const CPrimitiveRestrictions& restrictions);
    static void CheckRestrictionForinteger(const char* name, const CBigInteger& value,
                                           const CPrimitiveRestrictions& restrictions);
};

} // namespace NxXmlLib9
