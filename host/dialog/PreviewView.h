// The preview's picture, and the controls below it that turn its pages.

#ifndef HOST_DIALOG_PREVIEWVIEW_H
#define HOST_DIALOG_PREVIEWVIEW_H

#import <Cocoa/Cocoa.h>

#include <functional>
#include <vector>

#import "host/dialog/PreviewCanvas.h"

/// Without targets.
@interface PreviewView : NSView <NSTextFieldDelegate> {
  // Its subviews, and retained as such.
  PreviewCanvas *_canvas;
  NSButton *_previous, *_next;
  NSTextField *_page;
  NSTextField *_count;
  NSPopUpButton *_zoom;
  std::function<void(int page)> _goTo;
  int _shown;
}

@property(readonly) PreviewCanvas *canvas;
@property(readonly) NSButton *previous;
@property(readonly) NSButton *next;
@property(readonly) NSTextField *page;
@property(readonly) NSPopUpButton *zoom;  // the page whole, or as large as its paper

/// Called for each number that is typed.
- (void)setGoTo:(std::function<void(int page)>)goTo;
/// Shows this page's number, unless another one is being typed.
- (void)setPageNumber:(int)page;

/// What stands behind the page's number; empty: nothing is known of pages, and none can be turned.
- (void)setCount:(NSString *)text;
/// Tab walks through these.
- (std::vector<NSView *>)keyViews;

@end

#endif
