// One panel of a bundle, at work on one job for one printer.

#ifndef HOST_EXTENSION_PANELSESSION_H
#define HOST_EXTENSION_PANELSESSION_H

#import <PrintCore/PrintCore.h>

#include <functional>
#include <memory>

#include "host/base/Expected.h"
#include "host/base/Retained.h"
#include "host/command/Commands.h"
#include "host/command/PanelReport.h"
#include "host/cups/PPDFile.h"
#include "host/extension/ExtensionBundle.h"

class PanelSession {
 public:
  // Opens the PPD file, reads the ticket and asks the bundle for its panel.
  // The failure says which of them is wrong, or why the bundle offers no panel for this printer.
  static Expected<std::unique_ptr<PanelSession>> Open(const JobFiles &files);

  id<PDEPanel> panel() const { return [panels_.get() objectAtIndex:0]; }
  NSBundle *bundle() const { return bundle_.bundle(); }
  PMPrintSettings settings() const { return settings_.get(); }

  // Name, summary and job options as they are now.
  PanelReport Report() const;

 private:
  PanelSession(PPDFile ppd, PrintSettings settings, ExtensionBundle bundle);

  // Declared in the order of dependence: the panels go first, the PPD file last.
  PPDFile ppd_;
  PrintSettings settings_;
  ExtensionBundle bundle_;
  Retained<NSArray *> panels_;
};

// Opens a session and works on it; the answer is the exit status. Complains of what cannot be
// opened and of what the bundle raises.
int WithPanelSession(const JobFiles &files, const std::function<int(PanelSession &)> &work);

#endif
