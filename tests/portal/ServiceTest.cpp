// Requests from the call to the answer, with a program in the place of pdeprint that does what a
// test says.

#include "portal/Service.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <poll.h>

#include <cerrno>
#include <sstream>

#include "tests/support/Patience.h"
#include "tests/support/TemporaryFolder.h"

namespace fs = std::filesystem;

namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

constexpr char kAccepts[] = R"(echo '{"outcome": "accepted", "queue": "Office"}')";
// Its process is the one that a signal ends.
constexpr char kStaysOpen[] = "exec sleep 1000";

const Caller kEditor = {":1.2", ":1.7", "org.example.Editor"};

class ServiceTest : public testing::Test {
 protected:
  ServiceTest() { Script(kAccepts, "cat"); }

  // What the dialog does, and what printing does with the names of files behind it.
  void Script(const std::string &show, const std::string &print) const {
    const std::string log = (folder_.path() / "log").string();
    folder_.Write("pdeprint", "#!/bin/sh\necho \"$*\" >>" + log + "\ncase $1 in\nshow) " + show +
                                  ";;\nprint)\n" + print + ";;\nesac\n");
    fs::permissions(folder_.path() / "pdeprint", fs::perms::owner_all);
  }

  Call NewCall(const Caller &caller = kEditor) {
    const std::string handle = "/request/" + std::to_string(++calls_);
    return {.handle = handle,
            .caller = caller,
            .title = "Report",
            .answer = [this, handle](const Reply &reply) {
              EXPECT_FALSE(replies_.contains(handle)) << "answered twice";
              replies_[handle] = reply;
            }};
  }
  std::string Prepare(const JobWords &words = {}, const Caller &caller = kEditor) {
    Call call = NewCall(caller);
    const std::string handle = call.handle;
    service_.PreparePrint(std::move(call), words);
    return handle;
  }
  std::string Print(uint32_t token, const Caller &caller = kEditor,
                    const std::string &document = "%PDF-1.5") {
    const fs::path file = folder_.Write("document", document);
    return PrintFile(token, Descriptor(open(file.c_str(), O_RDONLY | O_CLOEXEC)), caller);
  }
  std::string PrintFile(uint32_t token, Descriptor document, const Caller &caller = kEditor) {
    Call call = NewCall(caller);
    const std::string handle = call.handle;
    service_.Print(std::move(call), std::move(document), token);
    return handle;
  }

  bool ServeUntil(const std::function<bool()> &done) {
    return Becomes([&] {
      std::vector<pollfd> ends;
      for (const int end : service_.Ends()) ends.push_back({end, POLLIN, 0});
      poll(ends.data(), ends.size(), 20);
      service_.Attend();
      return done();
    });
  }
  Reply Await(const std::string &handle) {
    EXPECT_TRUE(ServeUntil([&] { return replies_.contains(handle); })) << "no answer";
    return replies_[handle];
  }
  uint32_t Accept(const Caller &caller = kEditor) {
    return Await(Prepare({}, caller)).token.value_or(0);
  }

  // What the program was told, a line for each time.
  std::vector<std::string> Commands() const {
    std::istringstream log(ContentOf(folder_.path() / "log"));
    std::vector<std::string> lines;
    for (std::string line; std::getline(log, line);) lines.push_back(line);
    return lines;
  }
  bool HasStarted(size_t commands) const { return Commands().size() == commands; }

  TemporaryFolder folder_;
  std::map<std::string, Reply> replies_;
  int calls_ = 0;
  Service service_{{.pdeprint = folder_.path() / "pdeprint", .document_limit = 500ms * kSlowdown}};
};

std::string Complaint(int reason) {
  return "print --alert --unreadable=" + std::to_string(reason) + " --title=Report document";
}

}  // namespace

TEST_F(ServiceTest, AnswersAnAcceptedJobWithWordsAndToken) {
  const Reply reply = Await(Prepare({.settings = {{"n-copies", "3"}}}));
  EXPECT_EQ(Response::kDone, reply.response);
  ASSERT_TRUE(reply.words);
  EXPECT_EQ(Value("1"), reply.words->settings.at("n-copies"));
  EXPECT_NE(0U, reply.token.value_or(0));
}

TEST_F(ServiceTest, BeginsTheDialogWithTheJobOfTheApplication) {
  Script("cat \"${6#--ticket=}\" >" + (folder_.path() / "ticket").string() + "; " + kAccepts, "");
  Await(Prepare({.settings = {{"n-copies", "3"}, {"printer", "Laser"}}}));
  ASSERT_THAT(Commands(), SizeIs(1));
  EXPECT_THAT(Commands().front(), HasSubstr("show --json --alert --title=Report --queue=Laser "));
  EXPECT_THAT(ContentOf(folder_.path() / "ticket"),
              HasSubstr("<key>copies</key><string>3</string>"));
}

TEST_F(ServiceTest, SaysHowTheDialogEnded) {
  for (const auto &[outcome, response] : {std::pair("canceled", Response::kCanceled),
                                          {"failed", Response::kFailed},
                                          {"none of these", Response::kFailed}}) {
    Script("echo '{\"outcome\": \"" + std::string(outcome) + "\"}'", "");
    const Reply reply = Await(Prepare());
    EXPECT_EQ(response, reply.response) << outcome;
    EXPECT_FALSE(reply.token);
    EXPECT_FALSE(reply.words);
  }
  Script("kill -9 $$", "");
  EXPECT_EQ(Response::kFailed, Await(Prepare()).response);
}

TEST_F(ServiceTest, FailsWithoutTheProgram) {
  fs::remove(folder_.path() / "pdeprint");
  EXPECT_EQ(Response::kFailed, Await(Prepare()).response);
}

