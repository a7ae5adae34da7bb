// NxVariant to and from text: the names of the kinds and the dispatch to
// the conversions of each kind.
#include "NxVariant.h"

namespace NxXmlLib9 {

namespace {

using C = CConversions;

// Indexed by ItemType; kinds without a name have none.
const char* const kTypeNames[] = {
    nullptr,      "hexBinary", "base64Binary", "i1",     "i2",       "i4",      "i8",
    "ui1",        "ui2",       "ui4",          "ui8",    "r4",       "r8",      "duration",
    "yearMonth",  "monthDay",  "year",         "month",  "day",      "date",    "datetime",
    "time",       "char",      "string",       "boolean", "decimal", "integer", nullptr,
    nullptr,
};
static_assert(sizeof(kTypeNames) / sizeof(kTypeNames[0]) == ItemTypeXmlCollection + 1,
              "one name slot per item type");

const char* TypeName(ItemType type)
{
    const int index = static_cast<int>(type);
    if (index < 0 || index > ItemTypeXmlCollection)
        return nullptr;
    return kTypeNames[index];
}

[[noreturn]] void ThrowNotConvertible(ItemType type)
{
    throw CNxException(FormatString("Invalid Type %d to convert to string", static_cast<int>(type)));
}

} // namespace

template <class T>
const T& NxVariant::Held() const
{
    // An owned kind always points to its object; the empty value only
    // stands in should that ever not hold.
    static const T empty;
    const T* held = Owned<T>();
    return held != nullptr ? *held : empty;
}

std::string NxVariant::GetType() const
{
    const char* name = TypeName(m_type);
    if (name == nullptr)
        throw CNxException(FormatString("Invalid Type %d", static_cast<int>(m_type)));
    return name;
}

std::string NxVariant::ToString(const char* format) const
{
    switch (m_type) {
    case ItemTypeI1: return C::i1ToString(m_value.i1);
    case ItemTypeI2: return C::i2ToString(m_value.i2);
    case ItemTypeI4: return C::i4ToString(m_value.i4);
    case ItemTypeI8: return C::i8ToString(m_value.i8);
    case ItemTypeUI1: return C::ui1ToString(m_value.ui1);
    case ItemTypeUI2: return C::ui2ToString(m_value.ui2);
    case ItemTypeUI4: return C::ui4ToString(m_value.ui4);
    case ItemTypeUI8: return C::ui8ToString(m_value.ui8);
    case ItemTypeR4: return C::r4ToString(m_value.r4, format);
    case ItemTypeR8: return C::r8ToString(m_value.r8, format);
    case ItemTypeYear: return C::yearToString(m_value.year);
    case ItemTypeMonth: return C::monthToString(m_value.month);
    case ItemTypeDay: return C::dayToString(m_value.day);
    case ItemTypeChar: return C::charToString(m_value.character);
    case ItemTypeString: return Held<std::string>();
    case ItemTypeBoolean: return C::booleanToString(m_value.boolean);
    case ItemTypeHexBinary: return C::hexBinaryToString(Held<CBinaryData>());
    case ItemTypeBase64Binary: return C::base64BinaryToString(Held<CBinaryData>());
    case ItemTypeDuration: return C::durationToString(Held<CDateTimeSpan>());
    case ItemTypeYearMonth: return C::yearMonthToString(Held<CDateTime>());
    case ItemTypeMonthDay: return C::monthDayToString(Held<CDateTime>());
    case ItemTypeDate: return C::dateToString(Held<CDateTime>());
    case ItemTypeDateTime: return C::datetimeToString(Held<CDateTime>());
    case ItemTypeTime: return C::timeToString(Held<CDateTime>());
    case ItemTypeDecimal: return C::decimalToString(Held<CDecimal>(), format);
    case ItemTypeInteger: return C::integerToString(Held<CBigInteger>());
    default:
        ThrowNotConvertible(m_type);
    }
}

// The conversion runs before the setter, so a failed parse leaves the
// present value alone. An unusable kind reports the variant's present type,
// not the requested one.
void NxVariant::FromString(const std::string& text, ItemType type, CWhitespaceUtils::WhitespaceRule rule)
{
    switch (type) {
    case ItemTypeI1: SetI1(C::i1FromString(text, rule)); return;
    case ItemTypeI2: SetI2(C::i2FromString(text, rule)); return;
    case ItemTypeI4: SetI4(C::i4FromString(text, rule)); return;
    case ItemTypeI8: SetI8(C::i8FromString(text, rule)); return;
    case ItemTypeUI1: SetUI1(C::ui1FromString(text, rule)); return;
    case ItemTypeUI2: SetUI2(C::ui2FromString(text, rule)); return;
    case ItemTypeUI4: SetUI4(C::ui4FromString(text, rule)); return;
    case ItemTypeUI8: SetUI8(C::ui8FromString(text, rule)); return;
    case ItemTypeR4: SetR4(C::r4FromString(text, rule)); return;
    case ItemTypeR8: SetR8(C::r8FromString(text, rule)); return;
    case ItemTypeChar: SetChar(C::charFromString(text, rule)); return;
    case ItemTypeString: SetOwned(type, &Value::string, C::stringFromString(text, rule)); return;
    case ItemTypeBoolean: SetBoolean(C::booleanFromString(text, rule)); return;
    case ItemTypeYear: SetYear(C::yearFromString(text, rule)); return;
    case ItemTypeMonth: SetMonth(C::monthFromString(text, rule)); return;
    case ItemTypeDay: SetDay(C::dayFromString(text, rule)); return;
    // The parsed objects move straight into the variant's own.
    case ItemTypeHexBinary: SetOwned(type, &Value::binary, C::hexBinaryFromString(text, rule)); return;
    case ItemTypeBase64Binary: SetOwned(type, &Value::binary, C::base64BinaryFromString(text, rule)); return;
    case ItemTypeDuration: SetOwned(type, &Value::duration, C::durationFromString(text, rule)); return;
    case ItemTypeYearMonth: SetOwned(type, &Value::dateTime, C::yearMonthFromString(text, rule)); return;
    case ItemTypeMonthDay: SetOwned(type, &Value::dateTime, C::monthDayFromString(text, rule)); return;
    case ItemTypeDate: SetOwned(type, &Value::dateTime, C::dateFromString(text, rule)); return;
    case ItemTypeDateTime: SetOwned(type, &Value::dateTime, C::datetimeFromString(text, rule)); return;
    case ItemTypeTime: SetOwned(type, &Value::dateTime, C::timeFromString(text, rule)); return;
    case ItemTypeDecimal: SetOwned(type, &Value::decimal, C::decimalFromString(text, rule)); return;
    case ItemTypeInteger: SetOwned(type, &Value::integer, C::integerFromString(text, rule)); return;
    default:
        ThrowNotConvertible(m_type);
    }
}

} // namespace NxXmlLib9
