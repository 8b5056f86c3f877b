#include "host/dialog/SummaryPanel.h"

#include <utility>
#include <vector>

#include "host/base/Localized.h"
#import "host/dialog/SummaryView.h"

SummaryPanel::SummaryPanel(JobSession &session, std::function<SummarySection()> job)
    : session_(session), job_(std::move(job)) {}

std::string SummaryPanel::kind() const { return "pdeprint summary"; }

std::string SummaryPanel::title() const { return Localized("Summary"); }

NSView *SummaryPanel::View() {
  std::vector<SummarySection> sections = {job_()};
  for (SummarySection &section : session_.Summary()) sections.push_back(std::move(section));
  // A new one each time: what is in the window keeps its size.
  return [[[SummaryView alloc] initWithSections:sections] autorelease];
}
