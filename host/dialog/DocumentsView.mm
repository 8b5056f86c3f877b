#import "host/dialog/DocumentsView.h"

#include <algorithm>
#include <utility>

#include "host/base/Localized.h"
#import "host/dialog/Controls.h"
#import "host/dialog/KeyViewLoop.h"
#import "host/dialog/PrintDialogControls.h"

namespace {

const CGFloat kWidth = 500;
const CGFloat kHeight = 200;
const CGFloat kRing = 4;  // around the control that has the focus
const CGFloat kTop = 8;
const CGFloat kGap = 12;
const CGFloat kLeastButton = 100;
const CGFloat kMostButton = 200;
const CGFloat kButtonStep = kControlHeight + 8;
const CGFloat kRow = 20;
const CGFloat kInset = 16;  // of a text in its row, at both sides together

bool IsKey(NSEvent *event, unichar key) {
  NSString *characters = [event charactersIgnoringModifiers];
  return [characters length] == 1 && [characters characterAtIndex:0] == key;
}

// The key that is called Alt is the platform's command key, unless it is set otherwise.
bool HasAlt(NSEvent *event) {
  return ([event modifierFlags] & (NSAlternateKeyMask | NSCommandKeyMask)) != 0;
}

NSString *KeyTip(const std::string &key) { return String(Localized("Key in the list: %1", {key})); }

// With an ellipsis in the middle where it is too long: the beginning of a name and its end, or its
// folder, say most.
NSString *Shortened(NSString *text, NSFont *font, CGFloat width) {
  NSDictionary *const attributes = @{NSFontAttributeName : font};
  NSString *shortened = text;
  for (NSUInteger kept = [text length]; [shortened sizeWithAttributes:attributes].width > width;) {
    if (--kept < 2) break;
    NSString *start = [text substringToIndex:kept / 2];
    NSString *end = [text substringFromIndex:[text length] - (kept - kept / 2)];
    shortened = [NSString stringWithFormat:@"%@…%@", start, end];
  }
  return shortened;
}

NSButton *Button(const std::string &title, id target, SEL action) {
  return PushButton(String(title), target, action);
}

}  // namespace

/// Its delegate, a DocumentsView, does what keys say.
@interface DocumentsTable : NSTableView
@end

@interface DocumentsView (Keys)
- (BOOL)handleKey:(NSEvent *)event;
@end

@implementation DocumentsTable

// The platform's own color is hardly another one than that of the other rows.
- (void)highlightSelectionInClipRect:(NSRect)clip {
  [[NSColor selectedTextBackgroundColor] set];
  if ([self selectedRow] >= 0) {
    NSRectFill(NSIntersectionRect([self rectOfRow:[self selectedRow]], clip));
  }
}

- (void)keyDown:(NSEvent *)event {
  if (![(DocumentsView *)[self delegate] handleKey:event]) [super keyDown:event];
}

- (BOOL)performKeyEquivalent:(NSEvent *)event {
  return [[self window] firstResponder] == self && HasAlt(event) &&
         [(DocumentsView *)[self delegate] handleKey:event];
}

@end

@implementation DocumentsView

@synthesize table = _table;
@synthesize add = _add;
@synthesize remove = _remove;
@synthesize up = _up;
@synthesize down = _down;

- (instancetype)initWithDocuments:(JobDocuments *)documents
                        wantsMore:(std::function<void()>)wantsMore {
  self = [super initWithFrame:NSMakeRect(0, 0, kWidth, kHeight)];
  if (self == nil) return nil;
  _documents = documents;
  _wantsMore = std::move(wantsMore);
  _add = Button(Localized("Add…"), self, @selector(add:));
  _remove = Button(Localized("Remove"), self, @selector(remove:));
  [_remove setToolTip:KeyTip(Localized("Del"))];
  _up = Button(Localized("Move Up"), self, @selector(moveDocumentUp:));
  [_up setToolTip:KeyTip("Alt+↑")];
  _down = Button(Localized("Move Down"), self, @selector(moveDocumentDown:));
  [_down setToolTip:KeyTip("Alt+↓")];
  [self layOut];
  [self showDocuments];
  [self select:0];
  const std::vector<NSView *> views = {_table, _add, _remove, _up, _down};
  LinkKeyViews(views);
  [self setNextKeyView:_table];
  return self;
}

- (void)dealloc {
  [_table setDataSource:nil];
  [_table setDelegate:nil];
  [super dealloc];
}

- (BOOL)isFlipped {
  return YES;
}

- (void)layOut {
  CGFloat button = kLeastButton;
  for (NSButton *one : {_add, _remove, _up, _down}) {
    button = std::max(button, WidthOfButton(one, kLeastButton));
  }
  button = std::min(button, kMostButton);
  const CGFloat list = kWidth - 2 * kRing - kGap - button;
  NSTextField *hint = RemarkLabel(Localized("Files can be dropped onto the window, too."));
  const CGFloat hintHeight = HeightOfText(hint, list);
  const NSRect frame = NSMakeRect(kRing, kTop, list, kHeight - 2 * kTop - hintHeight - 4);
  [self addSubview:[self scrollViewWithFrame:frame]];
  [hint setFrame:NSMakeRect(kRing, NSMaxY(frame) + 4, list, hintHeight)];
  [self addSubview:hint];
  CGFloat y = kTop;
  for (NSButton *one : {_add, _remove, _up, _down}) {
    [one setFrame:NSMakeRect(NSMaxX(frame) + kGap, y, button, kControlHeight)];
    [self addSubview:one];
    y += kButtonStep;
  }
}

