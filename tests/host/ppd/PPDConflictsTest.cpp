#include <random>
#include <set>

#include "host/ppd/CupsOptions.h"
#include "host/ppd/Marks.h"
#include "tests/host/ppd/ThreeOptions.h"

TEST(PPDConflicts, AreNoneAmongTheDefaults) {
  EXPECT_EQ(Lines{}, Conflicts(kOldConstraint, {}));
  EXPECT_EQ(Lines{}, Conflicts(kNewConstraint, {{"VQ1", "A"}}));
  EXPECT_EQ(Lines{}, Conflicts(kNewConstraint, {{"VQ1", "A"}, {"VQ2", "B"}}));
}

TEST(PPDConflicts, AreOncePerPairHoweverOftenTheFileSaysSo) {
  const JobOptions both = {{"VQ1", "A"}, {"VQ2", "A"}};
  const Lines pair = {"VQ1=A/VQ2=A"};
  EXPECT_EQ(pair, Conflicts(kOldConstraint, both));
  EXPECT_EQ(pair, Conflicts(kNewConstraint, both));
  EXPECT_EQ(pair, Conflicts(std::string(kNewConstraint) + kNewConstraint, both));
  EXPECT_EQ(1u, Conflicts(std::string(kOldConstraint) + kNewConstraint, both).size());
}

TEST(PPDConflicts, CarryTheTextsAndOneChoiceEach) {
  const std::vector<PPDConflict> conflicts =
      OpenText(NumberingPPDText(true)).Conflicts(kBothSidesOfTransparencies);
  ASSERT_EQ(1u, conflicts.size());
  EXPECT_EQ("Two-Sided", conflicts[0].first.text);
  ASSERT_EQ(1u, conflicts[0].first.choices.size());
  EXPECT_EQ("Short-Edge Binding", conflicts[0].first.choices[0].text);
  EXPECT_EQ("None", conflicts[0].first.default_choice);
  EXPECT_EQ("Paper Type", conflicts[0].second.text);
  ASSERT_EQ(1u, conflicts[0].second.choices.size());
  EXPECT_EQ("Transparency", conflicts[0].second.choices[0].keyword);
}

TEST(PPDConflicts, OfSeveralConstraintsNameOnlyWhatBelongsTogether) {
  EXPECT_EQ(
      (Lines{"Duplex=DuplexTumble/MediaType=Transparency", "VQ1=A/VQ2=A"}),
      Conflicts(kNewConstraint, Changed(kBothSidesOfTransparencies,
                                        {{"VQ1", "A"}, {"VQ2", "A"}, {"InputSlot", "Tray1"}})));
}

TEST(PPDConflicts, WithAnOptionWhateverItsChoiceSpareThoseThatSwitchItOff) {
  for (const std::string constraint :
       {"*UIConstraints: *VQ1 *VQ2 A\n", "*cupsUIConstraints: \"*VQ1 *VQ2 A\"\n"}) {
    EXPECT_EQ(Lines{}, Conflicts(constraint, {{"VQ2", "A"}}));
    EXPECT_EQ(Lines{"VQ1=B/VQ2=A"}, Conflicts(constraint, {{"VQ1", "B"}, {"VQ2", "A"}}));
  }
}

TEST(PPDConflicts, KnowNoneAndFalseForSwitchingOff) {
  const std::string constraints =
      std::string(kTray) + "*UIConstraints: *Duplex *VQ1 A\n*UIConstraints: *VQTray *VQ1 A\n";
  EXPECT_EQ(Lines{}, Conflicts(constraints, {{"VQ1", "A"}}));
  EXPECT_EQ((Lines{"Duplex=DuplexTumble/VQ1=A", "VQTray=True/VQ1=A"}),
            Conflicts(constraints, {{"VQ1", "A"}, {"Duplex", "DuplexTumble"}, {"VQTray", "True"}}));
}

TEST(PPDConflicts, GoByTheFirstWordAfterAnOption) {
  EXPECT_EQ(Lines{"VQ1=A/VQ2=A"},
            Conflicts("*cupsUIConstraints: \"x*VQ1 A B *VQ2 A\"\n", {{"VQ1", "A"}, {"VQ2", "A"}}));
}

