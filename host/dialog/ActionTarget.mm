#import "host/dialog/ActionTarget.h"

#include <utility>

@implementation ActionTarget

- (instancetype)initWithFunction:(std::function<void()>)function {
  self = [super init];
  if (self != nil) _function = std::move(function);
  return self;
}

- (void)act:(id)sender {
  (void)sender;
  _function();
}

- (BOOL)windowShouldClose:(id)sender {
  [self act:sender];
  return NO;
}

@end

Actions::~Actions() {
  for (const auto &control : controls_) [control.get() setTarget:nil];
  [window_.get() setDelegate:nil];
}

void Actions::Tie(NSControl *control, std::function<void()> function) {
  // NOLINTNEXTLINE(clang-analyzer-osx.cocoa.RetainCount): the handle takes the object over
  ActionTarget *target = [[ActionTarget alloc] initWithFunction:std::move(function)];
  targets_.push_back(Retained<ActionTarget *>::Adopt(target));
  controls_.push_back(Retained<NSControl *>::Share(control));
  [control setTarget:target];
  [control setAction:@selector(act:)];
}

void Actions::TieClosing(NSWindow *window, std::function<void()> function) {
  // NOLINTNEXTLINE(clang-analyzer-osx.cocoa.RetainCount): the handle takes the object over
  ActionTarget *target = [[ActionTarget alloc] initWithFunction:std::move(function)];
  targets_.push_back(Retained<ActionTarget *>::Adopt(target));
  window_ = Retained<NSWindow *>::Share(window);
  [window setDelegate:target];
}
