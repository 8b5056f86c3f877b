#import "tests/support/LiveInstances.h"

#import <objc/runtime.h>

#include <map>

namespace {

std::map<Class, long> &Counts() {
  static std::map<Class, long> counts;
  return counts;
}

// Nothing counts instances here: the class's own ways in and out do, from now on.
void Count(Class cls) {
  Class metaclass = object_getClass(cls);
  const SEL allocate = @selector(allocWithZone:);
  const Method allocation = class_getInstanceMethod(metaclass, allocate);
  const auto inherited_allocation =
      reinterpret_cast<id (*)(id, SEL, NSZone *)>(method_getImplementation(allocation));
  class_replaceMethod(metaclass, allocate, imp_implementationWithBlock(^id(id self, NSZone *zone) {
                        if (self == cls) ++Counts()[cls];
                        return inherited_allocation(self, allocate, zone);
                      }),
                      method_getTypeEncoding(allocation));

  const SEL deallocate = @selector(dealloc);
  const Method deallocation = class_getInstanceMethod(cls, deallocate);
  const auto inherited_deallocation =
      reinterpret_cast<void (*)(id, SEL)>(method_getImplementation(deallocation));
  class_replaceMethod(cls, deallocate, imp_implementationWithBlock(^(id self) {
                        if (object_getClass(self) == cls) --Counts()[cls];
                        inherited_deallocation(self, deallocate);
                      }),
                      method_getTypeEncoding(deallocation));
}

}  // namespace

long LiveInstances(Class cls) {
  if (Counts().try_emplace(cls, 0).second) Count(cls);
  return Counts()[cls];
}
