// The built program's window as other programs open it.

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <nlohmann/json.hpp>

#include "tests/host/command/ShownDialog.h"
#include "tests/support/EnvironmentVariable.h"

namespace fs = std::filesystem;

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using Json = nlohmann::ordered_json;

const char kCanceled[] = "{\n  \"outcome\": \"canceled\"\n}\n";
const char kMessageOfCanceled[] = "pdeprint: canceled; nothing was printed or saved\n";

Json Parsed(const RunResult &result) {
  Json json = Json::parse(result.out, nullptr, false);
  EXPECT_FALSE(json.is_discarded()) << result.out;
  return json;
}

// A window of another program's.
class OtherWindow {
 public:
  OtherWindow() : program_({"xmessage", "-title", "Other", "-geometry", "300x200", "text"}) {
    EXPECT_TRUE(Becomes([this] {
      id_ = RunProgram({"xdotool", "search", "--onlyvisible", "--name", "^Other$"}).out;
      return !id_.empty();
    }));
    if (!id_.empty()) id_.pop_back();
  }
  const std::string &id() const { return id_; }
  std::string Hexadecimal() const {
    std::ostringstream text;
    text << std::hex << std::stoul(id_);
    return text.str();
  }

 private:
  RunningProgram program_;
  std::string id_;
};

std::string PropertiesOf(const std::string &window) {
  return RunProgram(
             {"xprop", "-id", window, "WM_TRANSIENT_FOR", "_NET_WM_WINDOW_TYPE", "_NET_WM_STATE"})
      .out;
}

}  // namespace

TEST(ShowForPrograms, TheEndIsToldInJson) {
  Dialog dialog({"--json"});
  dialog.Press({"space", "Tab", "Tab", "Tab", "Tab"});
  dialog.Type("25");
  const RunResult result = dialog.Close();
  EXPECT_EQ(0, result.status) << result.err;
  EXPECT_EQ(Json::parse(R"({
    "outcome": "accepted",
    "paper": {"name": "A4", "width": 209.9, "height": 297.04,
              "margins": {"top": 6.35, "bottom": 6.35, "left": 6.35, "right": 6.35}},
    "orientation": "portrait",
    "settings": {"VQBNColor": "Black", "VQBNDensity": "Medium", "VQBNSize": "Medium",
                 "VQBackgroundNumbering": "On", "VQStartNumber": "25"}
  })"),
            Parsed(result));
}

TEST(ShowForPrograms, CanceledHasAStatusOfItsOwn) {
  for (const char *key : {"Escape", "alt+F4"}) {
    Dialog dialog({"--json"});
    const RunResult result = dialog.Close(key);
    EXPECT_EQ(3, result.status) << key;
    EXPECT_EQ(kCanceled, result.out) << key;
    EXPECT_THAT(result.err, EndsWith(kMessageOfCanceled));
  }
}

TEST(ShowForPrograms, AnEndFromOutsideIsToldAsCanceled) {
  for (const int signal : {SIGTERM, SIGINT}) {
    TemporaryFolder folder;
    const fs::path ticket = folder.path() / "ticket.plist";
    Dialog dialog({"--json", "--ticket", ticket.string()});
    dialog.program().Signal(signal);
    const RunResult result = dialog.program().Wait();
    EXPECT_EQ(3, result.status) << signal;
    EXPECT_EQ(kCanceled, result.out) << signal;
    EXPECT_THAT(result.err, EndsWith(kMessageOfCanceled));
    EXPECT_FALSE(fs::exists(ticket));
  }
}

TEST(ShowForPrograms, AnEndFromOutsideAlsoEndsAnOpenQuestion) {
  const TemporaryFolder folder;
  const EnvironmentVariable config("XDG_CONFIG_HOME", folder.path().string());
  Dialog dialog({"--json"});
  // To the presets; the last of their commands asks for a name.
  dialog.Press({"shift+Tab", "shift+Tab", "shift+Tab", "shift+Tab"});
  dialog.OpenMenu();
  dialog.Press({"Down", "Down", "Return"});
  ASSERT_TRUE(Becomes([] {
    return !RunProgram({"xdotool", "search", "--onlyvisible", "--name", "^Print$"}).out.empty();
  }));
  dialog.program().Signal(SIGTERM);
  const RunResult result = dialog.program().Wait();
  EXPECT_EQ(3, result.status) << result.err;
  EXPECT_EQ(kCanceled, result.out);
}

