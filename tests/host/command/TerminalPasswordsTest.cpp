// The program on a terminal, with a real print server that wants passwords.

#include <gmock/gmock.h>

#include <csignal>

#include "tests/host/command/PrintingProgram.h"
#include "tests/support/MarkOptions.h"
#include "tests/support/PseudoTerminal.h"

using testing::HasSubstr;
using testing::Not;

namespace {

constexpr char kPassword[] = "secret: word";
constexpr char kPrompt[] = "Password: ";

// The queue Locked takes the password of ann, for everything.
class TerminalPasswordsTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    if (!CanCheckPasswords()) return;
    server_ = new PrivateServer({{"ann", kPassword}});
    const TemporaryFolder folder;
    server_->AddQueue({.name = "Locked",
                       .ppd = folder.Write("a.ppd", NumberingPPDText(/*color=*/true)),
                       .options = {{"printer-op-policy", "password"}}});
  }
  static void TearDownTestSuite() {
    delete server_;
    server_ = nullptr;
  }
  void SetUp() override {
    // Real accounts of the machine are nothing for a test, and containers may forbid the mount that
    // gives a server others.
    if (server_ == nullptr) GTEST_SKIP() << "no passwords of a test's own on this machine";
  }
  PrivateServer &server() const { return *server_; }

  EnvironmentChanges Environment() const {
    EnvironmentChanges changes = server().Environment();
    changes.merge(EnvironmentChanges{
        {"DISPLAY", std::nullopt}, {"LANGUAGE", "en"}, {"XDG_CONFIG_DIRS", "/nowhere"}});
    return changes;
  }
  Arguments Printing(const Arguments &more = {}) const {
    return Arguments{kPdeprint, "print", "-d", "Locked"} + more + Arguments{file_};
  }
  // Up to the question for a password.
  static bool AnswerName(PseudoTerminal &terminal, const std::string &name) {
    if (!terminal.Await("User name [")) return false;
    terminal.Type(name + '\n');
    return terminal.Await(kPrompt) && Becomes([&] { return !terminal.ShowsWhatIsTyped(); });
  }

  TemporaryFolder folder_;
  const std::string file_ = folder_.Write("page.ps", kPage);

 private:
  static inline PrivateServer *server_ = nullptr;
};

}  // namespace

TEST_F(TerminalPasswordsTest, OneIsAskedForOnceWithoutBeingShown) {
  PseudoTerminal terminal(Printing({"--wait"}), Environment());
  EXPECT_TRUE(terminal.Await("the print server " + server().address() +
                             " wants a password for printing on Locked\n"))
      << terminal.seen();
  ASSERT_TRUE(AnswerName(terminal, "ann")) << terminal.seen();
  terminal.Type(std::string(kPassword) + '\n');
  EXPECT_EQ(terminal.Wait(), 0) << terminal.seen();
  EXPECT_THAT(terminal.seen(), HasSubstr("request id is Locked-"));
  EXPECT_THAT(terminal.seen(), Not(HasSubstr("secret")));
  EXPECT_TRUE(terminal.ShowsWhatIsTyped());
}

TEST_F(TerminalPasswordsTest, ReturnTakesTheProposedName) {
  EnvironmentChanges environment = Environment();
  environment["CUPS_USER"] = "ann";
  PseudoTerminal terminal(Printing(), environment);
  ASSERT_TRUE(AnswerName(terminal, "")) << terminal.seen();
  terminal.Type(std::string(kPassword) + '\n');
  EXPECT_EQ(terminal.Wait(), 0) << terminal.seen();
  EXPECT_THAT(terminal.seen(), HasSubstr("User name [ann]: "));
}

TEST_F(TerminalPasswordsTest, ThreeWrongOnesAreARefusal) {
  PseudoTerminal terminal(Printing(), Environment());
  for (int i = 0; i < 3; ++i) {
    ASSERT_TRUE(AnswerName(terminal, "ann")) << terminal.seen();
    terminal.Type("wrong\n");
  }
  EXPECT_EQ(terminal.Wait(), 1);
  EXPECT_THAT(terminal.seen(), HasSubstr("ann may not do this, or the password is wrong\n"));
  EXPECT_THAT(terminal.seen(), HasSubstr("pdeprint: the print server " + server().address() +
                                         " refuses the job: it wants a password, and three were "
                                         "wrong\n"));
}

