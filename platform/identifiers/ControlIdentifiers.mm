#import "ControlIdentifiers.h"

#import <Foundation/Foundation.h>
#include <objc/runtime.h>

#include <mutex>
#include <unordered_map>

#include "Implementation.h"

// The runtime has no associated objects and a category adds no field, so the identifiers stand
// beside the views, and -[NSView dealloc] takes a view's entry away.
namespace {

class IdentifierTable {
 public:
  NSString *Get(NSView *view) {
    std::lock_guard lock(mutex_);
    auto entry = identifiers_.find(view);
    return entry == identifiers_.end() ? nil : [[entry->second retain] autorelease];
  }

  void Set(NSView *view, NSString *identifier) {
    NSString *copy = [identifier copy];
    std::lock_guard lock(mutex_);
    NSString *&stored = identifiers_[view];
    [stored release];
    stored = copy;
    if (copy == nil) identifiers_.erase(view);
  }

 private:
  std::mutex mutex_;
  std::unordered_map<NSView *, NSString *> identifiers_;
};

using Dealloc = void (*)(id, SEL);
Dealloc viewDealloc;

IdentifierTable &Identifiers();

void ForgetIdentifierAndDealloc(id view, SEL selector) {
  Identifiers().Set(view, nil);
  viewDealloc(view, selector);
}

IdentifierTable *MakeTableAndWatchViews() {
  Method dealloc = class_getInstanceMethod([NSView class], @selector(dealloc));
  viewDealloc = FunctionOf<Dealloc>(
      method_setImplementation(dealloc, ImplementationBy(ForgetIdentifierAndDealloc)));
  return new IdentifierTable;
}

// Never destroyed: views may be freed until the very end of the process.
IdentifierTable &Identifiers() {
  static IdentifierTable *const table = MakeTableAndWatchViews();
  return *table;
}

}  // namespace

@implementation NSView (ControlIdentifiers)

- (NSUserInterfaceItemIdentifier)identifier {
  return Identifiers().Get(self);
}

- (void)setIdentifier:(NSUserInterfaceItemIdentifier)identifier {
  Identifiers().Set(self, identifier);
}

@end
