// Classes that nxxsd compiled from tests/schemas at build time: each filled
// object writes a document that reads back into an equal object (the same
// document written again), that the independent validator accepts, and
// that also survives the binary form.
#include <functional>

#include "SchemaTestSupport.h"
#include "ScopedCType.h"

using namespace NxXmlLib9;
using namespace NxXsdTest;

namespace {

const CWhitespaceUtils::WhitespaceRule kCollapse = CWhitespaceUtils::WhitespaceRuleCollapse;

CSmartPtr<CXmlGeneratedClass> FullLibrary()
{
    CSmartPtr<basics::Library> library(new basics::Library());
    library->Title = "City Library";
    library->Owner = "The town";
    for (const char* id : {"b1", "b2"}) {
        CSmartPtr<basics::Book> book(new basics::Book("Book"));
        book->Isbn = "978-0140449136";
        book->Pages = CConversions::integerFromString("412", kCollapse);
        book->Author->Add("Homer");
        book->Genre = basics::Genre_poetry;
        book->id = id;
        library->Book->Add(book);
    }
    library->Book->Item(1)->Rating = 4;
    library->Book->Item(1)->format = basics::Book_format_audio_book;
    CSmartPtr<basics::Shelf> shelf(new basics::Shelf("Shelf"));
    shelf->Row = 3;
    shelf->Width = 1.5;
    shelf->Label = "Epics";
    shelf->code = "E1";
    shelf->lang = "en-GB";
    library->Shelf->Add(shelf);
    library->Opening = new basics::Opening("Opening");
    library->Opening->Hours = "9-17";
    library->Genre->Add(basics::Genre_novel);
    library->Genre->Add(basics::Genre_science);
    library->Contact->Email = "desk@library.example";
    library->Contact->Phone->Add("+47 1");
    library->created = CConversions::dateFromString("2024-02-29", kCollapse);
    library->by = "clerk";
    library->version = CDecimal("1.0");
    return library;
}

CSmartPtr<CXmlGeneratedClass> FullPrimitives()
{
    CSmartPtr<basics::Primitives> p(new basics::Primitives());
    p->String = " spaced  text ";
    p->NormalizedString = "one line";
    p->Token = "a token";
    p->Language = "en-GB";
    p->Name = "x:name";
    p->NCName = "ncname";
    p->NMTOKEN = "tok-1";
    p->NMTOKENS = "a b c";
    p->AnyURI = "http://example.com/a?b=c&d";
    p->Boolean = true;
    p->Decimal = CDecimal("-12.375");
    p->Integer = CConversions::integerFromString("123456789012345678901234567890", kCollapse);
    p->NonPositiveInteger = CConversions::integerFromString("0", kCollapse);
    p->NegativeInteger = CConversions::integerFromString("-5", kCollapse);
    p->NonNegativeInteger = CConversions::integerFromString("0", kCollapse);
    p->PositiveInteger = CConversions::integerFromString("7", kCollapse);
    p->Long = -9000000000LL;
    p->Int = -2000000000L;
    p->Short = -300;
    p->Byte = -7;
    p->UnsignedLong = 18000000000000000000ULL;
    p->UnsignedInt = 4000000000UL;
    p->UnsignedShort = 65000;
    p->UnsignedByte = 255;
    p->Float = 1.5f;
    p->Double = -2.25e10;
    p->Duration = CConversions::durationFromString("P1Y2M3DT4H5M6S", kCollapse);
    p->DateTime = CConversions::datetimeFromString("2023-12-31T23:59:58Z", kCollapse);
    p->Date = CConversions::dateFromString("2000-01-01", kCollapse);
    p->Time = CConversions::timeFromString("12:30:00", kCollapse);
    p->GYearMonth = CConversions::yearMonthFromString("1999-05", kCollapse);
    p->GMonthDay = CConversions::monthDayFromString("--12-25", kCollapse);
    p->GYear = 1984;
    p->GMonth = 11;
    p->GDay = 9;
    p->HexBinary = CConversions::hexBinaryFromString("0FB7", kCollapse);
    p->Base64Binary = CConversions::base64BinaryFromString("aGVsbG8=", kCollapse);
    p->Ints->Add(1);
    p->Ints->Add(-2);
    p->Dates->Add(CConversions::dateFromString("2020-02-02", kCollapse));
    return p;
}

CSmartPtr<CXmlGeneratedClass> FullDrawing()
{
    CSmartPtr<structure::Drawing> d(new structure::Drawing());
    d->Caption->Content = "A plan";
    d->Caption->lang = "en";
    CSmartPtr<structure::Circle> main(new structure::Circle("Main"));
    main->Radius = 2.5;
    main->id = 1;
    d->Main = main;
    CSmartPtr<structure::Square> square(new structure::Square("Figure"));
    square->Width = square->Height = 3;
    square->id = 2;
    square->rounded = true;
    square->Label = "sq";
    d->Figure->Add(square);
    CSmartPtr<structure::Rectangle> rectangle(new structure::Rectangle("Figure"));
    rectangle->Width = 4;
    rectangle->Height = 1;
    rectangle->id = 3;
    d->Figure->Add(rectangle);
    CSmartPtr<structure::Point> point(new structure::Point("Figure"));
    point->id = 4;
    d->Figure->Add(point);
    d->SignedBy = "Ann";
    d->SignedOn = CConversions::dateFromString("2024-01-15", kCollapse);
    d->Drawing_choice = new structure::Drawing_choice();
    d->Drawing_choice->Fit = true;
    d->Owner->SetNil(true);
    d->Tags = "draft final";
    d->Size = "auto";
    d->Note = new structure::Note("Note");
    d->Note->Content = "see"; // mixed content: text, as the library's tree keeps it
    d->Mark = new structure::Mark_choice();
    d->Mark->Star = new structure::StarMark("Star"); // in place of Mark, by the substitution group
    d->Mark->Star->x = 4;
    d->Mark->Star->points = 6;
    CSmartPtr<CElement> raw = d->Raw->Add("Raw", "");
    raw->SetText("raw text");
    d->Any->Add("Extra", "urn:other")->SetText("x");
    d->units = structure::Units_in;
    d->AnyAttributes->Add("mark", "1", "urn:other");
    return d;
}

CSmartPtr<CXmlGeneratedClass> FullOrder()
{
    CSmartPtr<orders::Order> o(new orders::Order());
    o->Header->Number = "PO-1";
    o->Header->Issued = CConversions::datetimeFromString("2024-03-01T10:00:00Z", kCollapse);
    o->Header->Priority = orders::Priority_urgent;
    for (orders::Party* party : {static_cast<orders::Party*>(o->Buyer), static_cast<orders::Party*>(o->Seller)}) {
        party->Name = "ACME";
        party->id = "p1";
        party->Address->Line->Add("Street 1");
        party->Address->PostCode = "0150";
        party->Address->Country = "NO";
    }
    o->Seller->VatNumber = "NO123456789";
    CSmartPtr<orders::Line> line(new orders::Line("Line"));
    line->Sku = "ABC-1234";
    line->Quantity = 3;
    line->UnitPrice->Content = "9.99";
    line->UnitPrice->currency = orders::Currency_EUR;
    line->number = CConversions::integerFromString("1", kCollapse);
    line->Delivery = CConversions::dateFromString("2024-03-10", kCollapse);
    o->Line->Add(line);
    o->Total->Content = "29.97";
    o->Total->currency = orders::Currency_EUR;
    o->Payment = new orders::Payment("Payment");
    o->Payment->Iban = "NO9386011117947";
    o->version = "2.1";
    return o;
}

CSmartPtr<CXmlGeneratedClass> FullNamingItem()
{
    CSmartPtr<naming::ItemElement> root(new naming::ItemElement());
    naming::Item& item = *root->Item;
    item.class_ = "c";
    item.my_element = 1;
    item.my_element_2 = 2;
    item.a_b = "ab";
    item.Gr_e = "big";
    item.N_private = "p";
    item.value_ = "v";
    item.Init_2 = "i";
    item.Item_2 = "self";
    item.id = "element";
    item.Kind = naming::Kind_N_1;
    item.id_2 = "attribute";
    item.namespace_ = "ns";
    return root;
}

void FillParty(orders::Party& party, const char* name)
{
    party.Name = name;
    party.id = "p";
    party.Address->Line->Add("Road 1");
    party.Address->PostCode = "1000";
    party.Address->Country = "DK";
}

CSmartPtr<orders::Amount> Money(const char* amount)
{
    CSmartPtr<orders::Amount> money(new orders::Amount("Amount"));
    money->Content = amount;
    money->currency = orders::Currency_USD;
    return money;
}

// Three namespaces; lines of the base type and of a type derived in
// another namespace, written with xsi:type.
CSmartPtr<CXmlGeneratedClass> FullInvoice()
{
    CSmartPtr<invoice::Invoice> inv(new invoice::Invoice("CreditNote"));
    inv->Id = "INV-2024-00042";
    inv->IssueDate = CConversions::dateFromString("2024-06-01", kCollapse);
    inv->OrderRef->Add("PO-1");
    inv->OrderRef->Add("PO-2");
    FillParty(*inv->Supplier, "Supplier Inc");
    FillParty(*inv->Customer, "Customer ApS");
    CSmartPtr<invoice::LineBase> plain(new invoice::LineBase("Line"));
    plain->Item = "Service";
    plain->Quantity = CDecimal("1.5");
    plain->Net = Money("150.00");
    plain->Net->SetElementName("Net");
    plain->id = CConversions::integerFromString("1", kCollapse);
    inv->Line->Add(plain);
    CSmartPtr<invoice::TaxedLine> taxed(new invoice::TaxedLine("Line"));
    taxed->Item = "Goods";
    taxed->Quantity = CDecimal("2");
    taxed->Net->Content = "20";
    taxed->Rate = CDecimal("25");
    taxed->Tax->Content = "5";
    taxed->id = CConversions::integerFromString("2", kCollapse);
    taxed->category = invoice::Category_S;
    inv->Line->Add(taxed);
    inv->TaxSummary = new invoice::Summary("TaxSummary");
    CSmartPtr<invoice::Summary_Subtotal> subtotal(new invoice::Summary_Subtotal("Subtotal"));
    subtotal->Category = invoice::Category_Z;
    subtotal->Base->Content = "150.00";
    subtotal->Tax->Content = "0";
    inv->TaxSummary->Subtotal->Add(subtotal);
    inv->Payable->Content = "175.00";
    inv->Remark = "thanks";
    CSmartPtr<invoice::Attachment> attachment(new invoice::Attachment("Attachment"));
    attachment->Content = "aGVsbG8=";
    attachment->mimeType = "text/plain";
    inv->Attachment->Add(attachment);
    inv->Extensions = new invoice::Invoice_Extensions("Extensions");
    inv->Extensions->Any->Add("Custom", "urn:vendor")->SetText("42");
    inv->currency = orders::Currency_USD;
    inv->status = invoice::Status_2_draft;
    return inv;
}

// Repeated nested groups: a choice in any order and a bounded sequence.
CSmartPtr<CXmlGeneratedClass> FullPalette()
{
    CSmartPtr<structure::Palette> palette(new structure::Palette());
    palette->Name = "warm";
    for (int i = 0; i < 3; ++i) {
        CSmartPtr<structure::Palette_choice> colour(new structure::Palette_choice());
        if (i == 1)
            colour->Blue = "sky";
        else
            colour->Red = static_cast<unsigned char>(100 + i);
        palette->Palette_choice->Add(colour);
    }
    for (const char* key : {"k1", "k2"}) {
        CSmartPtr<structure::Palette_sequence> pair(new structure::Palette_sequence());
        pair->Key = key;
        if (key[1] == '2')
            pair->Value = "v";
        palette->Palette_sequence->Add(pair);
    }
    palette->End = true;
    return palette;
}

// A type that holds itself, to some depth.
CSmartPtr<CXmlGeneratedClass> FullFolder()
{
    CSmartPtr<structure::Folder> root(new structure::Folder());
    root->name = "root";
    CSmartPtr<structure::Folder> child(new structure::Folder());
    child->name = "child";
    child->Parent = new structure::Folder("Parent");
    child->Parent->name = "root again";
    CSmartPtr<structure::Folder> grandchild(new structure::Folder());
    grandchild->name = "grandchild";
    child->Folder_2->Add(grandchild); // a member never bears the class name
    root->Folder_2->Add(child);
    return root;
}

// The type of the invoice namespace as the root element of the tax namespace.
CSmartPtr<CXmlGeneratedClass> FullTaxInvoice()
{
    CSmartPtr<CXmlGeneratedClass> invoice = FullInvoice();
    invoice->SetElementName("TaxInvoice");
    dynamic_cast<invoice::Invoice&>(*invoice).SetDocumentNamespace("urn:nxxsd:tax");
    return invoice;
}

struct Case {
    const char* name;
    const char* schema;
    std::function<CSmartPtr<CXmlGeneratedClass>()> make;
};

const Case kCases[] = {
    {"Library", "basics.xsd", FullLibrary}, {"Primitives", "basics.xsd", FullPrimitives},
    {"Drawing", "structure.xsd", FullDrawing}, {"Palette", "structure.xsd", FullPalette},
    {"Folder", "structure.xsd", FullFolder}, {"Order", "orders/orders.xsd", FullOrder},
    {"NamingItem", "naming.xsd", FullNamingItem}, {"Invoice", "invoice/invoice.xsd", FullInvoice},
    {"TaxInvoice", "invoice/invoice.xsd", FullTaxInvoice},
};

} // namespace

