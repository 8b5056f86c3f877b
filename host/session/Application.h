// Who does what the options of a bundle say.

#ifndef HOST_SESSION_APPLICATION_H
#define HOST_SESSION_APPLICATION_H

#include <string>
#include <vector>

// Of one bundle whose options somebody does something with.
struct Application {
  enum class By { kPrinter, kServer, kThisComputer };
  std::string bundle;  // its name
  By by = By::kPrinter;
};

using Applications = std::vector<Application>;

// For scripts: "printer", "server", "computer".
std::string WordFor(Application::By by);
// "by the printer", "by the print server", "on this computer", of several bundles each behind its
// name; empty: nobody is known.
std::string Described(const Applications &applications);

#endif
