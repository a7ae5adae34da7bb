// A bound class whose writing walk is written by hand: a contact card with a
// namespace, an attribute, text that needs escaping and a nested element.
// It shows the public entry ToXml and the serialization context.
#include <NxXmlLib9.h>

#include <iostream>

using namespace NxXmlLib9;

class ContactCard : public CXmlObjectBase {
public:
    ContactCard(std::string name, std::string phone, std::string note)
        : m_name(std::move(name)), m_phone(std::move(phone)), m_note(std::move(note))
    {
        SetElementName("ContactCard");
    }

    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return "urn:example:contacts"; }
    std::string GetNamespace() const override { return GetTargetNamespace(); }

protected:
    void ToXml_Int(CXmlWriter* writer, bool isRoot, const char* elementNamespace,
                   const CXmlSerializationContext& context, bool) const override
    {
        if (isRoot) {
            for (const std::string& instruction : context.GetProcessingInstructions())
                writer->WritePI(instruction);
            const CNamespaceAliasMap& aliases = context.GetNamespaceAliases();
            for (int i = 0; i < aliases.GetNamespaceCount(); ++i) {
                const std::string uri = aliases.GetNamespaceAt(i);
                writer->AddNamespace(aliases.GetAliasFromNamespace(uri.c_str()), uri);
            }
            if (!context.GetDefaultNamespaceURI().empty())
                writer->SetDefaultNamespace(context.GetDefaultNamespaceURI());
        }
        writer->WriteStartElement(GetElementName(), elementNamespace);
        writer->WriteAttributeString("lang", CXmlWriter::XML_NAMESPACE, "en", ItemTypeString);
        WriteTextElement(writer, "Name", elementNamespace, m_name);
        WriteTextElement(writer, "Phone", elementNamespace, m_phone);
        WriteTextElement(writer, "Note", elementNamespace, m_note);
        writer->WriteEndElement();
    }

    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* cursor, const CXmlSerializationContext&, bool) override
    {
        return cursor;
    }

private:
    static void WriteTextElement(CXmlWriter* writer, const char* name, const char* ns, const std::string& text)
    {
        writer->WriteStartElement(name, ns);
        writer->WriteString(text, ItemTypeString);
        writer->WriteEndElement();
    }

    std::string m_name;
    std::string m_phone;
    std::string m_note;
};

int main()
{
    // Generated code registers the generator version before its first object.
    RegisterGeneratorVersion(9, 0);

    CSmartPtr<ContactCard> card(new ContactCard("Ada Example", "+44 20 7946 0000", "Prefers \"email\" & <post>"));

    std::cout << "Formatted, with the namespace as the document default:\n";
    CXmlSerializationContext context;
    context.SetDefaultNamespaceURI("urn:example:contacts");
    context.GetProcessingInstructions().push_back("<?xml-stylesheet href=\"card.xsl\"?>");
    std::cout << card->ToXml(true, true, EOLTypeLF, context) << '\n';

    std::cout << "Compact, with a namespace alias:\n";
    CXmlSerializationContext compact;
    compact.GetNamespaceAliases().Add("c", "urn:example:contacts");
    std::cout << card->ToXml(false, false, EOLTypeLF, compact) << "\n\n";

    try {
        CXmlObjectBase::Throw_IfPropertyIsNull(nullptr, "Name");
    } catch (const CNxException& e) {
        std::cout << "A failure reads: " << e.GetFullMessage() << '\n';
    }
    return 0;
}
