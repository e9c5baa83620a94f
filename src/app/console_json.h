// JSON as the console program prints it: keys in their order, texts in UTF-8.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "removal/removal_state.h"
#include "text/code_page.h"

namespace ordelan::app {

using Json = nlohmann::ordered_json;

inline Json json_rows(const std::vector<std::string>& rows) {
  Json array = Json::array();
  for (const std::string& row : rows) array.push_back(text::to_utf8(row));
  return array;
}

// Rows that stay, each with the reason and the project that it has it from.
inline Json json_kept(const std::vector<removal::Kept>& kept) {
  Json array = Json::array();
  for (const removal::Kept& each : kept) {
    array.push_back({{"ruta", text::to_utf8(each.ruta)},
                     {"motivo", text::to_utf8(each.motivo)},
                     {"proyecto", text::to_utf8(each.proyecto)}});
  }
  return array;
}

}  // namespace ordelan::app
