// From a schema to a program: nxxsd compiles examples/person.xsd into the
// classes of person.h (the build does it through nxxmllib9_generate), and
// this program fills a Person, writes it as XML, reads the text back through
// CreateDocumentElement, as a program would that does not know the root of
// its documents, and shows that both are the same.
#include <iostream>

#include "person.h"

using namespace NxXmlLib9;

int main()
{
    RegisterGeneratorVersion(9, 0);
    try {
        CSmartPtr<person::Person> ann(new person::Person());
        ann->id = 7;
        ann->Name = "Ann";
        ann->Nick = "An";
        ann->Address->Street = "Main Street 1";
        ann->Address->City = "Oslo";
        ann->Phone->Add("+47 22 00 00 00");
        ann->Colour = person::Colour_blue;
        ann->Any->SetName("Note");
        ann->Any->SetText("written by person_schema");
        const std::string xml = ann->ToXml();
        std::cout << xml;

        CSmartPtr<CXmlGeneratedClass> read =
            person::CreateDocumentElement("Person", "http://www.example.com/person");
        read->FromXml(xml.c_str());
        person::Person* copy = dynamic_cast<person::Person*>(static_cast<CXmlGeneratedClass*>(read));
        std::cout << "read back: " << copy->Name << " of " << copy->Address->City << ", colour "
                  << person::ColourToText(*copy->Colour) << "\n";
        if (read->ToXml() != xml) {
            std::cerr << "the document read back differs\n";
            return 1;
        }
        std::cout << "the document read back is the same\n";
    } catch (const CNxException& failure) {
        std::cerr << failure.GetFullMessage() << "\n";
        return 1;
    }
    return 0;
}
