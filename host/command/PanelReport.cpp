#include "host/command/PanelReport.h"

#include <nlohmann/json.hpp>
#include <sstream>

#include "host/base/OneLine.h"

std::string PanelReport::Text() const {
  std::ostringstream text;
  text << "Panel: " << panel << "\nSummary:\n";
  for (const auto &[title, value] : summary)
    text << "  " << OnOneLine(title) << ": " << OnOneLine(value) << '\n';
  text << "Job options:\n";
  for (const auto &[name, value] : options)
    text << "  " << OnOneLine(name) << '=' << OnOneLine(value) << '\n';
  if (!ticket.empty()) text << "Ticket: " << ticket << '\n';
  if (!snapshot.empty()) text << "Picture: " << snapshot << '\n';
  return text.str();
}

std::string PanelReport::Json() const {
  nlohmann::ordered_json json;
  json["panel"] = panel;
  json["summary"] = nlohmann::ordered_json::array();
  for (const auto &[title, value] : summary) {
    json["summary"].push_back({{"title", title}, {"value", value}});
  }
  json["options"] = options;
  json["ticket"] = ticket.empty() ? nlohmann::ordered_json() : nlohmann::ordered_json(ticket);
  return json.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + '\n';
}
