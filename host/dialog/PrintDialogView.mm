#import "host/dialog/PrintDialogView.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "host/base/Localized.h"
#import "host/dialog/Controls.h"
#import "host/dialog/KeyViewLoop.h"
#include "host/dialog/PlatformGeometry.h"
#import "host/dialog/PrintDialogControls.h"
#include "host/dialog/PrintDialogLayout.h"

@implementation PrintDialogView

@synthesize printers = _printers;
@synthesize printerInfo = _printerInfo;
@synthesize presets = _presets;
@synthesize copies = _copies;
@synthesize copiesStepper = _copiesStepper;
@synthesize pages = _pages;
@synthesize panels = _panels;
@synthesize help = _help;
@synthesize fold = _fold;
@synthesize cancel = _cancel;
@synthesize print = _print;

- (instancetype)initWithFrame:(NSRect)frame {
  self = [super initWithFrame:frame];
  if (self == nil) return nil;
  const auto add = [self](auto *view) {
    [self addSubview:view];
    return view;
  };
  _notices = add(NoticesLabel());
  _printerCaption = add(Caption(Localized("Printer")));
  _printers = add(PopUpButton(nil, nullptr));
  _printerInfo = add(RemarkLabel(""));
  _presetCaption = add(Caption(Localized("Presets")));
  _presets = add(PopUpButton(nil, nullptr));
  _copiesCaption = add(Caption(Localized("Copies")));
  _copies = add(TextBox(nil));
  _copiesStepper = add(CopiesStepper());
  _pagesCaption = add(Caption(Localized("Pages")));
  _pages = add(TextBox(nil));
  _pagesHint = add(RemarkLabel(Localized("such as 1-3, 5; empty: all")));
  _leftLine = add(SeparatorLine());
  _rightLine = add(SeparatorLine());
  _panels = add(PopUpButton(nil, nullptr));
  _panelArea = add([[[PanelArea alloc] initWithFrame:NSZeroRect] autorelease]);
  _lowerLine = add(SeparatorLine());
  _help = add(PushButton(@"?", nil, nullptr));
  [_help setToolTip:String(Localized("Help"))];
  _fold = add(PushButton(@"", nil, nullptr));
  [_fold setHidden:YES];
  _progressText = add(ProgressLabel());
  _progress = add(ProgressBar());
  _cancel = add(PushButton(String(Localized("Cancel")), nil, nullptr));
  _print = add(PushButton(String(Localized("Print")), nil, nullptr));
  [_print setKeyEquivalent:@"\r"];
  return self;
}

- (BOOL)isFlipped {
  return YES;
}

- (void)resizeSubviewsWithOldSize:(NSSize)oldSize {
  (void)oldSize;
  [self layOut];
}

- (PrintDialogLayout)currentLayout {
  PrintDialogMeasures measures;
  for (NSTextField *caption in @[ _printerCaption, _presetCaption, _copiesCaption ]) {
    measures.captions = std::max<double>(measures.captions, WidthOfText(caption));
  }
  measures.pages_caption = WidthOfText(_pagesCaption);
  measures.pages_hint = WidthOfText(_pagesHint);
  measures.buttons = std::max(WidthOfButton(_cancel, 0), WidthOfButton(_print, 0));
  const auto height_of = [](NSTextField *label) {
    return [label](double width) { return HeightOfText(label, width); };
  };
  if (![_notices isHidden]) measures.notices = height_of(_notices);
  measures.printer_info = height_of(_printerInfo);
  if (![_fold isHidden]) measures.fold = WidthOfButton(_fold, 0);
  measures.has_preview = [self showsPreview];
  measures.panel = _panelWidth;
  measures.has_progress_bar = ![_progress isHidden];
  return PrintDialogLayout(std::move(measures));
}

- (NSSize)sizeForPanelSize:(NSSize)size {
  return PlatformSize([self currentLayout].SizeForPanel(SizeForLayout(size)));
}

