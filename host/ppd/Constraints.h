// The constraints of a printer description: what it forbids together.
//
// By hand: cupsGetConflicts answers all options that are in any conflict, whichever it is asked
// about, and not which of them are in conflict with which; no file with two conflicts at once has
// the same pairs there. It has no word for a choice that is forbidden by itself, nor for two
// choices of one option. What is in conflict is the same (PPDConflictsTest).

#ifndef HOST_PPD_CONSTRAINTS_H
#define HOST_PPD_CONSTRAINTS_H

#include <cups/ppd.h>

#include <string>
#include <vector>

// The marked choices that one constraint forbids together, in its order; not empty.
using ForbiddenChoices = std::vector<const ppd_choice_t *>;

// Those of each constraint that is broken by what is marked. Besides its UIConstraints libcups
// gives nothing away of a file: the texts are those of its cupsUIConstraints.
std::vector<ForbiddenChoices> BrokenConstraints(ppd_file_t *ppd,
                                                const std::vector<std::string> &texts);

#endif
