// The options that a PPD file has, and their choices.

#include <gtest/gtest.h>

#include "tests/host/ppd/OpenedPPD.h"
#include "tests/support/NumberingPPD.h"

namespace {

using Texts = std::vector<std::string>;

Texts Keywords(const std::vector<PPDOption> &options) {
  Texts keywords;
  for (const PPDOption &option : options) keywords.push_back(option.keyword);
  return keywords;
}

Texts Keywords(const std::optional<PPDOption> &option) {
  Texts keywords;
  if (!option) return {"no such option"};
  for (const PPDChoice &choice : option->choices) keywords.push_back(choice.keyword);
  return keywords;
}

}  // namespace

TEST(PPDFile, ListsTheOptionsOfAJobInTheFilesOrder) {
  EXPECT_EQ((Texts{"PageSize", "InputSlot", "MediaType", "Duplex", "VQBackgroundNumbering",
                   "VQBNSize", "VQBNDensity", "VQBNColor", "VQStartNumber"}),
            Keywords(OpenText(NumberingPPDText(true)).Options()));
}

TEST(PPDFile, DescribesAnOptionWithItsChoicesInTheFilesOrder) {
  const std::optional<PPDOption> option = OpenText(NumberingPPDText(true)).Option("VQBNDensity");
  ASSERT_TRUE(option);
  EXPECT_EQ("VQBNDensity", option->keyword);
  EXPECT_EQ("Number Density", option->text);
  EXPECT_EQ("Background Numbering", option->group);
  EXPECT_EQ("Medium", option->default_choice);
  EXPECT_EQ((Texts{"Light", "Medium", "Dark"}), Keywords(option));
}

TEST(PPDFile, ListsAllOfManyChoices) {
  const std::optional<PPDOption> option = OpenText(NumberingPPDText(false)).Option("VQStartNumber");
  ASSERT_TRUE(option);
  ASSERT_EQ(999u, option->choices.size());
  EXPECT_EQ("1", option->choices.front().keyword);
  EXPECT_EQ("999", option->choices.back().keyword);
}

TEST(PPDFile, LeavesInstalledHardwareAndThePageRegionOutOfTheOptionsOfAJob) {
  const PPDFile ppd = OpenLines("*OpenGroup: InstallableOptions/Installed\n" +
                                WithOption("VQTray", "*DefaultVQTray: No\n*VQTray No/No: \"\"\n") +
                                "*CloseGroup: InstallableOptions\n");
  EXPECT_EQ(Texts{"PageSize"}, Keywords(ppd.Options()));
  EXPECT_EQ(Texts{"No"}, Keywords(ppd.Option("VQTray")));
  EXPECT_EQ(Texts{"A4"}, Keywords(ppd.Option("PageRegion")));
}

TEST(PPDFile, LeavesOptionsWithoutChoicesOut) {
  EXPECT_EQ(Texts{"PageSize"},
            Keywords(OpenLines(WithOption("VQTest", "*DefaultVQTest: A\n")).Options()));
}

TEST(PPDFile, ListsAnOptionOnceThatTwoGroupsHave) {
  const PPDFile ppd = OpenLines("*OpenGroup: One\n" + WithOption("VQTest", "*VQTest A/1: \"\"\n") +
                                "*CloseGroup: One\n" + "*OpenGroup: Two\n" +
                                WithOption("VQTest", "*VQTest B/2: \"\"\n") + "*CloseGroup: Two\n");
  EXPECT_EQ((Texts{"PageSize", "VQTest"}), Keywords(ppd.Options()));
  EXPECT_EQ(Texts{"A"}, Keywords(ppd.Option("VQTest")));
}

TEST(PPDFile, ListsAChoiceOnceThatIsThereTwice) {
  EXPECT_EQ((Texts{"A", "B"}),
            Keywords(OpenLines(WithOption("VQTest",
                                          "*VQTest A/1: \"\"\n*VQTest B/2: \"\"\n"
                                          "*VQTest A/3: \"\"\n*VQTest b/4: \"\"\n"))
                         .Option("VQTest")));
}

TEST(PPDFile, ListsTheOptionsOfSubgroups) {
  const PPDFile ppd = OpenLines("*OpenGroup: Outer/Outer\n*OpenSubGroup: Inner/Inner\n" +
                                WithOption("VQTest", "*VQTest A/1: \"\"\n") +
                                "*CloseSubGroup: Inner\n*CloseGroup: Outer\n");
  EXPECT_EQ((Texts{"PageSize", "VQTest"}), Keywords(ppd.Options()));
}

