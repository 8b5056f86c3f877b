// What pdeprint is asked to do.

#ifndef PORTAL_COMMANDS_H
#define PORTAL_COMMANDS_H

#include <filesystem>
#include <string>
#include <vector>

using Command = std::vector<std::string>;

// The program, which stands beside this one or where it is installed from here.
std::filesystem::path FindPdeprint();

// What the dialog shows of an application; empty parts are left out. All of them are clean.
struct DialogTexts {
  std::string parent;       // "x11:HEX"
  std::string title;        // of the job
  std::string application;  // its name for people
  std::string accept;       // on the button
};

// Opens the dialog for a job with this ticket, which the dialog writes when it is accepted. With a
// document it prints that, without one it answers. A dialog that cannot open says so in a window.
Command ShowCommand(const std::filesystem::path &pdeprint, const DialogTexts &texts,
                    const std::string &queue, const std::filesystem::path &ticket,
                    const std::filesystem::path &document = {});

// Prints a document with this ticket; what fails is said in a window.
Command PrintCommand(const std::filesystem::path &pdeprint, const std::string &title,
                     const std::string &queue, const std::filesystem::path &ticket,
                     const std::filesystem::path &document);

// Says in a window why the document of an application cannot be printed, in the system's numbers.
Command ComplainCommand(const std::filesystem::path &pdeprint, const std::string &title,
                        int reason);

#endif
