// The parts of the code emitter: C++ text of names and values, and the
// emitter of one output file, whose member code and file layout live in
// MemberCode.cpp and CodeEmitter.cpp.
#pragma once

#include <cctype>
#include <cstdio>
#include <ostream>
#include <string>

#include "CodeEmitter.h"
#include "Naming.h"

namespace nxxsd {

// A C++ string literal of any text.
inline std::string Quote(const std::string& text)
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

inline std::string QuoteOrNull(const std::string& text) { return text.empty() ? "nullptr" : Quote(text); }

inline const char* RuleName(int rule)
{
    switch (rule) {
    case 1: return "NxXmlLib9::CWhitespaceUtils::WhitespaceRulePreserve";
    case 2: return "NxXmlLib9::CWhitespaceUtils::WhitespaceRuleReplace";
    case 3: return "NxXmlLib9::CWhitespaceUtils::WhitespaceRuleCollapse";
    }
    return "NxXmlLib9::CWhitespaceUtils::WhitespaceRuleNone";
}

inline std::string Restrictions(const Facets& f)
{
    if (f.Empty())
        return "NxXmlLib9::CPrimitiveRestrictions()";
    return "NxXmlLib9::CPrimitiveRestrictions(" + QuoteOrNull(f.pattern) + ", " + std::to_string(f.minLength) + ", " +
           std::to_string(f.maxLength) + ", " + QuoteOrNull(f.minInclusive) + ", " + QuoteOrNull(f.maxInclusive) +
           ", " + QuoteOrNull(f.minExclusive) + ", " + QuoteOrNull(f.maxExclusive) + ", " +
           std::to_string(f.length) + ")";
}

// The name of the CConversions function that reads a primitive from text.
inline std::string ConversionOf(const std::string& suffix)
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

// The namespace a wildcard's new content gets, one the wildcard admits.
inline std::string AnyDefaultNamespace(const ClassModel& cls, const Member& m)
{
    return "NxXmlLib9Data::CElementInfo::GetAnyDefaultNamespace(" + Quote(m.wildcard) + ", " + Quote(cls.typeNs) +
           ", " + Quote(cls.typeNs) + ").c_str()";
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

} // namespace nxxsd
