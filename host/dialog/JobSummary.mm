#include "host/dialog/JobSummary.h"

#include "host/base/Localized.h"
#include "host/session/panels/JobPanels.h"

Expected<SummarySection> SummaryOfJob(const SummarizedJob &job, const JobSession &session) {
  SummaryLines lines = {{Localized("Printer"), job.printer}};
  if (!job.document.empty()) lines.emplace_back(Localized("Document"), job.document);
  lines.emplace_back(Localized("Copies"), job.copies);
  lines.emplace_back(Localized("Pages"), job.pages.empty() ? Localized("all") : job.pages);
  Expected<JobOptions> own = session.OwnOptions();
  if (!own) return own.failure();
  Expected<JobOptions> job_as_it_stands = JobAsItStands(session);
  if (!job_as_it_stands) return job_as_it_stands.failure();
  for (const JobPanel &panel : JobPanels()) {
    for (const PanelRow &row : panel.RowsFor(session)) {
      if (!row.WhyGray(*job_as_it_stands).empty()) continue;
      const std::string value = row.ValueIn(*job_as_it_stands);
      if (value == row.usual && !own->contains(row.Option())) continue;
      const std::string text = row.TextOf(value);
      if (!text.empty()) lines.emplace_back(row.caption, text);
    }
  }
  return SummarySection{Localized("Job"), std::move(lines)};
}
