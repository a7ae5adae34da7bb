// NxVariant: one tagged value of any ItemType, the bridge between XML text
// and the typed properties of generated classes.
#pragma once

#include <string>
#include <utility>

#include "NxBigInteger.h"
#include "NxBinaryData.h"
#include "NxConversions.h"
#include "NxDateTime.h"
#include "NxDateTimeSpan.h"
#include "NxDecimal.h"
#include "NxFoundation.h"
#include "NxSmartPtr.h"

namespace NxXmlLib9 {

// A variant only points to bound objects and collections and counts their
// references; their classes live in the engine above the values.
class CXmlObjectBase;
class CXmlCollectionBase;

// Numbers, characters and booleans are held in the value word itself, and so
// are year, month and day, as bare numbers. Other kinds are held through a
// pointer in that word: a string and every value object (binary data,
// duration, the five date kinds, decimal, integer) is owned by the variant
// and copied with it; a bound object or a collection is shared, and the
// variant holds one count on it.
//
// Getters perform no type check: each reads the value word as its own kind,
// so reading a kind that the variant does not hold is the caller's fault.
// The getters of owned objects never follow a word that holds no object of
// their class, though: they give that class's empty value instead.
class NxVariant {
public:
    NxVariant();
    // Starts invalid and then assigns.
    NxVariant(const NxVariant& other);
    // Takes the value over; the source is left invalid.
    NxVariant(NxVariant&& other) noexcept;
    virtual ~NxVariant();

    // Clears the target, then copies: owned objects by their copy
    // constructor, bound objects by sharing them with one more count. A
    // variant assigned to itself ends up invalid.
    NxVariant& operator=(const NxVariant& other);
    NxVariant& operator=(NxVariant&& other) noexcept;

    ItemType GetItemType() const { return m_type; }
    bool IsValid() const { return m_type != ItemTypeNone; }
    void SetInvalid();
    // Frees what the variant owns, lets go of a bound object and leaves the
    // variant invalid.
    void Clear();

    // The name of the held kind; invalid, object and collection variants
    // throw CNxException "Invalid Type %d".
    std::string GetType() const;
    // Text of the value. The format applies to the real kinds only; null
    // means the kind's default format.
    std::string ToString(const char* format = nullptr) const;
    // Parses the text as the given kind and stores the result. When parsing
    // fails the variant keeps its previous value. The date kinds take the
    // kind of what the text holds: "2000-05" read as a date is a gYearMonth.
    void FromString(const std::string& text, ItemType type, CWhitespaceUtils::WhitespaceRule rule);

    void SetI1(char value);
    void SetI2(short value);
    void SetI4(long value);
    void SetI8(long long value);
    void SetUI1(unsigned char value);
    void SetUI2(unsigned short value);
    void SetUI4(unsigned long value);
    void SetUI8(unsigned long long value);
    void SetR4(float value);
    void SetR8(double value);
    void SetYear(unsigned short value);
    void SetMonth(unsigned char value);
    void SetDay(unsigned char value);
    void SetChar(char value);
    void SetString(const std::string& value);
    void SetBoolean(bool value);
    // The type is set even for a null pointer; a non-null one gains a count.
    void SetXmlObject(CXmlObjectBase* value);
    void SetXmlCollection(CXmlCollectionBase* value);
    // The value objects are copied into the variant. A copy of binary data
    // shares its bytes with the original until either is written to.
    void SetHexBinary(const CBinaryData& value);
    void SetBase64Binary(const CBinaryData& value);
    void SetDuration(const CDateTimeSpan& value);
    void SetYearMonth(const CDateTime& value);
    void SetMonthDay(const CDateTime& value);
    void SetDate(const CDateTime& value);
    void SetDateTime(const CDateTime& value);
    void SetTime(const CDateTime& value);
    void SetDecimal(const CDecimal& value);
    void SetInteger(const CBigInteger& value);

    char GetI1() const { return m_value.i1; }
    short GetI2() const { return m_value.i2; }
    long GetI4() const { return m_value.i4; }
    long long GetI8() const { return m_value.i8; }
    unsigned char GetUI1() const { return m_value.ui1; }
    unsigned short GetUI2() const { return m_value.ui2; }
    unsigned long GetUI4() const { return m_value.ui4; }
    unsigned long long GetUI8() const { return m_value.ui8; }
    float GetR4() const { return m_value.r4; }
    double GetR8() const { return m_value.r8; }
    unsigned short GetYear() const { return m_value.year; }
    unsigned char GetMonth() const { return m_value.month; }
    unsigned char GetDay() const { return m_value.day; }
    char GetChar() const { return m_value.character; }
    std::string GetString() const;
    // The held text of a string variant, read in place; any other kind
    // gives an empty text. Valid until the variant changes.
    const std::string& GetStringRef() const;
    bool GetBoolean() const { return m_value.boolean; }
    // The receiver holds its own count.
    CSmartPtr<CXmlObjectBase> GetXmlObject() const;
    CSmartPtr<CXmlCollectionBase> GetXmlCollection() const;
    // Copies of the held value object. The two binary getters read the same
    // object, and so do the five date getters: the copy has the kind of the
    // value stored, whichever of them is called. A variant that holds no
    // object of the class asked for gives that class's empty value.
    CBinaryData GetHexBinary() const;
    CBinaryData GetBase64Binary() const;
    CDateTimeSpan GetDuration() const;
    CDateTime GetYearMonth() const;
    CDateTime GetMonthDay() const;
    CDateTime GetDate() const;
    CDateTime GetDateTime() const;
    CDateTime GetTime() const;
    CDecimal GetDecimal() const;
    CBigInteger GetInteger() const;

private:
    // One machine word. It is all zero whenever the variant is invalid.
    union Value {
        unsigned long long word;
        char i1;
        short i2;
        long i4;
        long long i8;
        unsigned char ui1;
        unsigned short ui2;
        unsigned long ui4;
        unsigned long long ui8;
        float r4;
        double r8;
        unsigned short year;
        unsigned char month;
        unsigned char day;
        char character;
        bool boolean;
        std::string* string;
        CBinaryData* binary;
        CDateTimeSpan* duration;
        CDateTime* dateTime;
        CDecimal* decimal;
        CBigInteger* integer;
        CXmlObjectBase* object;
        CXmlCollectionBase* collection;
        void* owned;
    };

    template <class T>
    void SetInline(ItemType type, T Value::*member, T value) noexcept
    {
        Value stored{};
        stored.*member = value;
        Install(type, stored);
    }
    // Moves the value into a new heap object that the variant owns.
    template <class T>
    void SetOwned(ItemType type, T* Value::*member, T value)
    {
        Value stored{};
        stored.*member = new T(std::move(value));
        Install(type, stored);
    }
    // The object in the value word when the present kind owns a T there,
    // otherwise null; a value word that holds a number or another class is
    // never read as a T.
    template <class T>
    const T* Owned() const;
    template <class T>
    T CopyOfOwned() const;
    // The held object of the present kind, read in place for printing.
    template <class T>
    const T& Held() const;

    // Releases the present content and stores the given one, which the
    // variant already owns.
    void Install(ItemType type, Value value) noexcept;
    // What a copy of the given content holds: a clone of an owned object, a
    // further count on a bound object, the word itself for inline kinds.
    static Value Duplicate(ItemType type, const Value& value);
    // Frees or releases what the content refers to.
    static void Dispose(ItemType type, const Value& value) noexcept;

    ItemType m_type;
    Value m_value;
};

} // namespace NxXmlLib9
