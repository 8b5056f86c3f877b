// The box in which the start number is typed.

#ifndef VIEW_VELMORABNTEXTBOXRV2_H
#define VIEW_VELMORABNTEXTBOXRV2_H

#import "view/ViewComponent.h"

/// Knows the range of the number; it does not apply it by itself.
///
/// While the box is edited, stringValue answers the typed text as it stands. The inherited answer
/// would pass it through the formatter first, and with a letter before the digits all digits would
/// be lost before anyone could take the letter out. When whoever listens for changes rewrites the
/// text, the caret stays as far from its end as it was. Where less than the minimum has been typed,
/// such as nothing or a zero, the number that appears is selected, so that the next digit replaces
/// it.
@interface velmoraBNTextBoxRV2 : NSTextField <ViewComponent> {
  NSNumber *_min;
  NSNumber *_max;
}

/// The bounds, integers, both nil until set. min above max is not refused.
@property(nonatomic, copy) NSNumber *min;
@property(nonatomic, copy) NSNumber *max;

- (void)setValueRange:(NSNumber *)min max:(NSNumber *)max;

/// The bound itself where the value lies beyond it, tested against min first; else the value
/// itself. A bound that is nil counts as 0.
- (NSNumber *)verifyValue:(NSNumber *)value;

@end

#endif
