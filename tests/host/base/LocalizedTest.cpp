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

TEST(LocalizedCount, WithoutATranslationIsTheTextWithTheNumber) {
  EXPECT_EQ("a and 1 more", LocalizedCount("%1 and %2 more", {"a"}, 1));
}

TEST(LocalizedCount, IsInTheFormOfTheNumber) {
  const Translation czech = {{"en", "cs"},
                             {"%1 and %2 more", "%1 a %2 dalších"},
                             {"%1 and %2 more|one", "%1 a jeden další"},
                             {"%1 and %2 more|few", "%1 a %2 další"}};
  const TextsOf texts(&czech);
  EXPECT_EQ("a a jeden další", LocalizedCount("%1 and %2 more", {"a"}, 1));
  EXPECT_EQ("a a 3 další", LocalizedCount("%1 and %2 more", {"a"}, 3));
  EXPECT_EQ("a a 5 dalších", LocalizedCount("%1 and %2 more", {"a"}, 5));
}

TEST(LocalizedCount, FitsEveryNumberWhereThereAreNoForms) {
  const Translation russian = {{"en", "ru"}, {"%1 and %2 more", "%1 и еще %2"}};
  const TextsOf texts(&russian);
  EXPECT_EQ("a и еще 1", LocalizedCount("%1 and %2 more", {"a"}, 1));
  EXPECT_EQ("a и еще 22", LocalizedCount("%1 and %2 more", {"a"}, 22));
}

TEST(Filled, APlaceInAPartIsNone) { EXPECT_EQ("%2 b", Filled("%1 %2", {"%2", "b"})); }

TEST(Filled, APlaceWithoutAPartStays) { EXPECT_EQ("a %2 %0", Filled("%1 %2 %0", {"a"})); }

TEST(Filled, APartCanStandTwice) { EXPECT_EQ("a a", Filled("%1 %1", {"a"})); }

TEST(Filled, OtherPercentSignsStay) { EXPECT_EQ("100% a%", Filled("100% %1%", {"a"})); }
