// gzip and zlib on whole buffers: one-shot compression of finished output and
// chunked inflation of input whose expanded size is unknown.
#include "NxZip.h"

#include "NxBinaryData.h"
#include "NxException.h"

#include <zlib.h>

#include <climits>
#include <memory>

namespace NxXmlLib9 {

namespace {

// gzip wrapper with a 32 KB window.
const int kGzipWindowBits = 15 + 16;
// Either wrapper, recognised by zlib from the header.
const int kDetectWindowBits = 15 + 32;
const unsigned long kInflateChunk = 0x10000;

// zlib counts its windows in 32 bits while our buffers count in unsigned
// long: a buffer is handed over in windows, the next one once zlib has used
// up the last. rest is what has not been handed over yet.
void Refill(uInt& available, unsigned long& rest)
{
    if (available != 0 || rest == 0)
        return;
    const unsigned long window = rest < UINT_MAX ? rest : UINT_MAX;
    available = static_cast<uInt>(window);
    rest -= window;
}

// Ends the deflate or inflate stream on every way out.
template <int (*End)(z_streamp)>
class CStreamEnd {
public:
    explicit CStreamEnd(z_stream& stream) : m_stream(stream) {}
    ~CStreamEnd() { End(&m_stream); }
    CStreamEnd(const CStreamEnd&) = delete;
    CStreamEnd& operator=(const CStreamEnd&) = delete;

private:
    z_stream& m_stream;
};

int InitDeflate(z_stream& stream, CompressionType type)
{
    if (type == CompressionTypeGZip)
        return deflateInit2_(&stream, 1, Z_DEFLATED, kGzipWindowBits, 8, Z_DEFAULT_STRATEGY, ZLIB_VERSION,
                             static_cast<int>(sizeof(z_stream)));
    return deflateInit_(&stream, 1, ZLIB_VERSION, static_cast<int>(sizeof(z_stream)));
}

// A gzip stream ends in its inflated size (modulo 4 GB), which lets the
// output buffer be sized once instead of growing and copying on the way. It
// is only a hint: damaged or multi-member input may claim anything, so a
// claim beyond what deflate can expand to (1032 to 1) is ignored, and the
// buffer still grows when the data runs past it.
unsigned long InflatedSizeHint(const unsigned char* data, unsigned long length)
{
    const unsigned long gzipMinimum = 18;
    if (length < gzipMinimum || data[0] != 0x1F || data[1] != 0x8B)
        return 0;
    const unsigned char* trailer = data + length - 4;
    const unsigned long size = static_cast<unsigned long>(trailer[0]) | static_cast<unsigned long>(trailer[1]) << 8 |
                               static_cast<unsigned long>(trailer[2]) << 16 |
                               static_cast<unsigned long>(trailer[3]) << 24;
    return size / 1032 <= length ? size : 0;
}

[[noreturn]] void ThrowCompressFailure(int code)
{
    throw CNxException(FormatString("Failed to compress data. [Error Code: %d]", code));
}

} // namespace

CNxZip::CNxZip() : CInstanceMonitor("CNxZip") {}
CNxZip::~CNxZip() = default;

void CNxZip::Compress(unsigned char** data, unsigned long* length, CompressionType type)
{
    if (type != CompressionTypeGZip && type != CompressionTypeZLib)
        return;
    if (!data || !length)
        return;
    // The output may not be larger than the input: there is exactly one
    // buffer and no growing, so data that does not shrink is a failure.
    std::unique_ptr<unsigned char[]> output(new unsigned char[*length > 0 ? *length : 1]);
    z_stream stream{};
    stream.next_in = *data;
    stream.next_out = output.get();
    unsigned long inputRest = *data ? *length : 0;
    unsigned long outputRest = *length;
    const int init = InitDeflate(stream, type);
    if (init != Z_OK)
        ThrowCompressFailure(init);
    int result;
    {
        CStreamEnd<deflateEnd> end(stream);
        // One call each for any buffer below 4 GB; the loops only hand a
        // larger one over window by window.
        do {
            Refill(stream.avail_in, inputRest);
            Refill(stream.avail_out, outputRest);
            result = deflate(&stream, Z_NO_FLUSH);
        } while (result == Z_OK && (stream.avail_in != 0 || inputRest != 0) &&
                 (stream.avail_out != 0 || outputRest != 0));
        do {
            Refill(stream.avail_out, outputRest);
            Refill(stream.avail_in, inputRest);
            result = deflate(&stream, Z_FINISH);
        } while (result == Z_OK && outputRest != 0);
    }
    if (result != Z_STREAM_END)
        ThrowCompressFailure(result);
    // The output keeps the input's size; only the length shrinks.
    delete[] *data;
    *data = output.release();
    *length = stream.total_out;
}

void CNxZip::CompressData(CBinaryData& data, CompressionType type)
{
    if (data.GetLength() == 0)
        return;
    unsigned long length = data.GetLength();
    // Taking the array out avoids a copy; should Compress raise, the
    // caller's data stays empty and the array is freed here.
    std::unique_ptr<unsigned char[]> bytes(data.ReleaseData());
    unsigned char* raw = bytes.get();
    Compress(&raw, &length, type);
    // Compress has either freed the array and handed over a new one, or
    // left it as it was: both ways raw is the one to keep.
    bytes.release();
    data = CBinaryData(raw, length, true);
}

void CNxZip::Decompress(unsigned char** data, unsigned long* length)
{
    if (!data || !*data || !length || *length == 0)
        return;
    std::unique_ptr<unsigned char[]> chunk(new unsigned char[kInflateChunk]);
    CBinaryData inflated;
    if (const unsigned long hint = InflatedSizeHint(*data, *length))
        inflated.Reserve(hint);
    z_stream stream{};
    stream.next_in = *data;
    unsigned long inputRest = *length;
    Refill(stream.avail_in, inputRest);
    if (inflateInit2_(&stream, kDetectWindowBits, ZLIB_VERSION, static_cast<int>(sizeof(z_stream))) != Z_OK)
        return;
    int result;
    {
        CStreamEnd<inflateEnd> end(stream);
        do {
            Refill(stream.avail_in, inputRest);
            stream.next_out = chunk.get();
            stream.avail_out = static_cast<uInt>(kInflateChunk);
            result = inflate(&stream, Z_NO_FLUSH);
            const unsigned long produced = kInflateChunk - stream.avail_out;
            if (produced != 0)
                inflated.Append(chunk.get(), produced);
        } while (result == Z_OK);
    }
    // Plain, damaged or cut input goes on as it came, for the parsers to
    // judge; only a complete stream replaces it.
    if (result != Z_STREAM_END)
        return;
    const unsigned long inflatedLength = stream.total_out;
    // The grown array is handed over as it is, without a copy. An empty
    // stream still gets an array, so the input pointer is never null.
    unsigned char* output = inflatedLength != 0 ? inflated.ReleaseData() : new unsigned char[1];
    delete[] *data;
    *data = output;
    *length = inflatedLength;
}

} // namespace NxXmlLib9
