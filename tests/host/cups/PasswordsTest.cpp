// A real print server that wants passwords.

#include "host/cups/Passwords.h"

#include <gmock/gmock.h>
#include <pwd.h>
#include <unistd.h>

#include <deque>
#include <future>
#include <thread>

#include "host/cups/PrintServer.h"
#include "tests/support/ExpectedValue.h"
#include "tests/support/Patience.h"
#include "tests/support/PrivateServer.h"
#include "tests/support/TestPPD.h"

using namespace std::chrono_literals;
using testing::ContainsRegex;
using testing::SizeIs;

namespace {

constexpr char kPassword[] = "secret: word";

std::string UserHere() { return getpwuid(geteuid())->pw_name; }

// Somebody who answers with the passwords, one after the other, as the user "ann"; then gives none.
class Answers : public PasswordSource {
 public:
  explicit Answers(std::deque<std::string> passwords, std::chrono::milliseconds pause = 0ms)
      : passwords_(std::move(passwords)), pause_(pause) {}

  Expected<Login> Ask(const PasswordQuestion &question,
                      const std::atomic<bool> &is_withdrawn) override {
    questions_.push_back(question);
    EXPECT_NE(std::this_thread::get_id(), main_);
    const auto end = std::chrono::steady_clock::now() + pause_;
    while (!is_withdrawn && std::chrono::steady_clock::now() < end) {
      std::this_thread::sleep_for(5ms);
    }
    if (is_withdrawn || passwords_.empty()) return NoPasswordGiven();
    std::string password = passwords_.front();
    passwords_.pop_front();
    return Login{"ann", Secret(std::move(password))};
  }

  // After the operations that ask.
  const std::vector<PasswordQuestion> &questions() const { return questions_; }

 private:
  std::deque<std::string> passwords_;
  const std::chrono::milliseconds pause_;
  const std::thread::id main_ = std::this_thread::get_id();
  std::vector<PasswordQuestion> questions_;
};

// The queue Locked takes the password of ann, for everything.
class PasswordsTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    if (!CanCheckPasswords()) return;
    server_ = new PrivateServer({{"ann", kPassword}});
    const TemporaryFolder folder;
    server_->AddQueue(
        {.name = "Locked", .ppd = folder.Write("a.ppd", TestPPD::Text("")), .stopped = "Wait"});
    server_->Run({"/usr/sbin/lpadmin", "-p", "Locked", "-o", "printer-op-policy=password"});
    server_->AddQueue({.name = "Open", .stopped = "Wait"});
  }
  static void TearDownTestSuite() {
    delete server_;
    server_ = nullptr;
  }
  void SetUp() override {
    // Real accounts of the machine are nothing for a test, and containers may forbid the mount that
    // gives a server others.
    if (server_ == nullptr) GTEST_SKIP() << "no passwords of a test's own on this machine";
    environment_ = std::make_unique<ServerEnvironment>(*server_);
  }
  PrivateServer &server() const { return *server_; }

  Expected<int> Print(const PrintServer &print_server, const std::string &queue = "Locked") {
    const JobRequest request{
        .queue = queue, .title = "Title", .options = {}, .files = {folder_.Write("a", "text")}};
    return print_server.Print(request, progress_);
  }
  // As the server tells somebody whom it knows without a password.
  std::string JobsOfLocked() const {
    return server().Run({"lpstat", "-h", server().socket(), "-o", "Locked"});
  }
  std::string Refusal(const std::string &why) const {
    return "the print server " + server().address() + " refuses the job: " + why;
  }

  TemporaryFolder folder_;
  SendingProgress progress_;

 private:
  static inline PrivateServer *server_ = nullptr;
  std::unique_ptr<ServerEnvironment> environment_;
};

PrintServer Asking(const std::shared_ptr<Answers> &answers,
                   std::chrono::milliseconds limit = kPatience) {
  return PrintServer(limit, std::make_shared<Passwords>(answers));
}

}  // namespace

TEST_F(PasswordsTest, OneThatIsGivenIsKnownToAllLaterRequests) {
  const auto answers = std::make_shared<Answers>(std::deque<std::string>{kPassword});
  const PrintServer print_server = Asking(answers);
  for (int i = 0; i < 2; ++i) {
    Expected<int> job = Print(print_server);
    ASSERT_TRUE(job) << job.message();
    EXPECT_THAT(JobsOfLocked(), ContainsRegex("Locked-" + std::to_string(*job) + " +ann "));
    EXPECT_TRUE(print_server.StatusOfJob(*job));
  }
  ASSERT_THAT(answers->questions(), SizeIs(1));
  EXPECT_EQ(answers->questions()[0].reason,
            "the print server " + server().address() + " wants a password for printing on Locked");
  EXPECT_EQ(answers->questions()[0].mistake, "");
  EXPECT_EQ(answers->questions()[0].user, UserHere());
}

TEST_F(PasswordsTest, NobodyIsAskedWhereNoneIsWanted) {
  const auto answers = std::make_shared<Answers>(std::deque<std::string>{});
  Expected<int> job = Print(Asking(answers), "Open");
  EXPECT_TRUE(job) << job.message();
  EXPECT_THAT(answers->questions(), SizeIs(0));
}

TEST_F(PasswordsTest, AWrongOneIsAskedForAgain) {
  const auto answers = std::make_shared<Answers>(std::deque<std::string>{"wrong", kPassword});
  Expected<int> job = Print(Asking(answers));
  ASSERT_TRUE(job) << job.message();
  ASSERT_THAT(answers->questions(), SizeIs(2));
  EXPECT_EQ(answers->questions()[1].mistake, "ann may not do this, or the password is wrong");
  EXPECT_EQ(answers->questions()[1].user, "ann");
}

