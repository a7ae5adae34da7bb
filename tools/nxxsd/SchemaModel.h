// What the compiler knows about a set of schemas once they are read: the
// classes, enumerations and global elements to write, already in the shape of
// the library's records (kind and occurrence of each member, item type and
// facets of each primitive).
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace nxxsd {

// A failure of the compiler: a construct it cannot map, or a broken schema.
struct CompileError {
    std::string message;
};

// The facets of a primitive, in the form of CPrimitiveRestrictions; the
// whitespace rule as the number of CWhitespaceUtils::WhitespaceRule.
struct Facets {
    std::string pattern, minInclusive, maxInclusive, minExclusive, maxExclusive;
    int minLength = -1, maxLength = -1, length = -1;
    bool Empty() const
    {
        return pattern.empty() && minInclusive.empty() && maxInclusive.empty() && minExclusive.empty() &&
               maxExclusive.empty() && minLength < 0 && maxLength < 0 && length < 0;
    }
};

// A built-in kind of value: the ItemType suffix (ItemTypeI4 -> "I4"), which
// also names the variant's Set/Get pair, the C++ field type and the
// collection class of a repeated element.
struct Primitive {
    std::string suffix;
    std::string cppType;
    std::string collection;
};

struct EnumModel {
    std::string cppName;
    std::vector<std::string> values;    // the texts, in schema order
    std::vector<std::string> cppValues; // their enumerator names
    int file = 0;                       // the output file that defines it
};

// A simple type after its restrictions: the primitive it is read as, the
// whitespace rule, the facets, and the enumeration if it has one.
struct SimpleModel {
    Primitive primitive;
    int whitespace = 1;
    Facets facets;
    const EnumModel* enumeration = nullptr;
};

struct ClassModel;

enum class Kind { Prim, Enum, Cls, AbsCls, Untpd, AnyAttr };
enum class Occurs { Mnd, Opt, Col };

struct Member {
    Kind kind = Kind::Prim;
    Occurs occurs = Occurs::Mnd;
    std::string xmlName;     // "AnyElement" for a wildcard
    std::string ns;          // namespace of the element or attribute
    std::string cppName;     // field name
    int minOccurs = 1, maxOccurs = 1; // -1: unbounded
    SimpleModel simple;      // Prim and Enum
    ClassModel* cls = nullptr; // Cls and AbsCls
    bool pseudo = false;     // Cls of a nested group
    std::string wildcard;    // Untpd wildcard and AnyAttr: the namespace wildcard text
    std::string defaultValue; bool hasDefault = false;
    bool fixed = false;      // the default is the only value allowed
};

enum class Group { Sequence = 0, Choice = 1, All = 2 };

struct ClassModel {
    std::string cppName;
    std::string typeName;  // schema type name (or the element's for an anonymous type)
    std::string typeNs;    // namespace of the type and of the class
    std::string elementName; // the default element name of a new object
    Group group = Group::Sequence;
    bool pseudo = false;
    std::vector<Member> elements;
    std::vector<Member> attributes;
    bool hasText = false;  // text content (simple content or mixed)
    bool typedText = false; // simple content: the text is checked against textType on reading
    SimpleModel textType;
    ClassModel* base = nullptr;     // the type it extends or restricts
    std::vector<ClassModel*> derived; // types that derive from it, directly or not
    bool isAbstract = false;
    bool nillable = false;
    int number = 0;        // class number of the factory by number
    int file = 0;
    bool HasPseudoChildren() const
    {
        for (const Member& member : elements)
            if (member.pseudo)
                return true;
        return false;
    }
    // Written through the factory by element: it has derived types or is abstract.
    bool Substitutable() const { return isAbstract || !derived.empty(); }
};

// A global element: what CreateDocumentElement makes for it.
struct GlobalElement {
    std::string name, ns;
    ClassModel* cls = nullptr;
    int file = 0;
};

struct OutputFile {
    std::string path;        // the schema file named on the command line
    std::string baseName;    // its name without the directory and .xsd
    std::string cppNamespace;
};

struct Model {
    std::vector<OutputFile> files;
    std::vector<std::unique_ptr<EnumModel>> enums;    // in a stable order
    std::vector<std::unique_ptr<ClassModel>> classes; // in a stable order
    std::vector<GlobalElement> globals;
};

} // namespace nxxsd
