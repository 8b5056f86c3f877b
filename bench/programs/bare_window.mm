// The panel's layout in a window, with nothing behind it.
//   bare_window BUNDLE

#import "bench/layout/BareOwner.h"

/// Looks the same with and without the focus.
@interface QuietWindow : NSWindow
@end

@implementation QuietWindow

- (BOOL)canBecomeKeyWindow {
  return NO;
}

@end

int main(int argc, char **argv) {
  if (argc != 2) return 2;
  @autoreleasepool {
    NSString *path = [NSString stringWithUTF8String:argv[1]];
    // An argument would be taken for a file to open.
    static char name[] = "bare_window";
    char *arguments[] = {name, nullptr};
    [NSProcessInfo initializeWithArguments:arguments count:1 environment:environ];
    [[NSUserDefaults standardUserDefaults]
        registerDefaults:[NSDictionary dictionaryWithObject:@"YES" forKey:@"GSSuppressAppIcon"]];
    [[NSApplication sharedApplication] finishLaunching];

    NSBundle *bundle = [NSBundle bundleWithPath:path];
    BareOwner *owner = [[BareOwner alloc] init];
    if (![bundle load] || ![owner loadLayoutOfBundle:bundle]) return 1;
    const NSUInteger style = NSTitledWindowMask | NSClosableWindowMask;
    QuietWindow *window = [[QuietWindow alloc] initWithContentRect:[owner.view bounds]
                                                         styleMask:style
                                                           backing:NSBackingStoreBuffered
                                                             defer:NO];
    [window setContentView:owner.view];
    [window center];
    [window orderFront:nil];
    for (;;) {
      @autoreleasepool {
        NSEvent *event = [NSApp nextEventMatchingMask:NSAnyEventMask
                                            untilDate:[NSDate distantFuture]
                                               inMode:NSDefaultRunLoopMode
                                              dequeue:YES];
        if (event != nil) [NSApp sendEvent:event];
      }
    }
  }
}
