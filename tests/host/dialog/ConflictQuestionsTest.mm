#include "host/dialog/ConflictQuestions.h"

#include <gmock/gmock.h>

#include "tests/host/session/SessionOfJob.h"

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

const JobOptions kTransparency = {{"MediaType", "Transparency"}};
const JobOptions kBothSides = {{"Duplex", "DuplexNoTumble"}, {"MediaType", "Transparency"}};

// Answers all questions alike and keeps what was asked and told.
struct Answers {
  bool yes = false;
  Names asked = {};
  Names told = {};
  Names buttons = {};

  ConflictQuestions::Prompts Prompts() {
    return {.ask =
                [this](const std::string &message, const std::string &yes_button,
                       const std::string &no_button) {
                  asked.push_back(message);
                  buttons = {yes_button, no_button};
                  return yes;
                },
            .tell = [this](const std::string &message) { told.push_back(message); }};
  }
};

}  // namespace

OBJC_TEST(ConflictQuestions, AreNoneWhereAllCanBeCombined) {
  Answers answers;
  ConflictQuestions questions(answers.Prompts());
  EXPECT_EQ(JobOptions(), questions.Ask(ColorPPD(), kTransparency, "MediaType"));
  EXPECT_THAT(answers.asked, IsEmpty());
  EXPECT_THAT(answers.told, IsEmpty());
}

OBJC_TEST(ConflictQuestions, NameBothChoicesAndProposeAChange) {
  Answers answers{.yes = true};
  ConflictQuestions questions(answers.Prompts());
  const JobOptions changes = questions.Ask(ColorPPD(), kBothSides, "Duplex");
  EXPECT_EQ((JobOptions{{"MediaType", "Plain"}}), changes) << "not what was chosen last";
  EXPECT_THAT(
      answers.asked,
      ElementsAre(AllOf(HasSubstr("Two-Sided \"Long-Edge Binding\" (Duplex DuplexNoTumble)"),
                        HasSubstr("Paper Type \"Transparency\" (MediaType Transparency)"),
                        HasSubstr("Proposed change: MediaType=Plain"))));
  EXPECT_EQ((Names{"Change", "Keep Both"}), answers.buttons);
}

OBJC_TEST(ConflictQuestions, LeaveWhatWasChosenLastAlone) {
  Answers answers{.yes = true};
  ConflictQuestions questions(answers.Prompts());
  EXPECT_EQ((JobOptions{{"Duplex", "None"}}), questions.Ask(ColorPPD(), kBothSides, "MediaType"));
}

OBJC_TEST(ConflictQuestions, ChangeNothingWhereBothAreKeptAndAskAboutAPairOnce) {
  Answers answers;
  ConflictQuestions questions(answers.Prompts());
  const PPDFile ppd = ColorPPD();
  EXPECT_EQ(JobOptions(), questions.Ask(ppd, kBothSides, "Duplex"));
  EXPECT_EQ(JobOptions(), questions.Ask(ppd, kBothSides, "MediaType"));
  EXPECT_EQ(1u, answers.asked.size());
  JobOptions other = kBothSides;
  other["Duplex"] = "DuplexTumble";
  EXPECT_EQ(JobOptions(), questions.Ask(ppd, other, "Duplex"));
  EXPECT_EQ(2u, answers.asked.size()) << "another pair";
}

OBJC_TEST(ConflictQuestions, TellOfAConflictForWhichThereIsNoProposal) {
  // Every choice of the one forbids every choice of the other.
  const PPDFile ppd = PPDWithText(NumberingPPDText(
      true, Option("VQ1", {"A"}) + Option("VQ2", {"B"}) + "*UIConstraints: *VQ1 A *VQ2 B\n"));
  Answers answers{.yes = true};
  ConflictQuestions questions(answers.Prompts());
  EXPECT_EQ(JobOptions(), questions.Ask(ppd, {{"VQ1", "A"}, {"VQ2", "B"}}, ""));
  EXPECT_THAT(answers.asked, IsEmpty());
  EXPECT_THAT(answers.told, ElementsAre(AllOf(HasSubstr("VQ1 A"), HasSubstr("VQ2 B"),
                                              HasSubstr("Change one of them."))));
}
