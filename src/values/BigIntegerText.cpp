// CBigInteger construction, the lenient text reading and the text form.
#include "NxBigInteger.h"
#include "NxDecimal.h"

#include <cstring>

namespace NxXmlLib9 {

namespace {

// What a plain integer text may hold; anything else sends the text through
// the decimal reader.
bool IsPlainIntegerChar(char c)
{
    return (c >= '0' && c <= '9') || c == '+' || c == '-' || c == ' ' || c == '\n' || c == '\r' ||
           c == '\t';
}

} // namespace

// The bounds are built from text, like any value read from a document.
const CBigInteger CBigInteger::MAX_LONG(CDecimal("2147483647"));
const CBigInteger CBigInteger::MIN_LONG(CDecimal("-2147483648"));
const CBigInteger CBigInteger::MAX_LONGLONG(CDecimal("9223372036854775807"));
const CBigInteger CBigInteger::MIN_LONGLONG(CDecimal("-9223372036854775808"));
const CBigInteger CBigInteger::MAX_DOUBLE(CDecimal("1.7E+308"));
const CBigInteger CBigInteger::MIN_DOUBLE(CDecimal("-1.7E+308"));

CBigInteger::CBigInteger() : m_sign(1) {}

CBigInteger::CBigInteger(int value) : m_sign(value < 0 ? -1 : 1)
{
    // Negating in unsigned arithmetic keeps the least int representable.
    const unsigned magnitude = value < 0 ? 0u - static_cast<unsigned>(value) : static_cast<unsigned>(value);
    Build(magnitude, m_digits);
}

CBigInteger::CBigInteger(double value) : m_sign(value < 0 ? -1 : 1)
{
    BuildDouble(value < 0 ? -value : value, m_digits);
}

CBigInteger::CBigInteger(const char* text) : m_sign(1)
{
    Parse(text);
}

CBigInteger::CBigInteger(const CDecimal& value) : CBigInteger(value.ToBigInteger()) {}

CBigInteger::~CBigInteger() = default;

void CBigInteger::Parse(const char* text)
{
    const size_t length = text == nullptr ? 0 : std::strlen(text);
    for (size_t i = 0; i < length; ++i) {
        if (!IsPlainIntegerChar(text[i])) {
            *this = CBigInteger(CDecimal(text));
            return;
        }
    }

    // Only blanks are trimmed; other white space stays and ends the digits.
    size_t begin = 0;
    size_t end = length;
    while (end > begin && text[end - 1] == ' ')
        --end;
    while (begin < end && text[begin] == ' ')
        ++begin;
    m_sign = 1;
    if (begin < end && text[begin] == '-') {
        m_sign = -1;
        ++begin;
    }
    // Only the trailing run of digits counts: "12-34" is 34 and a lone sign
    // is zero.
    m_digits.clear();
    for (size_t i = end; i > begin; --i) {
        const char c = text[i - 1];
        if (c < '0' || c > '9')
            break;
        m_digits.push_back(static_cast<char>(c - '0'));
    }
    Clean(m_digits);
}

std::string CBigInteger::ToString() const
{
    if (IsZero())
        return "0";
    std::string text;
    text.reserve(m_digits.size() + 1);
    if (m_sign == -1)
        text += '-';
    for (size_t i = m_digits.size(); i > 0; --i)
        text += static_cast<char>('0' + m_digits[i - 1]);
    return text;
}

} // namespace NxXmlLib9
