#include "portal/Chosen.h"

#include <nlohmann/json.hpp>

namespace {

using Json = nlohmann::json;

constexpr std::pair<std::string_view, Outcome> kOutcomes[] = {{"accepted", Outcome::kAccepted},
                                                              {"printed", Outcome::kPrinted},
                                                              {"saved", Outcome::kSaved},
                                                              {"canceled", Outcome::kCanceled}};

// A member of an object; null where there is none, or nothing that has members.
Json Member(const Json &object, const char *name) {
  return object.is_object() && object.contains(name) ? object[name] : Json();
}

std::string Text(const Json &value) {
  return value.is_string() ? value.get<std::string>() : std::string();
}

double Number(const Json &value) { return value.is_number() ? value.get<double>() : 0; }

Outcome OutcomeNamed(const std::string &name) {
  for (const auto &[known, outcome] : kOutcomes) {
    if (known == name) return outcome;
  }
  return Outcome::kFailed;
}

std::optional<Paper> PaperIn(const Json &json) {
  const Json margins = Member(json, "margins");
  Paper paper = {.name = Text(Member(json, "name")),
                 .width = Number(Member(json, "width")),
                 .height = Number(Member(json, "height")),
                 .top = Number(Member(margins, "top")),
                 .bottom = Number(Member(margins, "bottom")),
                 .left = Number(Member(margins, "left")),
                 .right = Number(Member(margins, "right"))};
  if (paper.width <= 0 || paper.height <= 0) return std::nullopt;
  return paper;
}

JobOptions OptionsIn(const Json &json) {
  JobOptions options;
  if (!json.is_object()) return options;
  for (const auto &[name, value] : json.items()) options[name] = Text(value);
  return options;
}

}  // namespace

DialogResult ReadResult(std::string_view json) {
  constexpr bool kThrows = false;
  const Json answer = Json::parse(json, nullptr, kThrows);
  return {.outcome = OutcomeNamed(Text(Member(answer, "outcome"))),
          .chosen = {.queue = Text(Member(answer, "queue")),
                     .paper = PaperIn(Member(answer, "paper")),
                     .settings = OptionsIn(Member(answer, "settings"))}};
}
