// The functions of generated code that the child element records call: the
// factories that make child objects and the conversions of enumerations.
#pragma once

#include "NxMetadata.h"
#include "NxSmartPtr.h"

namespace NxXmlLib9 {
class CXmlObjectBase;
class CXmlElement;
} // namespace NxXmlLib9

namespace NxXmlLib9Data {

// Makes an object of a known class; the element name is the one the new
// object is to bear.
using ClassFactoryFunction
    = NxXmlLib9::CSmartPtr<NxXmlLib9::CXmlObjectBase> (*)(int classNumber, const char* elementName);
// Makes an object for a substitutable element, by the element's xsi:type;
// null when the element names no class the factory knows.
using ElementFactoryFunction = NxXmlLib9::CSmartPtr<NxXmlLib9::CXmlObjectBase> (*)(NxXmlLib9::CXmlElement* element);
// An enumeration's number as text, and back; the latter throws on an
// unknown text.
using EnumToTextFunction = const char* (*)(int value);
using EnumFromTextFunction = int (*)(const char* text);

} // namespace NxXmlLib9Data
