// What the user should know of a change.

#ifndef HOST_SESSION_NOTES_H
#define HOST_SESSION_NOTES_H

#include <string>
#include <vector>

// A sentence without full stop each.
using Notes = std::vector<std::string>;

// "KEY \"VALUE\" does not fit: WHY".
std::string DoesNotFit(const std::string &key, const std::string &value, const std::string &why);
// The same of a default, with a word on where it comes from.
std::string DefaultDoesNotFit(const std::string &key, const std::string &value,
                              const std::string &why, bool is_of_user);

#endif