TEST(PPDFile, HasNoDefaultChoiceWhereTheFileNamesNoneThatIsThere) {
  const PPDFile ppd = OpenLines(WithOption("VQOne", "*VQOne A/1: \"\"\n") +
                                WithOption("VQTwo", "*DefaultVQTwo: Unknown\n*VQTwo A/1: \"\"\n") +
                                WithOption("VQThree", "*DefaultVQThree: a\n*VQThree A/1: \"\"\n"));
  EXPECT_EQ("", ppd.Option("VQOne")->default_choice);
  EXPECT_EQ("", ppd.Option("VQTwo")->default_choice);
  EXPECT_EQ("A", ppd.Option("VQThree")->default_choice) << "libcups takes it for A";
}

TEST(PPDFile, HasNoOptionThatIsNotThereOrWrittenOtherwise) {
  const PPDFile ppd = OpenText(NumberingPPDText(true));
  EXPECT_FALSE(ppd.Option("VQAbsent"));
  EXPECT_FALSE(ppd.Option("duplex"));
  EXPECT_FALSE(ppd.Option(""));
  EXPECT_FALSE(ppd.Option("Duplex" + std::string(1000, 'x')));
}

// What is answered of an option alone is what the option has.
TEST(PPDFile, KnowsKeywordsAndDefaultsWithoutDescribingTheOption) {
  const PPDFile ppd = OpenText(
      NumberingPPDText(true, WithOption("VQOne", "*VQOne A/1: \"\"\n*VQOne B/2: \"\"\n") +
                                 WithOption("VQTwo", "*DefaultVQTwo: a\n*VQTwo A/1: \"\"\n") +
                                 WithOption("VQThree", "*DefaultVQThree: A\n")));
  EXPECT_EQ(Keywords(ppd.Options()), ppd.OptionKeywords());
  for (const std::string keyword :
       {"VQBNSize", "VQStartNumber", "PageRegion", "VQOne", "VQTwo", "VQThree"}) {
    ASSERT_TRUE(ppd.HasOption(keyword)) << keyword;
    EXPECT_EQ(ppd.Option(keyword)->default_choice, ppd.DefaultChoice(keyword)) << keyword;
  }
  EXPECT_EQ("Medium", ppd.DefaultChoice("VQBNSize"));
  for (const char *keyword : {"VQAbsent", "vqbnsize", ""}) {
    EXPECT_FALSE(ppd.HasOption(keyword)) << keyword;
    EXPECT_EQ("", ppd.DefaultChoice(keyword)) << keyword;
  }
}

TEST(PPDFile, AllowsTheChoicesThatAreListed) {
  const PPDFile ppd = OpenText(NumberingPPDText(false));
  EXPECT_TRUE(ppd.Allows("Duplex", "DuplexTumble"));
  EXPECT_TRUE(ppd.Allows("VQStartNumber", "999"));
  EXPECT_FALSE(ppd.Allows("VQStartNumber", "1000"));
  EXPECT_FALSE(ppd.Allows("VQStartNumber", "025"));
  EXPECT_FALSE(ppd.Allows("VQBNColor", "Red"));
  EXPECT_FALSE(ppd.Allows("Duplex", "duplextumble"));
  EXPECT_FALSE(ppd.Allows("Duplex", ""));
  EXPECT_FALSE(ppd.Allows("VQAbsent", "A"));
  const PPDFile twice = OpenLines(WithOption("VQTest", "*VQTest A/1: \"\"\n*VQTest a/2: \"\"\n"));
  EXPECT_TRUE(twice.Allows("VQTest", "A"));
  EXPECT_FALSE(twice.Allows("VQTest", "a")) << "libcups takes it for A";
  EXPECT_FALSE(ppd.Allows("duplex", "None"));
}

TEST(PPDFile, HasTheDefaultsMarked) {
  const PPDFile ppd = OpenText(NumberingPPDText(true));
  EXPECT_TRUE(ppdIsMarked(ppd.get(), "VQBNSize", "Medium"));
  EXPECT_FALSE(ppdIsMarked(ppd.get(), "VQBNSize", "Large"));
}
