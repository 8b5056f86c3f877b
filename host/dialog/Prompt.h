// Questions that must be answered before the dialog goes on.

#ifndef HOST_DIALOG_PROMPT_H
#define HOST_DIALOG_PROMPT_H

#import <Cocoa/Cocoa.h>

#include <functional>
#include <optional>
#include <string>

#include "host/base/Expected.h"

/// Shows a message; Return presses the named button, Escape or the window's close button the other
/// one. Whether the named button was pressed.
bool Ask(const std::string &message, const std::string &yes, const std::string &no);
/// Likewise before something is lost: Return, too, presses the other button.
bool AskBeforeLoss(const std::string &message, const std::string &yes, const std::string &no);

/// Shows a message that asks nothing.
void Tell(const std::string &message);

/// Asks for a text, which the check accepts or refuses; a refusal is shown and asked again. No
/// value: canceled.
std::optional<std::string> AskForText(
    const std::string &message, const std::string &text, const std::string &yes,
    const std::function<Expected<void>(const std::string &)> &check);

#endif
