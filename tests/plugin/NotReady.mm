#import "tests/plugin/NotReady.h"

#import <objc/runtime.h>

#import "settinginfo/velmoraBNCommonInfoRV2.h"

@interface velmoraBNCommonInfoRV2 (NotReady)
- (BOOL)isNotReady;
@end

@implementation velmoraBNCommonInfoRV2 (NotReady)
- (BOOL)isNotReady {
  return NO;
}
@end

namespace {

void Exchange() {
  Class cls = [velmoraBNCommonInfoRV2 class];
  method_exchangeImplementations(class_getInstanceMethod(cls, @selector(isReady)),
                                 class_getInstanceMethod(cls, @selector(isNotReady)));
}

}  // namespace

NotReady::NotReady() { Exchange(); }
NotReady::~NotReady() { Exchange(); }
