#include "host/command/CheckReport.h"

#include <nlohmann/json.hpp>
#include <sstream>

#include "host/base/OneLine.h"
#include "host/command/AppliedJson.h"

std::string CheckText(const std::vector<CheckResult> &results) {
  std::ostringstream text;
  for (const CheckResult &result : results) {
    text << OnOneLine(result.file) << ": ";
    if (!result.readable) {
      text << "cannot be read: " << OnOneLine(result.reason);
    } else if (result.panels.empty()) {
      text << "no panel: " << OnOneLine(result.reason);
    } else {
      text << "panel offered, " << (result.color ? "color" : "monochrome") << " printer";
      if (const std::string by = Described(result.applications); !by.empty()) {
        text << ", " << OnOneLine(by);
      }
    }
    text << '\n';
  }
  return text.str();
}

std::string CheckJson(const std::vector<CheckResult> &results) {
  using Json = nlohmann::ordered_json;
  Json array = Json::array();
  for (const CheckResult &result : results) {
    Json entry;
    entry["file"] = result.file;
    entry["readable"] = result.readable;
    entry["offered"] = !result.panels.empty();
    entry["color"] = result.readable ? Json(result.color) : Json();
    entry["panels"] = result.panels;
    entry["applied"] = AppliedJson(result.applications);
    entry["reason"] = result.panels.empty() ? Json(result.reason) : Json();
    array.push_back(entry);
  }
  return array.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}
