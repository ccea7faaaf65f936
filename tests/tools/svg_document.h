// A drawing, read back by an XML parser, to which it must be well formed.
#pragma once

#include "support/prelude.h"

#include <expat.h>

namespace ztmath_test {

class SvgDocument {
  public:
    explicit SvgDocument(const std::string& text) {
        XML_Parser parser = XML_ParserCreate(nullptr);
        XML_SetUserData(parser, this);
        XML_SetStartElementHandler(parser, start);
        EXPECT_EQ(XML_Parse(parser, text.data(), static_cast<int>(text.size()), 1), XML_STATUS_OK);
        XML_ParserFree(parser);
    }

    /// What an attribute says in the elements of a group that have this look, in their order.
    std::vector<double> numbers(const std::string& group, const std::string& look,
                                const std::string& attribute) const {
        std::vector<double> numbers;
        for (const Element& e : elements_)
            if (e.at("group") == group && e.at("class") == look && e.count(attribute) > 0)
                numbers.push_back(std::stod(e.at(attribute)));
        return numbers;
    }

  private:
    using Element = std::map<std::string, std::string>;

    static void start(void* data, const char* name, const char** attributes) {
        auto& self = *static_cast<SvgDocument*>(data);
        Element element{{"group", self.group_}, {"class", ""}};
        for (; *attributes != nullptr; attributes += 2)
            element[attributes[0]] = attributes[1];
        if (std::string(name) == "g") self.group_ = element["id"];
        self.elements_.push_back(element);
    }

    std::string group_;  // the last one opened
    std::vector<Element> elements_;
};

}  // namespace ztmath_test
