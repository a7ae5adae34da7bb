// CDateTime: one class for the eight XSD date and time kinds. A value knows
// its kind, refuses the fields its kind lacks, reads and prints the lexical
// forms, orders itself with the partial order of XSD (which may answer that
// neither side comes first) and adds durations.
#pragma once

#include <ctime>
#include <string>

#include "NxDateTimeSpan.h"

namespace NxXmlLib9 {

inline constexpr short MIN_YEAR = -9999;
inline constexpr short MAX_YEAR = 9999;

// Days in each month, February at its leap-year length.
inline constexpr unsigned char g_monthMax[12] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
// Days before each month in a common year.
inline constexpr unsigned short g_monthDayInYear[12] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};

class CDateTime {
public:
    // The numbers are the contract; GetTypeAsString gives the XSD name.
    enum DTType : int {
        dt_yearZero = 0, // not set
        dt_dateTime = 1,
        dt_date = 2,
        dt_gYearMonth = 3,
        dt_gYear = 4,
        dt_time = 5,
        dt_gDay = 6,
        dt_gMonth = 7,
        dt_gMonthDay = 8
    };

    CDateTime();
    explicit CDateTime(DTType type);
    // These validate; a failure leaves through the constructor.
    CDateTime(short year, unsigned char month, unsigned char day);
    CDateTime(short year, unsigned char month, unsigned char day, unsigned char hour, unsigned char minute,
              unsigned char second);
    CDateTime(short year, unsigned char month, unsigned char day, unsigned char hour, unsigned char minute,
              unsigned char second, unsigned short milli, unsigned short micro, unsigned short nano);
    // Reads a dateTime ("CCYY-MM-DDThh:mm:ss[.ff][zone]").
    CDateTime(const char* text);
    // The instant as a dateTime in UTC fields, with no zone and no fraction.
    explicit CDateTime(const long& time);
    CDateTime(const CDateTime& other) = default;
    virtual ~CDateTime();

    CDateTime& operator=(const CDateTime& other) = default;
    // Replaces the value, whatever kind it had, by the instant as a dateTime.
    CDateTime& operator=(const long& time);

    static CDateTime GetCurrentTime();

    // Whole-value setters. Once a value has a kind it keeps it: asking for
    // another kind throws CNxInvalidStateException. Each clears the value
    // (zone included), stores the fields and validates.
    void SetDate(short year, unsigned char month, unsigned char day);
    void SetTime(unsigned char hour, unsigned char minute, unsigned char second);
    void SetTime(unsigned char hour, unsigned char minute, unsigned char second, unsigned short milli,
                 unsigned short micro, unsigned short nano);
    // Replaces the fraction of a second and keeps the kind and other fields.
    void SetFracTime(unsigned short milli, unsigned short micro, unsigned short nano);
    void SetGDay(unsigned char day);
    void SetGMonthDay(unsigned char month, unsigned char day);
    void SetGMonth(unsigned char month);
    void SetGYearMonth(short year, unsigned char month);
    void SetGYear(short year);
    void SetDateTime(short year, unsigned char month, unsigned char day, unsigned char hour, unsigned char minute,
                     unsigned char second);
    void SetDateTime(short year, unsigned char month, unsigned char day, unsigned char hour, unsigned char minute,
                     unsigned char second, unsigned short milli, unsigned short micro, unsigned short nano);
    void SetDateTime(DTType type, short year, unsigned char month, unsigned char day, unsigned char hour,
                     unsigned char minute, unsigned char second, unsigned short milli, unsigned short micro,
                     unsigned short nano);
    // Copies every field of source and takes the given kind, if source holds
    // enough to make one (see CheckConversion).
    void SetDateTime(const CDateTime& source, DTType type);
    bool CheckConversion(DTType from, DTType to) const;

    // Back to the unset value: kind 0, every field and the zone cleared.
    void Clear();

    // Field access. A field the kind lacks throws CNxInvalidStateException;
    // the setters store without a range check.
    short GetYear() const;
    unsigned char GetMonth() const;
    unsigned char GetDay() const;
    unsigned char GetHour() const;
    unsigned char GetMinute() const;
    unsigned char GetSecond() const;
    unsigned short GetMilliSecond() const;
    unsigned short GetMicroSecond() const;
    unsigned short GetNanoSecond() const;
    double GetRealSecond() const;
    void SetYear(short value);
    void SetMonth(unsigned char value);
    void SetDay(unsigned char value);
    void SetHour(unsigned char value);
    void SetMinute(unsigned char value);
    void SetSecond(unsigned char value);
    void SetMilliSecond(unsigned short value);
    void SetMicroSecond(unsigned short value);
    void SetNanoSecond(unsigned short value);

