#include "host/session/ValueCheck.h"

#include <gmock/gmock.h>

#include "tests/support/ExpectedValue.h"
#include "tests/support/NumberingPPD.h"
#include "tests/support/TestPPD.h"

using testing::HasSubstr;

namespace {

class ValueCheckTest : public testing::Test {
 protected:
  // What does not fit the printer, "keyword=value: reason" each.
  std::vector<std::string> Unfit(const JobOptions &options) { return Unfit(options, &*ppd_); }
  std::vector<std::string> Unfit(const JobOptions &options, const PPDFile *ppd) {
    std::vector<std::string> lines;
    const ValueCheck check(ppd, {}, {}, {"VQBNColor", "VQOther"});
    for (const auto &[key, value] : options) {
      const Expected<std::string> fitting = check.Fitting(key, value);
      if (!fitting) lines.push_back(key + "=" + value + ": " + fitting.message());
    }
    return lines;
  }

  // How the choices of an option are listed in the reason against another one.
  std::string Listed(const std::vector<std::string> &choices) {
    std::string lines = "*OpenUI *VQTest/Test: PickOne\n";
    for (const std::string &choice : choices) lines += "*VQTest " + choice + "/Text: \"\"\n";
    TestPPD text(lines + "*CloseUI: *VQTest\n");
    Expected<PPDFile> ppd = PPDFile::Open(text.path());
    const std::string before = "VQTest=X: this printer has no VQTest \"X\"; it has ";
    const std::vector<std::string> unfit = Unfit({{"VQTest", "X"}}, &*ppd);
    if (unfit.size() != 1 || !unfit[0].starts_with(before)) return testing::PrintToString(unfit);
    return unfit[0].substr(before.size());
  }

  TemporaryFolder folder_;
  Expected<PPDFile> ppd_ = PPDFile::Open(
      folder_.Write("a.ppd", NumberingPPDText(false,
                                              "*CustomPageSize True: \"pop\"\n"
                                              "*ParamCustomPageSize Width: 1 points 100 900\n"
                                              "*ParamCustomPageSize Height: 2 points 200 1200\n")));
};

using Lines = std::vector<std::string>;

}  // namespace

TEST_F(ValueCheckTest, ChoicesThatThePrinterHasFit) {
  EXPECT_EQ(Lines{}, Unfit({{"PageSize", "A3"}, {"VQStartNumber", "999"}, {"Duplex", "None"}}));
}

TEST_F(ValueCheckTest, OtherChoicesDoNotFit) {
  EXPECT_EQ((Lines{"Duplex=Both: this printer has no Duplex \"Both\"; it has None, DuplexNoTumble, "
                   "DuplexTumble",
                   "VQBNColor=Red: this printer has no VQBNColor \"Red\"; it has Black"}),
            Unfit({{"VQBNColor", "Red"}, {"Duplex", "Both"}, {"PageSize", "A4"}}));
}

TEST_F(ValueCheckTest, ConsecutiveNumbersAreListedByTheirEnds) {
  EXPECT_EQ(
      Lines{"VQStartNumber=1000: this printer has no VQStartNumber \"1000\"; it has 1 to 999"},
      Unfit({{"VQStartNumber", "1000"}}));
}

TEST_F(ValueCheckTest, LongListsAreCutShort) {
  std::vector<std::string> choices;
  for (int choice = 1; choice <= 20; ++choice) choices.push_back("C" + std::to_string(choice));
  EXPECT_EQ("C1, C2, C3, C4, C5, C6, C7, C8 and 12 more", Listed(choices));
  choices.resize(12);
  EXPECT_EQ("C1, C2, C3, C4, C5, C6, C7, C8, C9, C10, C11, C12", Listed(choices));
}

TEST_F(ValueCheckTest, FewNumbersAndThoseWithGapsAreListed) {
  EXPECT_EQ("1, 2, 3", Listed({"1", "2", "3"}));
  EXPECT_EQ("300, 600, 601, 1200", Listed({"300", "600", "601", "1200"}));
  EXPECT_EQ("01, 02, 03, 04", Listed({"01", "02", "03", "04"}));
  EXPECT_EQ("-1 to 2", Listed({"-1", "0", "1", "2"}));
}

TEST_F(ValueCheckTest, CustomPageSizesFitWithinTheLimits) {
  EXPECT_EQ(Lines{}, Unfit({{"PageSize", "Custom.100x200mm"}}));
  EXPECT_EQ(Lines{"PageSize=Custom.1x1: this printer has no PageSize \"Custom.1x1\"; it has A4, "
                  "Letter, A3"},
            Unfit({{"PageSize", "Custom.1x1"}}));
}

