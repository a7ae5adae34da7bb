// Complex types: classes, their content models, elements and members.
#include "SchemaNodes.h"

#include <algorithm>

namespace nxxsd {

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

// A nested group of owner: a class without an element of its own, named
// after itself, in owner's namespace.
ClassModel* SchemaReader::NewPseudoClass(const std::string& wantedName, Doc* doc, const ClassModel* owner,
                                         Group group)
{
    ClassModel* pseudo = NewClass(wantedName, doc);
    pseudo->pseudo = true;
    pseudo->typeName = pseudo->elementName = pseudo->cppName;
    pseudo->typeNs = owner->typeNs;
    pseudo->group = group;
    return pseudo;
}

// The member by which owner holds its nested group pseudo.
Member SchemaReader::PseudoMember(ClassModel* pseudo, const ClassModel* owner)
{
    Member member;
    member.kind = Kind::Cls;
    member.pseudo = true;
    member.cls = pseudo;
    member.xmlName = pseudo->cppName;
    member.ns = owner->typeNs;
    return member;
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
            ClassModel* group = NewPseudoClass(cls->cppName + "_base", doc, cls, baseClass->group);
            for (const Member& member : baseClass->elements)
                AddMember(group, member, false);
            Member member = PseudoMember(group, cls);
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
    ClassModel* pseudo = NewPseudoClass(hint, groupDoc, cls, GroupOf(compositor));
    AddParticles(pseudo, compositor, groupDoc);
    Member member = PseudoMember(pseudo, cls);
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
        TypeOfElement(declaration, doc, global ? GlobalElementClassName({member.ns, member.xmlName})
                                               : cls->cppName + "_" + member.xmlName);
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
    ClassModel* choice = NewPseudoClass(head.name + "_choice", headComponent.doc, cls, Group::Choice);
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
    Member member = PseudoMember(choice, cls);
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
    SetWildcard(member, node, doc, "AnyElement", "Any", "a wildcard with a list of namespaces is not supported");
    AddMember(cls, member, false);
}

void SchemaReader::SetWildcard(Member& member, Node node, Doc* doc, const char* xmlName, const char* cppName,
                               const char* what)
{
    member.xmlName = xmlName;
    member.wildcard = HasAttr(node, "namespace") ? Attr(node, "namespace") : "##any";
    if (member.wildcard.find(' ') != std::string::npos)
        Fail(doc, node, what);
    member.ns = doc->tns;
    member.cppName = cppName;
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


// ---- Types of elements ------------------------------------------------------

// The class of a global element's own type bears the element's name, or,
// when a type of the schema has that name, the name with Element behind it.
std::string SchemaReader::GlobalElementClassName(const QName& element) const
{
    return m_complexTypes.count(element) ? element.name + "Element" : element.name;
}

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

} // namespace nxxsd
