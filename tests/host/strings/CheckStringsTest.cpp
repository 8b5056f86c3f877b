// scripts/check-strings, on this project and on small ones with a mistake each.

#include <gmock/gmock.h>

#include "tests/support/RunProgram.h"

using testing::HasSubstr;
using testing::StartsWith;

namespace {

RunResult Check(const std::string &project) {
  return RunProgram({SOURCE_DIRECTORY "/scripts/check-strings", project});
}

const char kSource[] =
    "#include \"host/base/Localized.h\"\n"
    "// Localized(no_text)\n"
    "std::string Text() { return Localized(\"%1 of \"\n"
    "                                      \"%2\", {\"a\", Localized(\"all\")}); }\n";
const char kEnglish[] = "/* A \"comment\" */\n\"%1 of %2\" = \"%1 of %2\";\n\n\"all\" = \"all\";\n";
const char kGerman[] = "\"%1 of %2\" = \"von %2 %1\";\n\"all\" = \"alle\";\n";

class SmallProject {
 public:
  SmallProject() {
    Write("host/base/Text.cpp", kSource);
    Write("host/strings/en.lproj/pdeprint.strings", kEnglish);
    WriteGerman(kGerman);
  }
  void Write(const std::string &name, const std::string &content) { folder_.Write(name, content); }
  void WriteGerman(const std::string &table) {
    Write("host/strings/de.lproj/pdeprint.strings", table);
  }
  // What is wrong, after the name of the file; "": nothing.
  std::string Mistakes() const {
    const RunResult result = Check(folder_.path().string());
    EXPECT_EQ(result.err.empty() ? 0 : 1, result.status) << result.out << result.err;
    std::string mistakes = result.err;
    const std::string host = folder_.path().string() + "/host/";
    const std::string root = folder_.path().string() + "/resources/";
    for (size_t at; (at = mistakes.find(root)) != std::string::npos;)
      mistakes.erase(at, root.size());
    for (size_t at; (at = mistakes.find(host)) != std::string::npos;)
      mistakes.erase(at, host.size());
    return mistakes;
  }
  std::string MistakesWithGerman(const std::string &table) {
    WriteGerman(table);
    return Mistakes();
  }

 private:
  TemporaryFolder folder_;
};

const std::string kTable = "strings/de.lproj/pdeprint.strings: ";

}  // namespace

TEST(Strings, AllLanguagesHaveTheTextsOfTheSources) {
  const RunResult result = Check(SOURCE_DIRECTORY);
  EXPECT_EQ("", result.err);
  EXPECT_EQ(0, result.status);
}

TEST(CheckStrings, FindsNothingWhereAllIsWell) { EXPECT_EQ("", SmallProject().Mistakes()); }

TEST(CheckStrings, FindsATextThatNoTableHas) {
  SmallProject project;
  project.Write("host/base/More.mm", "auto text = Localized(\"some\");\n");
  EXPECT_EQ("base/More.mm: \"some\" is not in the English table\n", project.Mistakes());
}

TEST(CheckStrings, FindsATextThatIsNoLiteral) {
  SmallProject project;
  project.Write("host/base/More.mm", "auto text = Localized(kText);\n");
  EXPECT_EQ("base/More.mm: Localized(kText); ... begins with no literal text\n",
            project.Mistakes());
}

TEST(CheckStrings, FindsATextThatIsNotUsed) {
  SmallProject project;
  project.Write("host/strings/en.lproj/pdeprint.strings",
                std::string(kEnglish) + "\"some\" = \"some\";\n");
  project.WriteGerman(std::string(kGerman) + "\"some\" = \"einige\";\n");
  EXPECT_EQ("strings/en.lproj/pdeprint.strings: \"some\" is not used\n", project.Mistakes());
}

TEST(CheckStrings, FindsAnEnglishTextThatIsAnotherOne) {
  SmallProject project;
  project.Write("host/strings/en.lproj/pdeprint.strings",
                "\"%1 of %2\" = \"%1 of %2\";\n\"all\" = \"every\";\n");
  EXPECT_EQ("strings/en.lproj/pdeprint.strings: the text of \"all\" is another one\n",
            project.Mistakes());
}

TEST(CheckStrings, FindsATextThatIsMissingInALanguage) {
  EXPECT_EQ(kTable + "\"all\" is missing\n",
            SmallProject().MistakesWithGerman("\"%1 of %2\" = \"von %2 %1\";\n"));
}

TEST(CheckStrings, FindsATextThatEnglishDoesNotHave) {
  EXPECT_EQ(kTable + "\"some\" is not in the English table\n",
            SmallProject().MistakesWithGerman(std::string(kGerman) + "\"some\" = \"einige\";\n"));
}

