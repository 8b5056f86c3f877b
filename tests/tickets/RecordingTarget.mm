#import "tests/tickets/RecordingTarget.h"

@implementation RecordingTarget

+ (instancetype)targetNamed:(const char *)name record:(std::vector<std::string> *)record {
  RecordingTarget *target = [[[self alloc] init] autorelease];
  target->name = name;
  target->record = record;
  return target;
}

- (void)did:(const std::string &)what {
  record->push_back(name + ' ' + what);
}

- (void)setStringValue:(NSString *)text {
  [self did:std::string("setStringValue ") + [text UTF8String]];
  shownText = text;
}

- (NSString *)stringValue {
  [self did:"stringValue"];
  return shownText;
}

- (void)setTitle:(NSString *)title {
  [self did:std::string("setTitle ") + [title UTF8String]];
}

- (void)setState:(NSInteger)state {
  [self did:"setState " + std::to_string(state)];
  shownState = state;
}

- (NSInteger)state {
  [self did:"state"];
  return shownState;
}

- (void)selectItemWithTitle:(NSString *)title {
  [self did:std::string("selectItemWithTitle ") + [title UTF8String]];
}

- (id)selectedItem {
  [self did:"selectedItem"];
  return self;
}

- (id)representedObject {
  [self did:"representedObject"];
  return shownText;
}

@end
