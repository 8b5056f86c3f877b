// The panel's captions.

#ifndef VIEW_VELMORABNTEXTLABELRV2_H
#define VIEW_VELMORABNTEXTLABELRV2_H

#import "view/ViewComponent.h"

/// Greyed by its colour alone, black or light grey; a caption stays enabled.
@interface velmoraBNTextLabelRV2 : NSTextField <ViewComponent>
@end

#endif
