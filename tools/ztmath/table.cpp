#include "table.h"

#include <algorithm>
#include <utility>

#include "number.h"

namespace tool {

namespace {

std::string blanks(std::size_t wanted, const std::string& text) {
    return std::string(wanted - std::min(wanted, character_count(text)), ' ');
}

}  // namespace

void Table::row(std::string label, std::vector<std::string> cells, std::string note) {
    rows_.push_back({std::move(label), std::move(cells), std::move(note)});
}

void Table::text(std::string label, std::string words) {
    rows_.push_back({std::move(label), {}, std::move(words)});
}

void Table::gap() {
    rows_.push_back({});
}

std::string Table::str() const {
    std::size_t label_width = 0;
    std::size_t cell_width = 0;
    for (const Row& row : rows_) {
        label_width = std::max(label_width, character_count(row.label));
        for (const std::string& cell : row.cells)
            cell_width = std::max(cell_width, character_count(cell));
    }
    std::string lines = title_ + '\n';
    for (const Row& row : rows_) {
        std::string line = "  " + row.label + blanks(label_width, row.label);
        for (const std::string& cell : row.cells)
            line += "  " + blanks(cell_width, cell) + cell;
        if (!row.note.empty()) line += "  " + row.note;
        line.erase(line.find_last_not_of(' ') + 1);
        lines += line + '\n';
    }
    return lines;
}

}  // namespace tool
