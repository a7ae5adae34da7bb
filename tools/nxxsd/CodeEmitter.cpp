#include "CodeEmitter.h"

#include <cctype>
#include <set>
#include <sstream>

#include "Naming.h"
#include "SupportCode.h"

namespace nxxsd {

namespace {

// A C++ string literal of any text.
std::string Quote(const std::string& text)
{
    std::string quoted = "\"";
    for (unsigned char c : text) {
        if (c == '"' || c == '\\')
            quoted += '\\', quoted += char(c);
        else if (c < 0x20 || c >= 0x7f) {
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\%03o", c);
            quoted += escape;
        } else
            quoted += char(c);
    }
    return quoted + "\"";
}

std::string QuoteOrNull(const std::string& text) { return text.empty() ? "nullptr" : Quote(text); }

const char* RuleName(int rule)
{
    switch (rule) {
    case 1: return "NxXmlLib9::CWhitespaceUtils::WhitespaceRulePreserve";
    case 2: return "NxXmlLib9::CWhitespaceUtils::WhitespaceRuleReplace";
    case 3: return "NxXmlLib9::CWhitespaceUtils::WhitespaceRuleCollapse";
    }
    return "NxXmlLib9::CWhitespaceUtils::WhitespaceRuleNone";
}

std::string Restrictions(const Facets& f)
{
    if (f.Empty())
        return "NxXmlLib9::CPrimitiveRestrictions()";
    return "NxXmlLib9::CPrimitiveRestrictions(" + QuoteOrNull(f.pattern) + ", " + std::to_string(f.minLength) + ", " +
           std::to_string(f.maxLength) + ", " + QuoteOrNull(f.minInclusive) + ", " + QuoteOrNull(f.maxInclusive) +
           ", " + QuoteOrNull(f.minExclusive) + ", " + QuoteOrNull(f.maxExclusive) + ", " +
           std::to_string(f.length) + ")";
}

// The name of the CConversions function that reads a primitive from text.
std::string ConversionOf(const std::string& suffix)
{
    if (suffix == "DateTime")
        return "datetime";
    std::string name = suffix;
    if (name.size() >= 2 && std::isupper(static_cast<unsigned char>(name[1])))
        for (char& c : name)
            c = static_cast<char>(std::tolower(static_cast<unsigned char>(c))); // I4 -> i4, UI8 -> ui8
    else
        name[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(name[0])));
    return name + "FromString";
}

class Emitter {
public:
    Emitter(const Model& model, int file) : m_model(model), m_file(file) {}

    std::string Header();
    std::string Source();

private:
    const OutputFile& File() const { return m_model.files[m_file]; }
    // A name of another output file's namespace is written in full.
    // Always in full: a field may bear the name of a type.
    std::string Qualify(const std::string& name, int file) const
    {
        return "::" + m_model.files[file].cppNamespace + "::" + name;
    }
    std::string ClassRef(const ClassModel* cls) const { return Qualify(cls->cppName, cls->file); }
    std::string EnumRef(const EnumModel* e) const { return Qualify(e->cppName, e->file); }
    std::string FactoryName(int file) const
    {
        return Qualify(FactoryBaseName(file), file);
    }
    std::string AliasFunctionName() const { return "Add" + MakeIdentifier(File().baseName) + "NamespaceAliases"; }
    std::string FactoryBaseName(int file) const
    {
        return "Create" + MakeIdentifier(m_model.files[file].baseName) + "Object";
    }
    std::string FieldType(const Member& m) const;
    std::string FieldDeclaration(const Member& m) const;
    void EmitEnum(std::ostream& out, const EnumModel& e, bool definition) const;
    void EmitClassDeclaration(std::ostream& out, const ClassModel& cls) const;
    void EmitClassDefinition(std::ostream& out, const ClassModel& cls) const;
    std::string InitOf(const ClassModel& cls, const Member& m) const;
    std::string AccessOf(const Member& m) const;
    std::string ElementRecord(const ClassModel& cls, const Member& m, int index) const;
    std::string AttributeRecord(const ClassModel& cls, const Member& m, int index) const;
    bool RequiresContent(const ClassModel& cls) const;
    std::string TextCheck(const ClassModel& cls) const;

