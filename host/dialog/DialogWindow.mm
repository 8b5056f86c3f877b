#import "host/dialog/DialogWindow.h"

#include "host/base/Localized.h"
#include "host/base/Messages.h"

#include <cmath>
#include <optional>
#include <string>
#include <utility>

#import <GNUstepGUI/GSDisplayServer.h>

#include "host/dialog/Clipboard.h"
#import "host/dialog/FocusRing.h"
#include "host/dialog/TransientWindow.h"

namespace {

NSString *const kEscape = @"\033";

// While a pop-up's menu is open, all keys are the menu's.
bool HasOpenMenu(NSResponder *responder) {
  return [responder isKindOfClass:[NSPopUpButton class]] &&
         [[[[(NSPopUpButton *)responder menu] menuRepresentation] window] isVisible];
}

const NSTimeInterval kLongestClick = 0.4;  // a longer press is a choice by dragging
const CGFloat kClickSlack = 4;             // points that the mouse may move in a click

bool IsNear(NSPoint first, NSPoint second) {
  return std::hypot(first.x - second.x, first.y - second.y) <= kClickSlack;
}

// The events tell when they happened, however long it takes to handle them.
bool IsClick(NSEvent *press, NSEvent *release) {
  return [release type] == NSLeftMouseUp &&
         [release timestamp] - [press timestamp] <= kLongestClick &&
         IsNear([press locationInWindow], [[press window] mouseLocationOutsideOfEventStream]);
}

SEL EditingAction(NSString *character) {
  if ([character isEqualToString:@"x"]) return @selector(cut:);
  if ([character isEqualToString:@"c"]) return @selector(copy:);
  if ([character isEqualToString:@"v"]) return @selector(paste:);
  if ([character isEqualToString:@"a"]) return @selector(selectAll:);
  return nullptr;
}

// The platform's pasteboard server may have started before anything was copied. That of GNUstep
// 0.32 then never learns what other programs copy, and tells of no text. True if this was the case,
// and the text stands where the user is typing.
bool PasteUnknownToThePlatform(NSResponder *focus) {
  if (![focus isKindOfClass:[NSTextView class]] || ![(NSTextView *)focus isEditable]) return false;
  if ([[NSPasteboard generalPasteboard] availableTypeFromArray:@[ NSStringPboardType ]] != nil) {
    return false;
  }
  const std::optional<std::string> text = ClipboardText();
  NSString *string = text ? [NSString stringWithUTF8String:text->c_str()] : nil;
  if (string == nil) return false;
  [(NSTextView *)focus insertText:string];
  return true;
}

void ComplainOfEvent(NSException *exception) {
  NSBeep();
  NSString *reason = [exception reason];
  Complain(Localized("a key or click could not be handled: %1",
                     {[(reason != nil ? reason : [exception name]) UTF8String]}));
}

}  // namespace

@implementation DialogWindow

- (instancetype)initWithTitle:(NSString *)title view:(NSView *)view resizable:(BOOL)resizable {
  const NSUInteger style = NSTitledWindowMask | NSClosableWindowMask;
  self = [super initWithContentRect:[view bounds]
                          styleMask:resizable ? style | NSResizableWindowMask : style
                            backing:NSBackingStoreBuffered
                              defer:NO];
  if (self == nil) return nil;
  [self setTitle:title];
  [self setReleasedWhenClosed:NO];
  [self setContentView:view];
  _focusRing = [[FocusRing alloc] initWithFrame:NSZeroRect];
  return self;
}

- (void)dealloc {
  [_focusRing removeFromSuperview];
  [_focusRing release];
  [super dealloc];
}

// At once: the view that it leaves may be a panel's, about to be taken out.
- (BOOL)makeFirstResponder:(NSResponder *)responder {
  const BOOL made = [super makeFirstResponder:responder];
  [_focusRing followFocusOfWindow:self];
  return made;
}

// Whatever moves the control that has the focus ends here.
- (void)displayIfNeeded {
  [_focusRing followFocusOfWindow:self];
  [super displayIfNeeded];
}

