// The stepper beside the start number.

#ifndef VIEW_VELMORABNSTEPPERRV2_H
#define VIEW_VELMORABNSTEPPERRV2_H

#import "view/ViewComponent.h"

@interface velmoraBNStepperRV2 : NSStepper <ViewComponent>
@end

#endif