TEST(PPDConflicts, OfThreeChoicesNeedAllOfThem) {
  const char constraint[] = "*cupsUIConstraints: \"*VQ1 A *VQ2 A *VQ3 A\"\n";
  EXPECT_EQ(Lines{}, Conflicts(constraint, {{"VQ1", "A"}, {"VQ2", "A"}}));
  EXPECT_EQ((Lines{"VQ1=A/VQ2=A", "VQ1=A/VQ3=A"}),
            Conflicts(constraint, {{"VQ1", "A"}, {"VQ2", "A"}, {"VQ3", "A"}}));
}

TEST(PPDConflicts, OfAChoiceThatIsForbiddenAloneNameItTwice) {
  EXPECT_EQ(Lines{"VQ1=A/VQ1=A"}, Conflicts("*cupsUIConstraints: \"*VQ1 A\"\n", {{"VQ1", "A"}}));
}

TEST(PPDConflicts, IgnoreConstraintsOnWhatIsNotThere) {
  EXPECT_EQ(Lines{}, Conflicts("*UIConstraints: *VQ1 A *VQAbsent A\n"
                               "*UIConstraints: *VQ1 A *VQ2 Absent\n"
                               "*cupsUIConstraints: \"*VQ1 A *VQAbsent\"\n"
                               "*cupsUIConstraints: \"\"\n*cupsUIConstraints: \"VQ1 A\"\n"
                               "*cupsUIConstraints: \"*\"\n",
                               {{"VQ1", "A"}, {"VQ2", "A"}}));
}

TEST(PPDConflicts, IgnoreValuesThatAreNoChoices) {
  EXPECT_EQ(Lines{}, Conflicts(kNewConstraint, {{"VQ1", "A"}, {"VQ2", "Absent"}, {"", ""}}));
}

TEST(PPDConflicts, OfPageSizeAndPageRegionAreOfThePageSize) {
  const char constraints[] =
      "*UIConstraints: *PageSize A3 *VQ1 A\n*UIConstraints: *PageRegion A3 *VQ1 A\n";
  EXPECT_EQ(Lines{"PageSize=A3/VQ1=A"}, Conflicts(constraints, {{"PageSize", "A3"}, {"VQ1", "A"}}));
  EXPECT_EQ(Lines{"PageSize=A3/VQ1=A"},
            Conflicts(constraints, {{"PageRegion", "A3"}, {"VQ1", "A"}}));
}

TEST(PPDConflicts, KnowWhatNamesOfEveryQueueStandFor) {
  const PPDFile ppd = OpenText(ThreeOptions("*UIConstraints: *PageSize A3 *VQ1 A\n"));
  EXPECT_EQ(
      Lines{"Duplex=DuplexNoTumble/MediaType=Transparency"},
      Described(ppd.Conflicts({{"sides", "two-sided-long-edge"}, {"MediaType", "Transparency"}})));
  EXPECT_EQ(Lines{"PageSize=A3/VQ1=A"}, Described(ppd.Conflicts({{"media", "A3"}, {"VQ1", "A"}})));
  EXPECT_EQ(Lines{}, Described(ppd.Conflicts({{"copies", "3"}, {"page-ranges", "1-3"}})));
}

TEST(PPDConflicts, ShowCustomValuesAsTheJobHasThem) {
  EXPECT_EQ(
      Lines{"PageSize=Custom.300x400/VQ1=A"},
      Conflicts("*CustomPageSize True: \"pop\"\n*UIConstraints: *CustomPageSize True *VQ1 A\n",
                {{"PageSize", "Custom.300x400"}, {"VQ1", "A"}}));
}

TEST(PPDConflicts, OfOptionsThatTakeSeveralChoicesSeeAllThatAreMarked) {
  const std::string lines =
      "*OpenUI *VQMany/Many: PickMany\n*DefaultVQMany: One\n*VQMany One/1: \"\"\n"
      "*VQMany Two/2: \"\"\n*CloseUI: *VQMany\n"
      "*UIConstraints: *VQMany One *VQ1 A\n*UIConstraints: *VQMany Two *VQ1 A\n";
  EXPECT_EQ((Lines{"VQMany=One/VQ1=A", "VQMany=Two/VQ1=A"}),
            Conflicts(lines, {{"VQMany", "Two"}, {"VQ1", "A"}}));
}

