// A drawing, read back by an XML parser, to which it must be well formed.
#pragma once

#include "support/prelude.h"

#include <expat.h>

namespace ztmath_test {

struct SvgElement {
    std::string name;
    std::string group;  // the id of the innermost group around it
    std::string look;   // its class
    std::map<std::string, std::string> attributes;
    std::string text;

    double number(const std::string& attribute) const {
        return std::stod(attributes.at(attribute));
    }
};

class SvgDocument {
  public:
    explicit SvgDocument(const std::string& text) {
        XML_Parser parser = XML_ParserCreate(nullptr);
        XML_SetUserData(parser, this);
        XML_SetElementHandler(parser, start, end);
        XML_SetCharacterDataHandler(parser, characters);
        EXPECT_EQ(XML_Parse(parser, text.data(), static_cast<int>(text.size()), 1), XML_STATUS_OK);
        XML_ParserFree(parser);
    }

    std::vector<SvgElement> find(const std::string& group, const std::string& look) const {
        std::vector<SvgElement> found;
        for (const SvgElement& e : elements_)
            if (e.group == group && e.look == look) found.push_back(e);
        return found;
    }

    /// All that is written in a group, a line for each text.
    std::string words(const std::string& group) const {
        std::string words;
        for (const SvgElement& e : elements_)
            if (e.group == group && e.name == "text") words += e.text + '\n';
        return words;
    }

  private:
    static void start(void* data, const char* name, const char** attributes) {
        auto& self = *static_cast<SvgDocument*>(data);
        SvgElement element{name, self.groups_.empty() ? "" : self.groups_.back(), {}, {}, {}};
        for (; *attributes != nullptr; attributes += 2)
            element.attributes[attributes[0]] = attributes[1];
        element.look = element.attributes["class"];
        if (element.name == "g") self.groups_.push_back(element.attributes["id"]);
        self.elements_.push_back(element);
    }
    static void end(void* data, const char* name) {
        auto& self = *static_cast<SvgDocument*>(data);
        if (std::string(name) == "g") self.groups_.pop_back();
    }
    static void characters(void* data, const char* text, int length) {
        auto& self = *static_cast<SvgDocument*>(data);
        self.elements_.back().text.append(text, static_cast<std::size_t>(length));
    }

    std::vector<std::string> groups_;
    std::vector<SvgElement> elements_;
};

}  // namespace ztmath_test
