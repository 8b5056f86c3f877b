// What other programs have copied, asked of the program that has it.

#ifndef HOST_DIALOG_CLIPBOARD_H
#define HOST_DIALOG_CLIPBOARD_H

#include <chrono>
#include <optional>
#include <string>

// The text on the clipboard of this process's display, UTF-8. None where there is no display or no
// text, where it is longer than what is typed into a line (64 KiB), and where the program that has
// it does not answer in time. The answer is awaited here: do not ask for what this process offers
// itself.
std::optional<std::string> ClipboardText(
    std::chrono::milliseconds limit = std::chrono::milliseconds(1000));

#endif
