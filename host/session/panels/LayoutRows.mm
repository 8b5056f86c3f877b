#include "host/base/Localized.h"
#include "host/session/panels/Orientation.h"
#include "host/session/panels/PanelRows.h"
#include "host/session/panels/RowChoices.h"

namespace {

constexpr char kPagesPerSheet[] = "number-up";
constexpr char kOrientation[] = "orientation-requested";

RowChoices Numbers(std::initializer_list<const char *> numbers) {
  RowChoices choices;
  for (const char *number : numbers) choices.push_back({number, number});
  return choices;
}

PanelRow OrderRow() {
  return {.name = "number-up-layout",
          .caption = Localized("Page Order"),
          .usual = "lrtb",
          .choices = {{"lrtb", Localized("Left to Right, Then Down")},
                      {"rltb", Localized("Right to Left, Then Down")},
                      {"tblr", Localized("Top to Bottom, Then Right")},
                      {"tbrl", Localized("Top to Bottom, Then Left")},
                      {"lrbt", Localized("Left to Right, Then Up")},
                      {"rlbt", Localized("Right to Left, Then Up")},
                      {"btlr", Localized("Bottom to Top, Then Right")},
                      {"btrl", Localized("Bottom to Top, Then Left")}},
          .why_gray = [](const JobOptions &job) {
            return ValueOr(job, kPagesPerSheet, "1") == "1"
                       ? Localized("choose several pages per sheet first")
                       : "";
          }};
}

PanelRow BorderRow() {
  return {.name = "page-border",
          .caption = Localized("Border"),
          .usual = "none",
          .choices = {{"none", Localized("No Border")},
                      {"single", Localized("Thin Line")},
                      {"single-thick", Localized("Thick Line")},
                      {"double", Localized("Two Thin Lines")},
                      {"double-thick", Localized("Two Thick Lines")}}};
}

PanelRow OrientationRow() {
  return {.name = kOrientation,
          .caption = Localized("Orientation"),
          .choices = {{"", Localized("Automatic")},
                      {"3", Localized("Portrait")},
                      {"4", Localized("Landscape")},
                      {"6", Localized("Portrait, Upside Down")},
                      {"5", Localized("Landscape, Upside Down")}},
          .value = OrientationOf};
}

PanelRow SidesRow(const JobSession &session) {
  return {.name = "sides",
          .caption = Localized("Two-Sided"),
          .usual = "one-sided",
          .choices = OfferedChoices(session, "sides",
                                    {{"one-sided", Localized("Off")},
                                     {"two-sided-long-edge", Localized("Long-Edge Binding")},
                                     {"two-sided-short-edge", Localized("Short-Edge Binding")}})};
}

PanelRow OneSidedRow() {
  return {.name = "sides",
          .caption = Localized("Two-Sided"),
          .usual = "one-sided",
          .choices = {{"one-sided", Localized("Off")}},
          .why_gray = [](const JobOptions &) {
            return Localized("this printer prints on one side of the paper");
          }};
}

std::optional<PanelRow> TwoSidedRow(const JobSession &session) {
  // As the print system's filters know them.
  if (auto row = RowOfFirst(session, {"Duplex", "JCLDuplex", "EFDuplex", "KD03Duplex"})) return row;
  const auto offered = session.offered().find("sides");
  if (offered != session.offered().end() && offered->second.size() > 1) return SidesRow(session);
  // The printers of a class differ.
  if (session.ppd() == nullptr) return std::nullopt;
  return OneSidedRow();
}

}  // namespace

PanelRows LayoutRows(const JobSession &session) {
  if (!LaysOutPages(session)) return {};
  PanelRows rows = {{.name = kPagesPerSheet,
                     .caption = Localized("Pages per Sheet"),
                     .usual = "1",
                     .choices = OfferedChoices(session, kPagesPerSheet,
                                               Numbers({"1", "2", "4", "6", "9", "16"}))},
                    OrderRow(),
                    BorderRow(),
                    OrientationRow()};
  if (auto row = TwoSidedRow(session)) rows.push_back(std::move(*row));
  return rows;
}
