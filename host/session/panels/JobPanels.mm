#include "host/session/panels/JobPanels.h"

#include <set>

#include "host/base/Localized.h"

namespace {

std::vector<JobPanel> CommonPanels() {
  return {{"pdeprint layout", Localized("Layout"), LayoutRows},
          {"pdeprint paper", Localized("Paper"), PaperRows},
          {"pdeprint pages", Localized("Pages"), PagesRows},
          {"pdeprint job", Localized("Job"), JobRows}};
}

}  // namespace

PanelRows JobPanel::RowsFor(const JobSession &session) const {
  PanelRows all = rows(session);
  std::erase_if(all, [&session](const PanelRow &row) { return session.IsClaimed(row.Option()); });
  return all;
}

std::vector<JobPanel> JobPanels() {
  std::vector<JobPanel> panels = CommonPanels();
  panels.push_back({"pdeprint options", Localized("Printer Options"), PrinterOptionRows});
  return panels;
}

PanelRows PrinterOptionRows(const JobSession &session) {
  std::set<std::string> shown;
  for (const JobPanel &panel : CommonPanels()) {
    for (const PanelRow &row : panel.rows(session)) shown.insert(row.Option());
  }
  PanelRows rows;
  for (const PPDOption &option : session.OtherOptions()) {
    if (!shown.contains(option.keyword)) rows.push_back(RowOfPrinterOption(option));
  }
  return rows;
}
