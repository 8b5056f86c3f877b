#include "printer/generator/PrinterOption.h"

#include <gtest/gtest.h>

#include "tests/printer/SourceTree.h"

namespace {

const Texts &AllTexts() {
  static const Texts texts = SourceTree().AllTexts();
  return texts;
}

PrinterOption Option(std::vector<PrinterChoice> choices) {
  return {"Kind", "Size", 42, choices.front().keyword, choices};
}

std::string ErrorOfLines(const PrinterOption &option) {
  return ErrorOf([&option] { (void)Lines(option, AllTexts()); });
}

}  // namespace

TEST(EncodedText, PlainTextStaysAsItIs) {
  EXPECT_EQ("Number Size (mm)", EncodedText("Number Size (mm)"));
}

TEST(EncodedText, BytesBeyondASCIIBecomeHexadecimal) {
  EXPECT_EQ("Gr<C3B6C39F>e", EncodedText("Größe"));
  EXPECT_EQ("<E889B2>", EncodedText("色"));
}

TEST(EncodedText, CharactersThatEndATextBecomeHexadecimal) {
  EXPECT_EQ("A<2F>B<3A> <3C22>C<223E>", EncodedText("A/B: <\"C\">"));
}

TEST(EncodedText, TextsLongerThanPPDFilesTakeAreRefused) {
  EXPECT_EQ(std::string(80, 'x'), EncodedText(std::string(80, 'x')));
  EXPECT_EQ("longer than 80 bytes, which is all that PPD files take: " + std::string(81, 'x'),
            ErrorOf([] { (void)EncodedText(std::string(81, 'x')); }));
}

TEST(Lines, AnOptionHasItsTextOrderDefaultAndChoices) {
  EXPECT_EQ(
      "*OpenUI *Kind/Size: PickOne\n"
      "*OrderDependency: 42 AnySetup *Kind\n"
      "*DefaultKind: One\n"
      "*Kind One/Small: \"1 pop\"\n"
      "*Kind 2/2: \"\n"
      "2\n"
      "pop\n"
      "\"\n"
      "*End\n"
      "*CloseUI: *Kind\n",
      Lines(Option({{"One", "Size_Small", "1 pop"}, {"2", "", "2\npop\n"}}), AllTexts()));
}

TEST(Lines, ADefaultThatIsNoChoiceIsRefused) {
  PrinterOption option = Option({{"One", "", ""}});
  option.default_choice = "Two";
  EXPECT_EQ("the default of Kind, Two, is not one of its choices", ErrorOfLines(option));
}

TEST(Lines, KeywordsThatPPDFilesDoNotTakeAreRefused) {
  for (const char *keyword : {"", "Very Large", "1.5", "A/B", "A:B", "Größe"}) {
    EXPECT_NE("", ErrorOfLines(Option({{keyword, "Size", ""}}))) << keyword;
  }
  EXPECT_EQ("", ErrorOfLines(Option({{std::string(40, 'x'), "Size", ""}})));
  EXPECT_NE("", ErrorOfLines(Option({{std::string(41, 'x'), "Size", ""}})));
}

TEST(Lines, CodeWithQuotationMarksIsRefused) {
  EXPECT_EQ("the PostScript of *Kind One/One has a quotation mark",
            ErrorOfLines(Option({{"One", "", "(\") pop"}})));
}

TEST(Lines, LinesLongerThanPPDFilesTakeAreRefused) {
  EXPECT_EQ("", ErrorOfLines(Option({{"One", "", "\n" + std::string(254, 'x')}})));
  EXPECT_NE("", ErrorOfLines(Option({{"One", "", "\n" + std::string(255, 'x')}})));
}

TEST(Lines, AMissingTextIsTold) {
  EXPECT_EQ("the strings of the language en have no text for Size_Huge",
            ErrorOfLines(Option({{"Huge", "Size_Huge", ""}})));
}

TEST(Translation, TextsThatAreTheSameInAllLanguagesAreLeftOut) {
  EXPECT_EQ("*de.Translation Kind/Gr<C3B6C39F>e: \"\"\n*de.Kind One/Klein: \"\"\n",
            Translation(Option({{"One", "Size_Small", "1"}, {"2", "", "2"}}), AllTexts(), "de"));
}
