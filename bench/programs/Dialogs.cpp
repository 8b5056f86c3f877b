#include "bench/programs/Dialogs.h"

#include <cstdlib>
#include <iostream>
#include <optional>
#include <thread>

#include "bench/programs/LeftBehind.h"
#include "bench/programs/Program.h"
#include "bench/programs/ScreenWatch.h"

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace {

using Clock = ScreenWatch::Clock;

// Longer than any dialog waits between two paintings, with room for a busy machine.
constexpr auto kQuiet = 10s;
constexpr auto kLongest = 30s;
// For what the end of a program leaves to do.
constexpr auto kPause = 100ms;

struct Dialog {
  std::string name;
  std::vector<std::string> command;
  Picture picture;  // how it looks in the end
};

struct Appearance {
  double first = 0;  // seconds until the window's content had more than one color
  double whole = 0;  // and until it looked as it does in the end
  double peak = 0;   // bytes of memory until then
};

[[noreturn]] void GiveUp(const Dialog &dialog, const char *reason) {
  std::cerr << dialog.name << ' ' << reason << '\n';
  std::exit(1);
}

// How the dialog looks when nothing more comes.
Picture FinalPicture(ScreenWatch &screen, const Dialog &dialog,
                     const EnvironmentChanges &environment) {
  Picture picture;
  const Program program(dialog.command, environment);
  auto changed = program.begin();
  for (;;) {
    const auto when = screen.AwaitDrawing();
    if (when - changed > (picture.pixels.empty() ? kLongest : kQuiet)) break;
    Picture now = screen.ContentOfWindow();
    if (now.pixels.empty() || now.HasOneColor() || !AreDifferent(now, picture)) continue;
    picture = std::move(now);
    changed = when;
  }
  if (picture.pixels.empty()) GiveUp(dialog, "shows no window");
  return picture;
}

// None: it did not come to look as it should. There is a picture of that then.
std::optional<Appearance> Watch(ScreenWatch &screen, const Dialog &dialog,
                                const EnvironmentChanges &environment, const fs::path &pictures) {
  Appearance seen;
  Picture now;
  const Program program(dialog.command, environment);
  for (auto when = program.begin(); when - program.begin() < kLongest;) {
    when = screen.AwaitDrawing();
    now = screen.ContentOfWindow();
    if (now.pixels.empty() || now.HasOneColor()) continue;
    if (seen.first == 0) seen.first = program.SecondsUntil(when);
    if (AreDifferent(now, dialog.picture)) continue;
    seen.whole = program.SecondsUntil(when);
    seen.peak = program.PeakMemory();
    return seen;
  }
  now.Write(pictures / (dialog.name + "-otherwise.ppm"));
  return std::nullopt;
}

// Dialogs that hang are left out, and said.
Appearance Measure(ScreenWatch &screen, const Dialog &dialog, const EnvironmentChanges &environment,
                   const fs::path &pictures) {
  for (int attempt = 0; attempt < 3; ++attempt) {
    const std::optional<Appearance> seen = Watch(screen, dialog, environment, pictures);
    screen.AwaitNoWindow();
    std::this_thread::sleep_for(kPause);
    if (seen) return *seen;
    std::cerr << dialog.name << " did not come to look as before; once more\n";
  }
  GiveUp(dialog, "does not look the same twice");
}

}  // namespace

void MeasureDialogs(int rounds, const PrivateServer &server, const std::string &queue,
                    const fs::path &pictures, Measures &measures) {
  EnvironmentChanges environment = server.Environment();
  // There are no other services: nobody waits for one.
  environment["DBUS_SESSION_BUS_ADDRESS"] = "disabled:";
  environment["GSETTINGS_BACKEND"] = "memory";
  environment["NO_AT_BRIDGE"] = "1";
  environment["GTK_A11Y"] = "none";
  const LeftBehind left_behind;
  const std::string bundle = BINARY_DIRECTORY "/BackgroundNumbering.plugin";
  std::vector<Dialog> dialogs = {
      {"pdeprint", {BINARY_DIRECTORY "/pdeprint", "show", "-d", queue}, {}},
      {"gtk3", {BENCH_DIRECTORY "/gtk3_dialog", queue}, {}},
      {"gtk4", {BENCH_DIRECTORY "/gtk4_dialog", queue}, {}},
      {"qt5", {BENCH_DIRECTORY "/qt5_dialog", queue}, {}},
      {"bare", {BENCH_DIRECTORY "/bare_window", bundle}, {}},
      {"bare-quick",
       {"env", "MAGICK_CODER_MODULE_PATH=/dev/null", BENCH_DIRECTORY "/bare_window", bundle},
       {}},
  };
  ScreenWatch screen;
  fs::create_directories(pictures);
  for (Dialog &dialog : dialogs) {
    dialog.picture = FinalPicture(screen, dialog, environment);
    screen.AwaitNoWindow();
    dialog.picture.Write(pictures / (dialog.name + ".ppm"));
  }
  for (int round = 0; round < rounds; ++round) {
    for (size_t i = 0; i < dialogs.size(); ++i) {
      // Nobody is always the first.
      const Dialog &dialog = dialogs[(i + static_cast<size_t>(round)) % dialogs.size()];
      const Appearance seen = Measure(screen, dialog, environment, pictures);
      measures["window"][dialog.name].push_back(seen.whole);
      measures["window"][dialog.name + "-first"].push_back(seen.first);
      measures["memory"][dialog.name].push_back(seen.peak);
    }
  }
}
