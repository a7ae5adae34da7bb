// Simple types: built-ins, restrictions with their facets, enumerations.
#include "SchemaNodes.h"

namespace nxxsd {

// ---- Simple types -----------------------------------------------------------

SimpleModel SchemaReader::SimpleFor(const QName& name, const Doc* doc, Node node)
{
    SimpleModel simple;
    if (name.ns == kXsdNamespace) {
        if (!LookupBuiltin(name.name, simple))
            Fail(doc, node, "unknown built-in simple type xs:" + name.name);
        return simple;
    }
    const auto cached = m_simpleCache.find(name);
    if (cached != m_simpleCache.end())
        return cached->second;
    if (m_simpleBusy[name])
        Fail(doc, node, "a simple type derived from itself");
    m_simpleBusy[name] = true;
    const Component& component = Find(m_simpleTypes, name, doc, node, "simple type");
    simple = BuildSimple(component.node, component.doc, name.name);
    m_simpleCache[name] = simple;
    return simple;
}

SimpleModel SchemaReader::BuildSimple(Node node, Doc* doc, const std::string& hint)
{
    const auto known = m_nodeSimples.find(node);
    if (known != m_nodeSimples.end())
        return known->second;
    SimpleModel simple;
    if (Node restriction = ChildNamed(node, "restriction")) {
        if (HasAttr(restriction, "base"))
            simple = SimpleFor(Resolve(doc, restriction, "base"), doc, restriction);
        else if (Node inner = ChildNamed(restriction, "simpleType"))
            simple = BuildSimple(inner, doc, hint + "_base");
        else
            Fail(doc, restriction, "a restriction without a base type");
        ApplyFacets(simple, restriction, doc, hint);
    } else if (ChildNamed(node, "list") || ChildNamed(node, "union")) {
        // A list or a union is read as its whole text.
        LookupBuiltin("token", simple);
    } else {
        Fail(doc, node, "a simple type without restriction, list or union");
    }
    m_nodeSimples[node] = simple;
    return simple;
}

void SchemaReader::ApplyFacets(SimpleModel& simple, Node restriction, Doc* doc, const std::string& hint)
{
    std::vector<std::string> values;
    std::string patterns;
    int patternCount = 0;
    Facets& facets = simple.facets;
    for (Node facet : Children(restriction)) {
        const std::string& kind = facet->GetLocalName();
        const std::string& value = Attr(facet, "value");
        if (kind == "simpleType")
            continue;
        if (kind == "enumeration")
            values.push_back(value);
        else if (kind == "pattern")
            patterns += (patternCount++ ? "|" : "") + std::string("(") + value + ")";
        else if (kind == "length")
            facets.length = std::atoi(value.c_str());
        else if (kind == "minLength")
            facets.minLength = std::atoi(value.c_str());
        else if (kind == "maxLength")
            facets.maxLength = std::atoi(value.c_str());
        else if (kind == "minInclusive")
            facets.minInclusive = value;
        else if (kind == "maxInclusive")
            facets.maxInclusive = value;
        else if (kind == "minExclusive")
            facets.minExclusive = value;
        else if (kind == "maxExclusive")
            facets.maxExclusive = value;
        else if (kind == "whiteSpace")
            simple.whitespace = value == "preserve" ? 1 : value == "replace" ? 2 : 3;
        else if (kind == "totalDigits" || kind == "fractionDigits")
            Warn(doc, facet, "the facet " + kind + " is not checked");
        else if (kind == "attribute" || kind == "attributeGroup" || kind == "anyAttribute" ||
                 kind == "sequence" || kind == "choice" || kind == "all" || kind == "group")
            continue; // content of a complex restriction, read elsewhere
        else
            Fail(doc, facet, "unknown facet");
    }
    if (patternCount) {
        if (!facets.pattern.empty())
            Warn(doc, restriction, "the pattern replaces the one of the base type, which is not checked");
        facets.pattern = patternCount == 1 ? patterns.substr(1, patterns.size() - 2) : patterns;
    }
    if (values.empty())
        return;
    auto enumeration = std::make_unique<EnumModel>();
    enumeration->cppName = m_typeNames.Claim(MakeIdentifier(hint));
    enumeration->file = doc->file;
    NameScope enumerators;
    for (const std::string& value : values) {
        bool duplicate = false;
        for (const std::string& earlier : enumeration->values)
            duplicate = duplicate || earlier == value;
        if (duplicate)
            continue;
        enumeration->values.push_back(value);
        enumeration->cppValues.push_back(
            enumerators.Claim(enumeration->cppName + "_" + MakeIdentifier(value.empty() ? "empty" : value)));
    }
    simple.enumeration = enumeration.get();
    m_model.enums.push_back(std::move(enumeration));
}

} // namespace nxxsd
