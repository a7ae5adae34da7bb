// The shared behaviour of the collections of primitives: index checks and
// their texts, the events and their data, facets on add, formats, counts on
// writing and the reading loop.
#include "TypedCollectionSupport.h"

#include <cstring>

#include "ExpectFailure.h"

using namespace NxTest;

namespace {

typedef EventLog<long> LongLog;

// A Ci4Col holding 10, 20, 30 with a listener attached after the adds.
struct FilledI4 : ::testing::Test {
    FilledI4() : col(Make<Ci4Col>())
    {
        col->Add(10);
        col->Add(20);
        col->Add(30);
        col->AddEventListener(&log);
    }
    ~FilledI4() override { col->RemoveEventListener(&log); }

    CSmartPtr<Ci4Col> col;
    LongLog log;
};

std::vector<long> ItemsOf(const Ci4Col& col)
{
    std::vector<long> items;
    for (int i = 0; i < col.GetCount(); ++i)
        items.push_back(col.Item(i));
    return items;
}

} // namespace

TEST_F(FilledI4, ItemOutsideTheRangeNamesTheCountNotTheLastIndex)
{
    EXPECT_EQ(col->Item(2), 30);
    ExpectFailure<CNxInvalidParamException>([&] { col->Item(3); }, "Index 3 is out of range, use 0 - 3");
    ExpectFailure<CNxInvalidParamException>([&] { col->Item(-1); }, "Index -1 is out of range, use 0 - 3");
    CSmartPtr<CstringCol> empty = Make<CstringCol>();
    ExpectFailure<CNxInvalidParamException>([&] { empty->Item(0); }, "Index 0 is out of range, use 0 - 0");
    EXPECT_TRUE(log.events.empty());
}

TEST_F(FilledI4, AddAtInsertsAtTheIndexAndAppendsAtTheCount)
{
    col->AddAt(0, 5);
    col->AddAt(2, 15);
    col->AddAt(col->GetCount(), 40);
    EXPECT_EQ(ItemsOf(*col), (std::vector<long>{5, 10, 15, 20, 30, 40}));
    EXPECT_EQ(log.events, (std::vector<LongLog::Event>{LongLog::Add(5), LongLog::AddComplete(5), LongLog::Change(),
                                                        LongLog::Add(15), LongLog::AddComplete(15),
                                                        LongLog::Change(), LongLog::Add(40),
                                                        LongLog::AddComplete(40), LongLog::Change()}));
    for (const LongLog::Event& event : log.events)
        EXPECT_EQ(event.source, static_cast<CXmlObjectBase*>(col));
}

TEST_F(FilledI4, AddAtAndRemoveOutsideTheRangeFailAfterTheirEvent)
{
    ExpectFailure<CNxInvalidParamException>([&] { col->AddAt(-1, 7); }, "Index out of range");
    ExpectFailure<CNxInvalidParamException>([&] { col->AddAt(4, 8); }, "Index out of range");
    ExpectFailure<CNxInvalidParamException>([&] { col->Remove(5); }, "Index 5 is out of range, use 0 - 3");
    ExpectFailure<CNxInvalidParamException>([&] { col->Remove(-2); }, "Index -2 is out of range, use 0 - 3");
    EXPECT_EQ(log.events, (std::vector<LongLog::Event>{LongLog::Add(7), LongLog::Add(8), LongLog::Remove(5),
                                                        LongLog::Remove(-2)}));
    EXPECT_EQ(ItemsOf(*col), (std::vector<long>{10, 20, 30}));
}

TEST_F(FilledI4, RemoveTellsTheTrueIndexFirstAndZeroOnCompletion)
{
    col->Remove(2);
    EXPECT_EQ(ItemsOf(*col), (std::vector<long>{10, 20}));
    EXPECT_EQ(log.events, (std::vector<LongLog::Event>{LongLog::Remove(2), LongLog::RemoveComplete(0),
                                                        LongLog::Change()}));
}

TEST_F(FilledI4, ClearRemovesFromTheFrontWithThreeEventsEach)
{
    col->Clear();
    EXPECT_EQ(col->GetCount(), 0);
    std::vector<LongLog::Event> expected;
    for (int i = 0; i < 3; ++i)
        expected.insert(expected.end(), {LongLog::Remove(0), LongLog::RemoveComplete(0), LongLog::Change()});
    EXPECT_EQ(log.events, expected);
}

