#include "host/session/Application.h"

namespace {

std::string WordsFor(Application::By by) {
  switch (by) {
    case Application::By::kPrinter:
      return "by the printer";
    case Application::By::kServer:
      return "by the print server";
    case Application::By::kThisComputer:
      return "on this computer";
  }
  return "";
}

}  // namespace

std::string WordFor(Application::By by) {
  switch (by) {
    case Application::By::kPrinter:
      return "printer";
    case Application::By::kServer:
      return "server";
    case Application::By::kThisComputer:
      return "computer";
  }
  return "";
}

std::string Described(const Applications &applications) {
  if (applications.size() == 1) return WordsFor(applications.front().by);
  std::string text;
  for (const Application &application : applications) {
    text += (text.empty() ? "" : ", ") + application.bundle + ' ' + WordsFor(application.by);
  }
  return text;
}
