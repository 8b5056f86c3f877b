// The extension bundles of the dialog.

#ifndef HOST_EXTENSION_EXTENSIONS_H
#define HOST_EXTENSION_EXTENSIONS_H

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "host/cups/PPDFile.h"
#include "host/extension/ExtensionBundle.h"
#include "host/extension/ExtensionPanel.h"
#include "host/extension/SettingInfo.h"

using ExtensionPanels = std::vector<std::shared_ptr<ExtensionPanel>>;

// A bundle or panel that the dialog does without.
struct LeftOut {
  std::string name;    // of the bundle
  std::string reason;  // for people, a clause
};

class Extensions {
 public:
  // Finds and loads all bundles, each once by its path and by its identifier: the named one (if not
  // empty), then those of BundleFolders(). Their principal objects are made here, once each.
  // One that does not load is left out. The failure: a bundle is named, and is not there or does
  // not load; or none was found at all.
  static Expected<Extensions> Load(const std::filesystem::path &named);

  // Also loads what the PPD file names with APDialogExtension and is not loaded yet.
  void LoadNamedBy(const PPDFile &ppd);

  // New panels of all bundles for this host, in the order of the bundles. A bundle or panel that
  // misbehaves is left out; others stay.
  ExtensionPanels Panels(HostCallback *host);

  // Why no bundle offers a panel for this printer, for people; null: a printer without PPD file.
  std::string ReasonForNoPanel(const PPDFile *ppd) const;

  const std::vector<ExtensionBundle> &bundles() const { return bundles_; }
  // All that the bundles let be changed without their panels; a bundle without setting info: none.
  std::vector<Setting> Settings() const;
  // What was left out so far, in the order of events; nothing twice.
  const std::vector<LeftOut> &left_out() const { return left_out_; }
  void LeaveOut(const ExtensionPanel &panel);  // one that has shown a fault

 private:
  std::vector<ExtensionBundle> bundles_;
  std::vector<LeftOut> left_out_;
};

#endif