TEST_F(TerminalPasswordsTest, TheEndOfTheInputIsARefusal) {
  PseudoTerminal terminal(Printing(), Environment());
  ASSERT_TRUE(AnswerName(terminal, "ann")) << terminal.seen();
  terminal.Type("\004");
  EXPECT_EQ(terminal.Wait(), 1);
  EXPECT_THAT(terminal.seen(), HasSubstr("it wants a password, and none was given\n"));
  EXPECT_TRUE(terminal.ShowsWhatIsTyped());
}

TEST_F(TerminalPasswordsTest, AnInterruptedJobIsNotMadeAndTheTerminalIsAsBefore) {
  PseudoTerminal terminal(Printing(), Environment());
  ASSERT_TRUE(AnswerName(terminal, "ann")) << terminal.seen();
  terminal.Type("\003");
  EXPECT_EQ(terminal.Wait(), 1);
  EXPECT_THAT(terminal.seen(), HasSubstr("pdeprint: the job was canceled\n"));
  EXPECT_TRUE(terminal.ShowsWhatIsTyped());
  EXPECT_EQ(server().Run({"lpstat", "-h", server().socket(), "-o", "Locked"}), "");
}

TEST_F(TerminalPasswordsTest, AnInterruptedQuestionLeavesTheTerminalAsBefore) {
  server().Restrict("CUPS-Get-Printers");
  ASSERT_TRUE(Becomes([this] {
    return RunProgram({"setsid", "--wait", kPdeprint, "queues"}, {.environment = Environment()})
               .err.find("no terminal") != std::string::npos;
  }));
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
    PseudoTerminal terminal({kPdeprint, "queues"}, Environment());
    ASSERT_TRUE(AnswerName(terminal, "ann")) << terminal.seen();
    kill(terminal.pid(), signal);
    EXPECT_EQ(terminal.Wait(), 128 + signal) << terminal.seen();
    EXPECT_TRUE(terminal.ShowsWhatIsTyped());
  }
  server().Restrict("CUPS-Add-Modify-Class");
}

TEST_F(TerminalPasswordsTest, AProgramThatGoesOnAfterASignalAsksAgainAndStillShowsNothing) {
  PseudoTerminal terminal(Printing(), Environment());
  ASSERT_TRUE(AnswerName(terminal, "ann")) << terminal.seen();
  // There is no shell here that could let it go on, so the system does not stop it.
  kill(terminal.pid(), SIGTSTP);
  ASSERT_TRUE(terminal.Await(kPrompt)) << terminal.seen();
  EXPECT_TRUE(Becomes([&] { return !terminal.ShowsWhatIsTyped(); }));
  terminal.Type(std::string(kPassword) + '\n');
  EXPECT_EQ(terminal.Wait(), 0) << terminal.seen();
  EXPECT_THAT(terminal.seen(), Not(HasSubstr("secret")));
}

TEST_F(TerminalPasswordsTest, WithoutATerminalNobodyIsAsked) {
  Arguments command = Printing();
  command.insert(command.begin(), {"setsid", "--wait"});
  const RunResult result = RunProgram(command, {.environment = Environment()});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.err, "pdeprint: the print server " + server().address() +
                            " refuses the job: it wants a password, and there is no terminal to "
                            "ask for one on; run this on a terminal\n");
}

TEST_F(TerminalPasswordsTest, AnAdministratorsPasswordGivesTheQueueItsFile) {
  server().AddQueue({.name = "Marks", .ppd = folder_.Write("a.ppd", PrinterText())});
  server().Restrict("CUPS-Add-Modify-Printer");
  ASSERT_TRUE(Becomes([this] {
    return RunProgram({"setsid", "--wait", "/usr/sbin/lpadmin", "-p", "Marks", "-D", "Marks"},
                      {.environment = Environment()})
               .status != 0;
  }));
  PseudoTerminal terminal({kPdeprint, "enable", "-d", "Marks", "--apply"}, Environment());
  EXPECT_TRUE(terminal.Await("password of an administrator for changing the queue Marks\n"))
      << terminal.seen();
  ASSERT_TRUE(AnswerName(terminal, "ann")) << terminal.seen();
  terminal.Type(std::string(kPassword) + '\n');
  EXPECT_EQ(terminal.Wait(), 0) << terminal.seen();
  EXPECT_THAT(terminal.seen(), HasSubstr("the queue Marks on the print server " +
                                         server().address() + " has a new PPD file"));
}
