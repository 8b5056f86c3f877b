#include "host/dialog/JobSummary.h"

#include <algorithm>

#include "host/base/Localized.h"

namespace {

std::string TextOfChoice(const PPDOption &option, const std::string &keyword) {
  const auto choice =
      std::find_if(option.choices.begin(), option.choices.end(),
                   [&keyword](const PPDChoice &known) { return known.keyword == keyword; });
  return choice == option.choices.end() ? keyword : choice->text;
}

}  // namespace

Expected<SummarySection> SummaryOfJob(const SummarizedJob &job, const JobSession &session) {
  SummaryLines lines = {{Localized("Printer"), job.printer}};
  if (!job.document.empty()) lines.emplace_back(Localized("Document"), job.document);
  lines.emplace_back(Localized("Copies"), job.copies);
  lines.emplace_back(Localized("Pages"), job.pages.empty() ? Localized("all") : job.pages);
  for (const PPDOption &option : session.OtherOptions()) {
    Expected<std::string> value = session.Value(option.keyword);
    if (!value) return value.failure();
    Expected<std::string> choice = session.Choice(option.keyword);
    if (!choice) return choice.failure();
    if (value->empty() && *choice == option.default_choice) continue;
    lines.emplace_back(option.text, TextOfChoice(option, *choice));
  }
  return SummarySection{Localized("Job"), std::move(lines)};
}
