// JSON whose members stay in the order in which they are written.
#pragma once

#include <nlohmann/json.hpp>

namespace tool {

using Json = nlohmann::ordered_json;

}  // namespace tool
