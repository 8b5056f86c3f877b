#import "tests/support/LiveInstances.h"

#include <cstdlib>

// The base library's header hides these where NDEBUG is defined; the library has them nevertheless.
extern "C" BOOL GSDebugAllocationActive(BOOL active);
extern "C" int GSDebugAllocationCount(Class cls);
extern "C" Class *GSDebugAllocationClassList();

long LiveInstances(Class cls) {
  GSDebugAllocationActive(YES);
  return GSDebugAllocationCount(cls);
}

std::map<std::string, long> LiveInstances() {
  GSDebugAllocationActive(YES);
  std::map<std::string, long> live;
  Class *classes = GSDebugAllocationClassList();
  for (Class *cls = classes; *cls != Nil; ++cls) {
    live[class_getName(*cls)] = GSDebugAllocationCount(*cls);
  }
  std::free(classes);
  return live;
}
