// Bytes that know the built-in encoding algorithms of the binary format:
// value text to the algorithm's octets for the writer, and back for the
// reader.
#pragma once

#include <string>

#include "NxBinaryData.h"

namespace NxXmlLib9 {

class CFastInfosetBinaryData : public CBinaryData {
public:
    CFastInfosetBinaryData();
    CFastInfosetBinaryData(const CBinaryData& data);
    CFastInfosetBinaryData(unsigned char* data, unsigned long length, bool adopt = false);
    CFastInfosetBinaryData(const char* text);
    virtual ~CFastInfosetBinaryData();

    // Algorithms: 1 hexadecimal, 2 base64, 3 short, 4 int, 5 long,
    // 6 boolean, 7 float, 8 double, 9 uuid, 10 cdata.
    void SetAsEncodedString(unsigned long algorithm, const char* text);
    std::string GetAsString(unsigned long algorithm) const;

    // Writes the octets of a fixed-size algorithm (3 short to 8 double) to
    // octets, which has room for 8, and returns their count; 0 for any other
    // algorithm. Raises what the text conversion raises.
    static unsigned long EncodeFixedSize(unsigned long algorithm, const std::string& text, unsigned char* octets);
};

} // namespace NxXmlLib9
