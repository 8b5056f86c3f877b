// Texts of applications, which may hold anything, as they go into a window.

#ifndef PORTAL_TEXTS_H
#define PORTAL_TEXTS_H

#include <string>
#include <string_view>

// UTF-8 on one line, without what nobody sees or what turns the direction of the text around it,
// and cut short where it is long.
std::string CleanText(std::string_view text);

// The same of the text on a button, without the marks of mnemonics.
std::string CleanLabel(std::string_view text);

// The window before which a dialog opens, "x11:HEX"; empty: there is none, or none of this kind.
std::string CleanParent(std::string_view parent);

// Whether it may be the name of an application, as its desktop file has it.
bool IsApplicationName(std::string_view name);

// Whether it may be the name of a queue.
bool IsQueueName(std::string_view name);

#endif
