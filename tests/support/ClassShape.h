// What the runtime knows of a class.

#ifndef TESTS_SUPPORT_CLASSSHAPE_H
#define TESTS_SUPPORT_CLASSSHAPE_H

#import <Foundation/Foundation.h>

#include <initializer_list>
#include <string>
#include <vector>

#import "tests/support/LiveInstances.h"

/// "name type" of the fields that the class itself declares, in order; the type of an object is its
/// class.
std::vector<std::string> FieldsOf(Class cls);

/// The protocols that the class itself declares. (conformsToProtocol: says NO to a @protocol() of a
/// file in which no class declares it.)
std::vector<std::string> ProtocolsOf(Class cls);

/// The names of those fields whose object goes when an instance is torn down, in the order in which
/// the objects go. Covers the fields of superclasses below NSObject too.
std::vector<std::string> FieldsReleasedAtTeardown(Class cls);

/// Whether instances answer a setter of any of these properties.
bool HasSetterOf(Class cls, NSArray *properties);

/// How many instances of exactly these classes the body leaves behind once the current autorelease
/// scope of its own has ended.
template <typename Body>
long InstancesLeft(std::initializer_list<Class> classes, Body body) {
  long before = 0, after = 0;
  for (Class cls : classes) before += LiveInstances(cls);
  @autoreleasepool {
    body();
  }
  for (Class cls : classes) after += LiveInstances(cls);
  return after - before;
}

template <typename Body>
long InstancesLeft(Class cls, Body body) {
  return InstancesLeft({cls}, body);
}

/// How many references to the object the body leaves behind, counted likewise.
template <typename Body>
long ReferencesLeft(id object, Body body) {
  const NSUInteger before = [object retainCount];
  @autoreleasepool {
    body();
  }
  return static_cast<long>([object retainCount]) - static_cast<long>(before);
}

#endif
