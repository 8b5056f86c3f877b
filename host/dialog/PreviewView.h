// The preview's picture, and the controls below it that turn its pages.

#ifndef HOST_DIALOG_PREVIEWVIEW_H
#define HOST_DIALOG_PREVIEWVIEW_H

#import <Cocoa/Cocoa.h>

#include <vector>

#import "host/dialog/PreviewCanvas.h"

/// Without targets.
@interface PreviewView : NSView {
  // Its subviews, and retained as such.
  PreviewCanvas *_canvas;
  NSButton *_previous, *_next;
  NSTextField *_page;
  NSTextField *_count;
  NSPopUpButton *_zoom;
}

@property(readonly) PreviewCanvas *canvas;
@property(readonly) NSButton *previous;
@property(readonly) NSButton *next;
@property(readonly) NSTextField *page;
@property(readonly) NSPopUpButton *zoom;  // the page whole, or as large as its paper

/// What stands behind the page's number; empty: nothing is known of pages, and none can be turned.
- (void)setCount:(NSString *)text;
/// Tab walks through these.
- (std::vector<NSView *>)keyViews;

@end

#endif
