// One panel of an extension bundle, kept at arm's length: what it raises or answers wrongly is a
// fault of the panel, never of the dialog.

#ifndef HOST_EXTENSION_EXTENSIONPANEL_H
#define HOST_EXTENSION_EXTENSIONPANEL_H

#import <Cocoa/Cocoa.h>
#import <PrintCore/PrintCore.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/base/Expected.h"
#include "host/base/Retained.h"

using SummaryLines = std::vector<std::pair<std::string, std::string>>;  // titles and values

class ExtensionPanel {
 public:
  // Asks for name, kind and option keywords, once. The failure: it is no panel, it raised, or what
  // it answered is of the wrong kind.
  static Expected<ExtensionPanel> Take(NSBundle *bundle, id panel);

  NSBundle *bundle() const { return bundle_.get(); }
  const std::string &name() const { return name_; }  // localized
  const std::string &kind() const { return kind_; }
  const std::vector<std::string> &option_keywords() const { return option_keywords_; }

  // Why the dialog must leave the panel out from now on: it raised, or answered nonsense. Once
  // there is a fault the panel is sent nothing more: the operations below refuse, or answer what
  // lets the dialog go on (it may hide, the job may be printed, no help of its own, no summary).
  const std::optional<std::string> &fault() const { return fault_; }

  // The view, always the same, owned by the panel. nil where there is a fault.
  NSView *View();
  std::optional<Failure> Restore();  // the panel's own words where it gives some
  std::optional<Failure> Save();
  void WillShow();
  bool ShouldHide();
  bool ShouldPrint();
  // Whether the dialog shows its own help; true for a panel that has none.
  bool ShouldShowHelp();
  SummaryLines Summary();  // in display order
  void OptionDidChange(const std::string &keyword, const std::string &choice);
  void WindowWillClose(bool canceled);

 private:
  ExtensionPanel(NSBundle *bundle, id panel);

  Retained<NSBundle *> bundle_;
  Retained<id> panel_;
  std::string name_;
  std::string kind_;
  std::vector<std::string> option_keywords_;
  std::optional<std::string> fault_;
};

#endif
