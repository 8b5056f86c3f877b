#include "host/session/Application.h"

namespace {

struct Words {
  const char *for_scripts;
  const char *for_people;
};

Words WordsFor(Application::By by) {
  switch (by) {
    case Application::By::kPrinter:
      return {"printer", "by the printer"};
    case Application::By::kServer:
      return {"server", "by the print server"};
    case Application::By::kThisComputer:
      return {"computer", "on this computer"};
  }
  return {"", ""};
}

}  // namespace

std::string WordFor(Application::By by) { return WordsFor(by).for_scripts; }

std::string Described(const Applications &applications) {
  if (applications.size() == 1) return WordsFor(applications.front().by).for_people;
  std::string text;
  for (const Application &application : applications) {
    text +=
        (text.empty() ? "" : ", ") + application.bundle + ' ' + WordsFor(application.by).for_people;
  }
  return text;
}
