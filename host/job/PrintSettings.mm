#include "host/job/PrintSettings.h"

PrintSettings EmptyPrintSettings() {
  PMPrintSettings settings = nullptr;
  return PrintSettings(PMCreatePrintSettings(&settings) == kPMNoError ? settings : nullptr);
}
