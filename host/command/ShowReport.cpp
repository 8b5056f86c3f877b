#include "host/command/ShowReport.h"

#include <cmath>
#include <nlohmann/json.hpp>

namespace {

using Json = nlohmann::ordered_json;

const char *Word(ShowReport::Outcome outcome) {
  switch (outcome) {
    case ShowReport::Outcome::kAccepted:
      return "accepted";
    case ShowReport::Outcome::kPrinted:
      return "printed";
    case ShowReport::Outcome::kSaved:
      return "saved";
    case ShowReport::Outcome::kCanceled:
      return "canceled";
    case ShowReport::Outcome::kFailed:
      return "failed";
  }
  return "";
}

// To a hundredth: PPD files round to points.
double Millimeters(double points) { return std::round(points / 72 * 2540) / 100; }

Json PaperJson(const NamedPaper &named) {
  const Paper &paper = named.paper;
  return {{"name", named.name},
          {"width", Millimeters(paper.size.width)},
          {"height", Millimeters(paper.size.height)},
          {"margins",
           {{"top", Millimeters(paper.top)},
            {"bottom", Millimeters(paper.bottom)},
            {"left", Millimeters(paper.left)},
            {"right", Millimeters(paper.right)}}}};
}

}  // namespace

std::string ShowReport::Json() const {
  nlohmann::ordered_json json;
  json["outcome"] = Word(outcome);
  if (outcome == Outcome::kFailed) json["reason"] = reason;
  if (shown && !shown->queue.empty()) json["queue"] = shown->queue;
  if (job != 0) json["job"] = job;
  if (!files.empty()) {
    json["files"] = nlohmann::ordered_json::array();
    for (const std::filesystem::path &file : files) json["files"].push_back(file.string());
  }
  if (shown) {
    if (shown->paper) json["paper"] = PaperJson(*shown->paper);
    json["orientation"] = shown->is_landscape ? "landscape" : "portrait";
    json["settings"] = shown->settings;
  }
  return json.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + '\n';
}
