#import "settinginfo/velmoraBNPdeCallbackRV2.h"

#import <objc/runtime.h>

#import "tests/support/ClassShape.h"
#import "tests/support/ObjCTest.h"

OBJC_TEST(PdeCallback, OnlyNamesAType) {
  Class cls = [velmoraBNPdeCallbackRV2 class];
  EXPECT_TRUE([cls superclass] == [NSObject class]);
  EXPECT_TRUE(FieldsOf(cls).empty());
  EXPECT_TRUE(ProtocolsOf(cls).empty());
  unsigned operations = 1;
  free(class_copyMethodList(cls, &operations));
  EXPECT_EQ(0u, operations);
}
