#include "filter/JobChoices.h"

#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"

using numbering::Choices;
using numbering::Placement;

namespace {

// The built PPD file with other defaults.
class Queue {
 public:
  explicit Queue(const std::string &defaults) {
    std::string text = ContentOf(BINARY_DIRECTORY "/printer/VelmoraNumbering.ppd");
    for (size_t at = 0; at < defaults.size();) {
      const size_t end = defaults.find('\n', at), blank = defaults.find(' ', at);
      const std::string key = "*Default" + defaults.substr(at, blank - at) + ": ";
      const size_t place = text.find(key) + key.size();
      text.replace(place, text.find('\n', place) - place,
                   defaults.substr(blank + 1, end - blank - 1));
      at = end + 1;
    }
    path_ = folder_.Write("queue.ppd", text);
  }
  const char *ppd() const { return path_.c_str(); }

 private:
  TemporaryFolder folder_;
  std::string path_;
};

std::string LogOf(const char *options, const char *ppd = nullptr) {
  testing::internal::CaptureStderr();
  JobChoices(options, ppd);
  return testing::internal::GetCapturedStderr();
}

}  // namespace

TEST(JobChoices, AreThoseOfTheJob) {
  const Choices choices = JobChoices(
      "fit-to-page VQBackgroundNumbering=On VQStartNumber=7 VQBNColor='Blue' media=A4", nullptr);
  EXPECT_TRUE(choices.on);
  EXPECT_EQ(choices.start, 7);
  EXPECT_EQ(choices.ink.keyword, "Blue");
}

TEST(JobChoices, WithoutAQueueTheNumberIsPutWhereItShows) {
  EXPECT_EQ(JobChoices("", nullptr).placement, Placement::Automatic);
  EXPECT_FALSE(JobChoices("", nullptr).on);
}

TEST(JobChoices, WhatTheJobDoesNotSayTheQueueDoes) {
  const Queue queue(
      "VQBackgroundNumbering On\nVQBNSize Large\nVQStartNumber 30\nVQBNPlacement Over\n");
  const Choices choices = JobChoices("VQBNSize=Small", queue.ppd());
  EXPECT_TRUE(choices.on);
  EXPECT_EQ(choices.size, .36);
  EXPECT_EQ(choices.start, 30);
  EXPECT_EQ(choices.placement, Placement::Over);
  EXPECT_FALSE(JobChoices("VQBackgroundNumbering=Off", queue.ppd()).on);
}

TEST(JobChoices, WhatIsNoChoiceIsTheQueuesDefaultAndTold) {
  const Queue queue("VQStartNumber 30\n");
  EXPECT_EQ(JobChoices("VQStartNumber=1000", queue.ppd()).start, 30);
  EXPECT_EQ(LogOf("VQStartNumber=1000", queue.ppd()),
            "WARNING: VQStartNumber=1000 is no choice of this option; its default is taken\n");
}

TEST(JobChoices, APPDFileThatCannotBeReadIsNone) {
  EXPECT_TRUE(JobChoices("VQBackgroundNumbering=On", "/nowhere/queue.ppd").on);
  EXPECT_EQ(LogOf("", "/nowhere/queue.ppd"),
            "DEBUG: backgroundnumbers: cannot read the PPD file /nowhere/queue.ppd\n");
}