TEST_F(ServiceTest, PrintsTheAcceptedJobWithItsTicket) {
  const std::string seen = (folder_.path() / "seen").string();
  Script("echo changed >\"${5#--ticket=}\"; " + std::string(kAccepts),
         "cat \"${5#--ticket=}\" \"$6\" >" + seen);
  const uint32_t token = Accept();
  EXPECT_EQ(Response::kDone, Await(Print(token)).response);
  EXPECT_EQ("changed\n%PDF-1.5", ContentOf(seen));
  ASSERT_THAT(Commands(), SizeIs(2));
  EXPECT_THAT(Commands().back(),
              testing::StartsWith("print --alert --title=Report --queue=Office --ticket=/"));
}

TEST_F(ServiceTest, SaysThatPrintingFailed) {
  Script(kAccepts, "exit 1");
  EXPECT_EQ(Response::kFailed, Await(Print(Accept())).response);
}

TEST_F(ServiceTest, OpensTheDialogForDocumentsWithoutAValidToken) {
  Script("echo '{\"outcome\": \"printed\"}'", "");
  EXPECT_EQ(Response::kDone, Await(Print(0)).response);
  EXPECT_EQ(Response::kDone, Await(Print(12345)).response);
  for (const std::string &command : Commands()) {
    EXPECT_THAT(command, testing::MatchesRegex("show --json .*/document.pdf"));
  }
}

TEST_F(ServiceTest, TakesATokenOnce) {
  const uint32_t token = Accept();
  EXPECT_EQ(Response::kDone, Await(Print(token)).response);
  Script("echo '{\"outcome\": \"canceled\"}'", "");
  EXPECT_EQ(Response::kCanceled, Await(Print(token)).response);
  EXPECT_THAT(Commands().back(), testing::StartsWith("show "));
}

TEST_F(ServiceTest, TakesNobodyElsesToken) {
  const uint32_t token = Accept();
  Script("echo '{\"outcome\": \"canceled\"}'", "");
  EXPECT_EQ(Response::kCanceled,
            Await(Print(token, {":1.2", ":1.8", "org.example.Editor"})).response);
  EXPECT_EQ(Response::kDone, Await(Print(token)).response);
}

TEST_F(ServiceTest, DropsTheJobsOfThoseWhoHaveGone) {
  const uint32_t token = Accept();
  service_.Forget(kEditor.client);
  Script("echo '{\"outcome\": \"canceled\"}'", "");
  EXPECT_EQ(Response::kCanceled, Await(Print(token)).response);
}

TEST_F(ServiceTest, RefusesDocumentsThatCannotBeRead) {
  const uint32_t token = Accept();
  EXPECT_EQ(Response::kFailed, Await(Print(token, kEditor, "")).response);
  EXPECT_EQ(Response::kFailed,
            Await(PrintFile(0, Descriptor(open("/dev/null", O_WRONLY | O_CLOEXEC)))).response);
  int ends[2];
  ASSERT_EQ(0, pipe2(ends, O_CLOEXEC));
  const Descriptor other_end(ends[1]);
  EXPECT_EQ(Response::kFailed, Await(PrintFile(0, Descriptor(ends[0]))).response);
  EXPECT_THAT(Commands(), ElementsAre(testing::StartsWith("show "), Complaint(ENODATA),
                                      Complaint(EBADF), Complaint(ETIMEDOUT)));
}

TEST_F(ServiceTest, HasSeveralDialogsAtOnce) {
  const std::string go_on = (folder_.path() / "go-on").string();
  Script("[ $$ ]; until [ -e " + go_on + " ]; do sleep 0.05; done; " + kAccepts, "");
  const std::string first = Prepare(), second = Prepare();
  ASSERT_TRUE(ServeUntil([this] { return HasStarted(2); }));
  EXPECT_THAT(replies_, IsEmpty());
  folder_.Write("go-on", "");
  EXPECT_NE(Await(first).token, Await(second).token);
}

TEST_F(ServiceTest, ClosesADialogForItsCallerAlone) {
  Script(kStaysOpen, "");
  const std::string handle = Prepare();
  ASSERT_TRUE(ServeUntil([this] { return HasStarted(1); }));
  service_.Close(handle, ":1.9");
  service_.Close("/request/other", kEditor.sender);
  for (int turn = 0; turn < 10; ++turn) ServeUntil([] { return true; });
  EXPECT_THAT(replies_, IsEmpty());
  service_.Close(handle, kEditor.sender);
  EXPECT_EQ(Response::kFailed, Await(handle).response);
  EXPECT_THAT(service_.Ends(), IsEmpty());
}

TEST_F(ServiceTest, ClosesTheDialogsOfThoseWhoHaveGone) {
  Script(kStaysOpen, "");
  const std::string gone = Prepare(), other = Prepare({}, {":1.2", ":1.8", ""});
  ASSERT_TRUE(ServeUntil([this] { return HasStarted(2); }));
  service_.Forget(":1.7");
  Await(gone);
  EXPECT_FALSE(replies_.contains(other));
  service_.Forget(":1.2");
  Await(other);
}

TEST_F(ServiceTest, LimitsHowMuchOneApplicationHasGoingOn) {
  Script(kStaysOpen, "");
  for (size_t count = 0; count < Service::kMostOfClient; ++count) Prepare();
  EXPECT_THAT(replies_, IsEmpty());
  EXPECT_EQ(Response::kFailed, Await(Prepare()).response);
  const std::string other = Prepare({}, {":1.2", ":1.8", ""});
  EXPECT_FALSE(replies_.contains(other));
}
