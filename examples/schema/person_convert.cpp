// Converts documents of examples/person.xsd between XML text and Fast
// Infoset, plain or gzip-compressed, checking them on the way:
//
//   person_convert INPUT OUTPUT
//
// INPUT may be XML text or Fast Infoset, plain, gzip or zlib: the library
// tells them apart. Its root may be any global element of the schema; the
// class for it comes from CreateDocumentElement. OUTPUT is Fast Infoset
// when its name ends in .fi or .fi.gz, XML text otherwise, and gzip
// compressed when it ends in .gz. A document that breaks the schema where
// the classes check it (structure, facets, enumerations) fails with the
// reason and exit status 1.
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

#include "person.h"

using namespace NxXmlLib9;

namespace {

bool EndsWith(const std::string& text, const std::string& tail)
{
    return text.size() >= tail.size() && text.compare(text.size() - tail.size(), tail.size(), tail) == 0;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::cerr << "usage: person_convert INPUT OUTPUT\n";
        return 1;
    }
    const std::string input = argv[1], output = argv[2];
    try {
        std::ifstream in(input, std::ios::binary);
        if (!in) {
            std::cerr << input << ": cannot open the file\n";
            return 1;
        }
        std::vector<unsigned char> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
        CXmlDocument document;
        document.LoadXmlStream(bytes.data(), static_cast<unsigned long>(bytes.size()));
        const CXmlElement* root = document.GetDocumentElement();
        CSmartPtr<CXmlGeneratedClass> object =
            person::CreateDocumentElement(root->GetLocalName().c_str(), root->GetNamespaceURI().c_str());
        if (!object) {
            std::cerr << input << ": the schema has no global element {" << root->GetNamespaceURI() << "}"
                      << root->GetLocalName() << "\n";
            return 1;
        }
        object->FromXmlElement(root);

        CXmlSerializationContext context;
        person::AddpersonNamespaceAliases(context);
        const CompressionType compression = EndsWith(output, ".gz") ? CompressionTypeGZip : CompressionTypeNone;
        if (EndsWith(output, ".fi") || EndsWith(output, ".fi.gz"))
            object->ToFastInfosetFile(output.c_str(), FInfoDeclNone, context, compression);
        else
            object->ToXmlFile(output.c_str(), true, true, XmlEncodingUTF8, EOLTypeLF, context, compression);
    } catch (const CNxException& failure) {
        std::cerr << input << ": " << failure.GetFullMessage() << "\n";
        return 1;
    }
    return 0;
}
