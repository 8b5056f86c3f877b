// The window that asks for a name and a password.

#ifndef HOST_DIALOG_PASSWORDPANEL_H
#define HOST_DIALOG_PASSWORDPANEL_H

#import <Cocoa/Cocoa.h>

#include <optional>

#include "host/cups/Passwords.h"

@class DialogWindow;

/// Return presses OK; Escape or the window's close button cancels. What is typed of the password is
/// not shown, and stays in the window no longer than that.
@interface PasswordPanel : NSObject <NSWindowDelegate> {
  DialogWindow *_window;
  NSView *_view;
  NSTextField *_message;
  NSTextField *_userCaption, *_passwordCaption;
  NSTextField *_user;
  NSSecureTextField *_password;
  NSButton *_ok, *_cancel;
}

- (instancetype)initWithQuestion:(const PasswordQuestion &)question;
@property(readonly) NSWindow *window;

/// Shows it, and handles events until one of the buttons; no value: canceled.
- (std::optional<Login>)run;
- (void)cancel:(id)sender;

@end

#endif
