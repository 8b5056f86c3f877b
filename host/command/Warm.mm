#include <unistd.h>

#include "host/base/Localized.h"
#include "host/base/Messages.h"
#include "host/command/Commands.h"
#include "host/command/Display.h"
#include "host/command/Request.h"
#import "host/dialog/PrintDialogView.h"
#include "host/extension/Extensions.h"

namespace {

constexpr std::chrono::minutes kPatience(10);

// What takes most of the time until a dialog is there, and stays: the connection, the bundles'
// code, the fonts of the controls.
bool WarmUp() {
  if (!ConnectToDisplay()) return false;
  // Whoever asks for the dialog is told what is wrong with them.
  const Expected<Extensions> extensions = Extensions::Load({});
  [[[PrintDialogView alloc] initWithFrame:NSMakeRect(0, 0, 560, 480)] release];
  return true;
}

}  // namespace

int ShowWhenAsked(const std::function<int(const std::vector<std::string> &)> &show) {
  @autoreleasepool {
    if (!WarmUp()) {
      Complain(Localized("there is no display to show a window on; set DISPLAY, or use `pdeprint "
                         "print` or `pdeprint settings`, which need none"));
      return kFailed;
    }
  }
  const Expected<std::optional<RequestedArguments>> request = AwaitRequest(STDIN_FILENO, kPatience);
  if (!request) {
    Complain(request.message());
    return kWrongUsage;
  }
  return *request ? show(**request) : kDone;
}
