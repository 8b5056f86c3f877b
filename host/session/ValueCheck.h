// Whether a value fits: the one answer for what is chosen in the dialog, asked for on the command
// line, stored in presets and tickets, or a queue's default.

#ifndef HOST_SESSION_VALUECHECK_H
#define HOST_SESSION_VALUECHECK_H

#include <set>
#include <string>
#include <vector>

#include "host/base/Expected.h"
#include "host/cups/Queue.h"
#include "host/extension/Setting.h"
#include "host/ppd/PPDFile.h"

class ValueCheck {
 public:
  // Null: a printer without PPD file. Settings are what bundles let be changed without their
  // panels; claimed keywords are those that panels show for this printer; printer-specific ones are
  // known of other printers. Offered is what the queue says that jobs may ask for. The PPD file
  // must outlive the object.
  ValueCheck(const PPDFile *ppd, std::vector<Setting> settings, std::set<std::string> claimed = {},
             std::set<std::string> printer_specific = {}, OfferedOptions offered = {});

  // The value as a job has it under the key: "007" becomes "7" where that is a number, page ranges
  // are put in order, a choice becomes the one that the printer has in its place. The failure is a
  // clause: that the setting, the printer or every job takes other values (long lists are cut
  // short), or that the printer has nothing under this key: "this printer has no PageSize \"A0\";
  // it has A4, Letter". A claimed keyword that the PPD file does not know is the panel's affair; a
  // key that nobody knows takes any text.
  Expected<std::string> Fitting(const std::string &key, const std::string &value) const;

  // A note where the printer takes another choice in the place of this one; empty: it takes this
  // one as it is, or not at all.
  std::string NoteOfReplacing(const std::string &key, const std::string &value) const;

  // The same as far as a panel asks for it, whatever the printer: others must not reach it.
  Expected<std::string> FittingPanels(const std::string &key, const std::string &value) const;

  // Whether a job can do something with the key: a setting of a bundle, an option of the printer,
  // one that the queue offers, or one of every printer. A job may bring others along; asking for
  // one is a mistake.
  bool Knows(const std::string &key) const;

  const std::vector<Setting> &settings() const { return settings_; }
  // The bundles' setting that is stored under the key; null: none.
  const Setting *SettingOf(const std::string &key) const;

  // Whether texts alone are stored under the key.
  bool IsKeyOfText(const std::string &key) const;

 private:
  Expected<void> CheckPrinterHas(const std::string &key, const std::string &value) const;
  Expected<void> CheckQueueLists(const std::string &key, const std::string &value) const;

  const PPDFile *ppd_;
  std::vector<Setting> settings_;
  std::set<std::string> claimed_;
  std::set<std::string> printer_specific_;
  OfferedOptions offered_;
};

#endif