TEST(TypedCollection, DestructionTellsNoListener)
{
    LongLog log;
    {
        CSmartPtr<Ci4Col> col = Make<Ci4Col>();
        col->Add(1);
        col->AddEventListener(&log);
    }
    EXPECT_TRUE(log.events.empty());
}

TEST(TypedCollection, AFacetFailureLeavesTheCollectionUnchangedAndTheAddUncompleted)
{
    Facets facets;
    facets.maxInclusive = "100";
    CSmartPtr<Ci4Col> col = Make<Ci4Col>(facets, "Score");
    LongLog log;
    col->AddEventListener(&log);
    col->Add(100);
    ExpectFailure<CNxException>([&] { col->Add(101); }, "Invalid Value for Score [101]");
    EXPECT_EQ(ItemsOf(*col), (std::vector<long>{100}));
    EXPECT_EQ(log.events, (std::vector<LongLog::Event>{LongLog::Add(100), LongLog::AddComplete(100),
                                                        LongLog::Change(), LongLog::Add(101)}));
    col->RemoveEventListener(&log);
}

// Adds the good value, then refuses the bad one by its text, leaving one item.
template <class Col, class Value>
void ExpectRefusedOnAdd(const Facets& facets, Value good, Value bad, const std::string& badText)
{
    SCOPED_TRACE(badText);
    CSmartPtr<Col> col = Make<Col>(facets, "N");
    col->Add(good);
    ExpectFailure<CNxException>([&] { col->Add(bad); }, "Invalid Value for N [" + badText + "]");
    EXPECT_EQ(col->GetCount(), 1);
}
template <class Col>
void ExpectRefusedFromString(const Facets& facets, const char* good, const char* bad)
{
    SCOPED_TRACE(bad);
    CSmartPtr<Col> col = Make<Col>(facets, "N");
    col->AddFromString(good);
    ExpectFailure<CNxException>([&] { col->AddFromString(bad); }, std::string("Invalid Value for N [") + bad + "]");
    EXPECT_EQ(col->GetCount(), 1);
}

TEST(TypedCollection, FacetsApplyToEveryKindOnAdd)
{
    Facets length, pattern, positive, shortSpan, small, upToTwo;
    length.maxLength = 3;
    pattern.pattern = "[a-z]+";
    positive.minExclusive = "0";
    shortSpan.maxInclusive = "P1D";
    small.maxInclusive = "2.5";
    upToTwo.maxInclusive = "2";
    ExpectRefusedOnAdd<CstringCol, std::string>(length, "abc", "abcd", "abcd");
    ExpectRefusedFromString<CstringCol>(pattern, "ab", "ab1");
    ExpectRefusedFromString<ChexBinaryCol>(length, "010203", "01020304");
    ExpectRefusedFromString<CdecimalCol>(positive, "0.01", "-0.5");
    ExpectRefusedOnAdd<CintegerCol>(positive, CBigInteger(1), CBigInteger(0), "0");
    ExpectRefusedFromString<CdurationCol>(shortSpan, "PT24H", "P1DT24H");
    ExpectRefusedOnAdd<Cr8Col>(small, 2.5, 2.75, "2.750000");
    ExpectRefusedOnAdd<Cui1Col, unsigned char>(upToTwo, 2, 3, "3");
}

TEST(TypedCollection, StringEventsPointAtTheValueAndStorageIsACopy)
{
    CSmartPtr<CstringCol> col = Make<CstringCol>();
    EventLog<std::string> log;
    col->AddEventListener(&log);
    std::string text = "first";
    col->Add(text);
    text = "changed";
    col->AddAt(0, "zero");
    EXPECT_EQ(col->Item(0), "zero");
    EXPECT_EQ(col->Item(1), "first");
    ASSERT_EQ(log.events.size(), 6u);
    EXPECT_EQ(log.events[0].value, "first");
    EXPECT_EQ(log.events[1].value, "first");
    EXPECT_EQ(log.events[4].value, "zero");
    col->RemoveEventListener(&log);
}

TEST(TypedCollection, ConversionFailuresPassThroughAndAddNothing)
{
    CSmartPtr<Ci4Col> col = Make<Ci4Col>();
    LongLog log;
    col->AddEventListener(&log);
    EXPECT_THROW(col->AddFromString("12x"), CNxInvalidValueException);
    EXPECT_EQ(col->GetCount(), 0);
    EXPECT_TRUE(log.events.empty());
    col->RemoveEventListener(&log);
    CSmartPtr<CbooleanCol> flags = Make<CbooleanCol>();
    EXPECT_THROW(flags->AddFromString("maybe"), CNxInvalidValueException);
    EXPECT_EQ(flags->GetCount(), 0);
}

