// The extension bundles of the dialog.

#ifndef HOST_EXTENSION_EXTENSIONS_H
#define HOST_EXTENSION_EXTENSIONS_H

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "host/extension/ExtensionBundle.h"
#include "host/extension/ExtensionPanel.h"
#include "host/extension/SettingInfo.h"
#include "host/ppd/PPDFile.h"

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
  // not load. That there is none at all is no failure: the dialog prints without them.
  static Expected<Extensions> Load(const std::filesystem::path &named);

  // Also loads what the PPD file names with APDialogExtension and is not loaded yet: paths as
  // macOS installs them, so that a bundle of the same folder name is taken for the one that is
  // meant where there is nothing at the path.
  void LoadNamedBy(const PPDFile &ppd);

  // New panels of all bundles for this host, in the order of the bundles, one of a kind. A bundle
  // or panel that misbehaves is left out; others stay.
  ExtensionPanels Panels(HostCallback *host);

  // Why no bundle offers a panel for this printer, for people; null: a printer without PPD file.
  std::string ReasonForNoPanel(const PPDFile *ppd) const;

  const std::vector<ExtensionBundle> &bundles() const { return bundles_; }
  // All that the bundles let be changed without their panels; a bundle without setting info: none.
  const std::vector<Setting> &Settings() const { return settings_; }
  // What was left out so far, in the order of events; nothing twice.
  const std::vector<LeftOut> &left_out() const { return left_out_; }
  void LeaveOut(const ExtensionPanel &panel);  // one that has shown a fault

 private:
  Extensions() = default;
  std::string ReasonForNoBundle() const;
  // The failure: it does not load. One that was here already is passed over.
  Expected<void> Add(const std::filesystem::path &path);
  void LeaveOut(const std::string &name, const std::string &reason);
  void LeaveOut(NSBundle *bundle, const std::string &reason);

  std::string folders_;  // where bundles were looked for
  std::vector<ExtensionBundle> bundles_;
  std::vector<Setting> settings_;
  std::vector<LeftOut> left_out_;
  std::set<std::filesystem::path> paths_;  // of all that were tried, without links
  std::set<std::string> identifiers_;      // likewise
  // Why bundles are without a panel since panels were asked for last, other than by their choice.
  std::map<NSBundle *, std::string> troubles_;
};

#endif