// Unformatted, so that the text of mixed content stays as it is: indenting
// would add to it.
std::string Unformatted(const CXmlGeneratedClass* object)
{
    return object->ToXml(true, false, EOLTypeLF, Aliased());
}

TEST(GeneratedClasses, WriteReadBackAndValidate)
{
    REQUIRE_UTF8_LOCALE(utf8); // the naming schema has non-ASCII names
    const std::string dir = ScratchDir("written");
    bool validated = false;
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.name);
        try {
            CSmartPtr<CXmlGeneratedClass> object = c.make();
            const std::string xml = Unformatted(object);
            CSmartPtr<CXmlGeneratedClass> fromText = ObjectForDocument(xml);
            ASSERT_TRUE(fromText);
            fromText->FromXml(xml.c_str());
            EXPECT_EQ(Unformatted(fromText), xml);

            // The binary form, compressed, reads into an equal object too.
            CBinaryData binary = object->ToFastInfosetStream(FInfoDeclNone, Aliased(), CompressionTypeGZip);
            CSmartPtr<CXmlGeneratedClass> fromBinary = ObjectForDocument(xml);
            fromBinary->FromXmlStream(binary);
            EXPECT_EQ(Unformatted(fromBinary), xml);

            const std::string path = dir + "/" + c.name + ".xml";
            WriteFileBytes(path, object->ToXml(true, true, EOLTypeLF, Aliased()));
            std::string reason;
            const Verdict verdict = Validate(SchemaPath(c.schema), path, &reason);
            if (verdict == Verdict::NoValidator)
                continue;
            validated = true;
            EXPECT_EQ(verdict, Verdict::Valid) << reason << xml;
        } catch (const CNxException& failure) {
            ADD_FAILURE() << failure.GetFullMessage();
        }
    }
    if (!validated)
        GTEST_SKIP() << "written documents not validated: python3-xmlschema is not installed";
}

