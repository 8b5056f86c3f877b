// Start numbers as text and back.

#ifndef VIEW_VELMORABNDECIMALFORMATTERRV2_H
#define VIEW_VELMORABNDECIMALFORMATTERRV2_H

#import <Cocoa/Cocoa.h>

/// Plain integers: no grouping, no decimal point, no locale, no range; whatever the inherited
/// settings say. Partial strings are not checked: text is corrected when it has changed.
@interface velmoraBNDecimalFormatterRV2 : NSNumberFormatter

/// The object's integerValue in decimal digits with a leading minus sign where negative; "0" for
/// nil.
- (NSString *)stringForObjectValue:(id)object;

/// Always YES, and *object is always an integer number: white space is skipped, a sign and digits
/// are read up to the first other character, no digits give 0, and too many saturate. *error is
/// never written.
- (BOOL)getObjectValue:(id *)object
             forString:(NSString *)string
      errorDescription:(NSString **)error;

@end

#endif
