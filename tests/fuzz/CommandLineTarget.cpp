#include <unistd.h>

#include <algorithm>
#include <iostream>
#include <sstream>
#include <vector>

#include "host/command/CommandLine.h"
#include "host/command/Commands.h"
#include "tests/fuzz/InstalledBundle.h"
#include "tests/fuzz/Lines.h"
#include "tests/fuzz/Targets.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/MarkOptions.h"
#include "tests/support/NumberingPPD.h"
#include "tests/support/TemporaryFolder.h"

namespace fs = std::filesystem;

namespace fuzz {

namespace {

// A home with the bundle installed, and a folder in it where the program is run.
class Home {
 public:
  Home() { InstallBundle(path() / "GNUstep/Library/Bundles"); }
  const fs::path &path() const { return folder_.path(); }
  fs::path work() const { return path() / "work"; }

  // Puts things back to what every run begins with.
  void Prepare() const {
    std::error_code error;
    fs::remove_all(work(), error);
    fs::remove_all(path() / ".config", error);
    static const std::string office = NumberingPPDText(true, "");
    static const std::string laser = PrinterText();
    folder_.Write(work() / "Office.ppd", office);
    folder_.Write(work() / "Laser.ppd", laser);
    folder_.Write(work() / "report.txt", "report\n");
    folder_.Write(work() / "job.plist",
                  "<plist><dict><key>VQBNSize</key><string>Large</string></dict></plist>");
    folder_.Write(path() / ".config/pdeprint/presets/Draft.plist",
                  "<plist><dict><key>VQBNColor</key><string>Red</string></dict></plist>");
  }

 private:
  TemporaryFolder folder_;
};

class WorkingFolder {
 public:
  explicit WorkingFolder(const fs::path &path) : before_(fs::current_path()) {
    fs::current_path(path);
  }
  ~WorkingFolder() { fs::current_path(before_); }
  WorkingFolder(const WorkingFolder &) = delete;
  WorkingFolder &operator=(const WorkingFolder &) = delete;

 private:
  fs::path before_;
};

// Catches what is written to a stream.
class Caught {
 public:
  explicit Caught(std::ostream &stream) : stream_(stream), before_(stream.rdbuf(text_.rdbuf())) {}
  ~Caught() {
    stream_.rdbuf(before_);
    stream_.clear();
  }
  Caught(const Caught &) = delete;
  Caught &operator=(const Caught &) = delete;
  std::string text() const { return text_.str(); }

 private:
  std::ostringstream text_;
  std::ostream &stream_;
  std::streambuf *before_;
};

// A failure may also be among the results, as that of a file that is checked.
std::string Judge(int status, const std::string &results, const std::string &messages) {
  if (status < kDone || status > kWrongUsage) return "the status is " + std::to_string(status);
  if (status != kDone && (results + messages).empty()) return "it fails without a word";
  if (status == kFailed && !messages.empty() && !messages.starts_with("pdeprint: ")) {
    return "it complains: " + messages;
  }
  return "";
}

std::string Run(std::vector<std::string> arguments) {
  static const Home home;
  home.Prepare();
  const WorkingFolder folder(home.work());
  const EnvironmentVariable variables[] = {
      {"HOME", home.path().string()}, {"XDG_CONFIG_HOME", std::nullopt},
      {"XDG_CONFIG_DIRS", "absent"},  {"CUPS_SERVER", "/absent/no-server"},
      {"DISPLAY", std::nullopt},
  };
  arguments.insert(arguments.begin(), "pdeprint");
  std::vector<char *> argv;
  for (std::string &argument : arguments) argv.push_back(argument.data());
  argv.push_back(nullptr);

  const Caught results(std::cout);
  const Caught messages(std::cerr);
  try {
    const int status = RunCommandLine(static_cast<int>(arguments.size()), argv.data());
    return Judge(status, results.text(), messages.text());
  } catch (const std::exception &exception) {
    return std::string("threw: ") + exception.what();
  }
}

}  // namespace

std::string TryCommandLine(std::string_view lines) {
  const std::vector<std::string> arguments = LinesOfInput(lines);
  // Files of others stay out of reach.
  const bool leaves_folder = std::ranges::any_of(arguments, [](const std::string &argument) {
    return argument.find('/') != std::string::npos || argument.find("..") != std::string::npos;
  });
  return leaves_folder ? "" : Run(arguments);
}

}  // namespace fuzz
