// Reads schema files with the library's own document tree, follows their
// includes and imports, and turns their components into the compiler's model.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "Naming.h"
#include "SchemaModel.h"

namespace NxXmlLib9 {
class CXmlDocument;
class CXmlElement;
} // namespace NxXmlLib9

namespace nxxsd {

class SchemaReader {
public:
    explicit SchemaReader(Model& model);
    ~SchemaReader();

    // Reads a file named on the command line (index file of model.files)
    // and every file it includes or imports that no earlier one reached.
    void Load(const std::string& path, int file);
    // Builds classes, enumerations and global elements of everything read.
    void Compile();
    // Every schema file read, by its resolved path, in the order read.
    std::vector<std::string> Files() const;
    // What the compiler noticed but could map, for standard error.
    const std::vector<std::string>& Warnings() const { return m_warnings; }

private:
    using Node = const NxXmlLib9::CXmlElement*;
    struct Doc;
    struct QName {
        std::string ns, name;
        bool operator<(const QName& other) const { return ns != other.ns ? ns < other.ns : name < other.name; }
        bool operator==(const QName& other) const { return ns == other.ns && name == other.name; }
    };
    struct Component {
        Node node = nullptr;
        Doc* doc = nullptr;
    };
    // A resolved type: a simple model, a class, or anything (untyped).
    struct TypeRef {
        enum { Simple, Class, Any } what = Any;
        SimpleModel simple;
        ClassModel* cls = nullptr;
    };

    void LoadFile(const std::string& path, int file, const std::string* chameleonNamespace, Doc* from);
    [[noreturn]] void Fail(const Doc* doc, Node node, const std::string& what) const;
    void Warn(const Doc* doc, Node node, const std::string& what);
    void WarnUnchecked(const Doc* doc, Node node);
    std::string Describe(const Doc* doc, Node node) const;
    QName Resolve(const Doc* doc, Node node, const std::string& attribute) const;
    const Component& Find(std::map<QName, Component>& table, const QName& name, const Doc* doc, Node node,
                          const char* what);

    ClassModel* NewClass(const std::string& wantedName, Doc* doc);
    ClassModel* NewPseudoClass(const std::string& wantedName, Doc* doc, const ClassModel* owner, Group group);
    static Member PseudoMember(ClassModel* pseudo, const ClassModel* owner);
    ClassModel* ClassFor(const QName& type, const Doc* doc, Node node);
    void BuildComplex(ClassModel* cls, Node node, Doc* doc);
    void BuildSimpleContent(ClassModel* cls, Node content, Doc* doc);
    void BuildComplexContent(ClassModel* cls, Node content, Doc* doc, bool mixed);
    void TopParticle(ClassModel* cls, Node particle, Doc* doc);
    void AddParticles(ClassModel* cls, Node compositor, Doc* doc);
    void AddNestedGroup(ClassModel* cls, Node particle, Doc* doc);
    void AddElement(ClassModel* cls, Node node, Doc* doc);
    void AddDeclaredElement(ClassModel* cls, Member member, Node declaration, Doc* doc, bool global);
    void CollectSubstitutes(const QName& head, std::vector<QName>& members);
    void AddSubstitutionGroup(ClassModel* cls, Member reference, const QName& head, Doc* doc, Node node);
    void AddWildcard(ClassModel* cls, Node node, Doc* doc);
    // Fills the wildcard member from an xs:any or xs:anyAttribute: its name,
    // namespace text ("##any" when absent), the schema's target namespace
    // and the name of its property. A list of namespaces fails with what.
    void SetWildcard(Member& member, Node node, Doc* doc, const char* xmlName, const char* cppName,
                     const char* what);
    void AddAttributes(ClassModel* cls, Node parent, Doc* doc);
    void AddAttribute(ClassModel* cls, Node node, Doc* doc);
    void AddMember(ClassModel* cls, Member member, bool attribute);
    void MarkDerived(ClassModel* base, ClassModel* derived);

    TypeRef TypeOfElement(Node node, Doc* doc, const std::string& hint);
    std::string GlobalElementClassName(const QName& element) const;
    TypeRef TypeByName(const QName& type, const Doc* doc, Node node);
    SimpleModel SimpleFor(const QName& type, const Doc* doc, Node node);
    SimpleModel BuildSimple(Node node, Doc* doc, const std::string& hint);
    void ApplyFacets(SimpleModel& simple, Node restriction, Doc* doc, const std::string& hint);
    Node Compositor(Node node, Doc* doc, Doc** compositorDoc);

    Model& m_model;
    std::vector<std::unique_ptr<Doc>> m_docs;
    std::map<std::string, Doc*> m_loaded;
    std::map<QName, Component> m_elements, m_complexTypes, m_simpleTypes, m_groups, m_attributeGroups, m_attributes;
    std::vector<QName> m_elementOrder, m_complexOrder, m_simpleOrder;
    std::map<QName, ClassModel*> m_typeClasses;
    std::map<QName, SimpleModel> m_simpleCache;
    std::map<Node, SimpleModel> m_nodeSimples;
    std::map<Node, ClassModel*> m_anonymousClasses;
    std::map<QName, bool> m_simpleBusy;
    std::map<const ClassModel*, NameScope> m_memberNames;
    std::map<const ClassModel*, bool> m_building;
    std::map<QName, std::vector<QName>> m_substitutes;
    NameScope m_typeNames;
    std::vector<std::string> m_warnings;
};

} // namespace nxxsd
