// Making stored values fit.

#ifndef HOST_SESSION_REPAIR_H
#define HOST_SESSION_REPAIR_H

#include <functional>
#include <string>

#include "host/base/Expected.h"
#include "host/session/JobSettings.h"
#include "host/session/Notes.h"

// What becomes of a value under a key, or why it does not fit.
using Fit = std::function<Expected<std::string>(const std::string &key, const std::string &value)>;

// Gives the texts and numbers among the settings the form in which they fit, numbers that of texts
// where texts alone are stored, and takes away what does not fit, with a note each. What is locked
// stays. The failure: some may have been changed.
Expected<Notes> Repair(JobSettings &settings, const Fit &fit,
                       const std::function<bool(const std::string &key)> &is_key_of_text);

#endif
