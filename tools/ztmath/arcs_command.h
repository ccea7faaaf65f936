// ztmath arcs: what its subcommands share, and circles from what they touch.
#pragma once

#include <nlohmann/json.hpp>

#include "arc_entities.h"
#include "arc_picture.h"

namespace tool {

using Json = nlohmann::ordered_json;

void add_arcs_commands(CLI::App& program, Commands& commands);

/// The examples, and the file and exit codes below them.
std::string arcs_help(const std::string& examples, const std::string& words);

/// Numbers of one row, finely enough for its largest.
std::vector<std::string> arc_cells(const std::vector<double>& numbers);

/// What is given, for the result.
Json given_json(const Given& given);

/// Prints the table, or the same as JSON, and draws the picture that is asked for.
void conclude(const ArcsOptions& options, const std::string& title, const Given& given,
              const std::string& table, const Json& json, const std::vector<ArcFound>& found);

}  // namespace tool
