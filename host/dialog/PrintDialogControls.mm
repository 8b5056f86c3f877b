#import "host/dialog/PrintDialogControls.h"

#import "host/dialog/Controls.h"

NSTextField *NoticesLabel() {
  NSTextField *notices = Label(@"");
  [notices setDrawsBackground:YES];
  [notices setBackgroundColor:[NSColor colorWithCalibratedRed:1 green:0.96 blue:0.80 alpha:1]];
  [notices setBordered:YES];
  [notices setHidden:YES];
  return notices;
}

NSColor *RemarkColor() { return [NSColor colorWithCalibratedWhite:0.35 alpha:1]; }

NSTextField *RemarkLabel(const std::string &text) {
  NSTextField *remark = Label(String(text));
  [remark setTextColor:RemarkColor()];
  return remark;
}

NSStepper *CopiesStepper() {
  NSStepper *stepper = [[[NSStepper alloc] initWithFrame:NSZeroRect] autorelease];
  [stepper setMinValue:1];
  [stepper setMaxValue:9999];
  [stepper setValueWraps:NO];
  [stepper setIntValue:1];
  return stepper;
}

NSBox *SeparatorLine() {
  NSBox *line = [[[NSBox alloc] initWithFrame:NSZeroRect] autorelease];
  [line setBoxType:NSBoxSeparator];
  return line;
}

NSTextField *ProgressLabel() {
  NSTextField *text = Label(@"");
  [[text cell] setWraps:NO];
  return text;
}

NSProgressIndicator *ProgressBar() {
  NSProgressIndicator *bar = [[[NSProgressIndicator alloc] initWithFrame:NSZeroRect] autorelease];
  [bar setIndeterminate:NO];
  [bar setMinValue:0];
  [bar setMaxValue:1];
  [bar setHidden:YES];
  return bar;
}
