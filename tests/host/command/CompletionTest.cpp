// Completion of the command line, by the shells themselves.

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>

#include "host/presets/PresetStore.h"
#include "tests/host/command/HelpText.h"
#include "tests/support/Patience.h"

namespace fs = std::filesystem;

namespace {

using Names = std::set<std::string>;

const char kColorPPD[] = SOURCE_DIRECTORY "/tests/support/SampleColor.ppd";
const char kNoServer[] = "127.0.0.1:1";

struct Shell {
  std::string name;
  std::vector<std::string> command;  // followed by lines: prints what is offered for each
};

const char kBashCompletion[] = SOURCE_DIRECTORY "/completions/pdeprint.bash";
const char kZshCompletion[] = SOURCE_DIRECTORY "/completions/_pdeprint";
const char kCompleteInBash[] = SOURCE_DIRECTORY "/tests/host/command/complete.bash";
const char kCompleteInZsh[] = SOURCE_DIRECTORY "/tests/host/command/complete.zsh";

const Shell kBash = {"Bash", {"bash", "--norc", "--noprofile", kCompleteInBash, kBashCompletion}};
const Shell kZsh = {"Zsh", {"zsh", "-f", kCompleteInZsh, kZshCompletion}};

void PrintTo(const Shell &shell, std::ostream *stream) { *stream << shell.name; }

// What the shell offers at the end of each line. Of an offer for people to type on from, such as
// "Size=", the "=" is left out: it is no part of zsh's offers.
std::vector<Names> Offers(const Shell &shell, const std::vector<std::string> &lines,
                          RunOptions options = {}) {
  options.environment.emplace("CUPS_SERVER", kNoServer);
  std::vector<std::string> command = shell.command;
  command.insert(command.end(), lines.begin(), lines.end());
  const RunResult result = RunProgram(command, options);
  EXPECT_EQ(0, result.status);
  EXPECT_EQ("", result.err);
  std::vector<Names> offers(1);
  std::istringstream text(result.out);
  for (std::string offer; std::getline(text, offer);) {
    if (offer.empty()) {
      offers.emplace_back();
    } else {
      offers.back().insert(offer.ends_with('=') ? offer.substr(0, offer.size() - 1) : offer);
    }
  }
  offers.pop_back();
  EXPECT_EQ(lines.size(), offers.size()) << result.out;
  offers.resize(lines.size());
  return offers;
}

Names Offers(const Shell &shell, const std::string &line, const RunOptions &options = {}) {
  return Offers(shell, std::vector{line}, options).front();
}

Names OptionNames(const std::string &help) { return Matches(help, "[ ,](--?[A-Za-z][a-z-]*)"); }

// A server that takes connections and never answers.
class SilentServer {
 public:
  SilentServer() : socket_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto *const generic = reinterpret_cast<sockaddr *>(&address);
    EXPECT_EQ(0, bind(socket_, generic, size));
    EXPECT_EQ(0, listen(socket_, 8));
    EXPECT_EQ(0, getsockname(socket_, generic, &size));
    address_ = "127.0.0.1:" + std::to_string(ntohs(address.sin_port));
  }
  ~SilentServer() { close(socket_); }
  SilentServer(const SilentServer &) = delete;
  SilentServer &operator=(const SilentServer &) = delete;

  const std::string &address() const { return address_; }

 private:
  int socket_;
  std::string address_;
};

class Completion : public testing::TestWithParam<Shell> {
 protected:
  Names OffersFor(const std::string &line, const RunOptions &options = {}) const {
    return Offers(GetParam(), line, options);
  }
  std::vector<Names> OffersForEach(const std::vector<std::string> &lines,
                                   const RunOptions &options = {}) const {
    return Offers(GetParam(), lines, options);
  }
};

