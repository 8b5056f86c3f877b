#import "view/velmoraBNViewControllerRV2+Summary.h"

@implementation velmoraBNViewControllerRV2 (Summary)

- (NSMutableDictionary *)summaryInfoWithDispOrderKey:(NSString *)dispOrderKey {
  NSMutableDictionary *summary = [NSMutableDictionary dictionary];
  NSString *valid = [self.ticket restoreTicketFailSafe:BNPTMNameValid];
  if (![valid isEqualToString:BNCIFunctionOn]) {
    [summary setObject:[self.commonInfo localizedString:valid]
                forKey:[self.commonInfo localizedString:BNVCLabelNameValid]];
    return summary;
  }
  for (NSString *name in @[ BNPTMNameSize, BNPTMNameDensity, BNPTMNameColor ]) {
    NSString *localizationKey = [self.ticket restoreTicketFailSafe:name];
    [summary setObject:[self.commonInfo localizedString:localizationKey]
                forKey:[self.commonInfo localizedString:name]];
  }
  [summary setObject:[self.ticket restoreTicketFailSafe:BNPTMNameStartNumber]
              forKey:[self.commonInfo localizedString:BNPTMNameStartNumber]];
  [summary setObject:@[
    [self.commonInfo localizedString:BNPTMNameSize],
    [self.commonInfo localizedString:BNPTMNameDensity],
    [self.commonInfo localizedString:BNPTMNameColor],
    [self.commonInfo localizedString:BNPTMNameStartNumber],
  ]
              forKey:dispOrderKey];
  return summary;
}

@end
