// The code of one member of a generated class: its field, its reset, its
// branch of AccessProperty, and its element or attribute record.
#include "Emitter.h"

namespace nxxsd {

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
        // long is wider than 32 bits here: xs:int and xs:unsignedInt keep their range.
        if (s == "I4")
            check = "NxXsdSupport::CheckRange(" + Quote(m.xmlName) +
                    ", value.GetI4(), -2147483647L - 1, 2147483647L);\n            ";
        else if (s == "UI4")
            check = "NxXsdSupport::CheckRange(" + Quote(m.xmlName) + ", value.GetUI4(), 0UL, 4294967295UL);\n            ";
        if (m.fixed)
            check += "static const std::string fixedValue = NxXsdSupport::Canonical" + s + "(" + Quote(m.defaultValue) +
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


} // namespace nxxsd
