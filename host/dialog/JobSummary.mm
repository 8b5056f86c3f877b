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
  Expected<JobOptions> own = session.OwnOptions();
  if (!own) return own.failure();
  Expected<JobOptions> choices = session.Choices();
  if (!choices) return choices.failure();
  for (const PPDOption &option : session.OtherOptions()) {
    const std::string &choice = (*choices)[option.keyword];
    if (!own->contains(option.keyword) && choice == option.default_choice) continue;
    lines.emplace_back(option.text, TextOfChoice(option, choice));
  }
  return SummarySection{Localized("Job"), std::move(lines)};
}