TEST_F(PasswordsTest, ThreeWrongOnesAreARefusalAndTheNextRequestAsksAnew) {
  const std::string before = JobsOfLocked();
  const auto answers =
      std::make_shared<Answers>(std::deque<std::string>{"one", "two", "three", kPassword});
  const PrintServer print_server = Asking(answers);
  Expected<int> job = Print(print_server);
  ASSERT_FALSE(job);
  EXPECT_EQ(job.message(), Refusal("it wants a password, and three were wrong"));
  EXPECT_TRUE(job.failure().wants_password);
  EXPECT_FALSE(job.failure().is_unanswered);
  EXPECT_THAT(answers->questions(), SizeIs(3));
  EXPECT_EQ(JobsOfLocked(), before);
  EXPECT_TRUE(Print(print_server));
}

TEST_F(PasswordsTest, NoneIsARefusal) {
  for (const PrintServer &print_server :
       {Asking(std::make_shared<Answers>(std::deque<std::string>{})), PrintServer(kPatience)}) {
    Expected<int> job = Print(print_server);
    ASSERT_FALSE(job);
    EXPECT_EQ(job.message(), Refusal("it wants a password, and none was given"));
    EXPECT_TRUE(job.failure().wants_password);
  }
}

TEST_F(PasswordsTest, WhileSomebodyIsAskedTheLimitStandsStill) {
  constexpr auto kLimit = 1s * kSlowdown;
  const auto answers =
      std::make_shared<Answers>(std::deque<std::string>{kPassword}, kLimit + kLimit / 2);
  const PrintServer print_server = Asking(answers, kLimit);
  Expected<int> job = Print(print_server);
  EXPECT_TRUE(job) << job.message();
  server().Restrict("CUPS-Get-Printers");
  const auto again =
      std::make_shared<Answers>(std::deque<std::string>{kPassword}, kLimit + kLimit / 2);
  // It reads its configuration now, and may not be there for a moment.
  EXPECT_TRUE(Becomes([&] {
    const bool is_answered = static_cast<bool>(Asking(again, kLimit).Queues());
    return is_answered && again->questions().size() == 1;
  }));
  server().Restrict("CUPS-Add-Modify-Class");
  EXPECT_TRUE(Becomes([] { return static_cast<bool>(PrintServer(kPatience).Queues()); }));
}

TEST_F(PasswordsTest, AJobThatIsCanceledWhileSomebodyIsAskedIsNotMade) {
  const auto answers = std::make_shared<Answers>(std::deque<std::string>{kPassword}, kPatience);
  const std::string before = JobsOfLocked();
  std::thread canceling([this] {
    std::this_thread::sleep_for(300ms);
    progress_.cancel = true;
  });
  Expected<int> job = Print(Asking(answers));
  canceling.join();
  ASSERT_FALSE(job);
  EXPECT_EQ(job.message(), "the job was canceled");
  EXPECT_EQ(JobsOfLocked(), before);
}

TEST_F(PasswordsTest, RequestsAtTheSameTimeAskOnce) {
  const auto answers = std::make_shared<Answers>(std::deque<std::string>{kPassword}, 300ms);
  const PrintServer print_server = Asking(answers);
  const JobRequest request{
      .queue = "Locked", .title = "", .options = {}, .files = {folder_.Write("b", "text")}};
  const auto print = [&] {
    SendingProgress progress;
    return MessageOf(print_server.Print(request, progress));
  };
  auto first = std::async(std::launch::async, print);
  auto second = std::async(std::launch::async, print);
  EXPECT_EQ(first.get(), "");
  EXPECT_EQ(second.get(), "");
  EXPECT_THAT(answers->questions(), SizeIs(1));
}

TEST_F(PasswordsTest, AnAdministratorsPasswordIsAskedFor) {
  const auto answers = std::make_shared<Answers>(std::deque<std::string>{kPassword});
  const std::string text = TestPPD::Text("*Flag: \"new\"\n");
  EXPECT_EQ("", MessageOf(Asking(answers).ReplacePPD("Locked", text)));
  ASSERT_THAT(answers->questions(), SizeIs(1));
  EXPECT_EQ(answers->questions()[0].reason,
            "the print server " + server().address() +
                " wants the password of an administrator for changing the queue Locked");
}

// On a socket the system says who asks.
TEST_F(PasswordsTest, WhoIsKnownWithoutAPasswordIsNotAskedForOne) {
  const EnvironmentVariable socket("CUPS_SERVER", server().socket().string());
  const auto answers = std::make_shared<Answers>(std::deque<std::string>{});
  Expected<int> job = Print(Asking(answers));
  ASSERT_TRUE(job) << job.message();
  EXPECT_THAT(answers->questions(), SizeIs(0));
}

TEST_F(PasswordsTest, TheRefusalOfAUserNamesTheUserAndTheQueue) {
  server().AddQueue({.name = "Few"});
  server().Run({"/usr/sbin/lpadmin", "-p", "Few", "-u", "allow:bob"});
  Expected<int> job = Print(PrintServer(kPatience), "Few");
  ASSERT_FALSE(job);
  EXPECT_EQ(job.message(),
            Refusal("Not allowed to print; " + UserHere() + " may not print on Few"));
}
