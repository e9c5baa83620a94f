// JSON as the console program prints it: keys in their order, texts in UTF-8.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "text/code_page.h"

namespace ordelan::app {

using Json = nlohmann::ordered_json;

inline Json json_rows(const std::vector<std::string>& rows) {
  Json array = Json::array();
  for (const std::string& row : rows) array.push_back(text::to_utf8(row));
  return array;
}

}  // namespace ordelan::app
