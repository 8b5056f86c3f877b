// The PPD files as they were built, read by libcups and its own conformance test.

#include <cups/ppd.h>
#include <gmock/gmock.h>

#include <memory>

#include "tests/printer/SourceTree.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/RunProgram.h"

using testing::HasSubstr;
using testing::Not;

namespace {

constexpr const char *kFiles[] = {BINARY_DIRECTORY "/printer/VelmoraNumbering.ppd",
                                  BINARY_DIRECTORY "/printer/VelmoraNumberingMono.ppd"};

struct Closer {
  void operator()(ppd_file_t *ppd) const { ppdClose(ppd); }
};
using PPD = std::unique_ptr<ppd_file_t, Closer>;

// The file as programs in a language see it.
PPD Localized(const char *file, const std::string &language) {
  const EnvironmentVariable by_variable("SOFTWARE", "a test");  // not by installed locales
  const EnvironmentVariable variable("LANG", language + ".UTF-8");
  PPD ppd(ppdOpenFile(file));
  EXPECT_NE(nullptr, ppd);
  ppdLocalize(ppd.get());
  return ppd;
}

}  // namespace

TEST(BuiltPPD, PassesTheConformanceTestWithoutErrorOrWarning) {
  for (const char *file : kFiles) {
    const RunResult result = RunProgram({"cupstestppd", "-v", file});
    EXPECT_EQ(0, result.status);
    EXPECT_THAT(result.out, Not(HasSubstr("WARN")));
    EXPECT_THAT(result.out, HasSubstr("NO ERRORS FOUND"));
  }
}

TEST(BuiltPPD, OptionsAndChoicesAreTranslatedAsThePanelIs) {
  const SourceTree tree;
  const Texts texts = tree.AllTexts();
  ASSERT_FALSE(texts.Translations().empty());
  for (const std::string &language : texts.Translations()) {
    SCOPED_TRACE(language);
    const PPD ppd = Localized(kFiles[0], language);
    for (const PrinterOption &option : tree.Options()) {
      ppd_option_t *found = ppdFindOption(ppd.get(), option.keyword.c_str());
      ASSERT_NE(nullptr, found) << option.keyword;
      EXPECT_EQ(texts.Text(language, option.text), found->text);
      for (const PrinterChoice &choice : option.choices) {
        ppd_choice_t *item = ppdFindChoice(found, choice.keyword.c_str());
        ASSERT_NE(nullptr, item) << choice.keyword;
        EXPECT_EQ(choice.text.empty() ? choice.keyword : texts.Text(language, choice.text),
                  item->text);
      }
    }
    EXPECT_EQ(texts.Text(language, "Duplex"), ppdFindOption(ppd.get(), "Duplex")->text);
    EXPECT_EQ(texts.Text(language, "PageSize"), ppdFindOption(ppd.get(), "PageSize")->text);
  }
}

TEST(BuiltPPD, TheOptionsAreAGroupOfTheirOwnInThePanelsOrder) {
  for (const char *file : kFiles) {
    const PPD ppd = Localized(file, "en");
    const ppd_group_t *group = nullptr;
    for (int index = 0; index < ppd->num_groups; ++index) {
      if (ppd->groups[index].name == std::string("BackgroundNumbering"))
        group = ppd->groups + index;
    }
    ASSERT_NE(nullptr, group);
    EXPECT_STREQ("Background Numbering", group->text);
    std::string keywords;
    for (int index = 0; index < group->num_options; ++index) {
      keywords += group->options[index].keyword + std::string(" ");
    }
    EXPECT_EQ("VQBackgroundNumbering VQBNSize VQBNDensity VQBNColor VQStartNumber VQBNPlacement ",
              keywords);
  }
}

TEST(BuiltPPD, ThePlatformsDialogIsToldWhereTheBundleIs) {
  for (const char *file : kFiles) {
    const PPD ppd = Localized(file, "en");
    ppd_attr_t *attribute = ppdFindAttr(ppd.get(), "APDialogExtension", nullptr);
    ASSERT_NE(nullptr, attribute);
    EXPECT_STREQ("/Library/Printers/Velmora/PDEs/BackgroundNumbering.plugin", attribute->value);
  }
}