+ (void)handleNextEvent {
  @autoreleasepool {
    NSEvent *event = [NSApp nextEventMatchingMask:NSAnyEventMask
                                        untilDate:[NSDate distantFuture]
                                           inMode:NSDefaultRunLoopMode
                                          dequeue:YES];
    if (event != nil) [NSApp sendEvent:event];
  }
}

// What one event raises, such as a pasteboard that does not answer, must not end the dialog: the
// choices made so far would be lost.
- (void)sendEvent:(NSEvent *)event {
  @try {
    if ([event type] == NSLeftMouseDown) {
      [self handleMouseDown:event];
    } else {
      [super sendEvent:event];
    }
  } @catch (NSException *exception) {
    ComplainOfEvent(exception);
  }
  if (_afterEvents) _afterEvents();
}

- (void)makeDialogOfWindow:(unsigned long)parent {
  GSDisplayServer *server = GSCurrentServer();
  if (![server isKindOfClass:NSClassFromString(@"XGServer")]) return;
  const auto window = reinterpret_cast<unsigned long>([server windowDevice:[self windowNumber]]);
  MakeDialogOf([server serverDevice], window, parent);
}

- (void)setAfterEvents:(std::function<void()>)afterEvents {
  _afterEvents = std::move(afterEvents);
}

// The platform's menus of pop-ups live as long as the mouse is pressed. After a click the menu
// stays open, as people expect, until the next click or key ends it.
- (void)handleMouseDown:(NSEvent *)event {
  if (HasOpenMenu([self firstResponder])) {
    [[(NSPopUpButton *)[self firstResponder] cell] dismissPopUp];
    return;
  }
  [super sendEvent:event];
  NSView *view = [[self contentView] hitTest:[event locationInWindow]];
  if (![view isKindOfClass:[NSPopUpButton class]]) return;
  NSPopUpButton *popUp = (NSPopUpButton *)view;
  // One item that is chosen already is no choice.
  const BOOL hasChoice = [popUp numberOfItems] > ([popUp indexOfSelectedItem] < 0 ? 0 : 1);
  if (![popUp isEnabled] || !hasChoice || HasOpenMenu(popUp) ||
      !IsClick(event, [NSApp currentEvent])) {
    return;
  }
  [self makeFirstResponder:popUp];
  [[popUp cell] attachPopUpWithFrame:[popUp bounds] inView:popUp];
  [(NSMenuView *)[[popUp menu] menuRepresentation]
      setHighlightedItemIndex:[popUp indexOfSelectedItem]];
}

- (BOOL)performKeyEquivalent:(NSEvent *)event {
  BOOL handled = YES;
  @try {
    handled = [self handleKeyEquivalent:event];
  } @catch (NSException *exception) {
    ComplainOfEvent(exception);
  }
  if (handled && _afterEvents) _afterEvents();
  return handled;
}

- (BOOL)handleKeyEquivalent:(NSEvent *)event {
  if (HasOpenMenu([self firstResponder])) return NO;
  NSString *character = [event charactersIgnoringModifiers];
  if ([character isEqualToString:kEscape]) {
    [self performClose:nil];
    return YES;
  }
  SEL action = EditingAction(character);
  if (action != nullptr && ([event modifierFlags] & (NSControlKeyMask | NSCommandKeyMask)) != 0) {
    return (action == @selector(paste:) && PasteUnknownToThePlatform([self firstResponder])) ||
           [NSApp sendAction:action to:nil from:self];
  }
  return [super performKeyEquivalent:event];
}

@end

NSData *PictureOfView(NSView *view) {
  [view display];
  [view lockFocus];
  NSBitmapImageRep *picture =
      [[[NSBitmapImageRep alloc] initWithFocusedViewRect:[view bounds]] autorelease];
  [view unlockFocus];
  return [picture representationUsingType:NSPNGFileType properties:[NSDictionary dictionary]];
}
