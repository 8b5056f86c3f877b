// The options that the print system takes for any printer.

#ifndef HOST_JOB_COMMONOPTIONS_H
#define HOST_JOB_COMMONOPTIONS_H

#include <string_view>

// Whether every queue does something with this option. Others, as one that is misspelt, would be
// sent and silently ignored, unless the queue says that it takes them. No server and no library
// lists those that filters serve (fit-to-page, number-up-layout...), hence the list by hand.
bool IsCommonOption(std::string_view name);

// Whether options of both names say the same of a job, so that one of them keeps the other from
// being obeyed: landscape and orientation-requested. Of an option of the printer (Duplex) its PPD
// file knows that.
bool IsSameThing(std::string_view one, std::string_view other);

#endif
