// A result as lines of labelled, right-aligned columns.
#pragma once

#include <string>
#include <vector>

namespace tool {

class Table {
  public:
    explicit Table(std::string title) : title_(std::move(title)) {}

    /// Cells under each other are aligned to the right; `note` stands behind the last one.
    void row(std::string label, std::vector<std::string> cells, std::string note = {});

    /// A label with a text of any length.
    void text(std::string label, std::string words);

    void gap();

    std::string str() const;

  private:
    struct Row {
        std::string label;
        std::vector<std::string> cells;
        std::string note;
    };

    std::string title_;
    std::vector<Row> rows_;
};

}  // namespace tool
