// The rows of a panel on a session of its own.

#ifndef TESTS_HOST_SESSION_PANELS_ROWSOFJOB_H
#define TESTS_HOST_SESSION_PANELS_ROWSOFJOB_H

#include <tuple>

#include "host/session/panels/JobPanels.h"
#include "tests/host/session/SessionOfJob.h"

// What a print server lists for each of its queues.
inline const OfferedOptions kOffered = {
    {"job-hold-until", {"no-hold", "indefinite", "night"}},
    {"job-priority", {}},
    {"job-sheets", {"none", "standard", "house"}},
    {"multiple-document-handling",
     {"separate-documents-uncollated-copies", "separate-documents-collated-copies"}},
    {"number-up", {"1", "2", "4"}},
    {"orientation-requested",
     {"portrait", "3", "landscape", "4", "reverse-landscape", "5", "reverse-portrait", "6"}},
    {"print-scaling", {"auto", "auto-fit", "fill", "fit", "none"}}};

struct RowsOfJob {
  Bundles bundles{"", {}};  // whose panels need no display
  JobSession session{bundles.extensions};
  PanelRows rows;

  RowsOfJob(PanelRows (*of)(const JobSession &), std::optional<PPDFile> ppd,
            const OfferedOptions &offered = kOffered, const JobOptions &defaults = {}) {
    EXPECT_TRUE(session.UsePrinter(std::move(ppd), defaults, offered));
    rows = of(session);
  }

  Names names() const {
    Names names;
    for (const PanelRow &row : rows) names.push_back(row.name);
    return names;
  }
  const PanelRow &operator[](const std::string &name) const {
    const auto found = std::ranges::find(rows, name, &PanelRow::name);
    if (found == rows.end()) std::abort();
    return *found;
  }

  JobOptions Job() const { return *JobAsItStands(session); }
  std::string Value(const std::string &name) const { return (*this)[name].ValueIn(Job()); }
  std::string WhyGray(const std::string &name) const { return (*this)[name].WhyGray(Job()); }
  Expected<void> Choose(const std::string &name, const std::string &value) {
    return (*this)[name].Choose(session, value);
  }
};

inline Names Keywords(const PanelRow &row) {
  Names keywords;
  for (const PPDChoice &choice : row.choices) keywords.push_back(choice.keyword);
  return keywords;
}

#endif
