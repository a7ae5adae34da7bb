// Placeholder until compression is built: nothing is compressed or inflated.
#include "NxZip.h"

#include "NxBinaryData.h"

namespace NxXmlLib9 {

CNxZip::CNxZip() : CInstanceMonitor("CNxZip") {}
CNxZip::~CNxZip() = default;

void CNxZip::Compress(unsigned char**, unsigned long*, CompressionType) {}
void CNxZip::CompressData(CBinaryData&, CompressionType) {}
void CNxZip::Decompress(unsigned char**, unsigned long*) {}

} // namespace NxXmlLib9
