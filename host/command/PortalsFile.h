// The text of the files in which the desktop's portal reads who serves which of its interfaces
// (portals.conf), as far as printing is concerned. Everything else in it stays, byte for byte.

#ifndef HOST_COMMAND_PORTALSFILE_H
#define HOST_COMMAND_PORTALSFILE_H

#include <string>
#include <string_view>

// Whether the portal looks no further once it has found such a file: it names a preference.
bool HasPreferences(std::string_view text);

// Whether this program is the one that prints.
bool PrefersPdeprint(std::string_view text);

// With this program as the one that prints; who did so before is kept in a comment.
std::string WithPdeprint(std::string_view text);

// As it was before WithPdeprint.
std::string WithoutPdeprint(std::string_view text);

#endif
