#include <algorithm>
#include <charconv>

#include "host/base/Localized.h"
#include "host/base/Text.h"
#include "host/job/PaperSize.h"
#include "host/session/panels/PanelRows.h"
#include "host/session/panels/RowChoices.h"

namespace {

constexpr char kSize[] = "PageSize";
constexpr char kCustomSize[] = "Custom";  // the printer's own choices have no such keyword
constexpr char kScaling[] = "print-scaling";
constexpr char kPercentage[] = "scaling";
constexpr char kByPercentage[] = "percentage";

bool IsCustomSize(const std::string &choice) { return !TypedPaperSize(choice).empty(); }

// Of the paper of a job; empty: it is not known.
std::string TypedSizeIn(const JobOptions &job, const PPDFile *ppd) {
  const std::string choice = ValueOr(job, kSize, "");
  if (IsCustomSize(choice)) return TypedPaperSize(choice);
  const auto size = ppd == nullptr ? std::nullopt : PaperSizeOf(*ppd, choice);
  return size ? TypedPaperSize(*size) : "";
}

Expected<void> ChooseTypedSize(JobSession &session, const CustomPaperSizes &limits,
                               const std::string &text) {
  Expected<std::string> choice = ParsePaperSize(text);
  if (!choice) return choice.failure();
  if (session.check().Fitting(kSize, *choice)) return session.ChangeOption(kSize, *choice);
  return Failure{Localized("paper of this printer can be from %1 to %2",
                           {TypedPaperSize(limits.least), TypedPaperSize(limits.most)})};
}

// Begins with the size of the paper that is chosen, as near as the printer takes it.
Expected<void> ChooseCustomSize(JobSession &session, const CustomPaperSizes &limits) {
  Expected<JobOptions> job = JobAsItStands(session);
  if (!job) return job.failure();
  const std::string choice = ValueOr(*job, kSize, "");
  if (IsCustomSize(choice)) return {};
  const std::optional<PaperSize> now =
      session.ppd() == nullptr ? std::nullopt : PaperSizeOf(*session.ppd(), choice);
  PaperSize size = now.value_or(limits.least);
  if (limits.most.width > 0) {
    size.width = std::clamp(size.width, limits.least.width, limits.most.width);
    size.height = std::clamp(size.height, limits.least.height, limits.most.height);
  }
  return ChooseTypedSize(session, limits, TypedPaperSize(size));
}

void AddCustomChoice(PanelRow &row, const CustomPaperSizes &limits) {
  row.choices.push_back({kCustomSize, Localized("Custom")});
  row.value = [usual = row.usual](const JobOptions &job) {
    const std::string choice = ValueOr(job, kSize, usual);
    return IsCustomSize(choice) ? kCustomSize : choice;
  };
  row.choose = [limits](JobSession &session, const std::string &choice) {
    return choice == kCustomSize ? ChooseCustomSize(session, limits)
                                 : session.ChangeOption(kSize, choice);
  };
}

PanelRow CustomSizeRow(const JobSession &session, const CustomPaperSizes &limits) {
  return {
      .name = "custom size",
      .caption = Localized("Custom Size"),
      .option = kSize,
      .hint = Localized("such as 210 x 297 mm"),
      .value = [&session](const JobOptions &job) { return TypedSizeIn(job, session.ppd()); },
      .choose = [limits](JobSession &of_job,
                         const std::string &text) { return ChooseTypedSize(of_job, limits, text); },
      .why_gray =
          [](const JobOptions &job) {
            return IsCustomSize(ValueOr(job, kSize, ""))
                       ? ""
                       : Localized("choose Custom for the size of the paper first");
          }};
}

// What comes first of these is what the print system's filters obey.
std::string ScalingOf(const JobOptions &job) {
  if (const auto scaling = job.find(kScaling); scaling != job.end()) return scaling->second;
  if (job.contains(kPercentage)) return kByPercentage;
  if (job.contains("fitplot") ? IsOn(job, "fitplot") : IsOn(job, "fit-to-page")) return "fit";
  if (IsOn(job, "fill")) return "fill";
  return IsOn(job, "crop-to-fit") ? "none" : "auto";
}

PanelRow ScalingRow() {
  return {.name = kScaling,
          .caption = Localized("Scaling"),
          .usual = "auto",
          .choices = {{"auto", Localized("Automatic")},
                      {"fit", Localized("Fit to Paper")},
                      {"fill", Localized("Fill Paper")},
                      {"none", Localized("Original Size")},
                      {kByPercentage, Localized("Percentage, Pictures Only")}},
          .value = ScalingOf,
          .choose = [](JobSession &session, const std::string &choice) {
            const bool by_percentage = choice == kByPercentage;
            const PanelRow row = {.name = by_percentage ? kPercentage : kScaling, .caption = ""};
            return row.Choose(session, by_percentage ? "100" : choice);
          }};
}

Expected<std::string> ParsePercentage(const std::string &text) {
  constexpr int kLeast = 1;
  constexpr int kMost = 800;
  const std::string_view digits = Trimmed(text);
  const char *const last = digits.data() + digits.size();
  int number = 0;
  const auto [end, error] = std::from_chars(digits.data(), last, number);
  if (error == std::errc() && end == last && number >= kLeast && number <= kMost) {
    return std::to_string(number);
  }
  return Failure{Localized("%1 is no percentage; write a whole number from %2 to %3",
                           {Quoted(text), std::to_string(kLeast), std::to_string(kMost)})};
}

PanelRow PercentageRow() {
  return {.name = kPercentage,
          .caption = Localized("Percentage"),
          .hint = Localized("% of the paper"),
          .choose = [](JobSession &session, const std::string &text) -> Expected<void> {
            Expected<std::string> number = ParsePercentage(text);
            if (!number) return number.failure();
            return session.Set(kPercentage, *number);
          },
          .why_gray =
              [](const JobOptions &job) {
                return ScalingOf(job) == kByPercentage
                           ? ""
                           : Localized("choose the percentage for the scaling first");
              }};
}

}  // namespace

PanelRows PaperRows(const JobSession &session) {
  if (!LaysOutPages(session)) return {};
  PanelRows rows;
  if (auto size = RowOfFirst(session, {kSize})) {
    const std::optional<CustomPaperSizes> limits = CustomPaperSizesOf(*session.ppd());
    if (limits) AddCustomChoice(*size, *limits);
    rows.push_back(std::move(*size));
    if (limits) rows.push_back(CustomSizeRow(session, *limits));
  }
  for (const char *keyword : {"InputSlot", "MediaType"}) {
    if (auto row = RowOfFirst(session, {keyword})) rows.push_back(std::move(*row));
  }
  rows.push_back(ScalingRow());
  rows.push_back(PercentageRow());
  return rows;
}
