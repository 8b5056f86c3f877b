#import "bench/layout/BareOwner.h"

@implementation BareOwner

@synthesize view = _view;
@synthesize functionValid = _functionValid;
@synthesize popUpSize = _popUpSize;
@synthesize popUpDensity = _popUpDensity;
@synthesize popUpColor = _popUpColor;
@synthesize textBoxStartNumber = _textBoxStartNumber;
@synthesize stepperStartNumber = _stepperStartNumber;
@synthesize defaultButton = _defaultButton;
@synthesize labelSize = _labelSize;
@synthesize labelDensity = _labelDensity;
@synthesize labelColor = _labelColor;
@synthesize labelStartNumber = _labelStartNumber;
@synthesize labelStartNumberRange = _labelStartNumberRange;

// What is loaded stays when its owner goes, as with the panel: GiveBackLayout.

- (BOOL)loadLayoutOfBundle:(NSBundle *)bundle {
  return [bundle loadNibFile:@"BackgroundNumbering"
           externalNameTable:@{NSNibOwner : self}
                    withZone:nullptr];
}

- (void)changeFunctionValid:(id)sender {
  (void)sender;
}

- (void)restoreDefaults:(id)sender {
  (void)sender;
}

@end

void GiveBackLayout(id owner) {
  NSView *root = [owner valueForKey:@"view"];
  for (NSString *name in @[
         @"functionValid", @"popUpSize", @"popUpDensity", @"popUpColor", @"textBoxStartNumber",
         @"stepperStartNumber", @"defaultButton", @"labelSize", @"labelDensity", @"labelColor",
         @"labelStartNumber", @"labelStartNumberRange", @"view"
       ]) {
    [owner setValue:nil forKey:name];
  }
  [root release];  // the loader's reference
}
