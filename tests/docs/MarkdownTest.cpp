#include "tests/docs/Markdown.h"

#include <gtest/gtest.h>

namespace {

std::string TextsOf(const std::vector<Command> &commands) {
  std::string texts;
  for (const Command &command : commands) {
    texts += std::to_string(command.line) + ": " + command.text + '\n';
  }
  return texts;
}

std::string TextsOf(const std::vector<Quote> &quotes) {
  std::string texts;
  for (const Quote &quote : quotes) texts += std::to_string(quote.line) + ": " + quote.text + '\n';
  return texts;
}

}  // namespace

TEST(Markdown, IndentedLinesAfterABlankOneAreCommands) {
  EXPECT_EQ(
      "3: lp a\n4: lp b\n6: lp c\n",
      TextsOf(CommandsIn("Words\n\n    lp a\n    lp b\n\n    lp c\n\nWords\n    more words\n")));
}

TEST(Markdown, FencesWithoutLanguageHoldCommandsAndOthersDoNot) {
  EXPECT_EQ("2: lp a\n",
            TextsOf(CommandsIn("```\nlp a\n```\n```text\nlp b\n```\n\n```xml\n\n    lp c\n```\n")));
}

TEST(Markdown, ABackslashJoinsLines) {
  EXPECT_EQ("1: lp a\n", TextsOf(CommandsIn("    lp \\\n    a\n")));
}

TEST(Markdown, ACommandEndsWithZeroUnlessItsCommentSaysOtherwise) {
  const auto commands = CommandsIn("    lp a\n    lp b  # refused, exit status 2\n");
  EXPECT_EQ(0, commands.at(0).status);
  EXPECT_EQ(2, commands.at(1).status);
}

TEST(Markdown, OutputBelongsToTheCommandBefore) {
  const auto commands = CommandsIn("    lp a\n    lp b\n\nsays\n\n```output\none\n\n  two\n```\n");
  EXPECT_FALSE(commands.at(0).output);
  EXPECT_EQ("one\n\n  two\n", commands.at(1).output);
}

TEST(Markdown, LinksAndCodeWordsAreThoseOutsideOfCode) {
  const std::string text = "See [it](a.md#b) and ![that](c.png), `d` `e f`\n\n    `g` [h](i)\n";
  EXPECT_EQ("1: a.md#b\n1: c.png\n", TextsOf(LinksIn(text)));
  EXPECT_EQ("1: d\n1: e f\n", TextsOf(CodeWordsIn(text)));
}

TEST(Markdown, HeadingsAreLinkedToByTheirWords) {
  EXPECT_EQ((std::vector<std::string>{"no-panel-why", "b"}),
            AnchorsIn("# No panel: why?\nWords # a\n## `B`\n"));
}
