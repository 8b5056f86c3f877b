// How other programs name their windows: as the desktop's portals do.

#ifndef HOST_COMMAND_PARENTWINDOW_H
#define HOST_COMMAND_PARENTWINDOW_H

#include <optional>
#include <string>

// The X window in x11:HEXADECIMAL, 0 for wayland:NAME, which says nothing to an X display. None:
// that is neither.
std::optional<unsigned long> ParentWindowIn(const std::string &text);

// Empty: it is either.
std::string WhyNoParentWindow(const std::string &text);

#endif
