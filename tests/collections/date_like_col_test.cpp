// The date-like collections: the kind check ahead of everything, facets
// before the add event, and the dateTime item type on writing.
#include "TypedCollectionSupport.h"

#include "DateBuilders.h"
#include "ExpectFailure.h"

#include <functional>

using namespace NxTest;

namespace {

// Records add events with the date's text.
struct DateLog : IEventSink {
    std::vector<std::string> events;
    void OnEvent(CXmlObjectBase*, MsgType type, void* data) override
    {
        std::string text = std::to_string(type);
        if (type == MsgType_CollectionAdd || type == MsgType_CollectionAddComplete)
            text += " " + static_cast<CDateTime*>(data)->ToString("s");
        if ((type == MsgType_CollectionRemove || type == MsgType_CollectionRemoveComplete) && data)
            text += " " + std::to_string(*static_cast<int*>(data));
        events.push_back(text);
    }
    CXmlObjectBase* GetBase() override { return nullptr; }
};

CDateTime MonthDay(unsigned char month, unsigned char day)
{
    CDateTime value;
    value.SetGMonthDay(month, day);
    return value;
}

CDateTime YearMonth(short year, unsigned char month)
{
    CDateTime value;
    value.SetGYearMonth(year, month);
    return value;
}

} // namespace

// Each collection names its own kind; the readers of the date kinds return
// the kind of the text they read, so a text of another form is refused too.
TEST(DateLikeCol, EachRefusesAnyOtherKindWithItsOwnText)
{
    const CDateTime date = Date("2004-02-29");
    const CDateTime time = Time("12:00:00");
    const struct {
        std::function<void()> add;
        const char* kind;
    } cases[] = {
        {[&] { Make<CdatetimeCol>()->Add(date); }, "dateTime"},
        {[&] { Make<CdateCol>()->Add(time); }, "date"},
        {[&] { Make<CyearMonthCol>()->Add(date); }, "gYearMonth"},
        {[&] { Make<CtimeCol>()->Add(date); }, "time"},
        {[&] { Make<CmonthDayCol>()->Add(YearMonth(2004, 2)); }, "gMonthDay"},
        // An unset value has no kind at all.
        {[&] { Make<CdateCol>()->Add(CDateTime()); }, "date"},
        {[&] { Make<CdateCol>()->AddFromString("2004"); }, "date"},
        {[&] { Make<CyearMonthCol>()->AddFromString("2004-05-06"); }, "gYearMonth"},
    };
    for (const auto& c : cases)
        ExpectFailure<CNxInvalidParamException>(
            c.add, std::string("Dates added to this collection must be of type dt_") + c.kind);

    CSmartPtr<CmonthDayCol> monthDays = Make<CmonthDayCol>();
    monthDays->Add(MonthDay(2, 29));
    CSmartPtr<CyearMonthCol> yearMonths = Make<CyearMonthCol>();
    yearMonths->Add(YearMonth(2004, 2));
    EXPECT_EQ(monthDays->GetCount() + yearMonths->GetCount(), 2);
}

TEST(DateLikeCol, ADateIsNotPromotedToADateTime)
{
    CSmartPtr<CdatetimeCol> col = Make<CdatetimeCol>();
    DateLog log;
    col->AddEventListener(&log);
    ExpectFailure<CNxInvalidParamException>([&] { col->Add(Date("2004-02-29")); },
                                            "Dates added to this collection must be of type dt_dateTime");
    EXPECT_TRUE(log.events.empty());
    col->Add(CDateTime("2004-02-29T10:00:00"));
    EXPECT_EQ(log.events, (std::vector<std::string>{"1 2004-02-29T10:00:00", "2 2004-02-29T10:00:00", "0"}));
    col->RemoveEventListener(&log);
}

TEST(DateLikeCol, FacetsAreCheckedBeforeTheAddEventAndTheIndexAfterIt)
{
    NxTest::Facets facets;
    facets.maxInclusive = "2004-12-31";
    CSmartPtr<CdateCol> col = Make<CdateCol>(facets, "Due");
    DateLog log;
    col->AddEventListener(&log);
    ExpectFailure<CNxException>([&] { col->AddAt(-1, Date("2005-01-01")); }, "Invalid Value for Due [2005-01-01]");
    EXPECT_TRUE(log.events.empty());
    ExpectFailure<CNxInvalidParamException>([&] { col->AddAt(-1, Date("2004-01-01")); }, "Index out of range");
    EXPECT_EQ(log.events, (std::vector<std::string>{"1 2004-01-01"}));
    EXPECT_EQ(col->GetCount(), 0);
    col->RemoveEventListener(&log);
}

TEST(DateLikeCol, BaseAddAtSkipsTheKindAndFacetChecks)
{
    NxTest::Facets facets;
    facets.maxInclusive = "2004-12-31";
    CSmartPtr<CdateCol> col = Make<CdateCol>(facets);
    col->BaseAddAt(0, Time("08:30:00"));
    col->BaseAddAt(0, Date("2010-01-01"));
    ASSERT_EQ(col->GetCount(), 2);
    EXPECT_EQ(col->Item(1).GetType(), CDateTime::dt_time);
    EXPECT_EQ(WriteText(*col), "<r><v>2010-01-01</v><v>08:30:00</v></r>");
    ExpectFailure<CNxInvalidParamException>([&] { col->BaseAddAt(3, Date("2000-01-01")); }, "Index out of range");
}

TEST(DateLikeCol, InsertsRemovesAndReportsIndexesLikeTheOthers)
{
    CSmartPtr<CtimeCol> col = Make<CtimeCol>();
    col->Add(Time("10:00:00"));
    col->Add(Time("12:00:00"));
    col->AddAt(1, Time("11:00:00"));
    EXPECT_EQ(WriteText(*col), "<r><v>10:00:00</v><v>11:00:00</v><v>12:00:00</v></r>");
    ExpectFailure<CNxInvalidParamException>([&] { col->Item(3); }, "Index 3 is out of range, use 0 - 3");

    DateLog log;
    col->AddEventListener(&log);
    ExpectFailure<CNxInvalidParamException>([&] { col->Remove(5); }, "Index 5 is out of range, use 0 - 3");
    col->Remove(2);
    col->Clear();
    EXPECT_EQ(log.events, (std::vector<std::string>{"3 5", "3 2", "4 0", "0", "3 0", "4 0", "0", "3 0", "4 0", "0"}));
    EXPECT_EQ(col->GetCount(), 0);
    col->RemoveEventListener(&log);
}

TEST(DateLikeCol, WritingChecksTheCountAndWritesEveryMemberAsDateTime)
{
    NxTest::Facets bounds;
    bounds.maxOccurs = 1;
    CSmartPtr<CyearMonthCol> col = Make<CyearMonthCol>(bounds, "Period", "urn:p");
    col->Add(YearMonth(2004, 5));
    RecordingWriter recorder;
    Walks::Write(*col, recorder);
    ASSERT_EQ(recorder.items.size(), 1u);
    EXPECT_EQ(recorder.items[0].text, "2004-05");
    EXPECT_EQ(recorder.items[0].type, ItemTypeDateTime);
    EXPECT_EQ(recorder.items[0].namespaceUri, "urn:p");
    col->Add(YearMonth(2004, 6));
    ExpectFailure<CNxValidationException>(
        [&] { Walks::Write(*col, recorder); },
        "The Maximum number of [Period] elements allowed in this collection is 1");
    EXPECT_EQ(recorder.items.size(), 1u);
}
