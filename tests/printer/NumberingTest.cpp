#include "printer/generator/Numbering.h"

#include <gmock/gmock.h>

#include "numbering/Choices.h"
#include "tests/printer/SourceTree.h"

using testing::HasSubstr;

namespace {

constexpr char kInfo[] = "resources/BackgroundNumberingRV2-SettingInfo.plist";

std::string Keywords(const PrinterOption &option) {
  std::string keywords;
  for (const PrinterChoice &choice : option.choices) keywords += choice.keyword + " ";
  return keywords;
}

}  // namespace

TEST(Numbering, ChoicesAreTheItemsOfThePanelInTheirOrder) {
  const SourceTree tree;
  tree.Edit(kInfo, "<string>Small</string>", "<string>Large</string>");
  tree.Edit(kInfo, "<string>Medium</string>\n\t\t\t<string>Large</string>",
            "<string>Small</string>");
  EXPECT_EQ("Large Small ", Keywords(tree.Options()[1]));
}

TEST(Numbering, KeywordsAndDefaultsAreThoseOfThePanel) {
  const SourceTree tree;
  tree.Edit(kInfo, "<string>VQBNDensity</string>", "<string>Ink</string>");
  tree.Edit(kInfo, "<key>Density</key>\n\t\t<string>Medium</string>",
            "<key>Density</key>\n\t\t<string>Light</string>");
  EXPECT_EQ("Ink", tree.Options()[2].keyword);
  EXPECT_EQ("Light", tree.Options()[2].default_choice);
}

TEST(Numbering, StartNumbersAreThoseOfTheRange) {
  const SourceTree tree;
  tree.Edit(kInfo, "<integer>1</integer>", "<integer>7</integer>");
  tree.Edit(kInfo, "<integer>999</integer>", "<integer>12</integer>");
  EXPECT_EQ("7 8 9 10 11 12 ", Keywords(tree.Options()[4]));
}

TEST(Numbering, AnItemThatTheDrawingDoesNotKnowIsTold) {
  const SourceTree tree;
  tree.Edit(kInfo, "<string>Large</string>", "<string>Huge</string>");
  EXPECT_EQ("numbering/Look.h has no entry Huge for Size",
            ErrorOf([&tree] { (void)tree.Options(); }));
}

// Programs may send the code of what differs from the default only.
TEST(Numbering, SwitchingOnKnowsTheDefaultsOfTheRest) {
  const SourceTree tree;
  tree.Edit(kInfo, "<key>Color</key>\n\t\t<string>Black</string>",
            "<key>Color</key>\n\t\t<string>Blue</string>");
  tree.Edit(kInfo, "<string>1</string>", "<string>5</string>");
  const std::string on = tree.Options()[0].choices[1].code;
  for (const char *line :
       {"/Start /VelmoraStart 5 Chosen def\n", "/Size /VelmoraSize .64 Chosen def\n",
        "/Density /VelmoraDensity .32 Chosen def\n", "/Ink /VelmoraInk [0 0 1 .9] Chosen def\n",
        "/Over /VelmoraOver false Chosen def\n"}) {
    EXPECT_THAT(on, HasSubstr(line)) << line;
  }
}

TEST(Numbering, APrinterWithoutColorHasBlackOnly) {
  const SourceTree tree;
  tree.Edit(kInfo, "<key>Color</key>\n\t\t<string>Black</string>",
            "<key>Color</key>\n\t\t<string>Blue</string>");
  const PrinterOption color = tree.Options(false)[3];
  EXPECT_EQ("Black ", Keywords(color));
  EXPECT_EQ("Black", color.default_choice);
  EXPECT_THAT(tree.Options(false)[0].choices[1].code,
              HasSubstr("/Ink /VelmoraInk [0 1] Chosen def\n"));
}

TEST(Numbering, AFilterTakesTheSameChoicesAndThePrinterRunsNothing) {
  const std::vector<PrinterOption> printers = SourceTree().Options();
  const std::vector<PrinterOption> documents = DocumentOptions(printers);
  ASSERT_EQ(printers.size(), documents.size());
  for (size_t index = 0; index < documents.size(); ++index) {
    for (const PrinterChoice &choice : documents[index].choices) EXPECT_EQ("", choice.code);
    EXPECT_EQ(printers[index].keyword, documents[index].keyword);
    if (documents[index].keyword == "VQBNPlacement") continue;
    EXPECT_EQ(Keywords(printers[index]), Keywords(documents[index]));
    EXPECT_EQ(printers[index].default_choice, documents[index].default_choice);
  }
}

TEST(Numbering, AFilterPlacesTheNumberAsEachPageNeeds) {
  const PrinterOption placement = DocumentOptions(SourceTree().Options()).back();
  EXPECT_EQ("Automatic Behind Over ", Keywords(placement));
  EXPECT_EQ("Automatic", placement.default_choice);
  for (const PrinterChoice &choice : placement.choices) {
    numbering::Choices choices;
    EXPECT_TRUE(Choose(choices, placement.keyword, choice.keyword)) << choice.keyword;
  }
}

TEST(Numbering, SwitchingOnComesAfterAllThatLeavesAValue) {
  const std::vector<PrinterOption> options = SourceTree().Options();
  for (size_t other = 1; other < options.size(); ++other) {
    EXPECT_LT(options[other].order, options[0].order) << options[other].keyword;
  }
}
