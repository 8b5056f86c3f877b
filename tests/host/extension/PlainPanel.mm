#import "tests/host/extension/PlainPanel.h"

@implementation PlainPanel

+ (instancetype)panelWithSummary:(id)summary {
  PlainPanel *panel = [[[self alloc] init] autorelease];
  panel->_summary = [summary retain];
  return panel;
}

- (void)dealloc {
  [_summary release];
  [super dealloc];
}

- (void)willShow {
}

- (BOOL)shouldHide {
  return YES;
}

- (BOOL)saveValuesAndReturnError:(NSError **)error {
  (void)error;
  return YES;
}

- (BOOL)restoreValuesAndReturnError:(NSError **)error {
  (void)error;
  return YES;
}

- (void)PPDOptionKeyValueDidChange:(NSString *)option ppdChoice:(NSString *)choice {
  (void)option;
  (void)choice;
}

- (NSView *)panelView {
  return [[[NSView alloc] initWithFrame:NSZeroRect] autorelease];
}

- (NSString *)panelName {
  return @"Plain";
}

- (NSString *)panelKind {
  return @"test.plain";
}

- (NSDictionary *)summaryInfo {
  return _summary;
}

@end