TEST(TypedCollection, RealsAndDecimalsPrintWithTheKeptFormatPointer)
{
    char format[8] = "%.2f";
    Facets facets;
    facets.format = format;
    CSmartPtr<Cr8Col> reals = Make<Cr8Col>(facets);
    reals->Add(1.5);
    EXPECT_EQ(WriteText(*reals), "<r><v>1.50</v></r>");
    // The pointer is kept, not the text: a change shows on the next write.
    std::strcpy(format, "%.3e");
    EXPECT_EQ(WriteText(*reals), "<r><v>1.500e+00</v></r>");
    EXPECT_EQ(reals->GetFormat(), format);

    Facets floats;
    floats.format = "%.1f";
    CSmartPtr<Cr4Col> singles = Make<Cr4Col>(floats);
    singles->Add(2.25f);
    EXPECT_EQ(WriteText(*singles), "<r><v>2.2</v></r>");

    Facets twoDigits;
    twoDigits.format = "2";
    CSmartPtr<CdecimalCol> decimals = Make<CdecimalCol>(twoDigits);
    decimals->AddFromString("3");
    decimals->AddFromString("-1.005");
    // The digit count rounds by adding a half unit whatever it is, so 3
    // comes out as 3.5.
    EXPECT_EQ(WriteText(*decimals), "<r><v>3.5</v><v>-1.50</v></r>");
    CSmartPtr<CdecimalCol> plain = Make<CdecimalCol>();
    plain->AddFromString("-1.005");
    EXPECT_EQ(WriteText(*plain), "<r><v>-1.005</v></r>");

    // Kinds without a format ignore one.
    CSmartPtr<Ci4Col> integers = Make<Ci4Col>(facets);
    integers->Add(7);
    EXPECT_EQ(WriteText(*integers), "<r><v>7</v></r>");
}

TEST(TypedCollection, WritingChecksTheCountFirst)
{
    Facets bounds;
    bounds.minOccurs = 2;
    bounds.maxOccurs = 3;
    CSmartPtr<Ci2Col> col = Make<Ci2Col>(bounds, "Leg");
    col->Add(1);
    RecordingWriter recorder;
    ExpectFailure<CNxValidationException>([&] { Walks::Write(*col, recorder); },
                                          "The Minimum number of [Leg] elements allowed in this collection is 2");
    EXPECT_TRUE(recorder.items.empty());

    CXmlSerializationContext lenient;
    lenient.SetIgnoreInvalidCollectionCounts(true);
    EXPECT_EQ(WriteText(*col, lenient), "<r><Leg>1</Leg></r>");

    // Adding does not check the count; writing does.
    for (short i = 2; i <= 4; ++i)
        col->Add(i);
    ExpectFailure<CNxValidationException>([&] { Walks::Write(*col, recorder); },
                                          "The Maximum number of [Leg] elements allowed in this collection is 3");

    CSmartPtr<Ci2Col> empty = Make<Ci2Col>();
    EXPECT_EQ(WriteText(*empty), "<r/>");
}

TEST(TypedCollection, ReadingStopsAtTheFirstOtherElement)
{
    CSmartPtr<Cui2Col> col = Make<Cui2Col>(Facets(), "n", "urn:a");
    CXmlDocument document;
    CXmlElement* rest =
        ReadText(*col, document, "<r xmlns='urn:a'><n>1</n><n>\n 2\n</n><m>3</m><n>4</n></r>");
    ASSERT_NE(rest, nullptr);
    EXPECT_EQ(rest->GetLocalName(), "m");
    ASSERT_EQ(col->GetCount(), 2);
    EXPECT_EQ(col->Item(1), 2);
}

TEST(TypedCollection, AValueBreakingAFacetFailsTheReadAtItsElement)
{
    Facets facets;
    facets.minInclusive = "0";
    CSmartPtr<Ci8Col> col = Make<Ci8Col>(facets);
    CXmlDocument document;
    ExpectFailure<CNxException>([&] { ReadText(*col, document, "<r><v>5</v><v>-1</v><v>7</v></r>"); },
                                "Invalid Value for v [-1]");
    ASSERT_EQ(col->GetCount(), 1);
    EXPECT_EQ(col->Item(0), 5);
}