    // In a leap year January and February count one day more and the
    // months after them none.
    int GetDayOfYear() const;
    // 1 is Sunday, taken from the local calendar at GetTime().
    int GetDayOfWeek() const;
    // The instant of a dateTime or date, reading the fields as UTC after
    // applying any offset.
    time_t GetTime() const;

    // Zone: "Z" sets IsUTC alone; an offset sets both IsUTC and HasTimeZone.
    bool IsUTC() const { return m_zonePresent; }
    bool HasTimeZone() const { return m_offsetPresent; }
    short GetZoneHour() const;
    unsigned char GetZoneMinute() const;
    void SetUTC();
    void SetTimeZone(short hour, unsigned char minute);

    DTType GetType() const { return m_type; }
    std::string GetTypeAsString() const;
    static std::string GetTypeAsString(DTType type);

    // "s" is the XSD form, null or "G" the empty text; an unknown format
    // gives "Unknown Format: " and the format.
    std::string ToString() const;
    std::string ToString(const char* format) const;
    // Throws CNxInvalidValueException for the first field out of range.
    void Validate() const;
    // A copy moved to offset +00:00 when it carries an offset.
    CDateTime GetNormalized() const;

    // 0 equal, 1 before, 2 after, 3 indeterminate; zones are taken into
    // account as XSD lays down, with a 14 hour window for a value without.
    int CompareTo(const CDateTime& other) const;
    bool operator==(const CDateTime& other) const { return CompareTo(other) == 0; }
    bool operator!=(const CDateTime& other) const { return CompareTo(other) != 0; }
    bool operator<(const CDateTime& other) const { return CompareTo(other) == 1; }
    bool operator<=(const CDateTime& other) const;
    bool operator>(const CDateTime& other) const { return CompareTo(other) == 2; }
    bool operator>=(const CDateTime& other) const;

    // Adds the span field by field, carrying upwards. The day of the month
    // is not pinned to the new month's length and the result is not
    // validated.
    void AddDateTimeSpan(const CDateTimeSpan& span);
    CDateTime& operator+=(const CDateTimeSpan& span);
    // Subtracts: adds the span made negative, whatever its sign was.
    CDateTime& operator-=(const CDateTimeSpan& span);
    CDateTime operator+(const CDateTimeSpan& span) const;
    CDateTime operator-(const CDateTimeSpan& span) const;
    // The difference of two values is not computed: always a zero span.
    CDateTimeSpan operator-(const CDateTime& other) const;

    // Readers of the lexical forms; each clears the value first and takes
    // the kind from the form of the text, then validates.
    void ParseXSDDate(const char* text);
    void ParseXSDTime(const char* text);
    void ParseXSDDateTime(const char* text);
    // The steps of the readers, without clearing or validating. Fields are
    // stored as they are read, so a failure leaves them behind.
    void SetXSDDate(const char* text);
    void SetXSDTime(const char* text);
    // "Z", or "+hh:mm"/"-hh:mm"; text starting with anything else is ignored.
    void SetZone(const char* text);

private:
    void RequireField(unsigned fields, const char* operation) const;
    bool IsUnset() const;

    DTType m_type;
    unsigned char m_reserved;
    short m_year;
    unsigned char m_month;
    unsigned char m_day;
    unsigned char m_hour;
    unsigned char m_minute;
    unsigned char m_second;
    unsigned short m_milli;
    unsigned short m_micro;
    unsigned short m_nano;
    bool m_zonePresent;
    bool m_offsetPresent;
    short m_zoneHour;
    unsigned char m_zoneMinute;
};

// Gregorian rule on the year as it stands, negative years included.
bool IsLeapYear(int year);
// floor(a / b) worked out in single precision, as date arithmetic requires:
// large operands lose precision. A result beyond int saturates.
int GetQuotient(long long a, int b);
// a - b * GetQuotient(a, b), the product taken in 32 bits.
int GetModulo(long long a, int b);
// The field-by-field partial order without zones: 0 equal, 1 a before b,
// 2 a after b, 3 indeterminate.
int Compare(const CDateTime& a, const CDateTime& b);

} // namespace NxXmlLib9
