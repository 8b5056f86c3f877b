#import "host/dialog/RowsView.h"

#include <algorithm>
#include <initializer_list>
#include <iterator>

#include "host/base/Localized.h"
#import "host/dialog/Controls.h"
#import "host/dialog/KeyViewLoop.h"
#import "host/dialog/PanelArea.h"
#import "host/dialog/PrintDialogControls.h"

namespace {

const size_t kFewRows = 20;
const CGFloat kWidth = 500;
const CGFloat kTop = 8;
const CGFloat kGap = 10;
const CGFloat kLeastCaption = 190;
const CGFloat kMostCaption = 240;
const CGFloat kTextBox = 125;
const CGFloat kHintGap = 8;
const CGFloat kRing = 4;  // around the control that has the focus
const CGFloat kRow = kControlHeight + 6;
const CGFloat kHeading = 26;
const CGFloat kLowering = 4;  // of a text beside a control

// A group's rows need not stand together in the printer's description.
PanelRows InGroups(const PanelRows &rows) {
  std::vector<std::string> groups;
  for (const PanelRow &row : rows) {
    if (std::ranges::find(groups, row.group) == groups.end()) groups.push_back(row.group);
  }
  PanelRows sorted;
  for (const std::string &group : groups) {
    std::ranges::copy_if(rows, std::back_inserter(sorted),
                         [&group](const PanelRow &row) { return row.group == group; });
  }
  return sorted;
}

NSTextField *OneLine(NSTextField *label) {
  [[label cell] setLineBreakMode:NSLineBreakByTruncatingTail];
  return label;
}

NSTextField *Heading(const std::string &text) {
  NSTextField *heading = Label(String(text));
  [heading setFont:[NSFont boldSystemFontOfSize:0]];
  return heading;
}

void ShowAvailable(NSTextField *label, BOOL isAvailable, NSColor *color) {
  [label setTextColor:isAvailable ? color : [NSColor disabledControlTextColor]];
}

// A value that is none of the choices, as others than this dialog may set it, is one while it
// holds.
void SelectValue(NSPopUpButton *popUp, const PanelRow &row, const std::string &value) {
  while ([popUp numberOfItems] > static_cast<NSInteger>(row.choices.size())) {
    [popUp removeItemAtIndex:[popUp numberOfItems] - 1];
  }
  NSInteger index = [popUp indexOfItemWithRepresentedObject:String(value)];
  if (index < 0 && !value.empty()) {
    AddItem(popUp, String(value), String(value));
    index = [popUp numberOfItems] - 1;
  }
  [popUp selectItemAtIndex:index];
}

}  // namespace

@implementation RowsView

- (instancetype)initWithRows:(PanelRows)rows callbacks:(RowsViewCallbacks)callbacks {
  self = [super initWithFrame:NSMakeRect(0, 0, kWidth, 0)];
  if (self == nil) return nil;
  _rows = InGroups(rows);
  _callbacks = std::move(callbacks);
  if (_rows.size() > kFewRows) [self addFilter];
  std::string group;
  for (const PanelRow &row : _rows) {
    const bool beginsGroup = row.group != group;
    group = row.group;
    _headings.push_back(beginsGroup ? Heading(group) : nil);
    if (beginsGroup) [self addSubview:_headings.back()];
    [self addRow:row];
  }
  _shown.resize(_rows.size());
  [self layOut];
  std::vector<NSView *> keyViews(_controls.begin(), _controls.end());
  if (_filter != nil) keyViews.insert(keyViews.begin(), _filter);
  LinkKeyViews(keyViews);
  if (!keyViews.empty()) [self setNextKeyView:keyViews.front()];
  return self;
}

- (BOOL)isFlipped {
  return YES;
}

- (const PanelRows &)rows {
  return _rows;
}

- (void)addFilter {
  _filterCaption = Caption(Localized("Search"));
  [self addSubview:_filterCaption];
  _filter = TextBox(self);
  [self addSubview:_filter];
  _noneMatches = Label(String(Localized("no option has this in its name or its choices")));
  [self addSubview:_noneMatches];
}

- (void)addRow:(const PanelRow &)row {
  NSTextField *caption = OneLine(Caption(row.caption));
  [self addSubview:caption];
  _captions.push_back(caption);
  NSControl *control = row.choices.empty() ? TextBox(self) : [self popUpFor:row];
  [self addSubview:control];
  _controls.push_back(control);
  _hints.push_back(nil);
  if (row.hint.empty()) return;
  _hints.back() = OneLine(RemarkLabel(row.hint));
  [self addSubview:_hints.back()];
}

- (NSPopUpButton *)popUpFor:(const PanelRow &)row {
  NSPopUpButton *popUp = PopUpButton(self, @selector(choose:));
  for (const PPDChoice &choice : row.choices) {
    AddItem(popUp, String(choice.text), String(choice.keyword));
  }
  return popUp;
}

