// Reading bound objects from any bytes: the first byte picks a test class
// (a sequence with nested, repeated, pseudo and untyped content; an all
// group; a choice of single members; a choice of collections), the rest is
// the document. What reads is written back as text and as a binary document.
#include "FuzzSupport.h"
#include "RoundTripClasses.h"

using namespace NxRoundTrip;

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    RegisterGeneratorVersion(9, 0);
    return 0;
}

namespace {

template <class T> void ReadAndWrite(const uint8_t* data, size_t size, const CXmlSerializationContext& context)
{
    CSmartPtr<T> object(new T());
    NxFuzz::Expecting([&] {
        object->FromXmlStream(const_cast<unsigned char*>(data), static_cast<unsigned long>(size), context);
        (void)object->ToXml(true, true, EOLTypeLF, context);
        (void)object->ToFastInfosetStream(FInfoDeclNone, context);
    });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 2)
        return 0;
    const uint8_t selector = data[0];
    CXmlSerializationContext context;
    // The upper bits switch on the tolerant reading options.
    if (selector & 0x10)
        context.SetIgnoreUnknownElements(true);
    if (selector & 0x20)
        context.SetIgnoreUnknownAttributes(true);
    if (selector & 0x40)
        context.SetIgnoreMissingChoice(true);
    if (selector & 0x80)
        context.SetIgnoreInvalidCollectionCounts(true);
    switch (selector & 0x03) {
    case 0: ReadAndWrite<Person>(data + 1, size - 1, context); break;
    case 1: ReadAndWrite<Profile>(data + 1, size - 1, context); break;
    case 2: ReadAndWrite<Pick>(data + 1, size - 1, context); break;
    case 3: ReadAndWrite<Bunch>(data + 1, size - 1, context); break;
    }
    return 0;
}
