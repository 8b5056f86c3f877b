// The panel's push button.

#ifndef VIEW_VELMORABNBUTTONRV2_H
#define VIEW_VELMORABNBUTTONRV2_H

#import "view/ViewComponent.h"

@interface velmoraBNButtonRV2 : NSButton <ViewComponent>
@end

#endif
