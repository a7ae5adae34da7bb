// Loading schema files, resolving names, and the walk over all components.
#include <algorithm>

#include "SchemaNodes.h"

namespace nxxsd {

SchemaReader::SchemaReader(Model& model)
    : m_model(model), m_typeNames({"CreateDocumentElement", "NxXsdSupport", "NxXmlLib9",
                                   "NxXmlLib9Data", "std"})
{
}

SchemaReader::~SchemaReader() = default;

std::string SchemaReader::Describe(const Doc* doc, Node node) const
{
    std::string text = doc ? doc->path : std::string("(command line)");
    if (node) {
        text += ": " + node->GetLocalName();
        if (HasAttr(node, "name"))
            text += " '" + Attr(node, "name") + "'";
        else if (HasAttr(node, "ref"))
            text += " ref='" + Attr(node, "ref") + "'";
        else if (HasAttr(node, "base"))
            text += " base='" + Attr(node, "base") + "'";
    }
    return text;
}

void SchemaReader::Fail(const Doc* doc, Node node, const std::string& what) const
{
    throw CompileError {Describe(doc, node) + ": " + what};
}

void SchemaReader::Warn(const Doc* doc, Node node, const std::string& what)
{
    m_warnings.push_back(Describe(doc, node) + ": " + what);
}

std::vector<std::string> SchemaReader::Files() const
{
    std::vector<std::string> files;
    for (const auto& doc : m_docs)
        if (std::find(files.begin(), files.end(), doc->resolvedPath) == files.end())
            files.push_back(doc->resolvedPath);
    return files;
}

void SchemaReader::Load(const std::string& path, int file)
{
    LoadFile(path, file, nullptr, nullptr);
}

void SchemaReader::LoadFile(const std::string& path, int file, const std::string* chameleonNamespace, Doc* from)
{
    char resolved[PATH_MAX];
    if (!realpath(path.c_str(), resolved))
        Fail(from, nullptr, "cannot open the schema file '" + path + "'");
    const std::string key = std::string(resolved) + "|" + (chameleonNamespace ? *chameleonNamespace : "");
    if (m_loaded.count(key))
        return;
    auto doc = std::make_unique<Doc>();
    doc->path = path;
    doc->resolvedPath = resolved;
    doc->file = file;
    Doc* self = doc.get();
    m_docs.push_back(std::move(doc));
    m_loaded[key] = self;
    try {
        self->xml.Load(resolved);
    } catch (const NxXmlLib9::CNxException& failure) {
        Fail(self, nullptr, "not a readable XML document: " + failure.GetFullMessage());
    }
    const CXmlElement* root = self->xml.GetDocumentElement();
    if (!root || !IsXsd(root, "schema"))
        Fail(self, root, "the document element is not xs:schema");
    self->tns = Attr(root, "targetNamespace");
    if (chameleonNamespace && self->tns.empty())
        self->tns = *chameleonNamespace;
    self->qualifiedElements = Attr(root, "elementFormDefault") == "qualified";
    self->qualifiedAttributes = Attr(root, "attributeFormDefault") == "qualified";

    for (const CXmlElement* child : Children(root)) {
        const std::string& kind = child->GetLocalName();
        if (child->GetNamespaceURI() != kXsdNamespace)
            continue;
        if (kind == "include" || kind == "import") {
            const std::string& location = Attr(child, "schemaLocation");
            if (location.empty()) {
                if (kind == "include")
                    Fail(self, child, "an include without schemaLocation");
                continue; // a namespace known by other means; its use fails if it is not
            }
            if (location.find("://") != std::string::npos)
                Fail(self, child, "only local schema files can be read, not '" + location + "'");
            const std::string target = location[0] == '/' ? location : Directory(path) + location;
            LoadFile(target, file, kind == "include" ? &self->tns : nullptr, self);
            continue;
        }
        if (kind == "redefine" || kind == "override")
            Fail(self, child, "xs:" + kind + " is not supported");
        std::map<QName, Component>* table = nullptr;
        std::vector<QName>* order = nullptr;
        if (kind == "element")
            table = &m_elements, order = &m_elementOrder;
        else if (kind == "complexType")
            table = &m_complexTypes, order = &m_complexOrder;
        else if (kind == "simpleType")
            table = &m_simpleTypes, order = &m_simpleOrder;
        else if (kind == "group")
            table = &m_groups;
        else if (kind == "attributeGroup")
            table = &m_attributeGroups;
        else if (kind == "attribute")
            table = &m_attributes;
        else if (kind == "notation")
            continue;
        else
            Fail(self, child, "unknown top-level schema component");
        const QName name {self->tns, Attr(child, "name")};
        if (name.name.empty())
            Fail(self, child, "a global component without a name");
        if (table->count(name))
            continue; // the same file reached twice under different paths
        (*table)[name] = Component {child, self};
        if (order)
            order->push_back(name);
        if (kind == "element" && HasAttr(child, "substitutionGroup"))
            m_substitutes[Resolve(self, child, "substitutionGroup")].push_back(name);
    }
}

SchemaReader::QName SchemaReader::Resolve(const Doc* doc, Node node, const std::string& attribute) const
{
    const std::string& text = node->GetAttribute(attribute, "");
    const size_t colon = text.find(':');
    const std::string prefix = colon == std::string::npos ? std::string() : text.substr(0, colon);
    QName name {doc->xml.LookupNamespaceFromAlias(prefix.c_str()),
                colon == std::string::npos ? text : text.substr(colon + 1)};
    if (prefix == "xml")
        name.ns = "http://www.w3.org/XML/1998/namespace"; // bound by XML itself
    if (!prefix.empty() && name.ns.empty())
        Fail(doc, node, "undeclared prefix '" + prefix + "' in " + attribute + "='" + text + "'");
    // A schema without a target namespace included into one with it takes
    // that namespace for its own unprefixed references.
    if (prefix.empty() && name.ns.empty() && !doc->tns.empty() && !doc->xml.GetDocumentElement()->GetAttribute(
                                                                         "targetNamespace", "").size())
        name.ns = doc->tns;
    return name;
}

const SchemaReader::Component& SchemaReader::Find(std::map<QName, Component>& table, const QName& name,
                                                  const Doc* doc, Node node, const char* what)
{
    const auto found = table.find(name);
    if (found == table.end())
        Fail(doc, node, std::string("unknown ") + what + " {" + name.ns + "}" + name.name);
    return found->second;
}


// ---- Everything together ----------------------------------------------------

// What the classes read but do not enforce is said once per declaration.
void SchemaReader::WarnUnchecked(const Doc* doc, Node node)
{
    for (Node child : Children(node)) {
        if (IsXsd(child, "element")) {
            if (HasAttr(child, "default") || HasAttr(child, "fixed"))
                Warn(doc, child, "the default or fixed value of an element is not applied");
        } else if (IsXsd(child, "key") || IsXsd(child, "keyref") || IsXsd(child, "unique")) {
            Warn(doc, child, "identity constraints are not checked");
            continue;
        }
        WarnUnchecked(doc, child);
    }
}

void SchemaReader::Compile()
{
    for (const auto& doc : m_docs)
        WarnUnchecked(doc.get(), doc->xml.GetDocumentElement());
    for (const QName& name : m_simpleOrder)
        SimpleFor(name, nullptr, nullptr);
    for (const QName& name : m_complexOrder)
        ClassFor(name, nullptr, nullptr);
    for (const QName& name : m_elementOrder) {
        const Component& component = m_elements.at(name);
        if (Attr(component.node, "abstract") == "true")
            continue;
        GlobalElement global;
        global.name = name.name;
        global.ns = name.ns;
        global.file = component.doc->file;
        TypeRef type = TypeOfElement(component.node, component.doc, GlobalElementClassName(name));
        if (type.what == TypeRef::Class) {
            global.cls = type.cls;
            if (Attr(component.node, "nillable") == "true")
                global.cls->nillable = true;
        } else {
            // A document element of simple or any type holds text.
            ClassModel* cls = NewClass(GlobalElementClassName(name), component.doc);
            cls->typeName = name.name;
            cls->elementName = name.name;
            cls->hasText = true;
            if (type.what == TypeRef::Any)
                Warn(component.doc, component.node, "a document element of any type is read as text only");
            global.cls = cls;
        }
        m_model.globals.push_back(global);
    }
    // Derived types are all known only now: an element of a type that has
    // them is read through the factory by xsi:type.
    for (const auto& cls : m_model.classes)
        for (Member& member : cls->elements)
            if (member.kind == Kind::Cls && !member.pseudo && member.cls->Substitutable())
                member.kind = Kind::AbsCls;
}

} // namespace nxxsd
