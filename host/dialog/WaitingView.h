// What stands in a panel's place while a server is asked, or when it did not answer.

#ifndef HOST_DIALOG_WAITINGVIEW_H
#define HOST_DIALOG_WAITINGVIEW_H

#import <Cocoa/Cocoa.h>

#import "host/dialog/Spinner.h"

@interface WaitingView : NSView {
  Spinner *_spinner;
  NSTextField *_message;
  NSButton *_retry;
}

@property(readonly) NSButton *retry;

- (instancetype)initWithWidth:(CGFloat)width;

/// A turning spinner beside the message.
- (void)showWaiting:(NSString *)message;
/// The message above a button that tries again.
- (void)showFailure:(NSString *)message;

@end

#endif
