#include "SchemaReader.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <sys/stat.h>

#include "NxXmlLib9.h"
#include "TypeMapping.h"

namespace nxxsd {

using NxXmlLib9::CXmlDocument;
using NxXmlLib9::CXmlElement;

struct SchemaReader::Doc {
    std::string path;
    CXmlDocument xml;
    std::string tns;
    bool qualifiedElements = false;
    bool qualifiedAttributes = false;
    int file = 0;
};

namespace {

bool IsXsd(const CXmlElement* node, const char* name)
{
    return node->GetNamespaceURI() == kXsdNamespace && node->GetLocalName() == name;
}

const std::string& Attr(const CXmlElement* node, const char* name)
{
    return node->GetAttribute(name, "");
}

bool HasAttr(const CXmlElement* node, const char* name)
{
    for (const NxXmlLib9::CXmlAttribute* attribute : node->GetAttributes())
        if (attribute->GetLocalName() == name && attribute->GetNamespaceURI().empty())
            return true;
    return false;
}

std::string Directory(const std::string& path)
{
    const size_t slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

// Children in the XML Schema namespace other than annotations.
std::vector<const CXmlElement*> Children(const CXmlElement* node)
{
    std::vector<const CXmlElement*> children;
    for (const CXmlElement* child = node->GetFirstElement(); child; child = child->GetNextSiblingElement())
        if (!IsXsd(child, "annotation"))
            children.push_back(child);
    return children;
}

const CXmlElement* ChildNamed(const CXmlElement* node, const char* name)
{
    for (const CXmlElement* child : Children(node))
        if (IsXsd(child, name))
            return child;
    return nullptr;
}

bool IsCompositor(const CXmlElement* node)
{
    return IsXsd(node, "sequence") || IsXsd(node, "choice") || IsXsd(node, "all") || IsXsd(node, "group");
}

Group GroupOf(const CXmlElement* compositor)
{
    if (IsXsd(compositor, "choice"))
        return Group::Choice;
    if (IsXsd(compositor, "all"))
        return Group::All;
    return Group::Sequence;
}

int ParseOccurs(const std::string& text, int fallback)
{
    if (text.empty())
        return fallback;
    if (text == "unbounded")
        return -1;
    const long value = std::strtol(text.c_str(), nullptr, 10);
    return value > INT_MAX ? -1 : static_cast<int>(value);
}

// The occurrence of a member from its bounds and the group it stands in: a
// choice knows no mandatory member.
Occurs OccursOf(int minOccurs, int maxOccurs, Group group)
{
    if (maxOccurs != 1)
        return Occurs::Col;
    return minOccurs == 0 || group == Group::Choice ? Occurs::Opt : Occurs::Mnd;
}

} // namespace

SchemaReader::SchemaReader(Model& model)
    : m_model(model), m_typeNames({"CreateDocumentElement", "NxXsdObjectCol", "NxXsdEnumCol", "NxXmlLib9",
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

// ---- Classes --------------------------------------------------------------

ClassModel* SchemaReader::NewClass(const std::string& wantedName, Doc* doc)
{
    auto cls = std::make_unique<ClassModel>();
    cls->cppName = m_typeNames.Claim(MakeIdentifier(wantedName));
    cls->typeNs = doc->tns;
    cls->file = doc->file;
    cls->number = static_cast<int>(m_model.classes.size()) + 1;
    // Members may not bear the class's name nor those of its operations.
    m_memberNames[cls.get()] = NameScope({cls->cppName, "Init", "GetBase", "AccessProperty", "GetClassInfo",
                                          "GetClassElementInfo", "GetClassAttributeInfo", "GetNamespace",
                                          "GetTargetNamespace", "CreateFromElement", "IsNil", "SetNil",
                                          "BuildTables", "Tables", "m_nil", "Content", "SetDocumentNamespace",
                                          "m_documentNamespace"});
    ClassModel* raw = cls.get();
    m_model.classes.push_back(std::move(cls));
    return raw;
}

ClassModel* SchemaReader::ClassFor(const QName& type, const Doc* doc, Node node)
{
    const auto known = m_typeClasses.find(type);
    if (known != m_typeClasses.end())
        return known->second;
    const Component& component = Find(m_complexTypes, type, doc, node, "complex type");
    ClassModel* cls = NewClass(type.name, component.doc);
    cls->typeName = type.name;
    cls->elementName = type.name;
    m_typeClasses[type] = cls;
    BuildComplex(cls, component.node, component.doc);
    return cls;
}

void SchemaReader::MarkDerived(ClassModel* base, ClassModel* derived)
{
    derived->base = base;
    for (ClassModel* ancestor = base; ancestor; ancestor = ancestor->base)
        ancestor->derived.push_back(derived);
}

void SchemaReader::BuildComplex(ClassModel* cls, Node node, Doc* doc)
{
    m_building[cls] = true;
    cls->isAbstract = Attr(node, "abstract") == "true";
    const bool mixed = Attr(node, "mixed") == "true";
    for (Node child : Children(node)) {
        if (IsXsd(child, "simpleContent"))
            BuildSimpleContent(cls, child, doc);
        else if (IsXsd(child, "complexContent"))
            BuildComplexContent(cls, child, doc, mixed || Attr(child, "mixed") == "true");
        else if (IsCompositor(child))
            TopParticle(cls, child, doc);
        else if (!IsXsd(child, "attribute") && !IsXsd(child, "attributeGroup") && !IsXsd(child, "anyAttribute"))
            Fail(doc, child, "unexpected content of a complex type");
    }
    AddAttributes(cls, node, doc);
    if (mixed)
        cls->hasText = true, cls->typedText = false;
    if (cls->hasText && !cls->elements.empty())
        Warn(doc, node, "mixed content: the text is kept as one string, not in place between the child elements");
    m_building[cls] = false;
}

void SchemaReader::BuildSimpleContent(ClassModel* cls, Node content, Doc* doc)
{
    Node derivation = ChildNamed(content, "extension");
    if (!derivation)
        derivation = ChildNamed(content, "restriction");
    if (!derivation)
        Fail(doc, content, "simpleContent without extension or restriction");
    const QName base = Resolve(doc, derivation, "base");
    cls->hasText = true;
    if (base.ns != kXsdNamespace && m_complexTypes.count(base)) {
        ClassModel* baseClass = ClassFor(base, doc, derivation);
        if (!baseClass->hasText || !baseClass->elements.empty())
            Fail(doc, derivation, "simpleContent derived from a type without simple content");
        for (const Member& attribute : baseClass->attributes)
            AddMember(cls, attribute, true);
        MarkDerived(baseClass, cls);
        cls->typedText = baseClass->typedText;
        cls->textType = baseClass->textType;
    } else {
        cls->typedText = true;
        cls->textType = SimpleFor(base, doc, derivation);
    }
    if (IsXsd(derivation, "restriction") && cls->typedText)
        ApplyFacets(cls->textType, derivation, doc, cls->cppName + "_text");
    AddAttributes(cls, derivation, doc);
}

void SchemaReader::BuildComplexContent(ClassModel* cls, Node content, Doc* doc, bool mixed)
{
    Node derivation = ChildNamed(content, "extension");
    const bool extension = derivation != nullptr;
    if (!derivation)
        derivation = ChildNamed(content, "restriction");
    if (!derivation)
        Fail(doc, content, "complexContent without extension or restriction");
    const QName base = Resolve(doc, derivation, "base");
    ClassModel* baseClass = nullptr;
    if (!(base.ns == kXsdNamespace && base.name == "anyType")) {
        baseClass = ClassFor(base, doc, derivation);
        if (m_building[baseClass])
            Fail(doc, derivation, "a type derived from itself");
        if (baseClass->hasText && !baseClass->elements.empty())
            Fail(doc, derivation, "derivation from a mixed type is not supported");
        bool ownParticle = false;
        for (Node child : Children(derivation))
            ownParticle = ownParticle || IsCompositor(child);
        if (extension && baseClass->group != Group::Sequence && ownParticle && !baseClass->elements.empty()) {
            // The base's choice or all, then the extension's own particle:
            // a sequence whose first member is the base's group.
            cls->group = Group::Sequence;
            ClassModel* group = NewClass(cls->cppName + "_base", doc);
            group->pseudo = true;
            group->typeName = group->elementName = group->cppName;
            group->typeNs = cls->typeNs;
            group->group = baseClass->group;
            for (const Member& member : baseClass->elements)
                AddMember(group, member, false);
            Member member;
            member.kind = Kind::Cls;
            member.pseudo = true;
            member.cls = group;
            member.xmlName = group->cppName;
            member.ns = cls->typeNs;
            member.cppName = "Base";
            AddMember(cls, member, false);
        } else if (extension) {
            cls->group = baseClass->group;
            for (const Member& member : baseClass->elements)
                AddMember(cls, member, false);
        }
        for (const Member& attribute : baseClass->attributes)
            AddMember(cls, attribute, true);
        MarkDerived(baseClass, cls);
    }
    for (Node child : Children(derivation)) {
        if (!IsCompositor(child))
            continue;
        if (!cls->elements.empty()) {
            Doc* groupDoc = doc;
            Node compositor = Compositor(child, doc, &groupDoc);
            const bool plain = ParseOccurs(Attr(child, "minOccurs"), 1) == 1 &&
                               ParseOccurs(Attr(child, "maxOccurs"), 1) == 1;
            if (cls->group == Group::Sequence && GroupOf(compositor) == Group::Sequence && plain)
                AddParticles(cls, compositor, groupDoc);
            else if (cls->group == Group::Sequence)
                AddNestedGroup(cls, child, doc);
            else
                Fail(doc, derivation, "extension of a type whose content is a choice or all group");
        } else {
            TopParticle(cls, child, doc);
        }
    }
    AddAttributes(cls, derivation, doc);
    if (mixed)
        cls->hasText = true;
}

SchemaReader::Node SchemaReader::Compositor(Node node, Doc* doc, Doc** compositorDoc)
{
    *compositorDoc = doc;
    if (!IsXsd(node, "group"))
        return node;
    const Component& group = Find(m_groups, Resolve(doc, node, "ref"), doc, node, "group");
    for (Node child : Children(group.node))
        if (IsXsd(child, "sequence") || IsXsd(child, "choice") || IsXsd(child, "all")) {
            *compositorDoc = group.doc;
            return child;
        }
    Fail(group.doc, group.node, "a group without sequence, choice or all");
}

void SchemaReader::TopParticle(ClassModel* cls, Node particle, Doc* doc)
{
    const int minOccurs = ParseOccurs(Attr(particle, "minOccurs"), 1);
    const int maxOccurs = ParseOccurs(Attr(particle, "maxOccurs"), 1);
    if (maxOccurs == 0)
        return;
    if (minOccurs == 1 && maxOccurs == 1) {
        Doc* groupDoc = doc;
        Node compositor = Compositor(particle, doc, &groupDoc);
        cls->group = GroupOf(compositor);
        AddParticles(cls, compositor, groupDoc);
    } else {
        // An optional or repeated content model stands as one nested group.
        cls->group = Group::Sequence;
        AddNestedGroup(cls, particle, doc);
    }
}

void SchemaReader::AddParticles(ClassModel* cls, Node compositor, Doc* doc)
{
    for (Node child : Children(compositor)) {
        if (IsXsd(child, "element"))
            AddElement(cls, child, doc);
        else if (IsXsd(child, "any"))
            AddWildcard(cls, child, doc);
        else if (IsCompositor(child)) {
            const int minOccurs = ParseOccurs(Attr(child, "minOccurs"), 1);
            const int maxOccurs = ParseOccurs(Attr(child, "maxOccurs"), 1);
            if (maxOccurs == 0)
                continue;
            Doc* groupDoc = doc;
            Node nested = Compositor(child, doc, &groupDoc);
            // A group of the same kind, exactly once, adds its members in place.
            if (minOccurs == 1 && maxOccurs == 1 && GroupOf(nested) == cls->group && cls->group != Group::All)
                AddParticles(cls, nested, groupDoc);
            else
                AddNestedGroup(cls, child, doc);
        } else
            Fail(doc, child, "unexpected particle");
    }
}

void SchemaReader::AddNestedGroup(ClassModel* cls, Node particle, Doc* doc)
{
    const int minOccurs = ParseOccurs(Attr(particle, "minOccurs"), 1);
    const int maxOccurs = ParseOccurs(Attr(particle, "maxOccurs"), 1);
    if (maxOccurs != 1 && cls->group == Group::All)
        Fail(doc, particle, "a repeated nested group in an all group is not supported");
    Doc* groupDoc = doc;
    Node compositor = Compositor(particle, doc, &groupDoc);
    const std::string hint =
        IsXsd(particle, "group") ? Resolve(doc, particle, "ref").name : cls->cppName + "_" + particle->GetLocalName();
    ClassModel* pseudo = NewClass(hint, groupDoc);
    pseudo->pseudo = true;
    pseudo->typeName = pseudo->cppName;
    pseudo->typeNs = cls->typeNs;
    pseudo->elementName = pseudo->cppName;
    pseudo->group = GroupOf(compositor);
    AddParticles(pseudo, compositor, groupDoc);
    Member member;
    member.kind = Kind::Cls;
    member.pseudo = true;
    member.cls = pseudo;
    member.xmlName = pseudo->cppName;
    member.ns = cls->typeNs;
    member.minOccurs = minOccurs;
    member.maxOccurs = maxOccurs;
    member.occurs = OccursOf(minOccurs, maxOccurs, cls->group);
    member.cppName = pseudo->cppName;
    AddMember(cls, member, false);
}

void SchemaReader::AddElement(ClassModel* cls, Node node, Doc* doc)
{
    Member member;
    member.minOccurs = ParseOccurs(Attr(node, "minOccurs"), 1);
    member.maxOccurs = ParseOccurs(Attr(node, "maxOccurs"), 1);
    if (member.maxOccurs == 0)
        return;
    member.occurs = OccursOf(member.minOccurs, member.maxOccurs, cls->group);
    Node declaration = node;
    Doc* declarationDoc = doc;
    if (HasAttr(node, "ref")) {
        const QName ref = Resolve(doc, node, "ref");
        const Component& global = Find(m_elements, ref, doc, node, "element");
        declaration = global.node;
        declarationDoc = global.doc;
        member.xmlName = ref.name;
        member.ns = ref.ns;
        if (m_substitutes.count(ref)) {
            AddSubstitutionGroup(cls, member, ref, doc, node);
            return;
        }
    } else {
        member.xmlName = Attr(node, "name");
        const std::string& form = Attr(node, "form");
        const bool qualified = form.empty() ? doc->qualifiedElements : form == "qualified";
        member.ns = qualified ? doc->tns : std::string();
    }
    AddDeclaredElement(cls, member, declaration, declarationDoc, declaration != node);
}

void SchemaReader::AddDeclaredElement(ClassModel* cls, Member member, Node declaration, Doc* doc, bool global)
{
    Node node = declaration;
    const TypeRef type =
        TypeOfElement(declaration, doc, global ? member.xmlName : cls->cppName + "_" + member.xmlName);
    const bool nillable = Attr(declaration, "nillable") == "true";
    switch (type.what) {
    case TypeRef::Simple:
        member.kind = type.simple.enumeration ? Kind::Enum : Kind::Prim;
        member.simple = type.simple;
        if (nillable)
            Warn(doc, node, "nillable is kept only for elements of a complex type");
        break;
    case TypeRef::Class:
        member.cls = type.cls;
        member.kind = type.cls->Substitutable() ? Kind::AbsCls : Kind::Cls;
        if (nillable)
            type.cls->nillable = true;
        break;
    case TypeRef::Any:
        member.kind = Kind::Untpd;
        member.wildcard = "##any";
        break;
    }
    member.cppName = MakeIdentifier(member.xmlName);
    AddMember(cls, member, false);
}

// The elements that may stand for head, directly or through other members,
// in the order of their declarations.
void SchemaReader::CollectSubstitutes(const QName& head, std::vector<QName>& members)
{
    const auto found = m_substitutes.find(head);
    if (found == m_substitutes.end())
        return;
    for (const QName& member : found->second)
        if (std::find(members.begin(), members.end(), member) == members.end()) {
            members.push_back(member);
            CollectSubstitutes(member, members);
        }
}

// A reference to the head of a substitution group is a choice of the head
// and every element that may stand in its place.
void SchemaReader::AddSubstitutionGroup(ClassModel* cls, Member reference, const QName& head, Doc* doc, Node node)
{
    if (reference.maxOccurs != 1)
        Fail(doc, node, "a repeated reference to the head of a substitution group is not supported");
    std::vector<QName> candidates {head};
    CollectSubstitutes(head, candidates);
    const Component& headComponent = m_elements.at(head);
    ClassModel* choice = NewClass(head.name + "_choice", headComponent.doc);
    choice->pseudo = true;
    choice->typeName = choice->cppName;
    choice->typeNs = cls->typeNs;
    choice->elementName = choice->cppName;
    choice->group = Group::Choice;
    for (const QName& name : candidates) {
        const Component& global = m_elements.at(name);
        if (Attr(global.node, "abstract") == "true")
            continue;
        Member member;
        member.xmlName = name.name;
        member.ns = name.ns;
        member.occurs = Occurs::Opt;
        AddDeclaredElement(choice, member, global.node, global.doc, true);
    }
    if (choice->elements.empty())
        Fail(doc, node, "no element may stand for the abstract head of the substitution group");
    Member member;
    member.kind = Kind::Cls;
    member.pseudo = true;
    member.cls = choice;
    member.xmlName = choice->cppName;
    member.ns = cls->typeNs;
    member.minOccurs = reference.minOccurs;
    member.occurs = OccursOf(reference.minOccurs, 1, cls->group);
    member.cppName = head.name;
    AddMember(cls, member, false);
}

void SchemaReader::AddWildcard(ClassModel* cls, Node node, Doc* doc)
{
    Member member;
    member.kind = Kind::Untpd;
    member.minOccurs = ParseOccurs(Attr(node, "minOccurs"), 1);
    member.maxOccurs = ParseOccurs(Attr(node, "maxOccurs"), 1);
    if (member.maxOccurs == 0)
        return;
    member.occurs = OccursOf(member.minOccurs, member.maxOccurs, cls->group);
    member.xmlName = "AnyElement";
    member.wildcard = HasAttr(node, "namespace") ? Attr(node, "namespace") : "##any";
    if (member.wildcard.find(' ') != std::string::npos)
        Fail(doc, node, "a wildcard with a list of namespaces is not supported");
    member.ns = doc->tns;
    member.cppName = "Any";
    AddMember(cls, member, false);
}

void SchemaReader::AddMember(ClassModel* cls, Member member, bool attribute)
{
    std::vector<Member>& members = attribute ? cls->attributes : cls->elements;
    if (attribute) {
        // A derived type's attribute of the same name replaces the base's.
        for (auto it = members.begin(); it != members.end(); ++it)
            if (it->kind != Kind::AnyAttr && it->xmlName == member.xmlName && it->ns == member.ns) {
                member.cppName = it->cppName;
                if (member.cppName.empty()) {
                    members.erase(it); // prohibited
                    return;
                }
                *it = member;
                return;
            }
        if (member.cppName.empty())
            return;
    }
    member.cppName = m_memberNames[cls].Claim(MakeIdentifier(member.cppName));
    members.push_back(member);
    // The attribute wildcard takes whatever no other record claims, so it
    // stands last.
    if (attribute)
        std::stable_partition(members.begin(), members.end(),
                              [](const Member& m) { return m.kind != Kind::AnyAttr; });
}

// ---- Attributes -------------------------------------------------------------

void SchemaReader::AddAttributes(ClassModel* cls, Node parent, Doc* doc)
{
    for (Node child : Children(parent)) {
        if (IsXsd(child, "attribute"))
            AddAttribute(cls, child, doc);
        else if (IsXsd(child, "attributeGroup")) {
            const Component& group = Find(m_attributeGroups, Resolve(doc, child, "ref"), doc, child,
                                          "attribute group");
            AddAttributes(cls, group.node, group.doc);
        } else if (IsXsd(child, "anyAttribute")) {
            bool present = false;
            for (const Member& member : cls->attributes)
                present = present || member.kind == Kind::AnyAttr;
            if (present)
                continue;
            Member member;
            member.kind = Kind::AnyAttr;
            member.occurs = Occurs::Opt;
            member.xmlName = "AnyAttribute";
            member.wildcard = HasAttr(child, "namespace") ? Attr(child, "namespace") : "##any";
            if (member.wildcard.find(' ') != std::string::npos)
                Fail(doc, child, "an attribute wildcard with a list of namespaces is not supported");
            member.ns = doc->tns;
            member.cppName = "AnyAttributes";
            AddMember(cls, member, true);
        }
    }
}

void SchemaReader::AddAttribute(ClassModel* cls, Node node, Doc* doc)
{
    Member member;
    Node declaration = node;
    Doc* declarationDoc = doc;
    if (HasAttr(node, "ref")) {
        const QName ref = Resolve(doc, node, "ref");
        if (ref.ns == "http://www.w3.org/XML/1998/namespace") {
            member.xmlName = ref.name;
            member.ns = ref.ns;
            declaration = nullptr;
        } else {
            const Component& global = Find(m_attributes, ref, doc, node, "attribute");
            declaration = global.node;
            declarationDoc = global.doc;
            member.xmlName = ref.name;
            member.ns = ref.ns;
        }
    } else {
        member.xmlName = Attr(node, "name");
        const std::string& form = Attr(node, "form");
        const bool qualified = form.empty() ? doc->qualifiedAttributes : form == "qualified";
        member.ns = qualified ? doc->tns : std::string();
    }
    const std::string& use = Attr(node, "use");
    if (use == "prohibited") {
        AddMember(cls, member, true); // an empty field name removes the inherited one
        return;
    }
    member.occurs = use == "required" ? Occurs::Mnd : Occurs::Opt;
    for (Node source : {node, declaration}) {
        if (source && HasAttr(source, "fixed") && !member.hasDefault)
            member.defaultValue = Attr(source, "fixed"), member.hasDefault = member.fixed = true;
        if (source && HasAttr(source, "default") && !member.hasDefault)
            member.defaultValue = Attr(source, "default"), member.hasDefault = true;
    }
    if (!declaration || (!HasAttr(declaration, "type") && !ChildNamed(declaration, "simpleType")))
        LookupBuiltin("anySimpleType", member.simple);
    else if (HasAttr(declaration, "type"))
        member.simple = SimpleFor(Resolve(declarationDoc, declaration, "type"), declarationDoc, declaration);
    else
        member.simple = BuildSimple(ChildNamed(declaration, "simpleType"), declarationDoc,
                                    cls->cppName + "_" + member.xmlName);
    member.kind = member.simple.enumeration ? Kind::Enum : Kind::Prim;
    member.cppName = MakeIdentifier(member.xmlName);
    AddMember(cls, member, true);
}

// ---- Types of elements ------------------------------------------------------

SchemaReader::TypeRef SchemaReader::TypeOfElement(Node node, Doc* doc, const std::string& hint)
{
    if (HasAttr(node, "type"))
        return TypeByName(Resolve(doc, node, "type"), doc, node);
    TypeRef type;
    if (Node complex = ChildNamed(node, "complexType")) {
        type.what = TypeRef::Class;
        // A global element referred to from many places has one class.
        ClassModel*& known = m_anonymousClasses[complex];
        if (known) {
            type.cls = known;
            return type;
        }
        type.cls = known = NewClass(hint, doc);
        type.cls->typeName = Attr(node, "name");
        type.cls->elementName = Attr(node, "name");
        BuildComplex(type.cls, complex, doc);
    } else if (Node simple = ChildNamed(node, "simpleType")) {
        type.what = TypeRef::Simple;
        type.simple = BuildSimple(simple, doc, hint);
    } else if (HasAttr(node, "substitutionGroup")) {
        const Component& head = Find(m_elements, Resolve(doc, node, "substitutionGroup"), doc, node, "element");
        return TypeOfElement(head.node, head.doc, hint);
    }
    return type;
}

SchemaReader::TypeRef SchemaReader::TypeByName(const QName& name, const Doc* doc, Node node)
{
    TypeRef type;
    if (name.ns == kXsdNamespace && name.name == "anyType")
        return type;
    if (name.ns != kXsdNamespace && m_complexTypes.count(name)) {
        type.what = TypeRef::Class;
        type.cls = ClassFor(name, doc, node);
        return type;
    }
    type.what = TypeRef::Simple;
    type.simple = SimpleFor(name, doc, node);
    return type;
}

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

// ---- Everything together ----------------------------------------------------

void SchemaReader::Compile()
{
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
        TypeRef type = TypeOfElement(component.node, component.doc, name.name);
        if (type.what == TypeRef::Class) {
            global.cls = type.cls;
            if (Attr(component.node, "nillable") == "true")
                global.cls->nillable = true;
        } else {
            // A document element of simple or any type holds text.
            ClassModel* cls = NewClass(name.name, component.doc);
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
