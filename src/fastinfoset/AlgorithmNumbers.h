// The numbers of the encoding algorithms of the binary format's built-in
// table, as the encoded values carry them.
#pragma once

namespace NxXmlLib9 {
namespace FastInfosetAlgorithms {

enum : unsigned long {
    AlgorithmHex = 1,
    AlgorithmBase64 = 2,
    AlgorithmShort = 3,
    AlgorithmInt = 4,
    AlgorithmLong = 5,
    AlgorithmBoolean = 6,
    AlgorithmFloat = 7,
    AlgorithmDouble = 8,
    AlgorithmUuid = 9,
    AlgorithmCData = 10
};

} // namespace FastInfosetAlgorithms
} // namespace NxXmlLib9
