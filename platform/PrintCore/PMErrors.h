// Status codes that the functions of PMCore.h answer.

#ifndef PLATFORM_PRINTCORE_PMERRORS_H
#define PLATFORM_PRINTCORE_PMERRORS_H

enum {
  kPMNoError = 0,
  kPMInvalidParameter = -50,  // a required argument is NULL
  kPMItemIsLocked = -9586,    // the item was set with the locked flag and stays as it is
  kPMKeyNotFound = -9589      // the settings hold no value under the key
};

#endif
