#include <csignal>
#include <cstdlib>

#include "host/base/Messages.h"
#include "host/base/Process.h"
#include "host/base/WholeFile.h"
#include "host/command/Commands.h"
#include "host/dialog/Appearance.h"
#import "host/dialog/DialogWindow.h"
#include "host/extension/PanelSession.h"
#include "host/extension/SettingInfo.h"
#include "host/job/JobTicket.h"

namespace {

const char kNoDisplay[] =
    "there is no display to show a window on; set DISPLAY, or use `pdeprint settings`, which needs "
    "none";

bool ConnectToDisplay() {
  const char *display = getenv("DISPLAY");
  if (display == nullptr || *display == '\0') return false;
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

// A value that no control can show, from a ticket that was edited by hand, gives way to the
// default.
void DropBadValues(const PanelSession &session) {
  Expected<std::vector<Setting>> settings = SettingsOfBundle(session.bundle());
  if (!settings) return;
  const JobOptions options = JobOptionsFromSettings(session.settings());
  for (const Setting &setting : SettingsWithBadValues(*settings, options)) {
    Complain("note: the ticket's " + setting.key + " is \"" + options.at(setting.key) +
             "\", which must be " + setting.Allowed() + "; the panel shows its default");
    NSString *key = [NSString stringWithUTF8String:setting.key.c_str()];
    PMPrintSettingsSetValue(session.settings(), (CFStringRef)key, nullptr, false);
  }
}

// The order of calls is the real dialog's.
int Run(const ShowOptions &options, PanelSession &session) {
  DropBadValues(session);
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

  std::optional<Failure> no_picture;
  if (!options.snapshot.empty()) no_picture = WritePicture(options.snapshot, view);
  [window.get() removePanelView];
  std::optional<Failure> failure;
  NSError *error = nil;
  if (![panel saveValuesAndReturnError:&error]) {
    failure = Failure{"the panel could not save its values: " +
                      std::string(error == nil ? "it does not say why"
                                               : [[error localizedDescription] UTF8String])};
  } else if ([panel respondsToSelector:@selector(shouldPrint)] && ![panel shouldPrint]) {
    failure = Failure{"the panel does not allow this job to be printed"};
  }
  // What was chosen is printed, whatever cannot be written.
  PanelReport report = session.Report();
  if (!failure && !options.ticket.empty()) {
    failure = WriteTicket(options.ticket, session.settings());
    if (!failure) report.ticket = options.ticket.string();
  }
  if (!no_picture) report.snapshot = options.snapshot.string();
  const bool printed = PrintResults(report.Text());
  if (failure) Complain(failure->message);
  if (no_picture) Complain(no_picture->message);
  return printed && !failure && !no_picture ? kDone : kFailed;
}

}  // namespace

int Show(const ShowOptions &options) {
  return WithPanelSession(options, [&options](PanelSession &session) -> int {
    if (!ConnectToDisplay()) {
      Complain(kNoDisplay);
      return kFailed;
    }
    return Run(options, session);
  });
}
