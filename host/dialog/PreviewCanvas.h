// The picture of a page in the preview.

#ifndef HOST_DIALOG_PREVIEWCANVAS_H
#define HOST_DIALOG_PREVIEWCANVAS_H

#import <Cocoa/Cocoa.h>

#include <functional>

#include "host/pages/PdfPages.h"
#include "host/preview/PageStore.h"

enum class PageTurn { kFirst, kPrevious, kNext, kLast };

/// A page on a desk, or a sentence in its place. With the focus, keys turn pages, and so does the
/// wheel; of a page that is larger than the view they first show what follows, and it can be
/// dragged.
@interface PreviewCanvas : NSView {
  NSBitmapImageRep *_picture;
  NSTextField *_sentence;
  NSPoint _scrolled;  // what of the picture is outside the view, above and before it
  NSPoint _dragged;
  std::function<void(PageTurn turn)> _turn;
}

- (void)setTurn:(std::function<void(PageTurn turn)>)turn;

/// From its top.
- (void)showPicture:(const PagePicture &)picture;
- (void)showSentence:(NSString *)sentence;
- (BOOL)hasPicture;

/// Pixels for a page that is seen whole.
- (PixelSize)roomInPixels;
/// Pixels to a point.
- (CGFloat)scale;

@end

#endif
