// The print settings of a job: what panels read and write.

#ifndef HOST_JOB_PRINTSETTINGS_H
#define HOST_JOB_PRINTSETTINGS_H

#import <PrintCore/PrintCore.h>

#include <memory>
#include <type_traits>

struct PrintSettingsReleaser {
  void operator()(PMPrintSettings settings) const { PMRelease(settings); }
};
using PrintSettings =
    std::unique_ptr<std::remove_pointer_t<PMPrintSettings>, PrintSettingsReleaser>;

// Null where the print system makes none: what is then tried with them fails.
PrintSettings EmptyPrintSettings();

#endif