TEST(CheckStrings, FindsATextThatIsThereTwice) {
  EXPECT_EQ(kTable + "\"all\" is there twice\n",
            SmallProject().MistakesWithGerman(std::string(kGerman) + "\"all\" = \"alle\";\n"));
}

TEST(CheckStrings, FindsPlacesThatAreMissingOrTooMany) {
  const std::string all = "\"all\" = \"alle\";\n";
  EXPECT_EQ(kTable + "\"von %2\" has not the places of \"%1 of %2\"\n",
            SmallProject().MistakesWithGerman("\"%1 of %2\" = \"von %2\";\n" + all));
  EXPECT_EQ(kTable + "\"%1 %2 %2\" has not the places of \"%1 of %2\"\n",
            SmallProject().MistakesWithGerman("\"%1 of %2\" = \"%1 %2 %2\";\n" + all));
  EXPECT_EQ(kTable + "\"%1 %3\" has not the places of \"%1 of %2\"\n",
            SmallProject().MistakesWithGerman("\"%1 of %2\" = \"%1 %3\";\n" + all));
}

TEST(CheckStrings, FindsEmptyTexts) {
  EXPECT_EQ(kTable + "the text of \"all\" is empty\n",
            SmallProject().MistakesWithGerman("\"%1 of %2\" = \"%1/%2\";\n\"all\" = \"\";\n"));
}

TEST(CheckStrings, FindsStrayBlanks) {
  for (const std::string text : {" alle", "alle ", "al  le", "alle\\n"}) {
    const std::string mistakes = SmallProject().MistakesWithGerman(
        "\"%1 of %2\" = \"%1/%2\";\n\"all\" = \"" + text + "\";\n");
    EXPECT_THAT(mistakes, HasSubstr("has blanks at an end, or two in a row")) << text;
  }
}

TEST(CheckStrings, FindsLineEndsThatAreMissing) {
  SmallProject project;
  project.Write("host/base/Text.cpp", "auto text = Localized(\"a\\nb\");\n");
  project.Write("host/strings/en.lproj/pdeprint.strings", "\"a\\nb\" = \"a\\nb\";\n");
  EXPECT_EQ(kTable + "\"c d\" has not the line ends of \"a\nb\"\n",
            project.MistakesWithGerman("\"a\\nb\" = \"c d\";\n"));
}

namespace {

// What is wrong with the forms of a text with a number in this language.
std::string MistakesInForms(const std::string &language, const std::string &forms) {
  SmallProject project;
  project.Write("host/base/Text.cpp",
                "auto text = LocalizedCount(\"%1 and %2 more\", {name}, 5) + Localized(\"en\");\n");
  project.Write("host/strings/en.lproj/pdeprint.strings",
                "\"%1 and %2 more\" = \"%1 and %2 more\";\n\"en\" = \"en\";\n");
  project.WriteGerman("\"%1 and %2 more\" = \"%1 und %2\";\n\"en\" = \"de\";\n");
  const std::string table = "strings/" + language + ".lproj/pdeprint.strings";
  project.Write("host/" + table,
                "\"%1 and %2 more\" = \"%1, %2\";\n\"en\" = \"" + language + "\";\n" + forms);
  const std::string mistakes = project.Mistakes();
  return mistakes.starts_with(table + ": ") ? mistakes.substr(table.size() + 2) : mistakes;
}

std::string Form(const std::string &form, const std::string &text) {
  return "\"%1 and %2 more|" + form + "\" = \"" + text + "\";\n";
}

}  // namespace

TEST(CheckStrings, TakesTextsWithNumbersInOneFormOrInAll) {
  EXPECT_EQ("", MistakesInForms("cs", ""));
  EXPECT_EQ("", MistakesInForms("cs", Form("one", "%1 a %2") + Form("few", "%1 a %2")));
  EXPECT_EQ("", MistakesInForms("sv", Form("one", "%1 och %2")));
}

TEST(CheckStrings, TakesFormsInTheEnglishTableThatOtherTablesNeedNotHave) {
  SmallProject project;
  project.Write("host/base/Text.cpp",
                "auto text = LocalizedCount(\"%1 sheets\", {}, 1) + Localized(\"all\");\n");
  const std::string table = "\"%1 sheets\" = \"%1 sheets\";\n\"all\" = \"all\";\n";
  const std::string one = "\"%1 sheets|one\" = \"%1 sheet\";\n";
  project.Write("host/strings/en.lproj/pdeprint.strings", table + one);
  EXPECT_EQ("", project.MistakesWithGerman("\"%1 sheets\" = \"%1 Blatt\";\n\"all\" = \"alle\";\n"));
  project.Write("host/strings/en.lproj/pdeprint.strings",
                table + "\"%1 sheets|few\" = \"%1 sheets\";\n");
  EXPECT_EQ(
      "strings/en.lproj/pdeprint.strings: "
      "\"%1 sheets\" has the forms few; it needs one besides its own text\n",
      project.Mistakes());
}

