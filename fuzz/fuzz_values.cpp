// The value parsers on any text: the first byte picks the kind, the second
// the whitespace rule, the rest is the text. What parses is printed again.
// hexBinary is left out on purpose: a bad hex character ends the process by
// design, through the %c of its message.
#include "FuzzSupport.h"

using namespace NxXmlLib9;
using C = CConversions;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 2)
        return 0;
    const auto rule = static_cast<CWhitespaceUtils::WhitespaceRule>(data[1] % 4);
    const std::string text = NxFuzz::Text(data + 2, size - 2);
    NxFuzz::Expecting([&] {
        switch (data[0] % 23) {
        case 0: (void)C::i1ToString(C::i1FromString(text, rule)); break;
        case 1: (void)C::i2ToString(C::i2FromString(text, rule)); break;
        case 2: (void)C::i4ToString(C::i4FromString(text, rule)); break;
        case 3: (void)C::i8ToString(C::i8FromString(text, rule)); break;
        case 4: (void)C::ui1ToString(C::ui1FromString(text, rule)); break;
        case 5: (void)C::ui2ToString(C::ui2FromString(text, rule)); break;
        case 6: (void)C::ui4ToString(C::ui4FromString(text, rule)); break;
        case 7: (void)C::ui8ToString(C::ui8FromString(text, rule)); break;
        case 8: (void)C::r4ToString(C::r4FromString(text, rule), nullptr); break;
        case 9: (void)C::r8ToString(C::r8FromString(text, rule), nullptr); break;
        case 10: (void)C::booleanToString(C::booleanFromString(text, rule)); break;
        case 11: (void)C::base64BinaryToString(C::base64BinaryFromString(text, rule)); break;
        case 12: (void)C::durationToString(C::durationFromString(text, rule)); break;
        case 13: (void)C::yearMonthToString(C::yearMonthFromString(text, rule)); break;
        case 14: (void)C::monthDayToString(C::monthDayFromString(text, rule)); break;
        case 15: (void)C::dateToString(C::dateFromString(text, rule)); break;
        case 16: (void)C::datetimeToString(C::datetimeFromString(text, rule)); break;
        case 17: (void)C::timeToString(C::timeFromString(text, rule)); break;
        case 18: (void)C::yearToString(C::yearFromString(text, rule)); break;
        case 19: (void)C::monthToString(C::monthFromString(text, rule)); break;
        case 20: (void)C::dayToString(C::dayFromString(text, rule)); break;
        case 21: (void)C::decimalToString(C::decimalFromString(text, rule), nullptr); break;
        case 22: {
            const CBigInteger value = C::integerFromString(text, rule);
            (void)C::integerToString(value * value + value);
            break;
        }
        }
    });
    return 0;
}
