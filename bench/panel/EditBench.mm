// A key typed into the start-number box.

#import "bench/panel/Job.h"
#import "bench/panel/Measured.h"

namespace {

// A panel in a window, with the box being edited.
struct EditedPanel {
  EditedPanel() {
    view = [panel panelView];
    [panel restoreValuesAndReturnError:nullptr];
    [panel willShow];
    window = [[NSWindow alloc] initWithContentRect:[view bounds]
                                         styleMask:NSTitledWindowMask
                                           backing:NSBackingStoreBuffered
                                             defer:NO];
    [[window contentView] addSubview:view];
    [window makeKeyAndOrderFront:nil];
    box = ControllerOf(panel).textBoxStartNumber;
  }

  // The text with the new key, of which nobody has been told.
  void TypeKey() const {
    if ([box currentEditor] == nil) [window makeFirstResponder:box];
    [[box currentEditor] setString:@"712"];
  }

  id<PDEPanel> panel = [NewPanel(NewJob()) retain];
  NSView *view;
  NSWindow *window;
  NSTextField *box;
};

const EditedPanel &Edited() {
  static const EditedPanel edited;
  return edited;
}

const bool registered = [] {
  MeasureAlone(
      "edit/ours", [] { Edited().TypeKey(); },
      [] {
        NSText *editor = [Edited().box currentEditor];
        [[NSNotificationCenter defaultCenter] postNotificationName:NSTextDidChangeNotification
                                                            object:editor];
      },
      [] {});
  MeasureAlone(
      "edit/platform", [] { Edited().TypeKey(); },
      [] {
        [Edited().box setStringValue:@"712"];
        [Edited().box setStringValue:@"712"];
      },
      [] {});
  return true;
}();

}  // namespace