- (CGFloat)captionWidth {
  CGFloat width = kLeastCaption;
  for (NSTextField *caption : _captions) width = std::max(width, WidthOfText(caption));
  return std::min(width, kMostCaption);
}

// Rows that are not looked for are hidden, and the others move up.
- (void)layOut {
  const std::string wanted = Text([_filter stringValue]);
  const CGFloat captionWidth = [self captionWidth];
  const CGFloat left = captionWidth + kGap;
  const CGFloat right = kWidth - kRing;
  CGFloat y = kTop;
  if (_filter != nil) {
    [_filterCaption setFrame:NSMakeRect(0, y + kLowering, captionWidth, kLineHeight)];
    [_filter setFrame:NSMakeRect(left, y, right - left, kControlHeight)];
    y += kRow;
  }
  BOOL hasAny = NO;
  NSTextField *heading = nil;
  for (size_t at = 0; at < _rows.size(); ++at) {
    if (_headings[at] != nil) {
      heading = _headings[at];
      [heading setHidden:YES];
    }
    const BOOL isHidden = !_rows[at].Has(wanted);
    for (NSView *view : {(NSView *)_captions[at], (NSView *)_controls[at], (NSView *)_hints[at]}) {
      [view setHidden:isHidden];
    }
    if (isHidden) continue;
    hasAny = YES;
    if (heading != nil) {
      [heading setHidden:NO];
      [heading setFrame:NSMakeRect(0, y, kWidth, kLineHeight)];
      heading = nil;
      y += kHeading;
    }
    [_captions[at] setFrame:NSMakeRect(0, y + kLowering, captionWidth, kLineHeight)];
    const CGFloat width = _rows[at].hint.empty() ? right - left : kTextBox;
    [_controls[at] setFrame:NSMakeRect(left, y, width, kControlHeight)];
    const CGFloat hintLeft = left + width + kHintGap;
    [_hints[at] setFrame:NSMakeRect(hintLeft, y + kLowering, kWidth - hintLeft, kLineHeight)];
    y += kRow;
  }
  [_noneMatches setHidden:hasAny];
  if (!hasAny) {
    [_noneMatches setFrame:NSMakeRect(left, y + kLowering, kWidth - left, 2 * kLineHeight)];
    y += 2 * kLineHeight;
  }
  [self setFrameSize:NSMakeSize(kWidth, y + kTop)];
  [self setNeedsDisplay:YES];
}

- (void)showJob:(const JobOptions &)job besides:(size_t)besides {
  for (size_t at = 0; at < _rows.size(); ++at) {
    [self showRow:at withReason:_rows[at].WhyGray(job)];
    if (at == besides) continue;
    const std::string value = _rows[at].ValueIn(job);
    _shown[at] = value;
    if (_rows[at].choices.empty()) {
      [_controls[at] setStringValue:String(value)];
    } else {
      SelectValue((NSPopUpButton *)_controls[at], _rows[at], value);
    }
  }
}

- (void)showRow:(size_t)at withReason:(const std::string &)reason {
  const BOOL isAvailable = reason.empty();
  [_controls[at] setEnabled:isAvailable];
  [_controls[at] setToolTip:isAvailable ? nil : Sentence(reason)];
  ShowAvailable(_captions[at], isAvailable, [NSColor controlTextColor]);
  ShowAvailable(_hints[at], isAvailable, RemarkColor());
  // A caption that is cut short can be read at least there.
  [_captions[at] setToolTip:isAvailable ? String(_rows[at].caption) : Sentence(reason)];
  [_hints[at] setToolTip:isAvailable ? String(_rows[at].hint) : Sentence(reason)];
}

- (std::vector<std::pair<size_t, std::string>>)texts {
  std::vector<std::pair<size_t, std::string>> texts;
  for (size_t at = 0; at < _rows.size(); ++at) {
    if (!_rows[at].choices.empty() || ![_controls[at] isEnabled]) continue;
    std::string text = Text([_controls[at] stringValue]);
    if (text != _shown[at]) texts.emplace_back(at, std::move(text));
  }
  return texts;
}

- (void)giveFocusTo:(size_t)row {
  [[self window] makeFirstResponder:_controls[row]];
}

- (size_t)rowOf:(id)control {
  return static_cast<size_t>(std::ranges::find(_controls, control) - _controls.begin());
}

- (void)choose:(NSPopUpButton *)sender {
  _callbacks.chosen([self rowOf:sender], Text([[sender selectedItem] representedObject]));
}

- (void)controlTextDidChange:(NSNotification *)notification {
  NSTextField *box = [notification object];
  if (box != _filter) {
    _callbacks.typed([self rowOf:box], Text([box stringValue]));
    return;
  }
  [self layOut];
  NSScrollView *area = [self enclosingScrollView];
  if ([area isKindOfClass:[PanelArea class]]) [(PanelArea *)area placePanel];
}

@end