// A print server of the test's own.
class QueueServer {
 public:
  QueueServer() : address_(SilentServer().address()) {
    const std::string root = folder_.path().string();
    const fs::path files =
        folder_.Write("cups-files.conf", "FileDevice Yes\nServerRoot " + root + "\nCacheDir " +
                                             root + "/cache\nStateDir " + root + "\nRequestRoot " +
                                             root + "/spool\nTempDir " + root + "\nErrorLog " +
                                             root + "/errors\nAccessLog " + root + "/accesses\n");
    const fs::path configuration = folder_.Write(
        "cupsd.conf", "Listen " + address_ +
                          "\nBrowsing No\nDefaultAuthType None\n<Policy default>\n<Limit All>\n"
                          "Order deny,allow\n</Limit>\n</Policy>\n");
    server_.emplace(std::vector<std::string>{"/usr/sbin/cupsd", "-f", "-c", configuration.string(),
                                             "-s", files.string()});
    for (int i = 0; i < 100 && Run({"lpstat", "-r"}).out != "scheduler is running\n"; ++i) {
      EXPECT_FALSE(server_->HasEnded(std::chrono::milliseconds(50))) << server_->Wait().err;
    }
  }

  void AddQueue(const std::string &name) const {
    const RunResult result =
        Run({"/usr/sbin/lpadmin", "-p", name, "-E", "-v", "file:///dev/null", "-P", kColorPPD});
    EXPECT_EQ(0, result.status) << result.err;
  }

  const std::string &address() const { return address_; }

 private:
  RunResult Run(const std::vector<std::string> &command) const {
    return RunProgram(command, {.environment = {{"CUPS_SERVER", address_}, {"LC_ALL", "C"}}});
  }

  TemporaryFolder folder_;
  std::string address_;
  std::optional<RunningProgram> server_;
};

INSTANTIATE_TEST_SUITE_P(Shells, Completion, testing::Values(kBash, kZsh),
                         [](const auto &shell) { return shell.param.name; });

}  // namespace

TEST_P(Completion, OffersTheVerbs) { EXPECT_EQ(Verbs(), OffersFor("pdeprint ")); }

TEST_P(Completion, OffersTheOptionsWithoutAVerb) {
  EXPECT_EQ(OptionNames(OptionsHelp()), OffersFor("pdeprint -"));
}

TEST_P(Completion, OffersTheOptionsOfEachVerb) {
  std::vector<std::string> lines;
  std::vector<Names> options;
  for (const std::string &verb : Verbs()) {
    lines.push_back("pdeprint " + verb + " -");
    options.push_back(OptionNames(OptionsHelp(verb)));
  }
  EXPECT_EQ(options, OffersForEach(lines));
}

TEST_P(Completion, OffersOnlyWhatBeginsAsTheWordDoes) {
  EXPECT_EQ((std::vector<Names>{{"save", "settings", "show"}, {"--ticket", "--timeout"}}),
            OffersForEach({"pdeprint s", "pdeprint settings --ti"}));
}

TEST_P(Completion, OffersNoOptionsBehindTwoDashes) {
  EXPECT_EQ(Names(), OffersFor("pdeprint print -- -"));
}

TEST_P(Completion, OffersNothingForATextOfTheUsers) {
  const std::vector<Names> nothing(6);
  EXPECT_EQ(
      nothing,
      OffersForEach({"pdeprint print --timeout ", "pdeprint print --timeout=", "pdeprint print -n ",
                     "pdeprint print --copies ", "pdeprint print -t ", "pdeprint print --title="}));
}

TEST_P(Completion, OffersFilesByTheirEndings) {
  TemporaryFolder folder;
  for (const char *file : {"a b.ppd", "c.ppd.gz", "d.plist", "e.png", "f.pdf"}) {
    folder.Write(file, "");
  }
  folder.Write("Numbers.plugin/Info.plist", "");
  const RunOptions here = {.folder = folder.path().string()};
  const std::string bundle = "Numbers.plugin";
  const Names ppds = {"a b.ppd", "c.ppd.gz", bundle};
  EXPECT_EQ(
      std::vector<Names>(3, ppds),
      OffersForEach({"pdeprint check ", "pdeprint settings --ppd ", "pdeprint show --ppd="}, here));
  EXPECT_EQ((std::vector<Names>{{"d.plist", bundle}, {"e.png", bundle}, {bundle}}),
            OffersForEach({"pdeprint print --ticket ", "pdeprint show --snapshot ",
                           "pdeprint queues --plugin "},
                          here));
  const Names all = {"a b.ppd", "c.ppd.gz", "d.plist", "e.png", "f.pdf", bundle};
  EXPECT_EQ(std::vector<Names>(3, all),
            OffersForEach({"pdeprint print ", "pdeprint show -d Office --wait ",
                           "pdeprint save --ppd c.ppd.gz --png "},
                          here));
  EXPECT_EQ(std::vector<Names>(2, {"e.png", "f.pdf", bundle}),
            OffersForEach({"pdeprint save -o ", "pdeprint save --output="}, here));
}