    const Model& m_model;
    int m_file;
};

std::string Emitter::FieldType(const Member& m) const
{
    const std::string item = m.kind == Kind::Enum ? EnumRef(m.simple.enumeration) : m.simple.primitive.cppType;
    switch (m.kind) {
    case Kind::Prim:
    case Kind::Enum:
        if (m.occurs == Occurs::Col)
            return m.kind == Kind::Enum ? "NxXmlLib9::CSmartPtr<NxXsdSupport::EnumCol>"
                                        : "NxXmlLib9::CSmartPtr<NxXmlLib9::" + m.simple.primitive.collection + ">";
        return m.occurs == Occurs::Opt ? "std::optional<" + item + ">" : item;
    case Kind::Cls:
        if (m.occurs == Occurs::Col)
            return std::string("NxXmlLib9::CSmartPtr<NxXsdSupport::") + (m.pseudo ? "PseudoCol<" : "ObjectCol<") +
                   ClassRef(m.cls) + ">>";
        return "NxXmlLib9::CSmartPtr<" + ClassRef(m.cls) + ">";
    case Kind::AbsCls:
        if (m.occurs == Occurs::Col)
            return "NxXmlLib9::CSmartPtr<NxXsdSupport::ObjectCol<NxXmlLib9::CXmlGeneratedClass>>";
        return "NxXmlLib9::CSmartPtr<NxXmlLib9::CXmlGeneratedClass>";
    case Kind::Untpd:
        return m.occurs == Occurs::Col ? "NxXmlLib9::CSmartPtr<NxXmlLib9::CElementCol>"
                                       : "NxXmlLib9::CSmartPtr<NxXmlLib9::CElement>";
    case Kind::AnyAttr:
        return "NxXmlLib9::CSmartPtr<NxXmlLib9::CAttributeCol>";
    }
    return "";
}

std::string Emitter::FieldDeclaration(const Member& m) const
{
    std::string comment;
    if (m.kind == Kind::AnyAttr)
        comment = "any attribute (" + m.wildcard + ")";
    else if (m.xmlName == "AnyElement" && m.kind == Kind::Untpd)
        comment = "any element (" + m.wildcard + ")";
    else
        comment = (m.ns.empty() ? "" : "{" + m.ns + "}") + m.xmlName;
    if (m.occurs == Occurs::Col)
        comment += " [" + std::to_string(m.minOccurs) + ".." +
                   (m.maxOccurs < 0 ? std::string("*") : std::to_string(m.maxOccurs)) + "]";
    return "    " + FieldType(m) + " " + m.cppName + ";  // " + comment + "\n";
}

void Emitter::EmitEnum(std::ostream& out, const EnumModel& e, bool definition) const
{
    if (!definition) {
        out << "enum " << e.cppName << " : int {\n";
        for (size_t i = 0; i < e.values.size(); ++i)
            out << "    " << e.cppValues[i] << " = " << i << ",  // " << e.values[i] << "\n";
        out << "};\n";
        out << "const char* " << e.cppName << "ToText(int value);\n";
        out << "int " << e.cppName << "FromText(const char* text);\n\n";
        return;
    }
    out << "namespace {\nconst char* const k" << e.cppName << "Names[] = {";
    for (size_t i = 0; i < e.values.size(); ++i)
        out << (i ? ", " : "") << Quote(e.values[i]);
    out << "};\n}\n";
    out << "const char* " << e.cppName << "ToText(int value)\n{\n    return NxXsdSupport::EnumToText(value, k"
        << e.cppName << "Names, " << e.values.size() << ", " << Quote(e.cppName) << ");\n}\n";
    out << "int " << e.cppName << "FromText(const char* text)\n{\n    return NxXsdSupport::EnumFromText(text, k"
        << e.cppName << "Names, " << e.values.size() << ", " << Quote(e.cppName) << ");\n}\n\n";
}

void Emitter::EmitClassDeclaration(std::ostream& out, const ClassModel& cls) const
{
    out << "// " << (cls.pseudo ? "Nested group" : "Type") << " " << cls.typeName
        << (cls.typeNs.empty() ? "" : " in " + cls.typeNs) << "\n";
    out << "class " << cls.cppName << " : public NxXmlLib9::CXmlGeneratedClass"
        << (cls.nillable ? ", public NxXmlLib9::INillable" : "") << " {\npublic:\n";
    out << "    explicit " << cls.cppName << "(const char* elementName = " << Quote(cls.elementName) << ");\n";
    out << "    ~" << cls.cppName << "() override;\n";
    out << "    NxXmlLib9::CXmlObjectBase* GetBase() override;\n"
           "    std::string GetTargetNamespace() const override;\n"
           "    std::string GetNamespace() const override;\n"
           "    void AccessProperty(int index, bool read, NxXmlLib9::NxVariant& value) override;\n"
           "    NxXmlLib9Data::CParentElementInfo* GetClassInfo() const override;\n"
           "    NxXmlLib9Data::CElementInfo** GetClassElementInfo() const override;\n"
           "    NxXmlLib9Data::CAttributeInfo** GetClassAttributeInfo() const override;\n"
           "    void Init() override;\n";
    out << "    // The namespace of the element when the object is the root of a document: the type's own\n"
           "    // unless a global element of another namespace has this type (static text only).\n"
           "    void SetDocumentNamespace(const char* ns) { m_documentNamespace = ns; }\n";
    if (cls.nillable)
        out << "    bool IsNil() const override { return m_nil; }\n"
               "    void SetNil(bool nil) override { m_nil = nil; }\n";
    out << "    // A new object for the element, of the class its xsi:type names.\n"
           "    static NxXmlLib9::CSmartPtr<NxXmlLib9::CXmlObjectBase> CreateFromElement(NxXmlLib9::CXmlElement* "
           "element);\n\n";
    for (const Member& m : cls.elements)
        out << FieldDeclaration(m);
    for (const Member& m : cls.attributes)
        out << FieldDeclaration(m);
    if (cls.hasText)
        out << "    std::string Content;  // the text content\n";
    if (cls.nillable)
        out << "    bool m_nil = false;\n";
    out << "\nprivate:\n    const char* m_documentNamespace = " << Quote(cls.typeNs) << ";\n";
    out << "};\n\n";
}

// The namespace a wildcard's new content gets, one the wildcard admits.
std::string AnyDefaultNamespace(const ClassModel& cls, const Member& m)
{
    return "NxXmlLib9Data::CElementInfo::GetAnyDefaultNamespace(" + Quote(m.wildcard) + ", " + Quote(cls.typeNs) +
           ", " + Quote(cls.typeNs) + ").c_str()";
}

std::string Emitter::InitOf(const ClassModel& cls, const Member& m) const
{
    const std::string ns = Quote(m.ns);
    const std::string bounds = std::to_string(m.minOccurs) + ", " + std::to_string(m.maxOccurs);
    if (m.occurs == Occurs::Col) {
        switch (m.kind) {
        case Kind::Prim: {
            const Facets& f = m.simple.facets;
            return "new NxXmlLib9::" + m.simple.primitive.collection + "(" + Quote(m.xmlName) + ", " + ns + ", " +
                   bounds + ", " + QuoteOrNull(f.pattern) + ", " + std::to_string(f.minLength) + ", " +
                   std::to_string(f.maxLength) + ", " + QuoteOrNull(f.minInclusive) + ", " +
                   QuoteOrNull(f.maxInclusive) + ", " + QuoteOrNull(f.minExclusive) + ", " +
                   QuoteOrNull(f.maxExclusive) + ", " + std::to_string(f.length) + ", " + RuleName(m.simple.whitespace) +
                   ", nullptr)";
        }
        case Kind::Enum: {
            const std::string e = EnumRef(m.simple.enumeration);
            return "new NxXsdSupport::EnumCol(" + Quote(m.xmlName) + ", " + ns + ", " + bounds + ", &" + e +
                   "ToText, &" + e + "FromText)";
        }
        case Kind::Cls:
            if (m.pseudo)
                return "new NxXsdSupport::PseudoCol<" + ClassRef(m.cls) + ">(" + Quote(m.xmlName) + ", " + ns + ", " +
                       bounds + ")";
            return "new NxXsdSupport::ObjectCol<" + ClassRef(m.cls) + ">(" + Quote(m.xmlName) + ", " + ns + ", " +
                   bounds + ", &" + ClassRef(m.cls) + "::CreateFromElement)";
        case Kind::AbsCls:
            return "new NxXsdSupport::ObjectCol<NxXmlLib9::CXmlGeneratedClass>(" + Quote(m.xmlName) + ", " + ns +
                   ", " + bounds + ", &" + ClassRef(m.cls) + "::CreateFromElement)";
        case Kind::Untpd:
            if (m.xmlName == "AnyElement")
                return "new NxXmlLib9::CElementCol(" + AnyDefaultNamespace(cls, m) + ", " + Quote(m.wildcard) + ", " +
                       Quote(cls.typeNs) + ", " + bounds + ")";
            return "new NxXmlLib9::CElementCol(" + ns + ", \"##any\", " + Quote(cls.typeNs) + ", " + bounds + ")";
        case Kind::AnyAttr: break;
        }
    }
    switch (m.kind) {
    case Kind::Prim:
    case Kind::Enum:
        return m.occurs == Occurs::Opt ? "std::nullopt" : "{}";
    case Kind::Cls:
        return m.occurs == Occurs::Mnd ? "new " + ClassRef(m.cls) + "(" + Quote(m.pseudo ? m.cls->elementName : m.xmlName) + ")"
                                       : "nullptr";
    case Kind::AbsCls:
        return m.occurs == Occurs::Mnd && !m.cls->isAbstract
                   ? "new " + ClassRef(m.cls) + "(" + Quote(m.xmlName) + ")"
                   : "nullptr";
    case Kind::Untpd:
        if (m.occurs == Occurs::Opt)
            return "nullptr";
        if (m.xmlName == "AnyElement")
            return "new NxXmlLib9::CElement(\"AnyElement\", " + AnyDefaultNamespace(cls, m) + ", " +
                   Quote(m.wildcard) + ", " + Quote(cls.typeNs) + ")";
        return "new NxXmlLib9::CElement(" + Quote(m.xmlName) + ", " + ns + ")";
    case Kind::AnyAttr:
        return "new NxXmlLib9::CAttributeCol(" + AnyDefaultNamespace(cls, m) + ", " + Quote(m.wildcard) + ", " +
               Quote(cls.typeNs) + ")";
    }
    return "{}";
}

std::string Emitter::AccessOf(const Member& m) const
{
    const std::string& f = m.cppName;
    if (m.occurs == Occurs::Col)
        return "value.SetXmlCollection(" + f + ");";
    switch (m.kind) {
    case Kind::Prim: {
        const std::string& s = m.simple.primitive.suffix;
        // A value read from a document meets the facets before it is kept;
        // the library itself checks them only when it writes.
        std::string check;
        if (m.fixed)
            check = "static const std::string fixedValue = NxXsdSupport::Canonical" + s + "(" + Quote(m.defaultValue) +
                    ", &NxXmlLib9::CConversions::" + ConversionOf(s) + ", " + RuleName(m.simple.whitespace) +
                    ");\n            NxXsdSupport::CheckFixed(" + Quote(m.xmlName) +
                    ", value.ToString(nullptr), fixedValue);\n            ";
        if (!m.simple.facets.Empty())
            check += "static const NxXmlLib9::CPrimitiveRestrictions facets = " + Restrictions(m.simple.facets) +
                    ";\n            NxXmlLib9::CXmlObjectHelper::CheckRestriction(" + Quote(m.xmlName) +
                    ", value, NxXmlLib9::ItemType" + s + ", facets);\n            ";
        if (m.occurs == Occurs::Mnd)
            return "if (read) {\n            value.Set" + s + "(" + f + ");\n        } else {\n            " + check +
                   f + " = value.Get" + s + "();\n        }";
        return "if (read) {\n            if (" + f + ")\n                value.Set" + s + "(*" + f +
               ");\n        } else if (value.IsValid()) {\n            " + check + f + " = value.Get" + s +
               "();\n        } else {\n            " + f + ".reset();\n        }";
    }
    case Kind::Enum: {
        const std::string e = EnumRef(m.simple.enumeration);
        if (m.fixed) {
            const std::string check = "if (value.IsValid() && value.GetI4() != " + e + "FromText(" +
                                      Quote(m.defaultValue) + "))\n            NxXsdSupport::CheckFixed(" +
                                      Quote(m.xmlName) + ", " + e + "ToText(value.GetI4()), " +
                                      Quote(m.defaultValue) + ");\n        ";
            return check + "if (read) {\n            if (" + f + ")\n                value.SetI4(*" + f +
                   ");\n        } else if (value.IsValid()) {\n            " + f + " = static_cast<" + e +
                   ">(value.GetI4());\n        } else {\n            " + f + ".reset();\n        }";
        }
        if (m.occurs == Occurs::Mnd)
            return "if (read)\n            value.SetI4(" + f + ");\n        else\n            " + f +
                   " = static_cast<" + e + ">(value.GetI4());";
        return "if (read) {\n            if (" + f + ")\n                value.SetI4(*" + f +
               ");\n        } else if (value.IsValid()) {\n            " + f + " = static_cast<" + e +
               ">(value.GetI4());\n        } else {\n            " + f + ".reset();\n        }";
    }
    case Kind::AnyAttr:
        return "value.SetXmlCollection(" + f + ");";
    default: {
        const std::string type = m.kind == Kind::Cls     ? ClassRef(m.cls)
                                 : m.kind == Kind::AbsCls ? std::string("NxXmlLib9::CXmlGeneratedClass")
                                                          : std::string("NxXmlLib9::CElement");
        return "if (read) {\n            value.SetXmlObject(" + f +
               ");\n        } else {\n            NxXmlLib9::CSmartPtr<NxXmlLib9::CXmlObjectBase> object = "
               "value.GetXmlObject();\n            " + f + " = object ? dynamic_cast<" + type +
               "*>(static_cast<NxXmlLib9::CXmlObjectBase*>(object)) : nullptr;\n        }";
    }
    }
}

// Simple content is kept as text; on reading, the text must still be a
// value of its type that meets the facets.
std::string Emitter::TextCheck(const ClassModel& cls) const
{
    if (!cls.typedText)
        return "";
    const SimpleModel& t = cls.textType;
    if (t.enumeration)
        return "            " + EnumRef(t.enumeration) + "FromText(NxXmlLib9::CWhitespaceUtils::ApplyRule(" +
               "NxXmlLib9::CWhitespaceUtils::WhitespaceRuleCollapse, value.GetString()).c_str());\n";
    if (t.primitive.suffix == "String" && t.facets.Empty())
        return "";
    std::string check = "            NxXmlLib9::NxVariant typed;\n            typed.Set" + t.primitive.suffix +
                        "(NxXmlLib9::CConversions::" + ConversionOf(t.primitive.suffix) + "(value.GetString(), " +
                        RuleName(t.whitespace) + "));\n";
    if (!t.facets.Empty())
        check += "            static const NxXmlLib9::CPrimitiveRestrictions facets = " + Restrictions(t.facets) +
                 ";\n            NxXmlLib9::CXmlObjectHelper::CheckRestriction(" + Quote(cls.elementName) +
                 ", typed, NxXmlLib9::ItemType" + t.primitive.suffix + ", facets);\n";
    return check;
}

bool Emitter::RequiresContent(const ClassModel& cls) const
{
    bool any = false, all = true;
    for (const Member& m : cls.elements) {
        const bool required = m.pseudo ? m.minOccurs > 0 && RequiresContent(*m.cls) : m.minOccurs > 0;
        any = any || required;
        all = all && required;
    }
    return cls.group == Group::Choice ? all && !cls.elements.empty() : any;
}

std::string Emitter::ElementRecord(const ClassModel& cls, const Member& m, int index) const
{
    static const char* const families[] = {"Seq", "Choice", "All"};
    static const char* const kinds[] = {"Prim", "Enum", "Cls", "AbsCls", "Untpd", "AnyAttr"};
    static const char* const occurrences[] = {"Mnd", "Opt", "Col"};
    const std::string record = std::string("NxXmlLib9Data::CElementInfo") + families[int(cls.group)] +
                               kinds[int(m.kind)] + occurrences[int(m.occurs)];
    const bool wildcard = m.kind == Kind::Untpd && m.xmlName == "AnyElement";
    std::string args = Quote(m.xmlName) + ", " + (wildcard ? std::string("\"\"") : Quote(m.ns)) + ", " +
                       std::to_string(index);
    const std::string elementType =
        m.pseudo ? "NxXmlLib9Data::XmlElementType_Pseudo" : "NxXmlLib9Data::XmlElementType_Element";
    if (m.occurs == Occurs::Col) {
        if (m.kind == Kind::Cls || m.kind == Kind::AbsCls)
            args += ", " + elementType;
        return "new " + record + "(" + args + ")";
    }
    switch (m.kind) {
    case Kind::Prim:
        args += ", NxXmlLib9::ItemType" + m.simple.primitive.suffix + ", nullptr, " + RuleName(m.simple.whitespace) +
                ", " + Restrictions(m.simple.facets);
        break;
    case Kind::Enum: {
        const std::string e = EnumRef(m.simple.enumeration);
        args += ", &" + e + "ToText, &" + e + "FromText";
        break;
    }
    case Kind::Cls:
        args += ", " + elementType + ", &" + FactoryName(m.cls->file) + ", " + std::to_string(m.cls->number);
        if (m.occurs == Occurs::Mnd)
            args += m.pseudo && !RequiresContent(*m.cls) ? ", false" : ", true";
        break;
    case Kind::AbsCls:
        args += ", " + elementType + ", &" + ClassRef(m.cls) + "::CreateFromElement";
        break;
    case Kind::Untpd:
        args += ", " + Quote(m.wildcard) + ", " + Quote(cls.typeNs);
        break;
    case Kind::AnyAttr: break;
    }
    return "new " + record + "(" + args + ")";
}

std::string Emitter::AttributeRecord(const ClassModel& cls, const Member& m, int index) const
{
    const std::string head = Quote(m.xmlName) + ", " + Quote(m.ns) + ", " + std::to_string(index) + ", " +
                             (m.occurs == Occurs::Mnd ? "false" : "true");
    const std::string defaultValue = m.hasDefault ? Quote(m.defaultValue) : "nullptr";
    switch (m.kind) {
    case Kind::Enum: {
        const std::string e = EnumRef(m.simple.enumeration);
        return "new NxXmlLib9Data::CAttributeInfoEnum(" + head + ", &" + e + "ToText, &" + e + "FromText, " +
               defaultValue + ")";
    }
    case Kind::AnyAttr:
        return "new NxXmlLib9Data::CAttributeInfoAny(\"AnyAttribute\", \"\", " + std::to_string(index) + ", true, " +
               Quote(m.wildcard) + ", " + Quote(cls.typeNs) + ", nullptr)";
    default:
        return "new NxXmlLib9Data::CAttributeInfoPrimitive(" + head + ", NxXmlLib9::ItemType" +
               m.simple.primitive.suffix + ", nullptr, " + RuleName(m.simple.whitespace) + ", " +
               Restrictions(m.simple.facets) + ", " + defaultValue + ")";
    }
}

void Emitter::EmitClassDefinition(std::ostream& out, const ClassModel& cls) const
{
    const std::string& name = cls.cppName;
    const int elementCount = static_cast<int>(cls.elements.size());
    const int attributeCount = static_cast<int>(cls.attributes.size());
    const int textIndex = cls.hasText ? elementCount + attributeCount : -1;
    const bool rejectUnknown = !cls.pseudo && !cls.HasPseudoChildren();
    const bool mayWriteType = cls.base != nullptr || cls.Substitutable();

    out << "// ---- " << name << " ----\n\n";
    out << "namespace {\nvoid Build" << name
        << "Tables(NxXmlLib9Data::CParentElementInfo*& info, NxXmlLib9Data::CElementInfo**& elements,\n"
        << "        NxXmlLib9Data::CAttributeInfo**& attributes)\n{\n";
    out << "    info = new NxXmlLib9Data::CParentElementInfo(NxXmlLib9Data::XmlElementGroupType_"
        << (cls.group == Group::Sequence ? "Sequence" : cls.group == Group::Choice ? "Choice" : "All")
        << ", NxXmlLib9Data::XmlElementType_" << (cls.pseudo ? "Pseudo" : "Element") << ", " << Quote(cls.typeName)
        << ", " << Quote(cls.typeNs) << ", " << textIndex << ", " << (rejectUnknown ? "true" : "false") << ", "
        << (mayWriteType ? "true" : "false") << ");\n";
    out << "    elements = new NxXmlLib9Data::CElementInfo*[" << elementCount + 1 << "];\n";
    for (int i = 0; i < elementCount; ++i)
        out << "    elements[" << i << "] = " << ElementRecord(cls, cls.elements[i], i) << ";\n";
    out << "    elements[" << elementCount << "] = nullptr;\n";
    out << "    attributes = new NxXmlLib9Data::CAttributeInfo*[" << attributeCount + 1 << "];\n";
    for (int i = 0; i < attributeCount; ++i)
        out << "    attributes[" << i << "] = " << AttributeRecord(cls, cls.attributes[i], elementCount + i) << ";\n";
    out << "    attributes[" << attributeCount << "] = nullptr;\n}\n";
    out << "NxXsdSupport::Tables g" << name << "Tables(&Build" << name << "Tables);\n} // namespace\n\n";

    out << name << "::" << name << "(const char* elementName)\n{\n    SetElementName(elementName);\n    Init();\n}\n\n";
    out << name << "::~" << name << "() = default;\n\n";
    out << "NxXmlLib9::CXmlObjectBase* " << name << "::GetBase()\n{\n    return this;\n}\n\n";
    out << "std::string " << name << "::GetTargetNamespace() const\n{\n    return m_documentNamespace;\n}\n\n";
    out << "std::string " << name << "::GetNamespace() const\n{\n    return " << Quote(cls.typeNs) << ";\n}\n\n";
    out << "NxXmlLib9Data::CParentElementInfo* " << name << "::GetClassInfo() const\n{\n    return g" << name
        << "Tables.Ensure().info;\n}\n\n";
    out << "NxXmlLib9Data::CElementInfo** " << name << "::GetClassElementInfo() const\n{\n    return g" << name
        << "Tables.Ensure().elements;\n}\n\n";
    out << "NxXmlLib9Data::CAttributeInfo** " << name << "::GetClassAttributeInfo() const\n{\n    return g" << name
        << "Tables.Ensure().attributes;\n}\n\n";

    out << "void " << name << "::Init()\n{\n";
    for (const Member& m : cls.elements)
        out << "    " << m.cppName << " = " << InitOf(cls, m) << ";\n";
    for (const Member& m : cls.attributes)
        out << "    " << m.cppName << " = " << InitOf(cls, m) << ";\n";
    if (cls.hasText)
        out << "    Content.clear();\n";
    if (cls.nillable)
        out << "    m_nil = false;\n";
    out << "}\n\n";

    out << "void " << name << "::AccessProperty(int index, bool read, NxXmlLib9::NxVariant& value)\n{\n";
    out << "    (void)read; // collections and required children are the same either way\n";
    if (elementCount + attributeCount == 0 && !cls.hasText)
        out << "    (void)index;\n    (void)value;\n";
    else {
        out << "    switch (index) {\n";
        int index = 0;
        for (const std::vector<Member>* members : {&cls.elements, &cls.attributes})
            for (const Member& m : *members) {
                out << "    case " << index++ << ":\n        " << AccessOf(m) << "\n        break;\n";
            }
        if (cls.hasText)
            out << "    case " << textIndex << ":\n        if (read) {\n            value.SetString(Content);\n"
                << "        } else {\n" << TextCheck(cls) << "            Content = value.GetString();\n        }\n"
                << "        break;\n";
        out << "    default:\n        break;\n    }\n";
    }
    out << "}\n\n";

    // The factory by element: the class its xsi:type names, this one when it
    // names none.
    out << "NxXmlLib9::CSmartPtr<NxXmlLib9::CXmlObjectBase> " << name
        << "::CreateFromElement(NxXmlLib9::CXmlElement* element)\n{\n";
    out << "    const char* elementName = element->GetLocalName().c_str();\n";
    if (!cls.derived.empty()) {
        out << "    const std::string type = NxXmlLib9::CClassfactoryBase::GetElementType(element);\n";
        out << "    const std::string typeNamespace = NxXmlLib9::CClassfactoryBase::GetElementTypeNamespaceUri(element);\n";
        std::vector<const ClassModel*> candidates {&cls};
        candidates.insert(candidates.end(), cls.derived.begin(), cls.derived.end());
        for (const ClassModel* candidate : candidates) {
            if (candidate->isAbstract)
                continue;
            out << "    if (type == " << Quote(candidate->typeName) << " && typeNamespace == "
                << Quote(candidate->typeNs) << ")\n        return new " << ClassRef(candidate) << "(elementName);\n";
        }
        // The document keeps one meaning per prefix, so a prefix declared
        // twice may name the wrong namespace: a type name that only one
        // candidate bears still decides.
        for (const ClassModel* candidate : candidates) {
            int sameName = 0;
            for (const ClassModel* other : candidates)
                sameName += other->typeName == candidate->typeName;
            if (candidate->isAbstract || sameName != 1)
                continue;
            out << "    if (type == " << Quote(candidate->typeName) << ")\n        return new " << ClassRef(candidate)
                << "(elementName);\n";
        }
        out << "    if (!type.empty())\n        return NxXmlLib9::CSmartPtr<NxXmlLib9::CXmlObjectBase>();\n";
    }
    if (cls.isAbstract)
        out << "    (void)elementName;\n    return NxXmlLib9::CSmartPtr<NxXmlLib9::CXmlObjectBase>();\n}\n\n";
    else
        out << "    return new " << name << "(elementName);\n}\n\n";
}

std::string Emitter::Header()
{
    std::ostringstream out;
    out << "// Generated by nxxsd from " << File().baseName << ".xsd. Do not edit: change the schema and run the"
        << " compiler again.\n#pragma once\n\n#include <atomic>\n#include <cstring>\n#include <optional>\n"
        << "#include <string>\n#include <vector>\n\n#include \"NxXmlLib9.h\"\n";
    for (int earlier = 0; earlier < m_file; ++earlier)
        out << "#include \"" << m_model.files[earlier].baseName << ".h\"\n";
    out << "\n" << kSupportCode << "\nnamespace " << File().cppNamespace << " {\n\n";
    for (const auto& e : m_model.enums)
        if (e->file == m_file)
            EmitEnum(out, *e, false);
    for (const auto& cls : m_model.classes)
        if (cls->file == m_file)
            out << "class " << cls->cppName << ";\n";
    out << "\n// A new object of a class of this file, by class number; null for an unknown number.\n"
        << "NxXmlLib9::CSmartPtr<NxXmlLib9::CXmlObjectBase> " << FactoryBaseName(m_file)
        << "(int classNumber, const char* elementName);\n";
    out << "// A new object for a global element of the schema, null for an unknown element.\n"
        << "NxXmlLib9::CSmartPtr<NxXmlLib9::CXmlGeneratedClass> CreateDocumentElement(const char* localName, "
           "const char* namespaceUri);\n";
    out << "// Gives every namespace of this schema a prefix of its own, declared once on the root element.\n"
        << "// Readers that keep one meaning per prefix need it when a document mixes namespaces.\n"
        << "void " << AliasFunctionName() << "(NxXmlLib9::CXmlSerializationContext& context);\n\n";
    for (const auto& cls : m_model.classes)
        if (cls->file == m_file)
            EmitClassDeclaration(out, *cls);
    out << "} // namespace " << File().cppNamespace << "\n";
    return out.str();
}

std::string Emitter::Source()
{
    std::ostringstream out;
    out << "// Generated by nxxsd from " << File().baseName << ".xsd. Do not edit.\n";
    for (const OutputFile& file : m_model.files)
        out << "#include \"" << file.baseName << ".h\"\n";
    out << "\nnamespace {\n// The library checks that it runs with code of its own version.\n"
        << "[[maybe_unused]] const bool kVersionRegistered = (NxXmlLib9::RegisterGeneratorVersion(9, 0), true);\n}\n";
    out << "\nnamespace " << File().cppNamespace << " {\n\n";
    for (const auto& e : m_model.enums)
        if (e->file == m_file)
            EmitEnum(out, *e, true);
    for (const auto& cls : m_model.classes)
        if (cls->file == m_file)
            EmitClassDefinition(out, *cls);

    out << "NxXmlLib9::CSmartPtr<NxXmlLib9::CXmlObjectBase> " << FactoryBaseName(m_file)
        << "(int classNumber, const char* elementName)\n{\n    switch (classNumber) {\n";
    for (const auto& cls : m_model.classes)
        if (cls->file == m_file && !cls->isAbstract)
            out << "    case " << cls->number << ":\n        return new " << cls->cppName << "(elementName);\n";
    out << "    default:\n        (void)elementName;\n        return NxXmlLib9::CSmartPtr<NxXmlLib9::CXmlObjectBase>();\n"
        << "    }\n}\n\n";

    std::set<std::string> namespaces;
    for (const auto& cls : m_model.classes) {
        if (cls->file != m_file)
            continue;
        namespaces.insert(cls->typeNs);
        for (const std::vector<Member>* members : {&cls->elements, &cls->attributes})
            for (const Member& m : *members)
                if (m.kind != Kind::AnyAttr && !(m.kind == Kind::Untpd && m.xmlName == "AnyElement"))
                    namespaces.insert(m.ns);
    }
    namespaces.erase("");
    namespaces.erase("http://www.w3.org/XML/1998/namespace"); // bound to xml by XML itself
    out << "void " << AliasFunctionName() << "(NxXmlLib9::CXmlSerializationContext& context)\n{\n"
        << "    context.GetNamespaceAliases().Add(\"xsi\", \"http://www.w3.org/2001/XMLSchema-instance\");\n";
    int number = 0;
    for (const std::string& ns : namespaces)
        out << "    context.GetNamespaceAliases().Add(" << Quote(MakeIdentifier(File().baseName) + std::to_string(++number))
            << ", " << Quote(ns) << ");\n";
    out << "}\n\n";

    // One CreateDocumentElement per namespace: the first file of that
    // namespace defines it for all of them.
    int first = m_file;
    for (int i = 0; i < m_file; ++i)
        if (m_model.files[i].cppNamespace == File().cppNamespace) {
            first = i;
            break;
        }
    if (first == m_file) {
        out << "NxXmlLib9::CSmartPtr<NxXmlLib9::CXmlGeneratedClass> CreateDocumentElement(const char* localName, "
               "const char* namespaceUri)\n{\n"
               "    const std::string name = localName ? localName : \"\";\n"
               "    const std::string ns = namespaceUri ? namespaceUri : \"\";\n";
        for (const GlobalElement& global : m_model.globals)
            if (m_model.files[global.file].cppNamespace == File().cppNamespace)
            {
                out << "    if (name == " << Quote(global.name) << " && ns == " << Quote(global.ns) << ") {\n"
                    << "        NxXmlLib9::CSmartPtr<" << ClassRef(global.cls) << "> object(new " << ClassRef(global.cls)
                    << "(" << Quote(global.name) << "));\n";
                if (global.ns != global.cls->typeNs)
                    out << "        object->SetDocumentNamespace(" << Quote(global.ns) << ");\n";
                out << "        return object;\n    }\n";
            }
        out << "    return NxXmlLib9::CSmartPtr<NxXmlLib9::CXmlGeneratedClass>();\n}\n\n";
    }
    out << "} // namespace " << File().cppNamespace << "\n";
    return out.str();
}

} // namespace

std::string EmitHeader(const Model& model, int file) { return Emitter(model, file).Header(); }
std::string EmitSource(const Model& model, int file) { return Emitter(model, file).Source(); }

} // namespace nxxsd
