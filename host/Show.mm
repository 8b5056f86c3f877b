#include <csignal>
#include <cstdlib>
#include <iostream>

#include "host/Appearance.h"
#include "host/Commands.h"
#import "host/DialogWindow.h"
#include "host/JobTicket.h"
#include "host/Messages.h"
#include "host/PanelSession.h"
#include "host/WholeFile.h"

namespace {

const char kNoDisplay[] =
    "there is no display to show a window on; set DISPLAY, or use `pdeprint settings`, which needs "
    "none";

// The application object opens every argument that is no option of its own as a file; ours are none
// of its business.
void HideArgumentsFromApplication() {
  static char program[] = "pdeprint";
  char *arguments[] = {program, nullptr};
  [NSProcessInfo initializeWithArguments:arguments count:1 environment:environ];
}

bool ConnectToDisplay() {
  const char *display = getenv("DISPLAY");
  if (display == nullptr || *display == '\0') return false;
  HideArgumentsFromApplication();
  // The dialog belongs to the application that prints; it has no icon of its own.
  [[NSUserDefaults standardUserDefaults]
      registerDefaults:[NSDictionary dictionaryWithObject:@"YES" forKey:@"GSSuppressAppIcon"]];
  UseLightAppearance();
  @try {
    // Without the end of its launch the application object never learns of a key window.
    [[NSApplication sharedApplication] finishLaunching];
  } @catch (NSException *exception) {
    return false;
  }
  // The display's back end catches these and waits for an event that never comes. Nothing is lost
  // by dying: the ticket is written whole at the end.
  signal(SIGTERM, SIG_DFL);
  signal(SIGINT, SIG_DFL);
  return true;
}

std::optional<Failure> WritePicture(const std::filesystem::path &path, NSView *view) {
  NSData *picture = PictureOfView(view);
  if (picture == nil) return Failure{"cannot take a picture of the panel"};
  return WriteWholeFile(
      path, std::string_view(static_cast<const char *>([picture bytes]), [picture length]));
}

// The order of calls is the real dialog's.
int Run(const ShowOptions &options, PanelSession &session) {
  id<PDEPanel> panel = session.panel();
  if ([panel respondsToSelector:@selector(supportedPPDOptionKeys)]) [panel supportedPPDOptionKeys];
  NSView *view = [panel panelView];
  if (view == nil) {
    Complain("the panel has no view to show");
    return kFailed;
  }
  [panel restoreValuesAndReturnError:nullptr];
  [panel willShow];
  auto window =
      Retained<DialogWindow *>::Adopt([[DialogWindow alloc] initWithTitle:[panel panelName]
                                                                panelView:view]);
  do {
    [window.get() runUntilClosed];
  } while (![panel shouldHide]);

  std::optional<Failure> failure;
  if (!options.snapshot.empty()) failure = WritePicture(options.snapshot, view);
  [window.get() removePanelView];
  NSError *error = nil;
  if (!failure && ![panel saveValuesAndReturnError:&error]) {
    failure = Failure{"the panel could not save its values: " +
                      std::string(error == nil ? "it does not say why"
                                               : [[error localizedDescription] UTF8String])};
  }
  if (!failure && [panel respondsToSelector:@selector(shouldPrint)] && ![panel shouldPrint]) {
    failure = Failure{"the panel does not allow this job to be printed"};
  }
  PanelReport report = session.Report();
  if (!failure && !options.ticket.empty()) {
    failure = WriteTicket(options.ticket, session.settings());
    report.ticket = options.ticket.string();
  }
  if (failure) {
    Complain(failure->message);
    return kFailed;
  }
  report.snapshot = options.snapshot.string();
  std::cout << report.Text() << std::flush;
  return kDone;
}

}  // namespace

int Show(const ShowOptions &options) {
  @autoreleasepool {
    NSBundle *bundle = nil;
    @try {
      auto session = PanelSession::Open(options.ppd, options.plugin, options.ticket);
      if (!session) {
        Complain(session.message());
        return kFailed;
      }
      bundle = (*session)->bundle();
      if (!ConnectToDisplay()) {
        Complain(kNoDisplay);
        return kFailed;
      }
      return Run(options, **session);
    } @catch (NSException *exception) {
      Complain(DescribeException(bundle, exception));
      return kFailed;
    }
  }
}
