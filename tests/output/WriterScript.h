// Test helper: drives any writer through a short script, so that a case
// shows the document it writes on one line.
#pragma once

#include <sstream>
#include <string>

#include "NxXmlLib9.h"

// Steps are separated by '|':
//   <name or <name{namespace}     WriteStartElement
//   >                             WriteEndElement
//   @name=value, @name{ns}=value  WriteAttributeString (a string)
//   'text                         WriteString (a string)
inline void Drive(NxXmlLib9::CXmlWriter& writer, const std::string& script)
{
    std::istringstream steps(script);
    for (std::string step; std::getline(steps, step, '|');) {
        const char kind = step.empty() ? '\0' : step[0];
        std::string name = step.substr(kind ? 1 : 0), ns, value;
        if (kind == '@') {
            value = name.substr(name.find('=') + 1);
            name.erase(name.find('='));
        }
        const size_t brace = name.find('{');
        if (brace != std::string::npos && (kind == '<' || kind == '@')) {
            ns = name.substr(brace + 1, name.size() - brace - 2);
            name.erase(brace);
        }
        if (kind == '<')
            writer.WriteStartElement(name, ns);
        else if (kind == '>')
            writer.WriteEndElement();
        else if (kind == '@')
            writer.WriteAttributeString(name, ns, value, NxXmlLib9::ItemTypeString);
        else if (kind == '\'')
            writer.WriteString(name, NxXmlLib9::ItemTypeString);
    }
}
