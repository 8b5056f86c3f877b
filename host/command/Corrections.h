// What a printer and its panels make of what was asked for.

#ifndef HOST_COMMAND_CORRECTIONS_H
#define HOST_COMMAND_CORRECTIONS_H

#include <optional>
#include <vector>

#include "host/base/JobOptions.h"
#include "host/command/Refusal.h"
#include "host/command/SettingChanges.h"

// Why a change that was asked for does not hold among the job's options: the printer does not have
// the setting, which in a ticket, which may be another printer's, would only be taken away; or a
// panel has locked it. That is wrong usage.
std::optional<Refusal> ReasonAgainstChanges(const std::vector<SettingChange> &changes,
                                            const JobOptions &options);

// The panels correct what the printer cannot do. Of a stored value that is noted; for a value that
// was asked for the answer is why that is wrong usage.
std::optional<Refusal> ExplainCorrections(const JobOptions &before, const JobOptions &after,
                                          const std::vector<SettingChange> &changes);

#endif
