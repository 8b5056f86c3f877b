// The built program, with a print server that the tests of a suite share.

#ifndef TESTS_HOST_COMMAND_SERVEDPROGRAM_H
#define TESTS_HOST_COMMAND_SERVEDPROGRAM_H

#include <gmock/gmock.h>

#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "tests/support/Arguments.h"
#include "tests/support/Patience.h"
#include "tests/support/PrivateServer.h"
#include "tests/support/RunProgram.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TicketText.h"

// The suite makes the server and its queues, and ends it. The user's options and presets are gone
// after each test.
class ServedProgram : public testing::Test {
 protected:
  static PrivateServer &server() { return *server_; }
  static void StartServer() { server_ = new PrivateServer; }
  static void TearDownTestSuite() {
    delete server_;
    server_ = nullptr;
  }

  ~ServedProgram() override {
    std::error_code error;
    for (const char *name : {".cups", ".config"}) {
      std::filesystem::remove_all(server().home() / name, error);
    }
  }

  // In the server's environment, without a display; these changes go before.
  static RunOptions Options(const EnvironmentChanges &changes = {}) {
    RunOptions options{.environment = changes, .folder = {}, .out = {}};
    options.environment.merge(server().Environment());
    options.environment.merge(EnvironmentChanges{{"XDG_CONFIG_HOME", std::nullopt},
                                                 {"XDG_CONFIG_DIRS", "/nowhere"},
                                                 {"DISPLAY", std::nullopt},
                                                 {"LANGUAGE", "en"}});
    return options;
  }

  static RunResult Run(const Arguments &arguments, const EnvironmentChanges &changes = {}) {
    return RunPdeprint(arguments, Options(changes));
  }

  // The user's options, as lpoptions keeps them.
  static void WriteLpoptions(const std::string &lines) {
    std::filesystem::create_directories(server().home() / ".cups");
    std::ofstream(server().home() / ".cups/lpoptions") << lines;
  }

  std::string Ticket(const std::map<std::string, std::string> &settings) const {
    return folder_.Write("ticket.plist", TicketText(settings));
  }

  TemporaryFolder folder_;

 private:
  static inline PrivateServer *server_ = nullptr;
};

#endif
