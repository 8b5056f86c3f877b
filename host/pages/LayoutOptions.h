// The job options that say how pages are laid out.

#ifndef HOST_PAGES_LAYOUTOPTIONS_H
#define HOST_PAGES_LAYOUTOPTIONS_H

#include <string>

#include "host/base/JobOptions.h"

// What is left for the server of a job whose pages are laid out: medium, sides, tray, and all that
// is the printer's own. One copy, since the copies are pages.
JobOptions OptionsOfLaidOut(const JobOptions &options);

// For pages that a converter of pictures has laid out already: without what it has done.
JobOptions OptionsForCopies(const JobOptions &options);

// Whether the documents are to be sent as they are.
bool IsRaw(const JobOptions &options);

// As filters take them: "NAME=VALUE ...".
std::string OptionText(const JobOptions &options);

#endif
