// The panel's pop-up buttons.

#ifndef VIEW_VELMORABNPOPUPBUTTONRV2_H
#define VIEW_VELMORABNPOPUPBUTTONRV2_H

#import "view/ViewComponent.h"

@interface velmoraBNPopUpButtonRV2 : NSPopUpButton <ViewComponent>
@end

#endif
