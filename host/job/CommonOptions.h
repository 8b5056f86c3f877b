// The options that the print system takes for any printer.

#ifndef HOST_JOB_COMMONOPTIONS_H
#define HOST_JOB_COMMONOPTIONS_H

#include <string_view>

// Whether every queue does something with this option. Others, as one that is misspelt, would be
// sent and silently ignored, unless the queue says that it takes them. No server and no library
// lists those that filters serve (fit-to-page, number-up-layout...), hence the list by hand.
bool IsCommonOption(std::string_view name);

#endif
