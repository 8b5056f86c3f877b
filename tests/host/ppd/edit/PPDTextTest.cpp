#include "host/ppd/edit/PPDText.h"

#include <gtest/gtest.h>
#include "tests/support/ExpectedValue.h"

namespace {

std::string Damage(std::string_view text) { return MessageOf(CheckWhole(text)); }

PPDStatement Only(std::string_view text) {
  const auto statements = StatementsOf(text);
  EXPECT_EQ(1u, statements.size()) << text;
  return statements.empty() ? PPDStatement() : statements.front();
}

}  // namespace

TEST(PPDText, CutsLinesAtEveryKindOfEnd) {
  std::vector<std::string> parts;
  for (const TextLine &line : LinesOf("a\nb\r\nc\rd")) {
    parts.emplace_back(line.text);
    parts.emplace_back(line.end);
  }
  EXPECT_EQ((std::vector<std::string>{"a", "\n", "b", "\r\n", "c", "\r", "d", ""}), parts);
}

TEST(PPDText, TheLineEndIsTheOneOfMostLines) {
  EXPECT_EQ("\n", LineEndOf("a\nb\r\nc\n"));
  EXPECT_EQ("\r\n", LineEndOf("a\nb\r\nc\r\n"));
  EXPECT_EQ("\r", LineEndOf("a\rb"));
  EXPECT_EQ("\n", LineEndOf("a"));
}

TEST(PPDText, TakesAStatementApart) {
  const PPDStatement statement = Only("*MarkSize Large/Very Large: \"code\"\r\n");
  EXPECT_EQ("MarkSize", statement.keyword);
  EXPECT_EQ("Large", statement.option);
  EXPECT_EQ("Very Large", statement.label);
  EXPECT_EQ("code", statement.value);
  EXPECT_EQ("*MarkSize Large/Very Large: \"code\"\r\n", statement.all);
}

TEST(PPDText, AnOpenedOptionHasNoAsterisk) {
  EXPECT_EQ("Mark", OptionOpenedBy(Only("*OpenUI *Mark/A Mark: PickOne\n")));
  EXPECT_EQ("Mark", OptionOpenedBy(Only("*JCLOpenUI *Mark: PickOne\n")));
  EXPECT_EQ("", OptionOpenedBy(Only("*CloseUI: *Mark\n")));
}

TEST(PPDText, AQuotedValueTakesSeveralLines) {
  const auto statements = StatementsOf("*A: \"x\n*B: y\n\"\n*C: z\n");
  ASSERT_EQ(2u, statements.size());
  EXPECT_EQ("x\n*B: y\n", statements[0].value);
  EXPECT_EQ("C", statements[1].keyword);
  EXPECT_EQ(4u, statements[1].line);
}

TEST(PPDText, QuotationMarksInCommentsAndBeforeTheColonDoNotCount) {
  EXPECT_EQ(2u, StatementsOf("*% \"Quoted: \"\"\n*B: y\n").size());
  EXPECT_EQ(2u, StatementsOf("*A 8\"/Eight: x\n*B: y\n").size());
}

TEST(PPDText, CommentsHaveNoKeyword) { EXPECT_EQ("", Only("*% A: b\n").keyword); }

TEST(PPDText, StatementsTogetherAreTheWholeText) {
  const std::string text = "\n*A: \"x\r\ny\"\r*% c\n\n*OpenUI *B: PickOne\n*CloseUI: *B";
  std::string together;
  for (const PPDStatement &statement : StatementsOf(text)) together += statement.all;
  EXPECT_EQ(text, together);
}

TEST(PPDText, AnUnclosedQuotationIsDamage) {
  EXPECT_EQ("the quotation that begins on line 2 has no end", Damage("*A: b\n*C: \"d\n*E: f\n"));
  EXPECT_EQ("", Damage("*A: b\n*C: \"d\n*E: f\"\n"));
}

TEST(PPDText, AZeroByteIsDamage) {
  EXPECT_EQ("there is a zero byte in the statement on line 2",
            Damage(std::string_view("*A: b\n*C: \0\n", 12)));
}

TEST(PPDText, AFileThatEndsInsideOfAnOptionOrGroupIsDamage) {
  EXPECT_EQ("the file is cut off: what *OpenUI opens on line 1 is not closed",
            Damage("*OpenUI *A: PickOne\n*A B: \"\"\n"));
  EXPECT_EQ("the file is cut off: what *OpenGroup opens on line 1 is not closed",
            Damage("*OpenGroup: A\n*OpenUI *B: PickOne\n*CloseUI: *B\n"));
  EXPECT_EQ("", Damage("*OpenGroup: A\n*OpenUI *B: PickOne\n*CloseUI: *B\n*CloseGroup: A\n"));
}
