// One panel of an extension bundle, kept at arm's length: what it raises or answers wrongly is a
// fault of the panel, never of the dialog. A refusal is no fault.

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
  // Asks for name and kind, once. The failure: it is no panel, it raised, or what it answered is of
  // the wrong kind.
  static Expected<ExtensionPanel> Take(NSBundle *bundle, id panel);

  NSBundle *bundle() const { return bundle_.get(); }
  id<PDEPanel> panel() const { return panel_.get(); }  // for what this class does not offer
  const std::string &name() const { return name_; }    // localized
  const std::string &kind() const { return kind_; }

  // Why the dialog must leave the panel out from now on: it raised, or answered nonsense. Once
  // there is a fault the panel is sent nothing more: the operations below refuse, or answer what
  // lets the dialog go on (it may hide, the job may be printed, no help of its own, no summary).
  const std::optional<std::string> &fault() const { return fault_; }

  // Keywords of the PPD options that the panel shows itself, asked for when they are needed first:
  // panels may put the question into the system log.
  const std::vector<std::string> &option_keywords();
  // The view, always the same. nil where there is a fault.
  NSView *View();
  // The failure: it refuses, with its own words where it gives some, or has a fault.
  Expected<void> Restore();
  Expected<void> Save();
  void WillShow();
  bool ShouldHide();
  bool ShouldPrint();
  // Whether the dialog shows its own help; true for a panel that has none.
  bool ShouldShowHelp();
  SummaryLines Summary();  // in display order
  void OptionDidChange(const std::string &keyword, const std::string &choice);
  void WindowWillClose(bool canceled);

 private:
  Failure Unusable() const;  // for its fault
  ExtensionPanel(NSBundle *bundle, id panel);

  Retained<NSBundle *> bundle_;
  Retained<id> panel_;
  Retained<NSView *> view_;
  std::string name_;
  std::string kind_;
  std::optional<std::vector<std::string>> option_keywords_;
  std::optional<std::string> fault_;
};

#endif
