#import "tests/support/BuiltBundle.h"

#include <cstdlib>
#include <iostream>

@protocol PrincipalObject
- (BOOL)initWithBundle:(NSBundle *)bundle;
- (NSArray *)PDEPanelsForType:(NSString *)type withHostInfo:(id)host;
@end

NSBundle *BuiltBundle() {
  static NSBundle *bundle = nil;
  if (bundle == nil) {
    bundle = [[NSBundle alloc] initWithPath:@BINARY_DIRECTORY "/BackgroundNumbering.plugin"];
    if (![bundle load]) {
      std::cerr << "the built bundle does not load\n";
      std::exit(1);
    }
  }
  return bundle;
}

id NewPrincipalObject() {
  id principal = [[[[BuiltBundle() principalClass] alloc] init] autorelease];
  return [(id<PrincipalObject>)principal initWithBundle:BuiltBundle()] ? principal : nil;
}

id<PDEPanel> NewPanel(TestHost *host) {
  NSArray *panels = [(id<PrincipalObject>)NewPrincipalObject()
      PDEPanelsForType:(NSString *)kPrinterModuleTypeIDStr
          withHostInfo:host];
  return [panels lastObject];
}

id Outlet(id<PDEPanel> panel, NSString *name) {
  return [[(id)panel valueForKey:@"viewController"] valueForKey:name];
}
