#include "host/command/SettingChanges.h"

#include <gmock/gmock.h>

#include "tests/support/NumberingPPD.h"
#include "tests/support/TemporaryFolder.h"

using testing::HasSubstr;
using testing::StartsWith;

namespace {

const std::vector<Setting> kSettings = {
    {.name = "Size", .key = "TestSize", .choices = {"Small", "Large"}},
    {.name = "Number", .key = "TestNumber", .min = 1, .max = 9}};

class SettingChanges : public testing::Test {
 protected:
  SettingChanges()
      : ppd_(PPDFile::Open(folder_.Write("test.ppd", NumberingPPDText(/*color=*/true)))) {}

  Expected<std::vector<SettingChange>> Parse(const std::vector<std::string> &texts) {
    return ParseSettingChanges(
        texts, ValueCheck(&*ppd_, kSettings, /*claimed=*/{"TestSize", "TestNumber"}));
  }
  std::string Refusal(const std::string &text) {
    Expected<std::vector<SettingChange>> changes = Parse({text});
    return changes ? "" : changes.message();
  }

 private:
  TemporaryFolder folder_;
  Expected<PPDFile> ppd_;
};

}  // namespace

TEST_F(SettingChanges, SettingsOfBundlesGoByTheirNamesAndByTheirKeys) {
  auto changes = Parse({"Size=Large", "TestNumber=007"});
  ASSERT_TRUE(changes) << changes.message();
  ASSERT_EQ(2, changes->size());
  EXPECT_EQ("TestSize", (*changes)[0].key);
  EXPECT_EQ("Large", (*changes)[0].value);
  EXPECT_EQ("TestNumber", (*changes)[1].key);
  EXPECT_EQ("7", (*changes)[1].value);
}

TEST_F(SettingChanges, OptionsOfThePrinterGoByTheirKeywords) {
  auto changes = Parse({"Duplex=DuplexTumble"});
  ASSERT_TRUE(changes) << changes.message();
  EXPECT_EQ("Duplex", changes->front().key);
  EXPECT_EQ("DuplexTumble", changes->front().value);
}

TEST_F(SettingChanges, OptionsOfEveryJobAreTaken) {
  auto changes = Parse({"number-up=2", "page-ranges=1-3"});
  ASSERT_TRUE(changes) << changes.message();
  EXPECT_EQ("number-up", changes->front().key);
}

TEST_F(SettingChanges, AValueThatIsNoChoiceOfThePrinterIsRefused) {
  const std::string refusal = Refusal("Duplex=Both");
  EXPECT_THAT(refusal, StartsWith("Duplex cannot be \"Both\": "));
  EXPECT_THAT(refusal, HasSubstr("DuplexTumble"));
}

TEST_F(SettingChanges, AValueThatASettingDoesNotAllowIsRefused) {
  EXPECT_EQ("Number cannot be \"10\": it must be a whole number from 1 to 9", Refusal("Number=10"));
}

TEST_F(SettingChanges, AnUnknownNameIsRefusedWithTheKnownOnes) {
  const std::string refusal = Refusal("Sise=Large");
  EXPECT_THAT(refusal, StartsWith("--set Sise=Large: there is no setting \"Sise\"; there are Size, "
                                  "Number, the options"));
}

TEST_F(SettingChanges, CopiesAndPagesMustMakeSense) {
  EXPECT_NE("", Refusal("copies=0"));
  EXPECT_NE("", Refusal("page-ranges=5-3"));
}

TEST_F(SettingChanges, TextWithoutNameOrValueIsRefused) {
  for (const char *text : {"Size", "=Large", ""}) {
    EXPECT_EQ(std::string("--set ") + text + ": write NAME=VALUE, for instance StartNumber=25",
              Refusal(text));
  }
}

TEST_F(SettingChanges, AQueueWithoutPrinterDescriptionHasTheOptionsOfEveryJob) {
  EXPECT_TRUE(ParseSettingChanges({"copies=2"}, ValueCheck(nullptr, {})));
  EXPECT_FALSE(ParseSettingChanges({"Duplex=None"}, ValueCheck(nullptr, {})));
}
