// Whole-buffer gzip and zlib compression of finished output, and the
// inflation of compressed input before it is parsed.
#pragma once

#include "NxFoundation.h"
#include "NxOutputOptions.h"

namespace NxXmlLib9 {

class CBinaryData;

// Buffers handed to these operations are allocated with new[] and pass with
// ownership: on success the old buffer is deleted and the pointer replaced.
class CNxZip : public CInstanceMonitor {
public:
    CNxZip();
    virtual ~CNxZip();

    // Compresses into one output buffer of the input's size, so input that
    // does not shrink raises; the input then stays as it was.
    static void Compress(unsigned char** data, unsigned long* length, CompressionType type);
    // Compresses the bytes in place; empty data is left alone.
    static void CompressData(CBinaryData& data, CompressionType type);
    // Inflates gzip or zlib input, detected from its header; plain or
    // damaged input is left as it is. Never raises for bad input.
    static void Decompress(unsigned char** data, unsigned long* length);
};

} // namespace NxXmlLib9
