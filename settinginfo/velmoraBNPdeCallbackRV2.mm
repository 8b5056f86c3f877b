#import "settinginfo/velmoraBNPdeCallbackRV2.h"

@implementation velmoraBNPdeCallbackRV2
@end
