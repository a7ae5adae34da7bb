// CDateTimeSpan: an XSD duration. Its fields are kept apart and never folded
// into one another (90 seconds stay 90 seconds), because a month has no
// fixed length; the sign is a flag of its own and every field is unsigned.
#pragma once

#include <string>

namespace NxXmlLib9 {

class CDateTimeSpan {
public:
    CDateTimeSpan();
    CDateTimeSpan(const CDateTimeSpan& other) = default;
    CDateTimeSpan(unsigned short years, unsigned long months, unsigned long days, unsigned long hours,
                  unsigned long long minutes, unsigned long long seconds);
    CDateTimeSpan(unsigned short years, unsigned long months, unsigned long days, unsigned long hours,
                  unsigned long long minutes, unsigned long long seconds, unsigned short milli,
                  unsigned short micro, unsigned short nano);
    CDateTimeSpan(unsigned long hours, unsigned long long minutes, unsigned long long seconds);
    virtual ~CDateTimeSpan();

    CDateTimeSpan& operator=(const CDateTimeSpan& other) = default;

    // Each form clears the span first, so a negative span becomes positive.
    void SetDateTimeSpan(unsigned short years, unsigned long months, unsigned long days, unsigned long hours,
                         unsigned long long minutes, unsigned long long seconds);
    void SetDateTimeSpan(unsigned short years, unsigned long months, unsigned long days, unsigned long hours,
                         unsigned long long minutes, unsigned long long seconds, unsigned short milli,
                         unsigned short micro, unsigned short nano);
    void SetDateTimeSpan(unsigned long hours, unsigned long long minutes, unsigned long long seconds);
    void Clear();

    // Plain field access, with no range checks.
    unsigned short GetYears() const { return m_years; }
    unsigned long GetMonths() const { return m_months; }
    unsigned long GetDays() const { return m_days; }
    unsigned long GetHours() const { return m_hours; }
    unsigned long long GetMinutes() const { return m_minutes; }
    unsigned long long GetSeconds() const { return m_seconds; }
    unsigned short GetMilliSeconds() const { return m_milli; }
    unsigned short GetMicroSeconds() const { return m_micro; }
    unsigned short GetNanoSeconds() const { return m_nano; }
    void SetYears(unsigned short value) { m_years = value; }
    void SetMonths(unsigned long value) { m_months = value; }
    void SetDays(unsigned long value) { m_days = value; }
    void SetHours(unsigned long value) { m_hours = value; }
    void SetMinutes(unsigned long long value) { m_minutes = value; }
    void SetSeconds(unsigned long long value) { m_seconds = value; }
    void SetMilliSeconds(unsigned short value) { m_milli = value; }
    void SetMicroSeconds(unsigned short value) { m_micro = value; }
    void SetNanoSeconds(unsigned short value) { m_nano = value; }

    bool IsNegative() const { return m_negative; }
    // Flips the sign.
    void Negate() { m_negative = !m_negative; }
    // A copy that is negative whatever this span's sign: it does not flip.
    CDateTimeSpan GetAsNegative() const;

    // 0 equal, 1 this is shorter, 2 this is longer, 3 indeterminate. Both
    // spans are added to four reference dates; the answer holds only when
    // all four agree.
    int CompareTo(const CDateTimeSpan& other) const;
    bool operator==(const CDateTimeSpan& other) const { return CompareTo(other) == 0; }
    bool operator!=(const CDateTimeSpan& other) const { return CompareTo(other) != 0; }
    bool operator<(const CDateTimeSpan& other) const { return CompareTo(other) == 1; }
    bool operator>(const CDateTimeSpan& other) const { return CompareTo(other) == 2; }

    // "[-]P[nY][nM][nD][T[nH][nM][n[.fff]S]]"; a span of all zeros prints "P".
    std::string ToString() const;
    // Clears the span, then reads the lexical form. A failure throws
    // CNxInvalidValueException and leaves what had been read so far.
    void ParseXSDDuration(const char* text);

private:
    unsigned short m_years;
    unsigned long m_months;
    unsigned long m_days;
    unsigned long m_hours;
    unsigned long long m_minutes;
    unsigned long long m_seconds;
    unsigned short m_milli;
    unsigned short m_micro;
    unsigned short m_nano;
    bool m_negative;
};

} // namespace NxXmlLib9
