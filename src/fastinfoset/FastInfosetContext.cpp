// Encoding choices and table limits of binary XML output.
#include "NxFastInfosetContext.h"

#include "NxFoundation.h"
#include "fastinfoset/AlgorithmNumbers.h"

namespace NxXmlLib9 {

CFastInfosetContext::CFastInfosetContext()
    : m_defaultStringEncoding(0),
      m_encodings(),
      m_attributeMaxAddLength(6),
      m_elementMaxAddLength(6),
      m_useGeneratedVocabulary(false)
{
}

namespace {

struct SuggestedEncoding {
    ItemType item;
    CFastInfosetContext::EncodingKind kind;
    unsigned long index;
};

using namespace FastInfosetAlgorithms;

// Alphabet numbers of the built-in restricted alphabets.
enum : unsigned long { AlphabetNumeric = 1, AlphabetDateTime = 2 };

constexpr CFastInfosetContext::EncodingKind Algorithm = CFastInfosetContext::EncodingAlgorithm;
constexpr CFastInfosetContext::EncodingKind Alphabet = CFastInfosetContext::EncodingRestrictedAlphabet;

// Chosen by hand for size, so kept as data. ui2 and ui4 widen to the next
// signed algorithm; ui8 has no wider one and goes to long, so a value above
// the signed range fails in its conversion.
constexpr SuggestedEncoding SUGGESTED_ENCODINGS[] = {
    {ItemTypeHexBinary, Algorithm, AlgorithmHex},
    {ItemTypeBase64Binary, Algorithm, AlgorithmBase64},
    {ItemTypeI1, Algorithm, AlgorithmShort},
    {ItemTypeI2, Algorithm, AlgorithmShort},
    {ItemTypeI4, Algorithm, AlgorithmInt},
    {ItemTypeI8, Algorithm, AlgorithmLong},
    {ItemTypeUI1, Algorithm, AlgorithmShort},
    {ItemTypeUI2, Algorithm, AlgorithmInt},
    {ItemTypeUI4, Algorithm, AlgorithmLong},
    {ItemTypeUI8, Algorithm, AlgorithmLong},
    {ItemTypeR4, Algorithm, AlgorithmFloat},
    {ItemTypeR8, Algorithm, AlgorithmDouble},
    {ItemTypeDuration, Alphabet, AlphabetDateTime},
    {ItemTypeYearMonth, Alphabet, AlphabetDateTime},
    {ItemTypeMonthDay, Alphabet, AlphabetDateTime},
    {ItemTypeYear, Alphabet, AlphabetDateTime},
    {ItemTypeMonth, Alphabet, AlphabetDateTime},
    {ItemTypeDay, Alphabet, AlphabetDateTime},
    {ItemTypeDate, Alphabet, AlphabetDateTime},
    {ItemTypeDateTime, Alphabet, AlphabetDateTime},
    {ItemTypeTime, Alphabet, AlphabetDateTime},
    {ItemTypeBoolean, Algorithm, AlgorithmBoolean},
    {ItemTypeDecimal, Alphabet, AlphabetNumeric},
    {ItemTypeInteger, Alphabet, AlphabetNumeric},
};

} // namespace

void CFastInfosetContext::SetSuggestedValues()
{
    for (const SuggestedEncoding& suggested : SUGGESTED_ENCODINGS)
        m_encodings[suggested.item] = EncodedCharacterString{suggested.kind, suggested.index};
}

CFastInfosetContext::EncodedCharacterString CFastInfosetContext::GetEncoding(unsigned long itemType) const
{
    if (itemType >= ENCODING_COUNT)
        return EncodedCharacterString();
    return m_encodings[itemType];
}

void CFastInfosetContext::SetEncoding(unsigned long itemType, EncodedCharacterString encoding)
{
    if (itemType < ENCODING_COUNT)
        m_encodings[itemType] = encoding;
}

} // namespace NxXmlLib9
