#import "tests/support/LiveInstances.h"

// The base library's header hides these where NDEBUG is defined; the library has them nevertheless.
extern "C" BOOL GSDebugAllocationActive(BOOL active);
extern "C" int GSDebugAllocationCount(Class cls);

long LiveInstances(Class cls) {
  GSDebugAllocationActive(YES);
  return GSDebugAllocationCount(cls);
}
