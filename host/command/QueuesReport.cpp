#include "host/command/QueuesReport.h"

#include <nlohmann/json.hpp>
#include <sstream>

#include "host/base/OneLine.h"
#include "host/command/AppliedJson.h"

namespace {

const char *StateName(QueueState state) {
  switch (state) {
    case QueueState::kIdle:
      return "idle";
    case QueueState::kPrinting:
      return "printing";
    case QueueState::kStopped:
      return "stopped";
  }
  return "";
}

}  // namespace

std::string QueuesText(const std::vector<QueueResult> &results) {
  std::ostringstream text;
  for (const QueueResult &result : results) {
    text << (result.queue.is_default ? "* " : "  ") << OnOneLine(result.queue.name) << ": ";
    if (result.panels.empty()) {
      text << "no panel: " << OnOneLine(result.reason);
    } else {
      std::string names;
      for (const std::string &name : result.panels) names += (names.empty() ? "" : ", ") + name;
      text << OnOneLine(names);
      if (const std::string by = Described(result.applications); !by.empty()) {
        text << ", " << OnOneLine(by);
      }
    }
    if (result.queue.state == QueueState::kStopped) text << " (stopped)";
    if (!result.queue.accepts_jobs) text << " (does not accept jobs)";
    text << '\n';
  }
  return text.str();
}

std::string QueuesJson(const std::vector<QueueResult> &results) {
  using Json = nlohmann::ordered_json;
  Json array = Json::array();
  for (const QueueResult &result : results) {
    Json entry;
    entry["name"] = result.queue.name;
    entry["default"] = result.queue.is_default;
    entry["description"] = result.queue.description;
    entry["location"] = result.queue.location;
    entry["model"] = result.queue.model;
    entry["state"] = StateName(result.queue.state);
    entry["acceptsJobs"] = result.queue.accepts_jobs;
    entry["offered"] = !result.panels.empty();
    entry["panels"] = result.panels;
    entry["applied"] = AppliedJson(result.applications);
    entry["reason"] = result.panels.empty() ? Json(result.reason) : Json();
    array.push_back(entry);
  }
  return array.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}
