// The verbs of pdeprint. Each answers the exit status of the program.

#ifndef HOST_COMMAND_COMMANDS_H
#define HOST_COMMAND_COMMANDS_H

#include <filesystem>
#include <string>
#include <vector>

enum ExitStatus { kDone = 0, kFailed = 1, kWrongUsage = 2 };

// The files of one job at a panel.
struct JobFiles {
  std::filesystem::path ppd;
  std::filesystem::path plugin;  // empty: the bundle that is found
  std::filesystem::path ticket;  // empty: none
};

struct ShowOptions : JobFiles {
  std::filesystem::path snapshot;  // empty: none
};

struct CheckOptions {
  std::vector<std::filesystem::path> ppds;
  std::filesystem::path plugin;
  bool json = false;
};

struct SettingsOptions : JobFiles {
  std::vector<std::string> set;  // NAME=VALUE
  bool json = false;
};

// Shows the panel in a window until that is closed, then saves and prints the choices.
int Show(const ShowOptions &options);

// Says of each PPD file whether the panel is offered, or why not. Needs no display.
int Check(const CheckOptions &options);

// Changes and prints the choices without a window.
int Settings(const SettingsOptions &options);

#endif
