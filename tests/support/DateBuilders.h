// Values parsed from their XSD text, for the date and duration tests.
#pragma once

#include "NxXmlLib9.h"

inline NxXmlLib9::CDateTime Date(const char* text)
{
    NxXmlLib9::CDateTime value;
    value.ParseXSDDate(text);
    return value;
}

inline NxXmlLib9::CDateTime Time(const char* text)
{
    NxXmlLib9::CDateTime value;
    value.ParseXSDTime(text);
    return value;
}

inline NxXmlLib9::CDateTimeSpan Span(const char* text)
{
    NxXmlLib9::CDateTimeSpan span;
    span.ParseXSDDuration(text);
    return span;
}
