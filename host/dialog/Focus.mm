#import "host/dialog/Focus.h"

namespace {

bool IsFieldEditor(id responder) {
  return [responder isKindOfClass:[NSText class]] && [responder isFieldEditor];
}

}  // namespace

NSView *FocusedView(NSWindow *window) {
  id focus = [window firstResponder];
  if (IsFieldEditor(focus)) focus = [focus delegate];
  return [focus isKindOfClass:[NSView class]] ? focus : nil;
}

void EndEditing(NSWindow *window) {
  if (!IsFieldEditor([window firstResponder])) return;
  NSView *edited = FocusedView(window);
  [window makeFirstResponder:window];
  if (edited != nil) [window makeFirstResponder:edited];
}
