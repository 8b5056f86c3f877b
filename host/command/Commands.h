// The verbs of pdeprint. Each answers the exit status of the program.

#ifndef HOST_COMMAND_COMMANDS_H
#define HOST_COMMAND_COMMANDS_H

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "host/ppd/edit/DrawingMethod.h"

enum ExitStatus { kDone = 0, kFailed = 1, kWrongUsage = 2, kCanceled = 3 };

// How the print server is asked, and with which extension bundles printers are looked at.
struct Surroundings {
  std::filesystem::path plugin;           // loaded before all that are found; empty: none
  std::chrono::milliseconds limit{5000};  // for each of the server's answers
};

// A job's printer, and the print settings that it begins with.
struct JobSource : Surroundings {
  std::string queue;             // empty: the default one
  std::filesystem::path ppd;     // instead of a queue's; empty: a queue
  std::string preset;            // empty: none
  std::filesystem::path ticket;  // over the preset; empty: none
  bool is_for_file = false;      // nothing is printed: where no queue is named, none need be there
};

struct ShowOptions : JobSource {
  std::filesystem::path snapshot;  // empty: none
  std::vector<std::filesystem::path> files;
  bool wait = false;
  bool alert = false;        // where the dialog cannot open, say why in a window too
  bool warm = false;         // wait until another program asks for it
  bool json = false;         // how the end is told; a signal then ends the dialog as canceled
  std::string title;         // the document's; empty: the files' names
  std::string application;   // for which this is done; empty: it is not said
  std::string accept_label;  // of the button that Return presses; empty: the usual
  unsigned long parent = 0;  // the X window whose dialog this is; 0: none
};

struct SettingsOptions : JobSource {
  std::vector<std::string> set;  // NAME=VALUE
  bool json = false;
};

// A job of files that is made up without a window.
struct FileJobOptions : JobSource {
  std::vector<std::string> set;  // NAME=VALUE
  std::string copies;            // empty: as the settings say
  std::vector<std::filesystem::path> files;
};

struct PrintOptions : FileJobOptions {
  std::string title;  // empty: the files' names
  bool wait = false;
  bool alert = false;  // say of a failure in a window too, where there is a display
  int unreadable = 0;  // why the print portal could not read the document, in the system's numbers
};

struct SaveOptions : FileJobOptions {
  std::filesystem::path output;
  bool png = false;       // a picture of each page, in place of one PDF file
  int dpi = 150;          // of the pictures
  bool replaces = false;  // what is there already
};

struct CheckOptions : Surroundings {
  std::vector<std::filesystem::path> ppds;
  std::vector<std::string> queues;
  bool json = false;
};

struct QueuesOptions : Surroundings {
  bool json = false;
};

struct PPDChangeOptions : Surroundings {
  std::filesystem::path ppd;     // empty: the queue's
  std::string queue;             // empty: none
  std::filesystem::path output;  // the new file; empty: QUEUE.ppd here, unless something is there
  bool apply = false;            // give it to the queue instead of writing it
  bool all = false;              // every queue, in place of one
  bool json = false;             // how the report about all of them is written
  DrawingMethod method = DrawingMethod::kFitting;  // of enable
};

struct PortalOptions {
  enum class Action { kEnable, kDisable, kStatus };
  Action action = Action::kStatus;
};

// Shows the dialog. The user prints the files there, or accepts the choices, or cancels.
int Show(const ShowOptions &options);

// Makes everything ready that a dialog needs, and waits for its arguments on standard input, one
// JSON array of texts on a line; then shows it. The end of the input, or ten minutes without a
// request, end it, too.
int ShowWhenAsked(const std::function<int(const std::vector<std::string> &)> &show);

// The rest needs no display.

// Prints the files as one job.
int Print(const PrintOptions &options);

// Keeps the pages that would be printed.
int Save(const SaveOptions &options);

// Changes and prints the choices of a job, and writes the ticket.
int Settings(const SettingsOptions &options);

// Says of each PPD file or queue whether panels are offered, or why not.
int Check(const CheckOptions &options);

// Lists the server's queues, and says the same of them.
int Queues(const QueuesOptions &options);

// Adds the printer options of the bundles to a PPD file or queue.
int Enable(const PPDChangeOptions &options);

// Takes out what Enable has added.
int Disable(const PPDChangeOptions &options);

// Chooses this program for the desktop's print portal, takes that back, or says how it stands.
int Portal(const PortalOptions &options);

#endif
