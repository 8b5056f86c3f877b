#include "host/base/Localized.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

const Translation kGerman = {{"Printer", "Drucker"}, {"%1 before %2", "%2 nach %1"}};

}  // namespace

TEST(Localized, TextsAreEnglishAtTheBeginning) {
  EXPECT_EQ("Printer", Localized("Printer"));
  EXPECT_EQ("a before b", Localized("%1 before %2", {"a", "b"}));
}

TEST(Localized, TextsAreThoseOfTheTranslationInUse) {
  const TextsOf german(&kGerman);
  EXPECT_EQ("Drucker", Localized("Printer"));
}

TEST(Localized, PartsStandWhereTheTranslationHasThem) {
  const TextsOf german(&kGerman);
  EXPECT_EQ("b nach a", Localized("%1 before %2", {"a", "b"}));
}

TEST(Localized, ATextThatTheTranslationLacksIsEnglish) {
  const TextsOf german(&kGerman);
  EXPECT_EQ("Summary", Localized("Summary"));
}

TEST(Localized, TextsAreInOneLanguageInAllThreads) {
  const TextsOf german(&kGerman);
  std::string text;
  std::thread([&text] { text = Localized("Printer"); }).join();
  EXPECT_EQ("Drucker", text);
}

TEST(Localized, TheTranslationBeforeIsUsedAgain) {
  const TextsOf german(&kGerman);
  {
    const Translation french = {{"Printer", "Imprimante"}};
    const TextsOf texts(&french);
    EXPECT_EQ("Imprimante", Localized("Printer"));
  }
  EXPECT_EQ("Drucker", Localized("Printer"));
}

TEST(Localized, ReportsAreInEnglish) {
  const TextsOf german(&kGerman);
  EXPECT_EQ("Printer", InEnglish([] { return Localized("Printer"); }));
  EXPECT_EQ("Drucker", Localized("Printer"));
}

TEST(Filled, APlaceInAPartIsNone) { EXPECT_EQ("%2 b", Filled("%1 %2", {"%2", "b"})); }

TEST(Filled, APlaceWithoutAPartStays) { EXPECT_EQ("a %2 %0", Filled("%1 %2 %0", {"a"})); }

TEST(Filled, APartCanStandTwice) { EXPECT_EQ("a a", Filled("%1 %1", {"a"})); }

TEST(Filled, OtherPercentSignsStay) { EXPECT_EQ("100% a%", Filled("100% %1%", {"a"})); }
