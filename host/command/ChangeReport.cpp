#include "host/command/ChangeReport.h"

#include <nlohmann/json.hpp>
#include <sstream>

#include "host/base/OneLine.h"

namespace {

const char *StateName(ChangeState state) {
  switch (state) {
    case ChangeState::kChanged:
      return "changed";
    case ChangeState::kWritten:
      return "written";
    case ChangeState::kUnchanged:
      return "unchanged";
    case ChangeState::kRefused:
      return "refused";
    case ChangeState::kFailed:
      return "failed";
  }
  return "";
}

bool HasReason(const ChangeResult &result) {
  return result.state == ChangeState::kRefused || result.state == ChangeState::kFailed;
}

}  // namespace

std::string ChangesText(const std::vector<ChangeResult> &results) {
  std::ostringstream text;
  for (const ChangeResult &result : results) {
    text << OnOneLine(result.queue) << ": " << StateName(result.state)
         << (HasReason(result) ? ": " : ", ") << OnOneLine(result.text) << '\n';
    for (const std::string &note : result.notes) {
      text << OnOneLine(result.queue) << ": note: " << OnOneLine(note) << '\n';
    }
  }
  return text.str();
}

std::string ChangesJson(const std::vector<ChangeResult> &results) {
  using Json = nlohmann::ordered_json;
  Json array = Json::array();
  for (const ChangeResult &result : results) {
    Json entry;
    entry["queue"] = result.queue;
    entry["state"] = StateName(result.state);
    entry["change"] = HasReason(result) ? Json() : Json(result.text);
    entry["reason"] = HasReason(result) ? Json(result.text) : Json();
    entry["notes"] = result.notes;
    array.push_back(entry);
  }
  return array.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}
