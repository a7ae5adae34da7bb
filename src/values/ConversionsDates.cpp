// Durations, the date and time kinds, and year, month and day read from a
// date form. Every reader applies the whitespace rule and hands the text to
// the parser of the value class, whose failures pass through unchanged.
#include "NxConversions.h"

#include "values/ParseAfterRule.h"

namespace NxXmlLib9 {

namespace {

// A date reader starts from a value of the kind it is named after, but the
// parser clears the value and takes the kind from the form of the text: any
// date form is accepted and keeps its own kind.
CDateTime ReadDate(CDateTime::DTType kind, const std::string& input, CWhitespaceUtils::WhitespaceRule rule)
{
    return ParseAfterRule(CDateTime(kind), &CDateTime::ParseXSDDate, input, rule);
}

} // namespace

std::string CConversions::durationToString(const CDateTimeSpan& value)
{
    return value.ToString();
}

CDateTimeSpan CConversions::durationFromString(const std::string& input, WhitespaceRule rule)
{
    return ParseAfterRule(CDateTimeSpan(), &CDateTimeSpan::ParseXSDDuration, input, rule);
}

std::string CConversions::yearMonthToString(const CDateTime& value)
{
    return value.ToString();
}

std::string CConversions::monthDayToString(const CDateTime& value)
{
    return value.ToString();
}

std::string CConversions::dateToString(const CDateTime& value)
{
    return value.ToString();
}

std::string CConversions::datetimeToString(const CDateTime& value)
{
    return value.ToString();
}

std::string CConversions::timeToString(const CDateTime& value)
{
    return value.ToString();
}

CDateTime CConversions::yearMonthFromString(const std::string& text, WhitespaceRule rule)
{
    return ReadDate(CDateTime::dt_gYearMonth, text, rule);
}

CDateTime CConversions::monthDayFromString(const std::string& text, WhitespaceRule rule)
{
    return ReadDate(CDateTime::dt_gMonthDay, text, rule);
}

CDateTime CConversions::dateFromString(const std::string& text, WhitespaceRule rule)
{
    return ReadDate(CDateTime::dt_date, text, rule);
}

CDateTime CConversions::datetimeFromString(const std::string& input, WhitespaceRule rule)
{
    return ParseAfterRule(CDateTime(CDateTime::dt_dateTime), &CDateTime::ParseXSDDateTime, input, rule);
}

CDateTime CConversions::timeFromString(const std::string& input, WhitespaceRule rule)
{
    return ParseAfterRule(CDateTime(CDateTime::dt_time), &CDateTime::ParseXSDTime, input, rule);
}

// Year, month and day are held as bare numbers but read as full date forms:
// "2000-05" gives the year 2000, while "--05" has no year and fails in
// GetYear.

unsigned short CConversions::yearFromString(const std::string& text, WhitespaceRule rule)
{
    return static_cast<unsigned short>(ReadDate(CDateTime::dt_gYear, text, rule).GetYear());
}

unsigned char CConversions::monthFromString(const std::string& text, WhitespaceRule rule)
{
    return ReadDate(CDateTime::dt_gMonth, text, rule).GetMonth();
}

unsigned char CConversions::dayFromString(const std::string& text, WhitespaceRule rule)
{
    return ReadDate(CDateTime::dt_gDay, text, rule).GetDay();
}

} // namespace NxXmlLib9
