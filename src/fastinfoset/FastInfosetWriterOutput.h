// How the binary writer's operations share one output buffer.
#pragma once

#include "NxFastInfosetWriter.h"

namespace NxXmlLib9 {

// Runs an operation with its octets gathered locally. The outermost
// operation hands them to the stream once they fill a piece, and always when
// it fails, so that a failure leaves exactly the octets written before it.
template <class Body>
void CFastInfosetWriter::Emit(Body&& body)
{
    ++m_nesting;
    try {
        body();
    } catch (...) {
        if (--m_nesting == 0)
            FlushOutput();
        throw;
    }
    if (--m_nesting == 0 && m_output.size() >= FLUSH_SIZE)
        FlushOutput();
}

} // namespace NxXmlLib9
