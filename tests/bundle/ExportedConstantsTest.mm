#include <dlfcn.h>

#include "tests/bundle/ExportedConstants.h"
#import "tests/support/BuiltBundle.h"
#import "tests/support/ObjCTest.h"

OBJC_TEST(ExportedConstants, EachIsAVisibleSymbolWithItsValue) {
  void *bundle = dlopen([[BuiltBundle() executablePath] UTF8String], RTLD_NOW | RTLD_NOLOAD);
  ASSERT_NE(nullptr, bundle) << dlerror();
  for (const auto &constant : kExportedConstants) {
    auto *symbol = static_cast<NSString **>(dlsym(bundle, constant.symbol));
    ASSERT_NE(nullptr, symbol) << constant.symbol;
    EXPECT_EQUAL_OBJECTS([NSString stringWithUTF8String:constant.value], *symbol);
  }
  dlclose(bundle);
}
