#include <exception>

#include "host/base/Messages.h"
#include "host/base/Process.h"
#include "host/command/CommandLine.h"
#include "host/command/Commands.h"

int main(int argc, char **argv) {
  PrepareProcess();
  try {
    return RunCommandLine(argc, argv);
  } catch (const std::exception &exception) {
    Complain(exception.what());
    return kFailed;
  }
}
