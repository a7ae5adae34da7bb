#include "Naming.h"

#include <cctype>

namespace nxxsd {

namespace {

const std::set<std::string>& Keywords()
{
    static const std::set<std::string> keywords {
        "alignas", "alignof", "and", "and_eq", "asm", "auto", "bitand", "bitor", "bool", "break", "case", "catch",
        "char", "char8_t", "char16_t", "char32_t", "class", "compl", "concept", "const", "consteval", "constexpr",
        "constinit", "const_cast", "continue", "co_await", "co_return", "co_yield", "decltype", "default", "delete",
        "do", "double", "dynamic_cast", "else", "enum", "explicit", "export", "extern", "false", "float", "for",
        "friend", "goto", "if", "inline", "int", "long", "mutable", "namespace", "new", "noexcept", "not", "not_eq",
        "nullptr", "operator", "or", "or_eq", "private", "protected", "public", "register", "reinterpret_cast",
        "requires", "return", "short", "signed", "sizeof", "static", "static_assert", "static_cast", "struct",
        "switch", "template", "this", "thread_local", "throw", "true", "try", "typedef", "typeid", "typename",
        "union", "unsigned", "using", "virtual", "void", "volatile", "wchar_t", "while", "xor", "xor_eq",
        // Names that the generated code itself or common macros use.
        "NULL", "EOF", "errno", "assert", "std", "NxXmlLib9", "NxXmlLib9Data", "value", "read", "index"};
    return keywords;
}

} // namespace

std::string MakeIdentifier(const std::string& xmlName)
{
    std::string name;
    name.reserve(xmlName.size() + 1);
    for (unsigned char c : xmlName)
        name += std::isalnum(c) && c < 0x80 ? char(c) : '_';
    if (name.empty() || std::isdigit(static_cast<unsigned char>(name[0])) || name[0] == '_')
        name = "N" + name;
    // Two underscores in a row are reserved anywhere in a name.
    for (size_t at = name.find("__"); at != std::string::npos; at = name.find("__"))
        name.erase(at, 1);
    if (Keywords().count(name))
        name += '_';
    return name;
}

std::string NameScope::Claim(const std::string& wanted)
{
    std::string name = wanted;
    const char* separator = !wanted.empty() && wanted.back() == '_' ? "" : "_";
    for (int n = 2; m_used.count(name); ++n)
        name = wanted + separator + std::to_string(n);
    m_used.insert(name);
    return name;
}

} // namespace nxxsd
