// Storage and lifetime of NxVariant. Every kind falls in one storage class;
// the kinds whose value lives on the heap are listed once, in OwnedKindOf,
// with how to copy and how to free their object.
#include "NxVariant.h"

// The bound kinds hold a counted reference: the count lives on the object.
#include "NxCollectionBase.h"
#include "NxXmlObjectBase.h"

#include <utility>

namespace NxXmlLib9 {

namespace {

// Copy and free of one heap kind.
struct OwnedKind {
    void* (*clone)(const void* object);
    void (*destroy)(void* object) noexcept;
};

template <class T>
void* CloneObject(const void* object)
{
    return new T(*static_cast<const T*>(object));
}

template <class T>
void DestroyObject(void* object) noexcept
{
    delete static_cast<T*>(object);
}

template <class T>
const OwnedKind kOwned = {&CloneObject<T>, &DestroyObject<T>};

// The kinds whose value the variant owns on the heap.
const OwnedKind* OwnedKindOf(ItemType type)
{
    switch (type) {
    case ItemTypeString:
        return &kOwned<std::string>;
    case ItemTypeHexBinary:
    case ItemTypeBase64Binary:
        return &kOwned<CBinaryData>;
    case ItemTypeDuration:
        return &kOwned<CDateTimeSpan>;
    case ItemTypeYearMonth:
    case ItemTypeMonthDay:
    case ItemTypeDate:
    case ItemTypeDateTime:
    case ItemTypeTime:
        return &kOwned<CDateTime>;
    case ItemTypeDecimal:
        return &kOwned<CDecimal>;
    case ItemTypeInteger:
        return &kOwned<CBigInteger>;
    default:
        return nullptr;
    }
}

enum class Storage { None, Inline, Owned, Counted, Unknown };

Storage StorageOf(ItemType type)
{
    switch (type) {
    case ItemTypeNone:
        return Storage::None;
    case ItemTypeI1:
    case ItemTypeI2:
    case ItemTypeI4:
    case ItemTypeI8:
    case ItemTypeUI1:
    case ItemTypeUI2:
    case ItemTypeUI4:
    case ItemTypeUI8:
    case ItemTypeR4:
    case ItemTypeR8:
    case ItemTypeYear:
    case ItemTypeMonth:
    case ItemTypeDay:
    case ItemTypeChar:
    case ItemTypeBoolean:
        return Storage::Inline;
    case ItemTypeXmlObject:
    case ItemTypeXmlCollection:
        return Storage::Counted;
    default:
        return OwnedKindOf(type) != nullptr ? Storage::Owned : Storage::Unknown;
    }
}

} // namespace

NxVariant::NxVariant() : m_type(ItemTypeNone), m_value{}
{
}

NxVariant::NxVariant(const NxVariant& other) : NxVariant()
{
    *this = other;
}

NxVariant::NxVariant(NxVariant&& other) noexcept : m_type(other.m_type), m_value(other.m_value)
{
    other.m_type = ItemTypeNone;
    other.m_value = Value{};
}

NxVariant::~NxVariant()
{
    Clear();
}

NxVariant& NxVariant::operator=(const NxVariant& other)
{
    // Clearing comes first, so a variant assigned to itself is left invalid.
    if (this == &other) {
        Clear();
        return *this;
    }
    // The copy is made before the old content goes: letting go of a bound
    // object may destroy the very object that holds the source.
    const ItemType type = other.m_type;
    const Value copy = Duplicate(type, other.m_value);
    Install(type, copy);
    return *this;
}

NxVariant& NxVariant::operator=(NxVariant&& other) noexcept
{
    if (this != &other) {
        const ItemType type = other.m_type;
        const Value value = other.m_value;
        other.m_type = ItemTypeNone;
        other.m_value = Value{};
        Install(type, value);
    }
    return *this;
}

void NxVariant::SetInvalid()
{
    Clear();
}

void NxVariant::Clear()
{
    // An invalid variant holds nothing, and its word is already zero.
    if (m_type == ItemTypeNone)
        return;
    Install(ItemTypeNone, Value{});
}

void NxVariant::Install(ItemType type, Value value) noexcept
{
    // The variant takes its new state before the old content is let go, so
    // that a destructor which reaches this variant finds it consistent.
    const ItemType oldType = m_type;
    const Value oldValue = m_value;
    m_type = type;
    m_value = value;
    Dispose(oldType, oldValue);
}

NxVariant::Value NxVariant::Duplicate(ItemType type, const Value& value)
{
    switch (StorageOf(type)) {
    case Storage::None:
        return Value{};
    case Storage::Inline:
        return value;
    case Storage::Owned: {
        Value copy{};
        if (value.owned != nullptr)
            copy.owned = OwnedKindOf(type)->clone(value.owned);
        return copy;
    }
    case Storage::Counted:
        if (type == ItemTypeXmlCollection) {
            if (value.collection != nullptr)
                value.collection->AddRef();
        } else if (value.object != nullptr) {
            value.object->AddRef();
        }
        return value;
    case Storage::Unknown:
        break;
    }
    throw CNxException("Unknown Type");
}

void NxVariant::Dispose(ItemType type, const Value& value) noexcept
{
    // The commonest kind first.
    if (type == ItemTypeString) {
        delete value.string;
        return;
    }
    switch (StorageOf(type)) {
    case Storage::Owned:
        if (value.owned != nullptr)
            OwnedKindOf(type)->destroy(value.owned);
        break;
    case Storage::Counted:
        if (type == ItemTypeXmlCollection) {
            if (value.collection != nullptr)
                value.collection->Release();
        } else if (value.object != nullptr) {
            value.object->Release();
        }
        break;
    default:
        break;
    }
}

template <class T>
const T* NxVariant::Owned() const
{
    if (OwnedKindOf(m_type) != &kOwned<T>)
        return nullptr;
    return static_cast<const T*>(m_value.owned);
}

// The owned kinds are read elsewhere too, for printing.
template const std::string* NxVariant::Owned<std::string>() const;
template const CBinaryData* NxVariant::Owned<CBinaryData>() const;
template const CDateTimeSpan* NxVariant::Owned<CDateTimeSpan>() const;
template const CDateTime* NxVariant::Owned<CDateTime>() const;
template const CDecimal* NxVariant::Owned<CDecimal>() const;
template const CBigInteger* NxVariant::Owned<CBigInteger>() const;

template <class T>
T NxVariant::CopyOfOwned() const
{
    const T* held = Owned<T>();
    return held != nullptr ? *held : T();
}

std::string NxVariant::GetString() const { return CopyOfOwned<std::string>(); }

const std::string& NxVariant::GetStringRef() const
{
    static const std::string empty;
    const std::string* held = Owned<std::string>();
    return held != nullptr ? *held : empty;
}
CBinaryData NxVariant::GetHexBinary() const { return CopyOfOwned<CBinaryData>(); }
CBinaryData NxVariant::GetBase64Binary() const { return CopyOfOwned<CBinaryData>(); }
CDateTimeSpan NxVariant::GetDuration() const { return CopyOfOwned<CDateTimeSpan>(); }
CDateTime NxVariant::GetYearMonth() const { return CopyOfOwned<CDateTime>(); }
CDateTime NxVariant::GetMonthDay() const { return CopyOfOwned<CDateTime>(); }
CDateTime NxVariant::GetDate() const { return CopyOfOwned<CDateTime>(); }
CDateTime NxVariant::GetDateTime() const { return CopyOfOwned<CDateTime>(); }
CDateTime NxVariant::GetTime() const { return CopyOfOwned<CDateTime>(); }
CDecimal NxVariant::GetDecimal() const { return CopyOfOwned<CDecimal>(); }
CBigInteger NxVariant::GetInteger() const { return CopyOfOwned<CBigInteger>(); }

void NxVariant::SetI1(char value) { SetInline(ItemTypeI1, &Value::i1, value); }
void NxVariant::SetI2(short value) { SetInline(ItemTypeI2, &Value::i2, value); }
void NxVariant::SetI4(long value) { SetInline(ItemTypeI4, &Value::i4, value); }
void NxVariant::SetI8(long long value) { SetInline(ItemTypeI8, &Value::i8, value); }
void NxVariant::SetUI1(unsigned char value) { SetInline(ItemTypeUI1, &Value::ui1, value); }
void NxVariant::SetUI2(unsigned short value) { SetInline(ItemTypeUI2, &Value::ui2, value); }
void NxVariant::SetUI4(unsigned long value) { SetInline(ItemTypeUI4, &Value::ui4, value); }
void NxVariant::SetUI8(unsigned long long value) { SetInline(ItemTypeUI8, &Value::ui8, value); }
void NxVariant::SetR4(float value) { SetInline(ItemTypeR4, &Value::r4, value); }
void NxVariant::SetR8(double value) { SetInline(ItemTypeR8, &Value::r8, value); }
void NxVariant::SetYear(unsigned short value) { SetInline(ItemTypeYear, &Value::year, value); }
void NxVariant::SetMonth(unsigned char value) { SetInline(ItemTypeMonth, &Value::month, value); }
void NxVariant::SetDay(unsigned char value) { SetInline(ItemTypeDay, &Value::day, value); }
void NxVariant::SetChar(char value) { SetInline(ItemTypeChar, &Value::character, value); }
void NxVariant::SetBoolean(bool value) { SetInline(ItemTypeBoolean, &Value::boolean, value); }

void NxVariant::SetString(const std::string& value)
{
    // Copied once, straight into the held string.
    Value stored{};
    stored.string = new std::string(value);
    Install(ItemTypeString, stored);
}
void NxVariant::SetHexBinary(const CBinaryData& value) { SetOwned(ItemTypeHexBinary, &Value::binary, value); }
void NxVariant::SetBase64Binary(const CBinaryData& value) { SetOwned(ItemTypeBase64Binary, &Value::binary, value); }
void NxVariant::SetDuration(const CDateTimeSpan& value) { SetOwned(ItemTypeDuration, &Value::duration, value); }
void NxVariant::SetYearMonth(const CDateTime& value) { SetOwned(ItemTypeYearMonth, &Value::dateTime, value); }
void NxVariant::SetMonthDay(const CDateTime& value) { SetOwned(ItemTypeMonthDay, &Value::dateTime, value); }
void NxVariant::SetDate(const CDateTime& value) { SetOwned(ItemTypeDate, &Value::dateTime, value); }
void NxVariant::SetDateTime(const CDateTime& value) { SetOwned(ItemTypeDateTime, &Value::dateTime, value); }
void NxVariant::SetTime(const CDateTime& value) { SetOwned(ItemTypeTime, &Value::dateTime, value); }
void NxVariant::SetDecimal(const CDecimal& value) { SetOwned(ItemTypeDecimal, &Value::decimal, value); }
void NxVariant::SetInteger(const CBigInteger& value) { SetOwned(ItemTypeInteger, &Value::integer, value); }

// The count is taken before the old content is let go, so setting the
// object that the variant already holds never destroys it.
CSmartPtr<CXmlObjectBase> NxVariant::GetXmlObject() const
{
    return CSmartPtr<CXmlObjectBase>(m_value.object);
}

CSmartPtr<CXmlCollectionBase> NxVariant::GetXmlCollection() const
{
    return CSmartPtr<CXmlCollectionBase>(m_value.collection);
}

void NxVariant::SetXmlObject(CXmlObjectBase* value)
{
    if (value != nullptr)
        value->AddRef();
    Value stored{};
    stored.object = value;
    Install(ItemTypeXmlObject, stored);
}

void NxVariant::SetXmlCollection(CXmlCollectionBase* value)
{
    if (value != nullptr)
        value->AddRef();
    Value stored{};
    stored.collection = value;
    Install(ItemTypeXmlCollection, stored);
}

} // namespace NxXmlLib9