- (NSSize)minSize {
  return PlatformSize([self currentLayout].MinSize());
}

- (void)layOut {
  const PrintDialogFrames frames = [self currentLayout].FramesIn(SizeForLayout([self bounds].size));
  const auto place = [](NSView *view, const LayoutRect &frame) {
    [view setFrame:PlatformRect(frame)];
  };
  place(_notices, frames.notices);
  place(_printerCaption, frames.printer_caption);
  place(_printers, frames.printers);
  place(_printerInfo, frames.printer_info);
  place(_presetCaption, frames.preset_caption);
  place(_presets, frames.presets);
  place(_copiesCaption, frames.copies_caption);
  place(_copies, frames.copies);
  place(_copiesStepper, frames.copies_stepper);
  place(_pagesCaption, frames.pages_caption);
  place(_pages, frames.pages);
  place(_pagesHint, frames.pages_hint);
  place(_leftLine, frames.left_line);
  place(_panels, frames.panels);
  place(_rightLine, frames.right_line);
  place(_panelArea, frames.panel_area);
  [_panelArea placePanel];
  place(_lowerLine, frames.lower_line);
  place(_help, frames.help);
  place(_fold, frames.fold);
  if ([self showsPreview]) place(_preview, frames.preview);
  place(_progressText, frames.progress_text);
  place(_progress, frames.progress);
  place(_cancel, frames.cancel);
  place(_print, frames.print);
  [self setNeedsDisplay:YES];
}

- (NSView *)panelView {
  return [_panelArea panelView];
}

- (void)setPanelView:(NSView *)view {
  if (view == [self panelView] && view != nil) return;
  [self moveFocusOutOfPanel];
  [_panelArea setPanelView:view];
  [self layOut];
  [self linkKeyViews];
}

- (void)moveFocusOutOfPanel {
  if ([_panelArea panelHasFocus]) [[self window] makeFirstResponder:_panels];
}

- (void)linkKeyViews {
  std::vector<NSView *> chain = {_printers, _presets, _copies, _pages, _panels};
  const std::vector<NSView *> panel = [_panelArea panelKeyViews];
  chain.insert(chain.end(), panel.begin(), panel.end());
  chain.push_back(_help);
  if (_preview != nil) chain.push_back(_fold);
  if ([self showsPreview]) {
    const std::vector<NSView *> preview = [_preview keyViews];
    chain.insert(chain.end(), preview.begin(), preview.end());
  }
  chain.insert(chain.end(), {_cancel, _print});
  LinkKeyViews(chain);
}

- (PreviewView *)addPreview {
  _preview = [[[PreviewView alloc] initWithFrame:NSZeroRect] autorelease];
  [self addSubview:_preview];
  [_fold setHidden:NO];
  [self setShowsPreview:NO];
  return _preview;
}

- (void)setShowsPreview:(BOOL)shows {
  NSResponder *focus = [[self window] firstResponder];
  if (!shows && [focus isKindOfClass:[NSView class]] && [(NSView *)focus isDescendantOf:_preview]) {
    [[self window] makeFirstResponder:_fold];
  }
  [_preview setHidden:!shows];
  [_fold setTitle:String(shows ? Localized("Hide Preview") : Localized("Show Preview"))];
  [self layOut];
  [self linkKeyViews];
}

- (BOOL)showsPreview {
  return _preview != nil && ![_preview isHidden];
}

- (void)setPanelWidth:(CGFloat)width {
  _panelWidth = width;
}

- (void)setPrinterInfo:(NSString *)text {
  [_printerInfo setStringValue:text];
  [self layOut];
}

- (void)setNotices:(NSString *)text {
  [_notices setStringValue:text];
  [_notices setHidden:[text length] == 0];
  [self layOut];
}

- (void)setProgressText:(NSString *)text fraction:(double)fraction {
  [_progressText setStringValue:text];
  [_progress setHidden:fraction < 0];
  if (fraction >= 0) [_progress setDoubleValue:fraction];
  [self layOut];
}

@end
