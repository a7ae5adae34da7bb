// Test helpers of the binary writer: runs calls on a fresh writer and shows
// the stream as spaced hexadecimal.
#pragma once

#include <functional>
#include <string>

#include "NxXmlLib9.h"

namespace fi_writer_test {

inline std::string SpacedHex(const NxXmlLib9::CBinaryData& data)
{
    static const char digits[] = "0123456789ABCDEF";
    std::string hex;
    for (unsigned long i = 0; i < data.GetLength(); ++i) {
        if (i != 0)
            hex += ' ';
        hex += digits[data.GetData()[i] >> 4];
        hex += digits[data.GetData()[i] & 0x0F];
    }
    return hex;
}

inline std::string SpacedHex(const std::string& text)
{
    return SpacedHex(NxXmlLib9::CBinaryData(reinterpret_cast<unsigned char*>(const_cast<char*>(text.data())),
                                            static_cast<unsigned long>(text.size())));
}

// The stream after body ran on a writer made from context, once the writer
// is gone. A failure in body propagates; the stream is then lost with it.
inline std::string Written(const NxXmlLib9::CFastInfosetContext& context,
                           const std::function<void(NxXmlLib9::CFastInfosetWriter&)>& body)
{
    NxXmlLib9::CBinaryStream stream;
    {
        NxXmlLib9::CFastInfosetWriter writer(context, stream);
        body(writer);
    }
    return SpacedHex(stream.GetBinaryStream());
}

inline std::string Written(const std::function<void(NxXmlLib9::CFastInfosetWriter&)>& body)
{
    return Written(NxXmlLib9::CFastInfosetContext(), body);
}

// The stream after body failed with exactly message; empty when body did
// not fail as expected (the test then fails too).
inline std::string WrittenBeforeFailure(const NxXmlLib9::CFastInfosetContext& context, const std::string& message,
                                        const std::function<void(NxXmlLib9::CFastInfosetWriter&)>& body)
{
    NxXmlLib9::CBinaryStream stream;
    NxXmlLib9::CFastInfosetWriter writer(context, stream);
    try {
        body(writer);
        ADD_FAILURE() << "expected \"" << message << "\"";
        return "";
    } catch (const NxXmlLib9::CNxException& e) {
        EXPECT_EQ(message, e.GetMessage());
    }
    return SpacedHex(stream.GetBinaryStream());
}

} // namespace fi_writer_test
