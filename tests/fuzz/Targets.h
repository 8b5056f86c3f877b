// What is tried with input of any kind. Each target takes bytes as they may come from outside and
// answers what went wrong, in words; empty: nothing did. The sanitizers tell the rest.
//
// A target may be called any number of times in one process, and finds the same in the same bytes
// whatever it was given before.

#ifndef TESTS_FUZZ_TARGETS_H
#define TESTS_FUZZ_TARGETS_H

#include <string>
#include <string_view>

namespace fuzz {

// The setting-info resource of the panel's bundle.
std::string TrySettingInfo(std::string_view file);
// Tables of texts: the panel's, and the program's own.
std::string TryStrings(std::string_view file);
// Tickets and presets.
std::string TryTicket(std::string_view file);
// Names of presets, and of files in their folder.
std::string TryPresetName(std::string_view name);
// What is typed into the start-number box; see TextOfBytes.
std::string TryTyping(std::string_view text);
// What the job's print settings hold when the panel comes to them; see StoredValues.h.
std::string TryStoredValues(std::string_view lines);
// The same, as a ticket has them, on their way through the program to a panel.
std::string TrySession(std::string_view lines);
// PPD files, and adding options to them.
std::string TryPPD(std::string_view file);
// What is typed, or given after --set, for a job: an option and its value, NAME=VALUE.
std::string TryJobOption(std::string_view text);
// The arguments of the program, one a line.
std::string TryCommandLine(std::string_view lines);
// Documents for the print system's filter.
std::string TryPdf(std::string_view file);
// Options of a job, as the print system hands them to filters.
std::string TryFilterOptions(std::string_view options);

struct Target {
  std::string_view name;  // and that of its folder in tests/fuzz/corpora
  std::string (*run)(std::string_view input);
};

inline constexpr Target kTargets[] = {
    {"setting_info", TrySettingInfo}, {"strings", TryStrings}, {"ticket", TryTicket},
    {"preset_name", TryPresetName},   {"typing", TryTyping},   {"stored_values", TryStoredValues},
    {"session", TrySession},          {"ppd", TryPPD},         {"job_option", TryJobOption},
    {"command_line", TryCommandLine}, {"pdf", TryPdf},         {"filter_options", TryFilterOptions},
};

}  // namespace fuzz

#endif
