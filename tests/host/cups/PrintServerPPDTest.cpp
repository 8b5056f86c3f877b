// The PPD files of queues.

#include <gmock/gmock.h>

#include "tests/host/cups/ServedPrintServer.h"

namespace fs = std::filesystem;
using testing::HasSubstr;

TEST_F(PrintServerTest, ThePPDFileOfAQueueIsTheServers) {
  server().AddQueue({.name = "WithPPD", .ppd = kSampleColor, .options = {{"PageSize", "Letter"}}});
  Expected<std::optional<PPDFile>> ppd = print_server_.PPDOfQueue("WithPPD");
  ASSERT_TRUE(ppd) << ppd.message();
  ASSERT_TRUE(ppd->has_value());
  EXPECT_EQ((*ppd)->Attribute("VQBackgroundNumberingSupport"), "true");
  EXPECT_EQ((*ppd)->Option("PageSize")->default_choice, "Letter");
}

TEST_F(PrintServerTest, AnInstanceHasThePPDFileOfItsQueue) {
  server().AddQueue({.name = "OfInstance", .ppd = kSampleColor});
  Expected<std::optional<PPDFile>> ppd = print_server_.PPDOfQueue("OfInstance/draft");
  ASSERT_TRUE(ppd) << ppd.message();
  EXPECT_TRUE(ppd->has_value());
}

TEST_F(PrintServerTest, AQueueMayHaveNoPPDFile) {
  server().AddQueue({.name = "WithoutPPD"});
  Expected<std::optional<PPDFile>> ppd = print_server_.PPDOfQueue("WithoutPPD");
  ASSERT_TRUE(ppd) << ppd.message();
  EXPECT_FALSE(ppd->has_value());
}

TEST_F(PrintServerTest, AClassHasThePPDFileOfAMember) {
  server().AddQueue({.name = "Member", .ppd = kSampleColor});
  server().Run({"/usr/sbin/lpadmin", "-p", "Member", "-c", "Class"});
  Expected<std::optional<PPDFile>> ppd = print_server_.PPDOfQueue("Class");
  ASSERT_TRUE(ppd) << ppd.message();
  EXPECT_TRUE(ppd->has_value());
}

TEST_F(PrintServerTest, AnUnknownQueueHasNoPPDFileButAFailure) {
  server().AddQueue({.name = "Known"});
  const std::string failure = FailureOf(print_server_.PPDOfQueue("Unknown"));
  EXPECT_THAT(failure, HasSubstr("has no queue \"Unknown\"; there is "));
}

TEST_F(PrintServerTest, FetchingAPPDFileLeavesNoFileBehind) {
  server().AddQueue({.name = "NoTraces", .ppd = kSampleColor});
  const EnvironmentVariable temporary("TMPDIR", folder_.path().string());
  ASSERT_TRUE(print_server_.PPDOfQueue("NoTraces"));
  EXPECT_TRUE(std::filesystem::is_empty(folder_.path()));
}