TEST(GeneratedClasses, FactoriesMakeGlobalElementsAndDerivedTypes)
{
    // Every global element, and nothing else, has a class.
    EXPECT_TRUE(dynamic_cast<basics::Book*>(
        static_cast<CXmlGeneratedClass*>(basics::CreateDocumentElement("Book", "urn:nxxsd:basics"))));
    EXPECT_FALSE(basics::CreateDocumentElement("Book", ""));
    EXPECT_FALSE(basics::CreateDocumentElement("Shelf", "urn:nxxsd:basics"));
    EXPECT_FALSE(basics::CreateDocumentElement(nullptr, nullptr));
    CSmartPtr<CXmlGeneratedClass> response = orders::CreateDocumentElement("OrderResponse", "urn:nxxsd:orders");
    ASSERT_TRUE(response);
    EXPECT_EQ(static_cast<CXmlObjectBase*>(response)->GetElementName(), "OrderResponse");

    // The element factory follows xsi:type; an abstract type alone has no object.
    CXmlDocument document;
    document.LoadXml("<r xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance'><a xsi:type='Square'/><b/>"
                     "<c xsi:type='Unknown'/></r>");
    CXmlElement* a = document.GetDocumentElement()->GetFirstElement();
    CSmartPtr<CXmlObjectBase> square = structure::Shape::CreateFromElement(a);
    EXPECT_TRUE(dynamic_cast<structure::Square*>(static_cast<CXmlObjectBase*>(square)));
    EXPECT_FALSE(structure::Shape::CreateFromElement(a->GetNextSiblingElement()));
    EXPECT_FALSE(structure::Rectangle::CreateFromElement(a->GetNextSiblingElement()->GetNextSiblingElement()));
    EXPECT_TRUE(dynamic_cast<structure::Rectangle*>(
        static_cast<CXmlObjectBase*>(structure::Rectangle::CreateFromElement(a->GetNextSiblingElement()))));
}
