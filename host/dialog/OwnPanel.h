// Panels that the dialog brings itself, beside those of extensions.

#ifndef HOST_DIALOG_OWNPANEL_H
#define HOST_DIALOG_OWNPANEL_H

#import <Cocoa/Cocoa.h>

#include <string>

#include "host/base/Expected.h"

class OwnPanel {
 public:
  virtual ~OwnPanel() = default;

  virtual std::string kind() const = 0;   // no other panel's, and no extension's
  virtual std::string title() const = 0;  // localized

  // The printer, or the panels for it, are others than before. Whether there is anything to show.
  virtual bool Prepare() { return true; }
  // The view with the job as it stands now.
  virtual NSView *View() = 0;
  // Has in the job's settings what is being typed. The failure: it cannot be read, and has the
  // focus.
  virtual Expected<void> Save() { return {}; }
  // Whether View() asks the extensions' panels, which may then show a fault.
  virtual bool AsksExtensions() const { return false; }
  // Whether View() has something about the documents of the job.
  virtual bool ShowsDocuments() const { return false; }
};

#endif