TEST(CheckStrings, FindsFormsThatAreMissingOrTooMany) {
  EXPECT_EQ("\"%1 and %2 more\" has the forms one; it needs few one besides its own text\n",
            MistakesInForms("cs", Form("one", "%1 a %2")));
  EXPECT_EQ("\"%1 and %2 more\" has the forms few one; it needs one besides its own text\n",
            MistakesInForms("sv", Form("one", "%1 och %2") + Form("few", "%1 och %2")));
  EXPECT_EQ("\"%1 and %2 more\" has the forms one; it needs none besides its own text\n",
            MistakesInForms("ja", Form("one", "%1 %2")));
}

TEST(CheckStrings, FindsPlacesThatAFormHasNot) {
  EXPECT_EQ("", MistakesInForms("sv", Form("one", "%1 och en till")));
  EXPECT_EQ("\"en till\" has not the places of \"%1 and %2 more\"\n",
            MistakesInForms("sv", Form("one", "en till")));
  EXPECT_EQ("\"%1 a\" has not the places of \"%1 and %2 more\"\n",
            MistakesInForms("cs", Form("one", "%1 a jeden") + Form("few", "%1 a")));
}

TEST(CheckStrings, FindsFormsOfTextsWithoutANumber) {
  EXPECT_EQ(kTable + "\"all|one\" is not in the English table\n",
            SmallProject().MistakesWithGerman(std::string(kGerman) + "\"all|one\" = \"eins\";\n"));
}

TEST(CheckStrings, FindsATableThatNamesAnotherLanguage) {
  SmallProject project;
  project.Write("host/base/Text.cpp", "auto text = Localized(\"en\");\n");
  project.Write("host/strings/en.lproj/pdeprint.strings", "\"en\" = \"en\";\n");
  EXPECT_EQ(kTable + "the text of \"en\" is not \"de\"\n",
            project.MistakesWithGerman("\"en\" = \"fr\";\n"));
}

TEST(CheckStrings, FindsWhereATableIsDamaged) {
  const std::string mistakes =
      SmallProject().MistakesWithGerman("\"%1 of %2\" = \"%1/%2\";\n\"all\" = alle;\n");
  EXPECT_THAT(
      mistakes,
      StartsWith(kTable + "what follows line 1 is neither a comment nor \"KEY\" = \"TEXT\";\n"));
}

namespace {

// What is wrong with a table of the panel beside this English one.
std::string MistakesOfPanel(const std::string &german) {
  SmallProject project;
  project.Write("resources/en.lproj/Localizable.strings",
                "\"Size_Small\" = \"Small\"; \"Size_Large\" = \"Large\"; \"Range\" = \"[MIN] to "
                "[MAX]\";");
  project.Write("resources/de.lproj/Localizable.strings", german);
  return project.Mistakes();
}

const std::string kPanelTable = "de.lproj/Localizable.strings: ";

}  // namespace

TEST(Strings, APanelsTableHasTheKeysOfTheEnglishOne) {
  EXPECT_EQ("", MistakesOfPanel("\"Size_Small\" = \"Klein\"; \"Size_Large\" = \"Gro\303\237\"; "
                                "\"Range\" = \"[MIN] bis [MAX]\";"));
  EXPECT_EQ(kPanelTable + "\"Range\" is missing\n" + kPanelTable +
                "\"Other\" is not in the English table\n",
            MistakesOfPanel("\"Size_Small\" = \"Klein\"; \"Size_Large\" = \"Breit\"; "
                            "\"Other\" = \"Anderes\";"));
}

TEST(Strings, APanelsTitlesDifferWithinAMenu) {
  EXPECT_EQ(kPanelTable + "\"Size_Large\" and \"Size_Small\" have the same title\n",
            MistakesOfPanel("\"Size_Small\" = \"Klein\"; \"Size_Large\" = \"Klein\"; "
                            "\"Range\" = \"[MIN] bis [MAX]\";"));
}

TEST(Strings, APanelsTextsKeepTheirPlacesAndHaveNoStrayBlanks) {
  EXPECT_EQ(kPanelTable + "\"bis [MAX]\" has not the places of \"[MIN] to [MAX]\"\n" + kPanelTable +
                "\"Klein \" has blanks at an end, or two in a row\n",
            MistakesOfPanel("\"Size_Small\" = \"Klein \"; \"Size_Large\" = \"Breit\"; "
                            "\"Range\" = \"bis [MAX]\";"));
}
