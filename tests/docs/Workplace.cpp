#include "tests/docs/Workplace.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <regex>

#include "tests/support/Documents.h"
#include "tests/support/MarkOptions.h"
#include "tests/support/Patience.h"

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace {

// Places of the machine that documents may name, and where programs are that are only run.
constexpr const char *kOwnPlaces[] = {"/etc/xdg", "/usr/local", "/usr/share/ppd"};
constexpr const char *kProgramPlaces[] = {"/usr/lib/cups/filter/", "/dev/null"};

const char kPressReturn[] =
    "window=$(xdotool search --onlyvisible --classname '^pdeprint$' | tail -n 1) && "
    "timeout 5 xdotool windowactivate --sync $window && xdotool key Return";

}  // namespace

Workplace::Workplace() {
  const fs::path source = SOURCE_DIRECTORY;
  for (const auto &entry : fs::directory_iterator(source)) {
    const std::string name = entry.path().filename();
    if (name != "build") fs::create_symlink(entry.path(), folder_.path() / name);
  }
  fs::create_directory(folder_.path() / "build");
  for (const char *preset : {"dev", "release"}) {
    fs::create_directory_symlink(BINARY_DIRECTORY, folder_.path() / "build" / preset);
  }
  for (const char *place : kOwnPlaces) fs::create_directories(folder_.path().native() + place);
  const fs::path numbering = BINARY_DIRECTORY "/printer/VelmoraNumbering.ppd";
  Write("report.pdf", TextPdf(3));
  Write("Office.ppd", ContentOf(numbering));
  Write("Laser.ppd", PrinterText());
  server_.AddQueue({.name = "Office",
                    .ppd = numbering,
                    .description = "Second floor",
                    .location = "Room 12",
                    .is_default = true});
  server_.AddQueue({.name = "Laser", .ppd = folder_.path() / "Laser.ppd"});
}

void Workplace::Write(const std::string &name, const std::string &content) const {
  folder_.Write(name, content);
}

RunOptions Workplace::Options() const {
  RunOptions options{
      .environment = server_.Environment(), .folder = folder_.path().string(), .out = {}};
  options.environment["PATH"] = BINARY_DIRECTORY ":/usr/sbin:/usr/bin:/sbin:/bin";
  options.environment["XDG_CONFIG_HOME"] = std::nullopt;
  options.environment["XDG_CONFIG_DIRS"] = folder_.path().string() + "/etc/xdg";
  options.environment["LANGUAGE"] = "en";
  return options;
}

std::string Workplace::InThisPlace(const std::string &command) const {
  const std::regex absolute(R"((^|[ ='"])(/[^ :'"]+))");
  std::string text;
  size_t done = 0;
  for (std::sregex_iterator match(command.begin(), command.end(), absolute), end; match != end;
       ++match) {
    const std::string path = (*match)[2];
    const auto begins = [&path](const char *place) { return path.starts_with(place); };
    const auto at = static_cast<size_t>(match->position(2));
    text += command.substr(done, at - done);
    done = at + path.size();
    if (std::ranges::any_of(kOwnPlaces, begins)) {
      text += folder_.path().string() + path;
    } else {
      EXPECT_TRUE(std::ranges::any_of(kProgramPlaces, begins)) << path << " is the machine's";
      text += std::ranges::any_of(kProgramPlaces, begins) ? path : "/nowhere";
    }
  }
  return text + command.substr(done);
}

RunResult Workplace::Run(const std::string &command) const {
  return RunProgram({"sh", "-c", InThisPlace(command)}, Options());
}

RunResult Workplace::RunDialog(const std::string &command) const {
  RunningProgram dialog({"sh", "-c", "exec " + InThisPlace(command)}, Options());
  Becomes([&dialog] {
    if (dialog.HasEnded(300ms)) return true;
    RunProgram({"sh", "-c", kPressReturn});
    return false;
  });
  return dialog.Wait(1ms);
}

bool Workplace::AwaitJobs() const {
  return Becomes([this] { return server_.LiveJobs().empty(); });
}