// The print system does not look at the case of letters.
TEST_F(ValueCheckTest, CustomValuesDoNotFitUnderAnotherSpellingEither) {
  EXPECT_EQ((Lines{"pagesize=custom.1x1: this printer has no PageSize \"custom.1x1\"; it has A4, "
                   "Letter, A3"}),
            Unfit({{"pagesize", "custom.1x1"}}));
  EXPECT_EQ(Lines{}, Unfit({{"pagesize", "Custom.100x200mm"}, {"pagesize2", "Custom.1x1"}}));
  EXPECT_EQ(Lines{}, Unfit({{"duplex", "anything"}}));
}

TEST_F(ValueCheckTest, OptionsOfEveryQueueFit) {
  const JobOptions options = {
      {"media", "anything"}, {"sides", "anything"}, {"fit-to-page", "true"}};
  EXPECT_EQ(Lines{}, Unfit(options));
  EXPECT_EQ(Lines{}, Unfit(options, nullptr));
}

TEST(ValueCheckOfQueue, AJobIsHeldUntilATimeThatTheQueueListsOrOneOfTheDay) {
  const std::string key = "job-hold-until";
  const ValueCheck check(nullptr, {}, {}, {}, {{key, {"no-hold", "night"}}});
  for (const char *value : {"night", "00:00", "23:59", "07:30:15"}) {
    EXPECT_TRUE(check.Fitting(key, value)) << value;
  }
  for (const char *value :
       {"24:00", "12:60", "12:00:60", "9:05", "1200", "12:0x", "12:00:", "HH:MM", "midnight"}) {
    EXPECT_EQ(check.Fitting(key, value).message(), "this printer has no job-hold-until \"" +
                                                       std::string(value) +
                                                       "\"; it has no-hold, night, HH:MM");
  }
}

TEST(ValueCheckOfQueue, OneBannerOrTwoMustBeAmongThoseThatTheQueueLists) {
  const ValueCheck check(nullptr, {}, {}, {}, {{"job-sheets", {"none", "standard"}}});
  for (const char *value : {"standard", "none,none", "standard,none"}) {
    EXPECT_TRUE(check.Fitting("job-sheets", value)) << value;
  }
  for (const char *value : {"poster", "standard,poster", "none,none,none", ",none"}) {
    EXPECT_EQ(
        check.Fitting("job-sheets", value).message(),
        "this printer has no job-sheets \"" + std::string(value) + "\"; it has none, standard");
  }
}

TEST_F(ValueCheckTest, CopiesAndPageRangesFitIfTheyCanBeParsed) {
  for (const PPDFile *ppd :
       {static_cast<const PPDFile *>(&*ppd_), static_cast<const PPDFile *>(nullptr)}) {
    EXPECT_EQ(Lines{}, Unfit({{"copies", "9999"}, {"page-ranges", "1-3,5"}}, ppd));
    EXPECT_EQ(
        (Lines{"copies=0: \"0\" is not a number of copies; write a whole number from 1 to 9999",
               "page-ranges=3-1: \"3-1\" ends before it begins; write 1-3"}),
        Unfit({{"copies", "0"}, {"page-ranges", "3-1"}}, ppd));
  }
}

TEST_F(ValueCheckTest, PrinterSpecificOptionsThatThePrinterLacksDoNotFit) {
  EXPECT_EQ(Lines{"VQOther=1: this printer has no VQOther"}, Unfit({{"VQOther", "1"}}));
  EXPECT_EQ((Lines{"VQBNColor=Black: this printer has no VQBNColor",
                   "VQOther=1: this printer has no VQOther"}),
            Unfit({{"VQOther", "1"}, {"VQBNColor", "Black"}, {"Duplex", "None"}}, nullptr));
}

TEST_F(ValueCheckTest, ReasonsAreOneShortLine) {
  const Lines lines = Unfit({{"Duplex", "a\nb" + std::string(100, 'x')}});
  ASSERT_EQ(1u, lines.size());
  EXPECT_THAT(lines[0],
              HasSubstr(": this printer has no Duplex \"a b" + std::string(37, 'x') + "...\"; it"));
}

TEST_F(ValueCheckTest, AChoiceBecomesTheOneThatThePrinterHasInItsPlace) {
  const Expected<PPDFile> ppd = PPDFile::Open(folder_.Write(
      "b.ppd", NumberingPPDText(false, "*PDESubstituteChoice: \"Duplex Both DuplexTumble\"\n")));
  const ValueCheck check(&*ppd, {});
  EXPECT_EQ("DuplexTumble", check.Fitting("Duplex", "Both"));
  EXPECT_EQ("this printer cannot do Duplex=Both; it is now DuplexTumble",
            check.NoteOfReplacing("Duplex", "Both"));
  EXPECT_EQ("", check.NoteOfReplacing("Duplex", "None"));
  EXPECT_EQ("", check.NoteOfReplacing("Duplex", "Neither"));
}
