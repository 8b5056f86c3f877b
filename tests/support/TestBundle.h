// Resource bundles with setting info and strings of a test's own.

#ifndef TESTS_SUPPORT_TESTBUNDLE_H
#define TESTS_SUPPORT_TESTBUNDLE_H

#import <Foundation/Foundation.h>

#include <string>

#include "tests/support/TemporaryFolder.h"

/// A mutable copy, all the way down, of the setting info that the product ships.
NSMutableDictionary *ShippedSettingInfo();

/// The same with one entry changed; a nil value removes the entry.
NSMutableDictionary *SettingInfoWith(NSString *section, NSString *entry, id value);

class TestBundle {
 public:
  // A bundle with this setting-info resource (any property list; nil: none) and, unless empty, this
  // English strings table.
  explicit TestBundle(id setting_info, const std::string &strings = "");

  NSBundle *get() const { return bundle_; }  // NSBundle keeps every bundle for the process's life

 private:
  TemporaryFolder folder_;
  NSBundle *bundle_;
};

#endif
