#import "host/dialog/DialogWindow.h"

#import "host/dialog/Appearance.h"
#include "host/base/Messages.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace {

const CGFloat kMargin = 20;
const CGFloat kButtonWidth = 96;
const CGFloat kButtonHeight = 26;

NSString *const kReturn = @"\r";
NSString *const kEscape = @"\033";

NSButton *DoneButton(NSRect frame) {
  NSButton *button = [[[NSButton alloc] initWithFrame:frame] autorelease];
  [button setButtonType:NSMomentaryPushInButton];
  [button setBezelStyle:NSRegularSquareBezelStyle];
  [button setTitle:@"Done"];
  [button setKeyEquivalent:kReturn];
  [button setAutoresizingMask:NSViewMinXMargin | NSViewMaxYMargin];
  return button;
}

// The last view of a key view loop, nil where the loop does not lead back to its start.
NSView *EndOfLoop(NSView *first) {
  NSMutableSet *seen = [NSMutableSet set];
  NSView *view = first;
  while (view != nil && ![seen containsObject:view]) {
    if ([view nextKeyView] == first) return view;
    [seen addObject:view];
    view = [view nextKeyView];
  }
  return nil;
}

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

SEL EditingAction(NSString *character) {
  if ([character isEqualToString:@"x"]) return @selector(cut:);
  if ([character isEqualToString:@"c"]) return @selector(copy:);
  if ([character isEqualToString:@"v"]) return @selector(paste:);
  if ([character isEqualToString:@"a"]) return @selector(selectAll:);
  return nullptr;
}

void ComplainOfEvent(NSException *exception) {
  NSBeep();
  NSString *reason = [exception reason];
  Complain(std::string("a key or click could not be handled: ") +
           [(reason != nil ? reason : [exception name]) UTF8String]);
}

}  // namespace

@implementation DialogWindow

- (instancetype)initWithTitle:(NSString *)title panelView:(NSView *)panelView {
  const NSSize panelSize = [panelView frame].size;
  const CGFloat footer = kMargin + kButtonHeight + kMargin;
  const NSSize size =
      NSMakeSize(std::max(panelSize.width, kButtonWidth + 2 * kMargin), panelSize.height + footer);
  self = [super initWithContentRect:NSMakeRect(0, 0, size.width, size.height)
                          styleMask:NSTitledWindowMask | NSClosableWindowMask
                            backing:NSBackingStoreBuffered
                              defer:NO];
  if (self == nil) return nil;
  [self setTitle:title];
  [self setReleasedWhenClosed:NO];
  [self setDelegate:self];

  _panelView = [panelView retain];
  StraightenButtons(panelView);
  [panelView setFrameOrigin:NSMakePoint(0, footer)];
  [[self contentView] addSubview:panelView];

  NSBox *line =
      [[[NSBox alloc] initWithFrame:NSMakeRect(0, footer - 1, size.width, 1)] autorelease];
  [line setBoxType:NSBoxSeparator];
  [line setAutoresizingMask:NSViewWidthSizable];
  [[self contentView] addSubview:line];

  NSButton *done = DoneButton(
      NSMakeRect(size.width - kMargin - kButtonWidth, kMargin, kButtonWidth, kButtonHeight));
  [done setTarget:self];
  [done setAction:@selector(performClose:)];
  [[self contentView] addSubview:done];

  NSView *first = [panelView nextKeyView];
  NSView *last = EndOfLoop(first);
  if (last != nil) {
    [last setNextKeyView:done];
    [done setNextKeyView:first];
  }
  // Before the window is first shown: it would make a key view loop of its own.
  [self setInitialFirstResponder:first != nil ? first : done];
  return self;
}

- (void)dealloc {
  [_panelView release];
  [super dealloc];
}

- (void)runUntilClosed {
  [NSApp activateIgnoringOtherApps:YES];
  [self center];
  [self makeKeyAndOrderFront:nil];
  [NSApp runModalForWindow:self];
}

- (void)removePanelView {
  [self makeFirstResponder:nil];
  [_panelView removeFromSuperview];
}

- (void)windowWillClose:(NSNotification *)notification {
  (void)notification;
  [NSApp stopModal];
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
}

// The platform's menus of pop-ups live as long as the mouse is pressed. After a click the menu
// stays open, as people expect, until the next click or key ends it.
- (void)handleMouseDown:(NSEvent *)event {
  if (HasOpenMenu([self firstResponder])) {
    [[(NSPopUpButton *)[self firstResponder] cell] dismissPopUp];
    return;
  }
  NSDate *pressed = [NSDate date];
  [super sendEvent:event];
  NSView *view = [[self contentView] hitTest:[event locationInWindow]];
  if (![view isKindOfClass:[NSPopUpButton class]]) return;
  NSPopUpButton *popUp = (NSPopUpButton *)view;
  if (![popUp isEnabled] || [popUp numberOfItems] < 2 || HasOpenMenu(popUp) ||
      -[pressed timeIntervalSinceNow] > kLongestClick ||
      !IsNear([event locationInWindow], [self mouseLocationOutsideOfEventStream])) {
    return;
  }
  [self makeFirstResponder:popUp];
  [[popUp cell] attachPopUpWithFrame:[popUp bounds] inView:popUp];
  [(NSMenuView *)[[popUp menu] menuRepresentation]
      setHighlightedItemIndex:[popUp indexOfSelectedItem]];
}

- (BOOL)performKeyEquivalent:(NSEvent *)event {
  @try {
    return [self handleKeyEquivalent:event];
  } @catch (NSException *exception) {
    ComplainOfEvent(exception);
    return YES;
  }
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
    return [NSApp sendAction:action to:nil from:self];
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
