// Taking and giving the PPD files of queues.

#include <gmock/gmock.h>

#include <functional>
#include <thread>

#include "host/cups/PrintServer.h"
#include "tests/support/ExpectedValue.h"
#include "tests/support/Patience.h"
#include "tests/support/PrivateServer.h"
#include "tests/support/SilentServer.h"
#include "tests/support/TestPPD.h"

using namespace std::chrono_literals;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

// A printer with a lamp, and these lines.
std::string LampText(const std::string &lines = "") {
  return TestPPD::Text(
      "*OpenUI *Lamp/Lamp: PickOne\n*OrderDependency: 50 AnySetup *Lamp\n"
      "*DefaultLamp: Dim\n*Lamp Dim/Dim: \"\"\n*Lamp Bright/Bright: \"\"\n"
      "*CloseUI: *Lamp\n" +
      lines);
}

class ReplacePPD : public testing::Test {
 protected:
  static void SetUpTestSuite() { server_ = new PrivateServer; }
  static void TearDownTestSuite() {
    delete server_;
    server_ = nullptr;
  }
  PrivateServer &server() const { return *server_; }

  void AddQueue(const std::string &name) const {
    server().AddQueue({.name = name, .ppd = folder_.Write("a.ppd", LampText())});
  }

  // Of the queue's PPD file; "none", or the failure.
  std::string TextOf(const std::string &queue) const {
    Expected<std::optional<std::string>> text = print_server_.PPDTextOfQueue(queue);
    if (!text) return text.message();
    return text->value_or("none");
  }

  TemporaryFolder folder_;

 private:
  static inline PrivateServer *server_ = nullptr;

  ServerEnvironment environment_{*server_};

 protected:
  PrintServer print_server_{kPatience};
};

}  // namespace

TEST_F(ReplacePPD, TheTextIsTheOneOfTheQueuesFile) {
  AddQueue("Text");
  EXPECT_EQ(TextOf("Text"), LampText());
  server().Run({"lpoptions", "-p", "Text/draft", "-o", "Lamp=Bright"});
  EXPECT_EQ(TextOf("Text/draft"), LampText());
}

TEST_F(ReplacePPD, AQueueMayHaveNone) {
  server().AddQueue({.name = "Raw"});
  EXPECT_EQ(TextOf("Raw"), "none");
}

TEST_F(ReplacePPD, AnUnknownQueueIsRefused) {
  AddQueue("Known");
  EXPECT_THAT(TextOf("Unknown"), HasSubstr("has no queue \"Unknown\"; there is "));
}

TEST_F(ReplacePPD, GivesTheQueueTheFile) {
  AddQueue("New");
  EXPECT_EQ("", MessageOf(print_server_.ReplacePPD("New", LampText("*Flag: \"new\"\n"))));
  EXPECT_EQ(TextOf("New"), LampText("*Flag: \"new\"\n"));
}

TEST_F(ReplacePPD, AllElseOfTheQueueStays) {
  server().AddQueue({.name = "Office",
                     .ppd = folder_.Write("a.ppd", LampText()),
                     .description = "Second floor",
                     .location = "Room 12",
                     .options = {{"job-sheets-default", "standard"}},
                     .rejecting = "Closed"});
  server().Run({"/usr/sbin/lpadmin", "-p", "Office", "-o", "Lamp=Bright"});
  ASSERT_THAT(TextOf("Office"), HasSubstr("*DefaultLamp: Bright\n")) << TextOf("Office");
  const std::string text = TextOf("Office") + "*Flag: \"new\"\n";
  EXPECT_EQ("", MessageOf(print_server_.ReplacePPD("Office", text)));
  EXPECT_EQ(TextOf("Office"), text);
  Expected<Queue> queue = print_server_.FindQueue("Office");
  ASSERT_TRUE(queue) << queue.message();
  EXPECT_EQ(queue->description, "Second floor");
  EXPECT_EQ(queue->location, "Room 12");
  EXPECT_FALSE(queue->accepts_jobs);
  EXPECT_EQ(queue->defaults["job-sheets"], "standard,none");
}

TEST_F(ReplacePPD, AFileThatTheServerRefusesChangesNothing) {
  AddQueue("Same");
  const std::string failure = MessageOf(print_server_.ReplacePPD("Same", "rubbish\n"));
  EXPECT_THAT(failure, StartsWith("the print server " + server().address() +
                                  " does not take the PPD file for Same: "));
  EXPECT_EQ(TextOf("Same"), LampText());
}

TEST(ReplacePPDServer, WithoutTheRightTheFailureSaysWhoHasIt) {
  const PrivateServer server;
  const ServerEnvironment environment(server);
  const TemporaryFolder folder;
  server.AddQueue({.name = "Office", .ppd = folder.Write("a.ppd", LampText())});
  server.Restrict("CUPS-Add-Modify-Printer");
  const PrintServer print_server(kPatience);
  std::string failure;
  Becomes([&] {
    failure = MessageOf(print_server.ReplacePPD("Office", LampText()));
    return failure.ends_with("run this as one");
  });
  EXPECT_EQ(failure, "the print server " + server.address() +
                         " does not take the PPD file for Office: it wants a password, and "
                         "none was given; only an administrator of the print server may change a "
                         "queue, run this as one");
}

TEST(ReplacePPDServer, ASilentServerEndsItWithinTheLimit) {
  SilentServer silent;
  const EnvironmentVariable variable("CUPS_SERVER", silent.address());
  const PrintServer server(300ms);
  const std::string failure =
      "the print server " + silent.address() + " does not answer within 0.3 s";
  EXPECT_EQ(MessageOf(server.ReplacePPD("Office", LampText())), failure);
  Expected<std::optional<std::string>> text = server.PPDTextOfQueue("Office");
  EXPECT_EQ(text ? "" : text.message(), failure);
}
