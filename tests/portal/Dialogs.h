// Windows of other programs, worked with real keys.

#ifndef TESTS_PORTAL_DIALOGS_H
#define TESTS_PORTAL_DIALOGS_H

#include <functional>
#include <string>
#include <vector>

// A window of a program, by its class; of several the one that came last. Empty: none comes.
std::string AwaitWindow(const std::string &window_class);
// All that can be seen of a program.
std::vector<std::string> WindowsOf(const std::string &window_class);

// Gives a window the keyboard and presses these keys, one after the other.
void PressIn(const std::string &window, const std::vector<std::string> &keys);
// Presses keys in a window until something holds: what it waits for itself is not seen from here.
bool PressUntil(const std::string &window, const std::string &key,
                const std::function<bool()> &done);
void TypeIn(const std::string &window, const std::string &text);

#endif
