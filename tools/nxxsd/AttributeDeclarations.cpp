// Attributes, attribute groups and attribute wildcards of a class.
#include "SchemaNodes.h"

namespace nxxsd {

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
            SetWildcard(member, child, doc, "AnyAttribute", "AnyAttributes",
                        "an attribute wildcard with a list of namespaces is not supported");
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

} // namespace nxxsd
