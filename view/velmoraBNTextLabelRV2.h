// The panel's captions.

#ifndef VIEW_VELMORABNTEXTLABELRV2_H
#define VIEW_VELMORABNTEXTLABELRV2_H

#import "view/ViewComponent.h"

/// Grayed by its color alone, black or light gray; a caption stays enabled.
@interface velmoraBNTextLabelRV2 : NSTextField <ViewComponent>
@end

#endif
