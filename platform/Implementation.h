// Functions in the place of methods.

#ifndef PLATFORM_IMPLEMENTATION_H
#define PLATFORM_IMPLEMENTATION_H

#include <objc/objc.h>

// The function as the runtime takes it. Its arguments are those of the method: the object, the
// selector and the method's own.
template <typename Function>
IMP ImplementationBy(Function *function) {
  // The runtime's type is that of no method; compilers take the detour for meant.
  return reinterpret_cast<IMP>(reinterpret_cast<void (*)()>(function));
}

// What the runtime hands out, as the function that it is.
template <typename Function>
Function FunctionOf(IMP implementation) {
  return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(implementation));
}

#endif