- (NSScrollView *)scrollViewWithFrame:(NSRect)frame {
  NSScrollView *scroll = [[[NSScrollView alloc] initWithFrame:frame] autorelease];
  [scroll setBorderType:NSBezelBorder];
  [scroll setBackgroundColor:[NSColor whiteColor]];
  _table = [[[DocumentsTable alloc] initWithFrame:NSZeroRect] autorelease];
  NSTableColumn *column = [[[NSTableColumn alloc] initWithIdentifier:@"name"] autorelease];
  [column setEditable:NO];
  [column setResizingMask:NSTableColumnNoResizing];
  [[column dataCell] setLineBreakMode:NSLineBreakByClipping];
  [_table addTableColumn:column];
  [_table setHeaderView:nil];
  [_table setBackgroundColor:[NSColor whiteColor]];
  [_table setIntercellSpacing:NSMakeSize(8, 2)];
  [_table setCornerView:nil];
  [_table setRowHeight:kRow];
  [_table setDrawsGrid:NO];
  [_table setAllowsColumnSelection:NO];
  [_table setAllowsEmptySelection:NO];
  [_table setDataSource:self];
  [_table setDelegate:self];
  [scroll setDocumentView:_table];
  return scroll;
}

- (void)showDocuments {
  _names = _documents->Names();
  const NSInteger selected = [_table selectedRow];
  const NSInteger last = static_cast<NSInteger>(_names.size()) - 1;
  [self makeRoomForRows:last + 1];
  [_table reloadData];
  [self select:static_cast<size_t>(std::clamp<NSInteger>(selected, 0, last))];
}

// Hiding it automatically takes the room of the names all the same.
- (void)makeRoomForRows:(NSInteger)rows {
  NSScrollView *scroll = [_table enclosingScrollView];
  const CGFloat height = ([_table rowHeight] + [_table intercellSpacing].height) * rows;
  [scroll setHasVerticalScroller:height > [scroll contentSize].height];
  NSTableColumn *column = [[_table tableColumns] objectAtIndex:0];
  [column setWidth:[scroll contentSize].width];
}

- (void)select:(size_t)at {
  const NSInteger row = static_cast<NSInteger>(at);
  [_table selectRowIndexes:[NSIndexSet indexSetWithIndex:at] byExtendingSelection:NO];
  [_table scrollRowToVisible:row];
  [self showWhatCanBeDone];
}

- (size_t)selected {
  return static_cast<size_t>(std::max<NSInteger>([_table selectedRow], 0));
}

// A button that turns gray passes the focus on: keys would go nowhere.
- (void)showWhatCanBeDone {
  const size_t at = [self selected];
  [_add setEnabled:_documents->CanAdd()];
  [_remove setEnabled:_documents->CanRemove()];
  [_up setEnabled:_documents->CanMoveUp(at)];
  [_down setEnabled:_documents->CanMoveDown(at)];
  // The name may be cut short in the list.
  [_table setToolTip:at < _names.size() ? String(_names[at]) : nil];
  for (NSButton *button : {_add, _remove, _up, _down}) {
    if (![button isEnabled] && [[self window] firstResponder] == button) {
      [[self window] makeFirstResponder:_table];
    }
  }
}

- (BOOL)handleKey:(NSEvent *)event {
  if (HasAlt(event)) {
    if (IsKey(event, NSUpArrowFunctionKey)) return [self moveDocumentUp:nil], YES;
    if (IsKey(event, NSDownArrowFunctionKey)) return [self moveDocumentDown:nil], YES;
    return NO;
  }
  for (const int key : {+NSDeleteCharacter, +NSBackspaceCharacter, +NSDeleteFunctionKey}) {
    if (IsKey(event, static_cast<unichar>(key))) return [self remove:nil], YES;
  }
  return NO;
}

- (void)add:(id)sender {
  (void)sender;
  _wantsMore();
}

- (void)remove:(id)sender {
  (void)sender;
  _documents->Remove([self selected]);
}

- (void)moveDocumentUp:(id)sender {
  (void)sender;
  const size_t at = [self selected];
  if (!_documents->CanMoveUp(at)) return;
  _documents->MoveUp(at);
  [self select:at - 1];
}

- (void)moveDocumentDown:(id)sender {
  (void)sender;
  const size_t at = [self selected];
  if (!_documents->CanMoveDown(at)) return;
  _documents->MoveDown(at);
  [self select:at + 1];
}

- (NSInteger)numberOfRowsInTableView:(NSTableView *)table {
  (void)table;
  return static_cast<NSInteger>(_names.size());
}

- (id)tableView:(NSTableView *)table
    objectValueForTableColumn:(NSTableColumn *)column
                          row:(NSInteger)row {
  (void)table;
  NSString *name = String(_names.at(static_cast<size_t>(row)));
  return Shortened(name, [[column dataCell] font], [column width] - kInset);
}

- (void)tableViewSelectionDidChange:(NSNotification *)notification {
  (void)notification;
  [self showWhatCanBeDone];
}

@end
