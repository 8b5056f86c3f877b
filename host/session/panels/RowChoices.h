// What the rows of several panels are made of.

#ifndef HOST_SESSION_PANELS_ROWCHOICES_H
#define HOST_SESSION_PANELS_ROWCHOICES_H

#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

#include "host/session/panels/PanelRow.h"

using RowChoices = std::vector<PPDChoice>;

// Whether somebody makes pages of the documents: what a queue without PPD file does with them is
// not known, unless it is that of a class, whose printers have theirs.
bool LaysOutPages(const JobSession &session);

// What the queue lists for an option, in its order, in these words, or its own; where it lists
// nothing, all of these.
RowChoices OfferedChoices(const JobSession &session, const std::string &option, RowChoices words);

// The row of the first of these options that the printer has.
std::optional<PanelRow> RowOfFirst(const JobSession &session,
                                   std::initializer_list<const char *> keywords);

// As the print system's filters read it.
bool IsOn(const JobOptions &job, const std::string &option);

#endif
