// The layout of the generated files: enumerations, class declarations and
// definitions, the factories and the entry functions.
#include <set>
#include <sstream>

#include "Emitter.h"
#include "SupportCode.h"

namespace nxxsd {

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


std::string EmitHeader(const Model& model, int file) { return Emitter(model, file).Header(); }
std::string EmitSource(const Model& model, int file) { return Emitter(model, file).Source(); }

} // namespace nxxsd
