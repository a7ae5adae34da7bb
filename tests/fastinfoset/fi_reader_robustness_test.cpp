// Hostile input: every prefix of several valid binary documents, and
// thousands of seeded random mutations of them, either read or raise a
// CNxException (or, for a string that became UTF-16, the standard logic
// error of that unsupported form). Run under the sanitizers, this also
// shows that no input reads out of bounds or leaks what was built.
#include <gtest/gtest.h>

#include <random>
#include <stdexcept>

#include "NxXmlLib9.h"
#include "TableClass.h"
#include "fi_reader_support.h"

using namespace NxRoundTrip;

namespace {

std::vector<unsigned char> ToBytes(const CBinaryData& data)
{
    return std::vector<unsigned char>(data.GetData(), data.GetData() + data.GetLength());
}

struct Document {
    const char* name;
    std::vector<unsigned char> bytes;
    CXmlSerializationContext context;
};

std::vector<Document> Documents()
{
    std::vector<Document> documents;
    CXmlSerializationContext plain;
    plain.GetNamespaceAliases().Add("s", kShapesNs);
    documents.push_back({"person", ToBytes(FullPerson()->ToFastInfosetStream(FInfoDeclNone, plain)), plain});
    CXmlSerializationContext suggested = plain;
    suggested.GetFIContext().SetSuggestedValues();
    documents.push_back(
        {"person, suggested encodings", ToBytes(FullPerson()->ToFastInfosetStream(FInfoDeclNone, suggested)), suggested});
    CXmlSerializationContext generated = plain;
    generated.GetFIContext().SetUseGeneratedVocabulary(true);
    generated.GetFIContext().GetVocabulary().AddElement("p", "urn:rt", "Age");
    generated.GetFIContext().GetVocabulary().AddElementValue("41");
    documents.push_back({"profile, generated vocabulary",
                         ToBytes(FullProfile()->ToFastInfosetStream(FInfoDeclVersion10, generated)), generated});
    // Every kind of item the writer never makes: namespace attributes,
    // comments, instructions, entity references, typed content, optional
    // parts.
    documents.push_back({"hand-made",
                         fi_reader_test::Bytes("E0 00 00 01 1F C0 00 'n' F0 D0 00 'e' 00 's' 00 'n' F0 04 'UTF-8' "
                                               "01 02 '1.0' E2 40 'c' 78 CF 00 'p' 02 'urn' CD 81 F0 3F 81 "
                                               "81 00 'a' 7B 81 81 00 'x' 40 'v' 78 00 'y' 20 01 1C 5F F0 90 't' "
                                               "E1 01 'pi' 40 'd' C8 00 'e' 3D 81 00 'b' 8C 0E 01 00 00 00 2A "
                                               "88 06 00 10 B3 0D A0 7C 00 'c' 00 80 FF 01 F0 FF"),
                         CXmlSerializationContext()});
    return documents;
}

// Reads the bytes into a document and, for the documents of an object, the
// object too. Anything but a read or a failure of the library fails.
void ExpectReadOrFailure(const Document& document, const std::vector<unsigned char>& bytes, const std::string& what)
{
    try {
        CXmlDocument tree(document.context);
        fi_reader_test::Load(tree, bytes);
        if (std::string(document.name).rfind("person", 0) == 0) {
            CSmartPtr<Person> person(new Person());
            person->FromXmlStream(const_cast<unsigned char*>(bytes.data()), static_cast<unsigned long>(bytes.size()),
                                  document.context);
        }
    } catch (const CNxException&) {
    } catch (const std::logic_error&) {
        // A string turned to the UTF-16 form.
    } catch (...) {
        ADD_FAILURE() << document.name << ": " << what << " raised something else";
    }
}

} // namespace

TEST(FastInfosetReaderRobustness, TheValidDocumentsRead)
{
    for (const Document& document : Documents()) {
        CXmlDocument tree(document.context);
        fi_reader_test::Load(tree, document.bytes);
        EXPECT_NE(tree.GetDocumentElement(), nullptr) << document.name;
        if (std::string(document.name) == "hand-made") {
            EXPECT_EQ(fi_reader_test::Dump(tree.GetDocumentElement()),
                      "{urn}a[{urn}x=v y=1.5]\"t\"({urn}b\"4210:30Zt\"(c[{urn}x=v] {urn}b))");
        }
    }
}

TEST(FastInfosetReaderRobustness, EveryPrefixReadsOrFails)
{
    for (const Document& document : Documents())
        for (size_t length = 1; length < document.bytes.size(); ++length)
            ExpectReadOrFailure(document,
                                std::vector<unsigned char>(document.bytes.begin(),
                                                           document.bytes.begin() + static_cast<long>(length)),
                                "prefix of " + std::to_string(length));
}

TEST(FastInfosetReaderRobustness, SeededRandomMutationsReadOrFail)
{
    std::mt19937 random(20261125);
    const int mutationsPerDocument = 3000;
    for (const Document& document : Documents()) {
        const size_t size = document.bytes.size();
        for (int round = 0; round < mutationsPerDocument; ++round) {
            std::vector<unsigned char> bytes = document.bytes;
            // One to four changes, past the header most of the time, so that
            // the binary reader rather than the text parser gets them.
            const int changes = 1 + static_cast<int>(random() % 4);
            for (int c = 0; c < changes && !bytes.empty(); ++c) {
                const size_t at = (random() % 8 == 0 ? 0 : 4) + random() % (bytes.size() > 4 ? bytes.size() - 4 : 1);
                const size_t position = std::min(at, bytes.size() - 1);
                switch (random() % 4) {
                case 0: bytes[position] = static_cast<unsigned char>(random()); break;
                case 1: bytes[position] ^= static_cast<unsigned char>(1u << (random() % 8)); break;
                case 2: bytes.insert(bytes.begin() + static_cast<long>(position), static_cast<unsigned char>(random())); break;
                default: bytes.erase(bytes.begin() + static_cast<long>(position)); break;
                }
            }
            if (bytes.empty() || bytes.size() > 2 * size)
                continue;
            ExpectReadOrFailure(document, bytes, "mutation " + std::to_string(round));
        }
    }
}
