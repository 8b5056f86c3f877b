#import "tests/gui/TextArea.h"

#include <algorithm>

namespace {

NSAttributedString *AttributedText(NSControl *control) {
  if ([control isKindOfClass:[NSButton class]]) return [(NSButton *)control attributedTitle];
  if ([control isKindOfClass:[NSTextField class]]) return [[control cell] attributedStringValue];
  return nil;
}

NSSize SizeOfText(NSControl *control) {
  NSSize size = [AttributedText(control) size];
  if (![control isKindOfClass:[NSPopUpButton class]]) return size;
  NSDictionary *attributes = @{NSFontAttributeName : [control font]};
  for (NSString *title in [(NSPopUpButton *)control itemTitles]) {
    const NSSize item = [title sizeWithAttributes:attributes];
    size = NSMakeSize(std::max(size.width, item.width), std::max(size.height, item.height));
  }
  return size;
}

bool IsCheckBox(NSControl *control) {
  return [control isKindOfClass:[NSButton class]] &&
         [(NSButton *)control imagePosition] == NSImageLeft;
}

}  // namespace

NSString *TextOfControl(NSControl *control) {
  NSString *text = [AttributedText(control) string];
  return [text length] == 0 ? nil : text;
}

NSRect TextArea(NSControl *control) {
  const NSSize size = SizeOfText(control);
  const NSRect room = [[control cell] titleRectForBounds:[control bounds]];
  CGFloat left = NSMinX(room);
  if (IsCheckBox(control)) {
    left += [[control cell] cellSize].width - size.width;  // the box
  } else if ([control isKindOfClass:[NSPopUpButton class]]) {
    // The room begins with the text.
  } else if ([control alignment] == NSRightTextAlignment) {
    left = NSMaxX(room) - size.width;
  } else if ([control alignment] == NSCenterTextAlignment) {
    left = NSMidX(room) - size.width / 2;
  }
  return NSMakeRect(left, NSMidY(room) - size.height / 2, size.width, size.height);
}