TEST_P(Completion, OffersPPDFilesToChangeUnlessAQueueIsNamed) {
  TemporaryFolder folder;
  for (const char *file : {"a.ppd", "b.ppd.gz", "c.pdf"}) folder.Write(file, "");
  const Names ppds = {"a.ppd", "b.ppd.gz"};
  const std::vector<Names> offers =
      OffersForEach({"pdeprint enable ", "pdeprint disable --timeout 3 ", "pdeprint enable -o ",
                     "pdeprint disable --output=", "pdeprint enable -d Office "},
                    {.folder = folder.path().string()});
  EXPECT_EQ(ppds, offers[0]);
  EXPECT_EQ(ppds, offers[1]);
  EXPECT_TRUE(offers[2].contains("a.ppd"));
  EXPECT_FALSE(offers[2].contains("c.pdf"));
  EXPECT_EQ(offers[2], offers[3]);
  EXPECT_FALSE(offers[4].contains("a.ppd"));
}

TEST_P(Completion, OffersThePresetsByTheirNames) {
  TemporaryFolder folder;
  const fs::path own = folder.path() / "own";
  const fs::path all = folder.path() / "all";
  const PresetStore store(own / "pdeprint/presets", {});
  for (const char *name : {"Two Words", "A/B", "50% gray", "%2F", ".hidden", "It's \"Größe\""}) {
    Expected<fs::path> path = store.PathForWriting(name);
    ASSERT_TRUE(path) << path.message();
    folder.Write(*path, "");
  }
  Expected<fs::path> last = store.LastUsedPathForWriting();
  ASSERT_TRUE(last) << last.message();
  folder.Write(*last, "");
  folder.Write(all / "pdeprint/presets/House.plist", "");
  folder.Write(all / "pdeprint/presets/README", "");
  const RunOptions presets = {.environment = {{"XDG_CONFIG_HOME", own.string()},
                                              {"XDG_CONFIG_DIRS", "/absent:" + all.string()},
                                              {"LC_ALL", "C.UTF-8"}}};
  const Names names = {kDefaultSettings, kLastUsed,        "Two Words", "A/B", "50% gray", "%2F",
                       ".hidden",        "It's \"Größe\"", "House"};
  EXPECT_EQ(std::vector<Names>(2, names),
            OffersForEach({"pdeprint print -P ", "pdeprint show --preset="}, presets));
  EXPECT_EQ(
      std::vector<Names>(2, {"Two Words"}),
      OffersForEach({"pdeprint settings --preset Two\\ ", "pdeprint settings --preset \"Two "},
                    presets));
}

TEST_P(Completion, OffersTheSettingsOfTheInstalledExtension) {
  const RunResult refused = RunPdeprint({"settings", "--ppd", kColorPPD, "--set", "Nothing=1"});
  ASSERT_EQ(2, refused.status);
  const Names known = Matches(refused.err.substr(refused.err.find("there are ")), "([A-Z]\\w+),");
  EXPECT_LE(5u, known.size()) << refused.err;
  const Names offered = OffersFor("pdeprint settings --set ");
  EXPECT_TRUE(std::includes(offered.begin(), offered.end(), known.begin(), known.end()))
      << testing::PrintToString(offered);
}

