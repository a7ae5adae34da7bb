// A program built against the installed library only.
#include <NxXmlLib9.h>

#include <iostream>

namespace {
class Greeting : public NxXmlLib9::CXmlObjectBase {
public:
    NxXmlLib9::CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return ""; }
    std::string GetNamespace() const override { return ""; }

protected:
    void ToXml_Int(NxXmlLib9::CXmlWriter* writer, bool, const char* elementNamespace,
                   const NxXmlLib9::CXmlSerializationContext&, bool) const override
    {
        writer->WriteStartElement("greeting", elementNamespace);
        writer->WriteString("installed", NxXmlLib9::ItemTypeString);
        writer->WriteEndElement();
    }
    NxXmlLib9::CXmlElement* FromXml_Int(NxXmlLib9::CXmlElement*, NxXmlLib9::CXmlElement* cursor,
                                        const NxXmlLib9::CXmlSerializationContext&, bool) override
    {
        return cursor;
    }
};
} // namespace

int main()
{
    NxXmlLib9::RegisterGeneratorVersion(9, 0);
    NxXmlLib9::CSmartPtr<Greeting> greeting(new Greeting);
    std::cout << greeting->ToXml(false, false) << std::endl;
    return 0;
}
