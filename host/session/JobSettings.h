// The print settings of one job, some of which a panel may have locked.

#ifndef HOST_SESSION_JOBSETTINGS_H
#define HOST_SESSION_JOBSETTINGS_H

#include <map>
#include <string>
#include <vector>

#include "host/base/Expected.h"
#include "host/base/JobOptions.h"
#include "host/job/PrintSettings.h"
#include "host/job/SettingValues.h"
#include "host/session/Notes.h"

struct StoredValue {
  enum class Kind { kText, kNumber, kOther };
  Kind kind = Kind::kOther;
  std::string text;  // of a number, as it is written; empty for others
};
using StoredValues = std::map<std::string, StoredValue>;

class JobSettings {
 public:
  // Without any. Where the print system makes none, everything else fails.
  JobSettings();
  // What follows a failure in the middle of a change: everything fails.
  static JobSettings None() { return JobSettings(nullptr); }

  // Always the same object.
  PMPrintSettings get() const { return settings_.get(); }

  // The value of a text or number; empty: there is none, or another kind of value.
  Expected<std::string> Value(const std::string &key) const;
  // All values, by those keys that have UTF-8.
  Expected<StoredValues> Values() const;
  // As job options.
  Expected<JobOptions> Options() const;

  // An empty value takes away what is there. What is locked stays as it is, which is no failure.
  Expected<Change> Set(const std::string &key, const std::string &value);

  // Replaces all by these, with a note for each that is locked to another value, and for each that
  // is no option of a job. The failure: some may have been replaced.
  Expected<Notes> ReplaceBy(PMPrintSettings settings);

 private:
  explicit JobSettings(std::nullptr_t) {}

  PrintSettings settings_;
};

#endif