TEST(ShowForPrograms, AFailureIsToldWithItsReason) {
  TemporaryFolder folder;
  const std::string ticket = (folder.path() / "absent/ticket.plist").string();
  Dialog dialog({"--json", "--ticket", ticket});
  const RunResult result = dialog.Close();
  EXPECT_EQ(1, result.status);
  const Json json = Parsed(result);
  EXPECT_EQ("failed", json["outcome"]);
  EXPECT_THAT(json["reason"], HasSubstr("cannot write " + ticket + ": "));
  EXPECT_THAT(result.err, HasSubstr("pdeprint: cannot write " + ticket + ": "));
}

TEST(ShowForPrograms, TheTitleNamesTheDocumentAndTheApplication) {
  {
    Dialog dialog({"--title",
                   "Report \xe2\x80\xae"
                   "2\n",
                   "--app", "Writer"});
    EXPECT_EQ("Print — Report  2 — Writer\n", dialog.Title());
    dialog.Close("Escape");
  }
  Dialog dialog({"--app", std::string(100, 'W')});
  EXPECT_EQ("Print — " + std::string(39, 'W') + "…\n", dialog.Title());
}

TEST(ShowForPrograms, TheWindowIsTheDialogOfTheApplications) {
  const OtherWindow other;
  WindowOfProgram dialog(
      {"show", "--ppd", kColorPPD, "--json", "--parent", "x11:" + other.Hexadecimal()}, "",
      other.id());
  EXPECT_EQ("WM_TRANSIENT_FOR(WINDOW): window id # 0x" + other.Hexadecimal() +
                "\n_NET_WM_WINDOW_TYPE(ATOM) = _NET_WM_WINDOW_TYPE_DIALOG\n"
                "_NET_WM_STATE(ATOM) = _NET_WM_STATE_MODAL\n",
            PropertiesOf(dialog.window()));
  EXPECT_EQ(0, dialog.Close().status);
}

TEST(ShowForPrograms, AWindowThatIsNotThereIsAsNone) {
  for (const char *parent : {"x11:dead0001", "x11:ffffffff", "wayland:abc"}) {
    Dialog dialog({"--json", "--parent", parent});
    EXPECT_THAT(PropertiesOf(dialog.window()), HasSubstr("WM_TRANSIENT_FOR:  not found.\n"));
    const RunResult result = dialog.Close();
    EXPECT_EQ(0, result.status) << parent << result.err;
  }
}

// Whoever prints for another program has no terminal to read standard error on.
TEST(ShowForPrograms, AJobThatIsNotPrintedIsToldInAWindowToo) {
  WindowOfProgram alert({"print", "--alert", "/nowhere/page.pdf"});
  EXPECT_EQ("Print\n", alert.Title());
  const RunResult result = alert.Close();
  EXPECT_EQ(1, result.status);
  EXPECT_EQ("pdeprint: cannot print /nowhere/page.pdf: no such file\n", result.err);
}

TEST(ShowForPrograms, AWarmOneShowsNothingUntilItIsAsked) {
  const TemporaryFolder folder;
  const fs::path input = folder.path() / "input";
  ASSERT_EQ(0, mkfifo(input.c_str(), 0600));
  const std::string command = std::string("exec ") + kPdeprint + " show --warm <" + input.string();
  const int writing = open(input.c_str(), O_RDWR | O_CLOEXEC);
  RunningProgram program({"sh", "-c", command}, {.environment = {{"LANGUAGE", "en"}}});
  const auto window = [] {
    return RunProgram({"xdotool", "search", "--onlyvisible", "--name", "^Print — Report"}).out;
  };
  const std::string request =
      std::string("[\"--json\", \"--title\", \"Report\", \"--ppd\", \"") + kColorPPD + "\"]\n";
  EXPECT_FALSE(program.HasEnded(std::chrono::milliseconds(200)));
  EXPECT_EQ("", window());
  ASSERT_EQ(static_cast<ssize_t>(request.size()), write(writing, request.data(), request.size()));
  close(writing);
  ASSERT_TRUE(Becomes([&] { return !window().empty(); }));
  RunProgram({"sh", "-c", "xdotool windowactivate --sync " + window()});
  RunProgram({"xdotool", "key", "Escape"});
  const RunResult result = program.Wait();
  EXPECT_EQ(3, result.status) << result.err;
  EXPECT_EQ(kCanceled, result.out);
}

TEST(ShowForPrograms, AWarmOneEndsWithItsInput) {
  const RunResult result =
      RunProgram({"sh", "-c", std::string("exec ") + kPdeprint + " show --warm </dev/null"});
  EXPECT_EQ(0, result.status) << result.err;
  EXPECT_EQ("", result.out);
}
