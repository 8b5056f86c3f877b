// The panel's check box.

#ifndef VIEW_VELMORABNCHECKBOXRV2_H
#define VIEW_VELMORABNCHECKBOXRV2_H

#import "view/ViewComponent.h"

@interface velmoraBNCheckBoxRV2 : NSButton <ViewComponent>
@end

#endif
