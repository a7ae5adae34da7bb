// Every collection of primitives written as XML text and read back from a
// parsed document, with the item type each writes with.
#include "TypedCollectionSupport.h"

#include <typeinfo>

using namespace NxTest;

namespace {

// Adds the texts, checks the written XML and the item types, then reads the
// XML into a fresh collection and checks that it writes the same again.
template <class Col>
void ExpectRoundTrip(const std::vector<std::string>& texts, const std::string& expectedItems, ItemType ownType,
                     ItemType writtenType)
{
    SCOPED_TRACE(typeid(Col).name());
    CSmartPtr<Col> col = Make<Col>();
    EXPECT_EQ(col->GetItemType(), ownType);
    for (const std::string& text : texts)
        col->AddFromString(text);
    ASSERT_EQ(col->GetCount(), static_cast<int>(texts.size()));

    const std::string xml = WriteText(*col);
    EXPECT_EQ(xml, "<r>" + expectedItems + "</r>");

    RecordingWriter recorder;
    Walks::Write(*col, recorder);
    ASSERT_EQ(recorder.items.size(), texts.size());
    for (const RecordingWriter::Item& item : recorder.items) {
        EXPECT_EQ(item.name, "v");
        EXPECT_EQ(item.type, writtenType);
    }

    CSmartPtr<Col> copy = Make<Col>();
    CXmlDocument document;
    EXPECT_EQ(ReadText(*copy, document, xml.c_str()), nullptr);
    EXPECT_EQ(WriteText(*copy), xml);
}

} // namespace

TEST(TypedCollectionKinds, IntegersWriteTheirFullRange)
{
    ExpectRoundTrip<Ci1Col>({"-128", " 127 "}, "<v>-128</v><v>127</v>", ItemTypeI1, ItemTypeI1);
    ExpectRoundTrip<Ci2Col>({"-32768", "32767"}, "<v>-32768</v><v>32767</v>", ItemTypeI2, ItemTypeI2);
    ExpectRoundTrip<Ci4Col>({"-2147483648", "2147483647"}, "<v>-2147483648</v><v>2147483647</v>", ItemTypeI4,
                            ItemTypeI4);
    ExpectRoundTrip<Ci8Col>({"-9223372036854775808", "9223372036854775807"},
                            "<v>-9223372036854775808</v><v>9223372036854775807</v>", ItemTypeI8, ItemTypeI8);
    ExpectRoundTrip<Cui1Col>({"0", "255"}, "<v>0</v><v>255</v>", ItemTypeUI1, ItemTypeUI1);
    ExpectRoundTrip<Cui2Col>({"65535"}, "<v>65535</v>", ItemTypeUI2, ItemTypeUI2);
    ExpectRoundTrip<Cui4Col>({"4294967295"}, "<v>4294967295</v>", ItemTypeUI4, ItemTypeUI4);
    ExpectRoundTrip<Cui8Col>({"18446744073709551615"}, "<v>18446744073709551615</v>", ItemTypeUI8, ItemTypeUI8);
    ExpectRoundTrip<CintegerCol>({"-123456789012345678901234567890", "+0042"},
                                 "<v>-123456789012345678901234567890</v><v>42</v>", ItemTypeInteger,
                                 ItemTypeInteger);
}

TEST(TypedCollectionKinds, RealsAndDecimalsWriteTheirDefaultForms)
{
    ExpectRoundTrip<Cr4Col>({"0.1", "3.4028235e38"}, "<v>0.1</v><v>3.402823e+38</v>", ItemTypeR4, ItemTypeR4);
    ExpectRoundTrip<Cr8Col>({"0.1", "-2.5E-10"}, "<v>0.1</v><v>-2.5e-10</v>", ItemTypeR8, ItemTypeR8);
    ExpectRoundTrip<CdecimalCol>({"1.50", "-0.001", "123456789012345678901234567890.5"},
                                 "<v>1.5</v><v>-0.001</v><v>123456789012345678901234567890.5</v>", ItemTypeDecimal,
                                 ItemTypeDecimal);
}

TEST(TypedCollectionKinds, TextBooleanAndBinaryKinds)
{
    ExpectRoundTrip<CstringCol>({"  a   b ", "x & <y>"}, "<v>a b</v><v>x &amp; &lt;y&gt;</v>", ItemTypeString,
                                ItemTypeString);
    ExpectRoundTrip<CbooleanCol>({"true", "0", "1", "FALSE"}, "<v>true</v><v>false</v><v>true</v><v>false</v>",
                                 ItemTypeBoolean, ItemTypeBoolean);
    ExpectRoundTrip<ChexBinaryCol>({"0aff", "10"}, "<v>0AFF</v><v>10</v>", ItemTypeHexBinary, ItemTypeHexBinary);
    ExpectRoundTrip<Cbase64BinaryCol>({"SGVs bG8="}, "<v>SGVsbG8=</v>", ItemTypeBase64Binary,
                                      ItemTypeBase64Binary);
}

TEST(TypedCollectionKinds, DurationAndTheBareDateFields)
{
    ExpectRoundTrip<CdurationCol>({"P1Y2M3DT4H5M6.789S", "-PT1M"}, "<v>P1Y2M3DT4H5M6.789S</v><v>-PT1M</v>",
                                  ItemTypeDuration, ItemTypeDuration);
    ExpectRoundTrip<CyearCol>({"2004", "1999-12-31"}, "<v>2004</v><v>1999</v>", ItemTypeYear, ItemTypeYear);
    ExpectRoundTrip<CmonthCol>({"--05", "2004-11"}, "<v>--05</v><v>--11</v>", ItemTypeMonth, ItemTypeMonth);
    ExpectRoundTrip<CdayCol>({"---17", "2004-02-29"}, "<v>---17</v><v>---29</v>", ItemTypeDay, ItemTypeDay);
}

// The date-like collections keep their own item type but write as dateTime.
TEST(TypedCollectionKinds, DateLikeKindsWriteWithTheDateTimeItemType)
{
    ExpectRoundTrip<CdatetimeCol>({"2004-02-29T13:45:00", "1999-12-31T23:59:59.5Z"},
                                  "<v>2004-02-29T13:45:00</v><v>1999-12-31T23:59:59.5Z</v>", ItemTypeDateTime,
                                  ItemTypeDateTime);
    ExpectRoundTrip<CdateCol>({"2004-02-29", "1999-12-31+05:00"}, "<v>2004-02-29</v><v>1999-12-31+05:00</v>",
                              ItemTypeDate, ItemTypeDateTime);
    ExpectRoundTrip<CtimeCol>({"13:45:00", "23:59:59-03:30"}, "<v>13:45:00</v><v>23:59:59-03:30</v>", ItemTypeTime,
                              ItemTypeDateTime);
    ExpectRoundTrip<CyearMonthCol>({"2004-05", "-0044-03Z"}, "<v>2004-05</v><v>-0044-03Z</v>", ItemTypeYearMonth,
                                   ItemTypeDateTime);
    ExpectRoundTrip<CmonthDayCol>({"--05-17", "--02-29"}, "<v>--05-17</v><v>--02-29</v>", ItemTypeMonthDay,
                                  ItemTypeDateTime);
}