TEST(PPDConflicts, DoNotDependOnWhatOthersHaveMarked) {
  const PPDFile ppd = OpenText(ThreeOptions(kNewConstraint));
  ppdMarkOption(ppd.get(), "VQ1", "A");
  EXPECT_EQ(Lines{}, Described(ppd.Conflicts({{"VQ2", "A"}})));
}

TEST(PPDConflicts, OfOneJobDoNotChangeThoseOfTheNext) {
  const PPDFile ppd =
      OpenText(ThreeOptions(std::string(kNewConstraint) + "*UIConstraints: *PageSize A3 *VQ1 A\n"
                                                          "*DefaultPageSize: Unknown\n"));
  EXPECT_EQ(2u, ppd.Conflicts({{"VQ1", "A"}, {"VQ2", "A"}, {"PageSize", "A3"}}).size());
  EXPECT_EQ(Lines{}, Described(ppd.Conflicts({{"VQ1", "A"}})));
  EXPECT_TRUE(ppd.Resolution({{"VQ1", "A"}, {"VQ2", "A"}}, "VQ1"));
  EXPECT_EQ(Lines{}, Described(ppd.Conflicts({{"VQ2", "A"}})));
  EXPECT_TRUE(ppdIsMarked(ppd.get(), "VQ1", "Off"));
  EXPECT_TRUE(ppdIsMarked(ppd.get(), "VQ2", "Off"));
}

// libcups says which options are in conflict, though not with which others.
TEST(PPDConflicts, AreThoseThatLibcupsFinds) {
  const PPDFile ppd = OpenText(ThreeOptions(
      std::string(kTray) +
      "*UIConstraints: *VQTray False *VQ3 B\n*UIConstraints: *VQ1 A *VQ2\n"
      "*NonUIConstraints: *VQ2 B *VQ3 A\n*cupsUIConstraints: \"*VQ1 B *VQ2 *InputSlot Manual\"\n"
      "*cupsUIConstraints: \"*PageSize A3 *VQ1\"\n*UIConstraints: *PageRegion Letter *VQ2 A\n"));
  const std::vector<PPDOption> options = ppd.Options();
  std::mt19937 random(1);
  int in_conflict = 0;
  for (int round = 0; round < 500; ++round) {
    JobOptions job;
    for (const PPDOption &option : options) {
      if (random() % 2 == 0)
        job[option.keyword] = option.choices[random() % option.choices.size()].keyword;
    }
    std::set<std::string> ours;
    for (const PPDConflict &conflict : ppd.Conflicts(job)) {
      ours.insert({conflict.first.keyword, conflict.second.keyword});
    }
    for (const auto &[keyword, choice] : job)
      ppdMarkOption(ppd.get(), keyword.c_str(), choice.c_str());
    std::set<std::string> theirs;
    if (ppdConflicts(ppd.get()) > 0) {
      ++in_conflict;
      for (const ppd_option_t *option = ppdFirstOption(ppd.get()); option != nullptr;
           option = ppdNextOption(ppd.get())) {
        const std::string keyword = option->keyword;
        if (option->conflicted) theirs.insert(keyword == "PageRegion" ? "PageSize" : keyword);
      }
    }
    ASSERT_EQ(theirs, ours) << testing::PrintToString(job);
    ppdMarkDefaults(ppd.get());
  }
  EXPECT_GT(in_conflict, 100);
  EXPECT_LT(in_conflict, 500);
}

// Otherwise the constraints need not be read here.
TEST(PPDConflicts, AreNotToldByLibcupsAsPairs) {
  const PPDFile ppd = OpenText(ThreeOptions(kNewConstraint));
  const JobOptions job = Changed(kBothSidesOfTransparencies, {{"VQ1", "A"}, {"VQ2", "A"}});
  EXPECT_EQ((Lines{"Duplex=DuplexTumble/MediaType=Transparency", "VQ1=A/VQ2=A"}),
            Described(ppd.Conflicts(job)));
  const Marks marks(ppd.get(), job);
  cups_option_t *options = nullptr;
  const int count = cupsGetConflicts(ppd.get(), "VQ1", "A", &options);
  EXPECT_EQ((JobOptions{{"Duplex", "DuplexTumble"}, {"MediaType", "Transparency"}, {"VQ2", "A"}}),
            CupsOptions(count, options).Content());
}
