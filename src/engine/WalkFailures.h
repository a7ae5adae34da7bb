// Failures that more than one group walk raises with the same text.
#pragma once

namespace NxXmlLib9 {

class CXmlElement;

// A level with an element of its own found children that no record took.
[[noreturn]] void ThrowElementsLeftOver(const CXmlElement* element, const CXmlElement* leftover);

} // namespace NxXmlLib9
