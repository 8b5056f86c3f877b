// The panel's choices in words.

#ifndef VIEW_VELMORABNVIEWCONTROLLERRV2_SUMMARY_H
#define VIEW_VELMORABNVIEWCONTROLLERRV2_SUMMARY_H

#import "view/velmoraBNViewControllerRV2.h"

@interface velmoraBNViewControllerRV2 (Summary)

/// A new, autoreleased dictionary of localized values under localized titles. With the function on:
/// size, density, color, start number, and under dispOrderKey (not nil) an array of the four
/// titles in this order. Otherwise the on/off value alone, and no order. What is asked is also
/// shown in the controls.
- (NSMutableDictionary *)summaryInfoWithDispOrderKey:(NSString *)dispOrderKey;

@end

#endif
