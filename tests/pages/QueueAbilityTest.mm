#include "host/session/QueueAbility.h"

#include <gmock/gmock.h>

#include "host/ppd/PPDSource.h"
#include "tests/support/NumberingPPD.h"
#include "tests/support/ObjCTest.h"
#include "tests/support/TestPPD.h"

using testing::HasSubstr;

namespace {

const DocumentFormats kPages = std::set<std::string>{"application/pdf", "application/vnd.cups-pdf"};

QueueAbility AbilityWith(const std::string &ppd, const DocumentFormats &formats) {
  Expected<Extensions> extensions =
      Extensions::Load(BINARY_DIRECTORY "/BackgroundNumbering.plugin");
  Expected<PPDFile> file = ParsePPD(ppd);
  return AbilityOf(std::move(*file), formats, *extensions);
}

std::string Plain() { return TestPPD::Text(kColorDevice); }

}  // namespace

OBJC_TEST(QueueAbility, HasTheOptionsOfWhatIsAppliedHere) {
  const QueueAbility ability = AbilityWith(Plain(), kPages);
  ASSERT_TRUE(ability.here);
  EXPECT_EQ(ability.applications.at(0).by, Application::By::kThisComputer);
  EXPECT_EQ(ability.here->defaults.at("VQBackgroundNumbering"), "Off");
  EXPECT_EQ(ability.here->defaults.at("VQBNPlacement"), "Automatic");
  EXPECT_EQ(ability.here->defaults.count("PageSize"), 0u);
  EXPECT_EQ(ability.ppd->DefaultChoice("VQStartNumber"), "1");
  EXPECT_EQ(ability.here->ppd, ability.ppd->source());
}

OBJC_TEST(QueueAbility, ApprovesOnlyServersThatTakePages) {
  const QueueAbility ability = AbilityWith(Plain(), std::set<std::string>{"application/pdf"});
  EXPECT_FALSE(ability.here);
  EXPECT_EQ(ability.why_not_here,
            "its print server does not take documents of the type application/vnd.cups-pdf");
  EXPECT_FALSE(ability.ppd->HasOption("VQBackgroundNumbering"));
}

OBJC_TEST(QueueAbility, SendsPagesAsTheQueueLeavesThemAsTheyAre) {
  EXPECT_EQ((JobOptions{{"document-format", "application/vnd.cups-pdf"}}),
            AbilityWith(Plain(), kPages).here->sent_with);
  const std::string remote = Plain() + "*cupsFilter2: \"application/pdf application/pdf 0 -\"\n";
  EXPECT_EQ((JobOptions{{"document-format", "application/pdf"}, {"media", "A4"}}),
            AbilityWith(remote, kPages).here->sent_with);
  const std::string both =
      remote + "*cupsFilter2: \"application/vnd.cups-pdf application/pdf 0 -\"\n";
  EXPECT_EQ((JobOptions{{"document-format", "application/vnd.cups-pdf"}}),
            AbilityWith(both, kPages).here->sent_with);
}

OBJC_TEST(QueueAbility, LeavesPrintersAloneThatCan) {
  const QueueAbility ability = AbilityWith(NumberingPPDText(true), kPages);
  EXPECT_FALSE(ability.here);
  EXPECT_EQ(ability.applications.at(0).by, Application::By::kPrinter);
  EXPECT_EQ(ability.why_not_here, "");
}

OBJC_TEST(QueueAbility, DoesNotContradictTheMaker) {
  const QueueAbility ability = AbilityWith(
      TestPPD::Text(std::string(kColorDevice) + "*VQBackgroundNumberingSupport: \"false\"\n"),
      kPages);
  EXPECT_FALSE(ability.here);
  EXPECT_THAT(ability.why_not_here, HasSubstr("VQBackgroundNumberingSupport"));
}