TEST_P(Completion, OffersOnlySettingsAndValuesThatAreAccepted) {
  const std::string line = std::string("pdeprint settings --ppd ") + kColorPPD + " --set ";
  const Names names = OffersFor(line);
  std::vector<std::string> lines;
  for (const std::string &name : names) lines.push_back(line + name + "=");
  std::vector<std::string> arguments = {"settings", "--ppd", kColorPPD};
  auto name = names.begin();
  size_t offered_values = 0;
  for (Names values : OffersForEach(lines)) {
    offered_values += values.size();
    if (values.empty()) values = {"1"};
    for (const std::string &value : values) {
      arguments.insert(arguments.end(), {"--set", *name + "=" + value});
    }
    ++name;
  }
  const RunResult result = RunPdeprint(arguments);
  EXPECT_EQ(0, result.status) << result.err;
  EXPECT_LE(20u, offered_values);
}

TEST_P(Completion, OffersTheValuesOfASetting) {
  EXPECT_EQ((std::vector<Names>{{"Small", "Medium", "Large"}, {"Medium"}, {"Medium"}, {}}),
            OffersForEach({"pdeprint print --set Size=", "pdeprint print --set Size=M",
                           "pdeprint print --set=Size=M", "pdeprint print --set StartNumber="}));
}

TEST_P(Completion, OffersTheOptionsOfAPPDFile) {
  TemporaryFolder folder;
  fs::copy_file(kColorPPD, folder.path() / "a b.ppd");
  const RunOptions here = {.folder = folder.path().string()};
  const std::string beginning = "pdeprint settings --ppd";
  for (const char *file : {" a\\ b.ppd", "='a b.ppd'"}) {
    const std::string line = beginning + file + " --set Page";
    EXPECT_EQ((std::vector<Names>{{"PageSize", "PageRegion"}, {"A4", "Letter"}}),
              OffersForEach({line, line + "Size="}, here))
        << line;
  }
}

TEST_P(Completion, OffersNoQueuesWithoutAServer) {
  EXPECT_EQ(std::vector<Names>(2),
            OffersForEach({"pdeprint print -d ", "pdeprint check --queue="}));
}

TEST_P(Completion, OffersTheQueuesAndTheirOptions) {
  const QueueServer server;
  server.AddQueue("Office");
  server.AddQueue("Lab_2");
  const Names queues = {"Lab_2", "Office"};
  EXPECT_EQ((std::vector<Names>{queues, queues, {"Office"}, {"PageSize"}, {"A4"}}),
            OffersForEach({"pdeprint print -d ", "pdeprint check -d Office --queue=",
                           "pdeprint show --queue Of", "pdeprint print -d Office --set Page",
                           "pdeprint print --queue=Office --set PageSize=A"},
                          {.environment = {{"CUPS_SERVER", server.address()}}}));
}

TEST_P(Completion, WaitsForNoSilentServer) {
  const SilentServer server;
  const RunOptions silent = {.environment = {{"CUPS_SERVER", server.address()}}};
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(Names(), OffersFor("pdeprint print -d ", silent));
  EXPECT_TRUE(OffersFor("pdeprint print -d Office --set ", silent).contains("StartNumber"));
  EXPECT_GT(2 * kSoon, std::chrono::steady_clock::now() - start);
}

TEST(BashCompletion, CompletesTheLastOfSeveralWordsOfAPair) {
  EXPECT_EQ(Names{"Size"}, Offers(kBash, "pdeprint print --set=Si"));
  EXPECT_EQ(Names{"Size"}, Offers(kBash, "pdeprint print --set Color=Red --set \"Si"));
  EXPECT_EQ(Names{"Size=Medium"}, Offers(kBash, "pdeprint print --set \"Size=M"));
}

TEST(CompletionFiles, AreInstalledWhereTheShellsLookForThem) {
  TemporaryFolder prefix;
  const RunResult result = RunProgram(
      {CMAKE_PROGRAM, "--install", BINARY_DIRECTORY, "--prefix", prefix.path().string()});
  ASSERT_EQ(0, result.status) << result.err;
  const fs::path share = prefix.path() / "share";
  EXPECT_EQ(ContentOf(kBashCompletion), ContentOf(share / "bash-completion/completions/pdeprint"));
  EXPECT_EQ(ContentOf(kZshCompletion), ContentOf(share / "zsh/site-functions/_pdeprint"));
}
