#include "portal/Commands.h"

#include <unistd.h>

namespace fs = std::filesystem;

namespace {

// As one word: a text may begin with a dash.
void Add(Command &command, const std::string &option, const std::string &value) {
  if (!value.empty()) command.push_back(option + '=' + value);
}

}  // namespace

fs::path FindPdeprint() {
  std::error_code error;
  const fs::path here = fs::read_symlink("/proc/self/exe", error).parent_path();
  const fs::path beside = here / "pdeprint";
  if (access(beside.c_str(), X_OK) == 0) return beside;
  return (here / "../bin/pdeprint").lexically_normal();
}

Command ShowCommand(const fs::path &pdeprint, const DialogTexts &texts, const std::string &queue,
                    const fs::path &ticket, const fs::path &document) {
  Command command = {pdeprint, "show", "--json", "--alert"};
  Add(command, "--parent", texts.parent);
  Add(command, "--title", texts.title);
  Add(command, "--app", texts.application);
  Add(command, "--accept-label", texts.accept);
  Add(command, "--queue", queue);
  Add(command, "--ticket", ticket);
  if (!document.empty()) command.push_back(document);
  return command;
}

Command PrintCommand(const fs::path &pdeprint, const std::string &title, const std::string &queue,
                     const fs::path &ticket, const fs::path &document) {
  Command command = {pdeprint, "print", "--alert"};
  Add(command, "--title", title);
  Add(command, "--queue", queue);
  Add(command, "--ticket", ticket);
  command.push_back(document);
  return command;
}

Command ComplainCommand(const fs::path &pdeprint, const std::string &title, int reason) {
  // The document's name is that of no file, and none is looked for.
  return {pdeprint,           "print",   "--alert", "--unreadable=" + std::to_string(reason),
          "--title=" + title, "document"};
}
