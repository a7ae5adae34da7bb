#include "TypeMapping.h"

#include <map>

namespace nxxsd {

const char* const kXsdNamespace = "http://www.w3.org/2001/XMLSchema";

namespace {

enum { Preserve = 1, Replace = 2, Collapse = 3 };

struct Builtin {
    const char* suffix;
    const char* cppType;
    const char* collection;
    int whitespace;
    const char* minInclusive;
    const char* maxInclusive;
};

const std::map<std::string, Builtin>& Builtins()
{
    static const std::map<std::string, Builtin> builtins {
        {"anySimpleType", {"String", "std::string", "CstringCol", Preserve, nullptr, nullptr}},
        {"string", {"String", "std::string", "CstringCol", Preserve, nullptr, nullptr}},
        {"normalizedString", {"String", "std::string", "CstringCol", Replace, nullptr, nullptr}},
        {"token", {"String", "std::string", "CstringCol", Collapse, nullptr, nullptr}},
        {"language", {"String", "std::string", "CstringCol", Collapse, nullptr, nullptr}},
        {"Name", {"String", "std::string", "CstringCol", Collapse, nullptr, nullptr}},
        {"NCName", {"String", "std::string", "CstringCol", Collapse, nullptr, nullptr}},
        {"ID", {"String", "std::string", "CstringCol", Collapse, nullptr, nullptr}},
        {"IDREF", {"String", "std::string", "CstringCol", Collapse, nullptr, nullptr}},
        {"IDREFS", {"String", "std::string", "CstringCol", Collapse, nullptr, nullptr}},
        {"ENTITY", {"String", "std::string", "CstringCol", Collapse, nullptr, nullptr}},
        {"ENTITIES", {"String", "std::string", "CstringCol", Collapse, nullptr, nullptr}},
        {"NMTOKEN", {"String", "std::string", "CstringCol", Collapse, nullptr, nullptr}},
        {"NMTOKENS", {"String", "std::string", "CstringCol", Collapse, nullptr, nullptr}},
        {"anyURI", {"String", "std::string", "CstringCol", Collapse, nullptr, nullptr}},
        {"QName", {"String", "std::string", "CstringCol", Collapse, nullptr, nullptr}},
        {"NOTATION", {"String", "std::string", "CstringCol", Collapse, nullptr, nullptr}},
        {"boolean", {"Boolean", "bool", "CbooleanCol", Collapse, nullptr, nullptr}},
        {"decimal", {"Decimal", "NxXmlLib9::CDecimal", "CdecimalCol", Collapse, nullptr, nullptr}},
        {"integer", {"Integer", "NxXmlLib9::CBigInteger", "CintegerCol", Collapse, nullptr, nullptr}},
        {"nonPositiveInteger", {"Integer", "NxXmlLib9::CBigInteger", "CintegerCol", Collapse, nullptr, "0"}},
        {"negativeInteger", {"Integer", "NxXmlLib9::CBigInteger", "CintegerCol", Collapse, nullptr, "-1"}},
        {"nonNegativeInteger", {"Integer", "NxXmlLib9::CBigInteger", "CintegerCol", Collapse, "0", nullptr}},
        {"positiveInteger", {"Integer", "NxXmlLib9::CBigInteger", "CintegerCol", Collapse, "1", nullptr}},
        {"long", {"I8", "long long", "Ci8Col", Collapse, nullptr, nullptr}},
        {"int", {"I4", "long", "Ci4Col", Collapse, nullptr, nullptr}},
        {"short", {"I2", "short", "Ci2Col", Collapse, nullptr, nullptr}},
        {"byte", {"I1", "char", "Ci1Col", Collapse, nullptr, nullptr}},
        {"unsignedLong", {"UI8", "unsigned long long", "Cui8Col", Collapse, nullptr, nullptr}},
        {"unsignedInt", {"UI4", "unsigned long", "Cui4Col", Collapse, nullptr, nullptr}},
        {"unsignedShort", {"UI2", "unsigned short", "Cui2Col", Collapse, nullptr, nullptr}},
        {"unsignedByte", {"UI1", "unsigned char", "Cui1Col", Collapse, nullptr, nullptr}},
        {"float", {"R4", "float", "Cr4Col", Collapse, nullptr, nullptr}},
        {"double", {"R8", "double", "Cr8Col", Collapse, nullptr, nullptr}},
        {"duration", {"Duration", "NxXmlLib9::CDateTimeSpan", "CdurationCol", Collapse, nullptr, nullptr}},
        {"dateTime", {"DateTime", "NxXmlLib9::CDateTime", "CdatetimeCol", Collapse, nullptr, nullptr}},
        {"date", {"Date", "NxXmlLib9::CDateTime", "CdateCol", Collapse, nullptr, nullptr}},
        {"time", {"Time", "NxXmlLib9::CDateTime", "CtimeCol", Collapse, nullptr, nullptr}},
        {"gYearMonth", {"YearMonth", "NxXmlLib9::CDateTime", "CyearMonthCol", Collapse, nullptr, nullptr}},
        {"gMonthDay", {"MonthDay", "NxXmlLib9::CDateTime", "CmonthDayCol", Collapse, nullptr, nullptr}},
        {"gYear", {"Year", "unsigned short", "CyearCol", Collapse, nullptr, nullptr}},
        {"gMonth", {"Month", "unsigned char", "CmonthCol", Collapse, nullptr, nullptr}},
        {"gDay", {"Day", "unsigned char", "CdayCol", Collapse, nullptr, nullptr}},
        {"hexBinary", {"HexBinary", "NxXmlLib9::CBinaryData", "ChexBinaryCol", Collapse, nullptr, nullptr}},
        {"base64Binary", {"Base64Binary", "NxXmlLib9::CBinaryData", "Cbase64BinaryCol", Collapse, nullptr, nullptr}},
    };
    return builtins;
}

} // namespace

bool LookupBuiltin(const std::string& localName, SimpleModel& result)
{
    const auto found = Builtins().find(localName);
    if (found == Builtins().end())
        return false;
    const Builtin& builtin = found->second;
    result = SimpleModel();
    result.primitive = Primitive {builtin.suffix, builtin.cppType, builtin.collection};
    result.whitespace = builtin.whitespace;
    if (builtin.minInclusive)
        result.facets.minInclusive = builtin.minInclusive;
    if (builtin.maxInclusive)
        result.facets.maxInclusive = builtin.maxInclusive;
    return true;
}

} // namespace nxxsd
