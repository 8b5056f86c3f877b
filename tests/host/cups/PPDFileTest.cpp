#include "host/cups/PPDFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <stdexcept>

#include "tests/support/NumberingPPD.h"
#include "tests/support/RunProgram.h"
#include "tests/support/TestPPD.h"

namespace fs = std::filesystem;

namespace {

// Why the file cannot be opened; "" if it can.
std::string ReasonAgainst(const fs::path &path) {
  Expected<PPDFile> ppd = PPDFile::Open(path);
  return ppd ? "" : ppd.message();
}

PPDFile OpenText(const std::string &text) {
  TemporaryFolder folder;
  Expected<PPDFile> ppd = PPDFile::Open(folder.Write("a.ppd", text));
  if (!ppd) throw std::runtime_error(ppd.message());
  return std::move(*ppd);
}

// A small PPD file with these lines.
PPDFile OpenLines(const std::string &lines) { return OpenText(TestPPD::Text(lines)); }

std::string Replaced(std::string text, const std::string &what, const std::string &with) {
  return text.replace(text.find(what), what.size(), with);
}

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

// An option with these lines between opening and closing it.
std::string WithOption(const std::string &keyword, const std::string &lines) {
  return "*OpenUI *" + keyword + ": PickOne\n" + lines + "*CloseUI: *" + keyword + "\n";
}

// As a system in German.
class GermanLanguage {
 public:
  GermanLanguage() {
    setenv("SOFTWARE", "a test", 1);  // makes libcups go by LANG, not by installed locales
    setenv("LANG", "de_DE.UTF-8", 1);
  }
  ~GermanLanguage() {
    unsetenv("SOFTWARE");
    if (had_language_) {
      setenv("LANG", language_.c_str(), 1);
    } else {
      unsetenv("LANG");
    }
  }
  GermanLanguage(const GermanLanguage &) = delete;
  GermanLanguage &operator=(const GermanLanguage &) = delete;

 private:
  const bool had_language_ = getenv("LANG") != nullptr;
  const std::string language_ = had_language_ ? getenv("LANG") : "";
};

}  // namespace

TEST(PPDFile, OpensAFile) {
  TemporaryFolder folder;
  Expected<PPDFile> ppd = PPDFile::Open(folder.Write("a.ppd", TestPPD::Text(kSupported)));
  ASSERT_TRUE(ppd) << ppd.message();
  EXPECT_NE(nullptr, ppd->get());
  EXPECT_EQ("true", ppd->Attribute("VQBackgroundNumberingSupport"));
  EXPECT_EQ(std::nullopt, ppd->Attribute("VQBackgroundNumbering"));
}

TEST(PPDFile, OpensACompressedFile) {
  TemporaryFolder folder;
  const fs::path plain = folder.Write("a.ppd", TestPPD::Text(kSupported));
  ASSERT_EQ(0, RunProgram({"gzip", plain.string()}).status);
  Expected<PPDFile> ppd = PPDFile::Open(plain.string() + ".gz");
  ASSERT_TRUE(ppd) << ppd.message();
  EXPECT_EQ("true", ppd->Attribute("VQBackgroundNumberingSupport"));
}

TEST(PPDFile, OpensAFileThroughALink) {
  TemporaryFolder folder;
  fs::create_symlink(folder.Write("a.ppd", TestPPD::Text(kColorDevice)),
                     folder.path() / "link.ppd");
  Expected<PPDFile> ppd = PPDFile::Open(folder.path() / "link.ppd");
  ASSERT_TRUE(ppd) << ppd.message();
  EXPECT_TRUE(ppd->IsColorDevice());
}

TEST(PPDFile, MovesWithWhatItHolds) {
  TemporaryFolder folder;
  Expected<PPDFile> first = PPDFile::Open(folder.Write("a.ppd", TestPPD::Text(kSupported)));
  ASSERT_TRUE(first);
  PPDFile second = std::move(*first);
  EXPECT_EQ("true", second.Attribute("VQBackgroundNumberingSupport"));
}

TEST(PPDFile, NamesWhatIsWrongWithAPath) {
  TemporaryFolder folder;
  EXPECT_EQ("no such file", ReasonAgainst(folder.path() / "absent.ppd"));
  EXPECT_EQ("no such file", ReasonAgainst(folder.path() / "absent" / "a.ppd"));
  EXPECT_EQ("no such file", ReasonAgainst(""));
  EXPECT_EQ("not a regular file", ReasonAgainst(folder.path()));
  EXPECT_EQ("not a regular file", ReasonAgainst("/dev/null"));
  fs::create_symlink("nowhere", folder.path() / "dangling.ppd");
  EXPECT_EQ("no such file", ReasonAgainst(folder.path() / "dangling.ppd"));
  fs::create_symlink("loop.ppd", folder.path() / "loop.ppd");
  EXPECT_EQ("Too many levels of symbolic links", ReasonAgainst(folder.path() / "loop.ppd"));
}

TEST(PPDFile, DoesNotWaitForAPipe) {
  TemporaryFolder folder;
  const fs::path pipe = folder.path() / "pipe.ppd";
  ASSERT_EQ(0, mkfifo(pipe.c_str(), 0600));
  EXPECT_EQ("not a regular file", ReasonAgainst(pipe));
}

TEST(PPDFile, NamesTheLineThatTheParserStumblesOver) {
  TemporaryFolder folder;
  EXPECT_EQ("Missing asterisk in column 1 on line 3",
            ReasonAgainst(folder.Write("a.ppd",
                                       "*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n"
                                       "rubbish\n")));
  EXPECT_EQ("Missing asterisk in column 1 on line 1",
            ReasonAgainst(folder.Write("text.ppd", "Dear reader,\n")));
}

TEST(PPDFile, RefusesAnEmptyFileAndOneCutInItsFirstLine) {
  TemporaryFolder folder;
  const std::string missing = "Missing PPD-Adobe-4.x header";
  EXPECT_TRUE(ReasonAgainst(folder.Write("empty.ppd", "")).starts_with(missing));
  EXPECT_TRUE(
      ReasonAgainst(folder.Write("cut.ppd", TestPPD::Text("").substr(0, 7))).starts_with(missing));
}

// libcups reads a compressed file that ends early as one that just ends there.
TEST(PPDFile, RefusesACompressedFileThatIsCutInItsFirstLine) {
  TemporaryFolder folder;
  const fs::path plain = folder.Write("a.ppd", TestPPD::Text(kSupported));
  ASSERT_EQ(0, RunProgram({"gzip", plain.string()}).status);
  const std::string compressed = ContentOf(plain.string() + ".gz");
  const fs::path cut = folder.Write("cut.ppd.gz", compressed.substr(0, 20));
  EXPECT_NE("", ReasonAgainst(cut));
}

TEST(PPDFile, AnswersTheFirstOfSeveralAttributesWhateverTheirOptionPart) {
  TestPPD ppd("*VQTest First/One: \"1\"\n*VQTest: \"2\"\n");
  Expected<PPDFile> opened = PPDFile::Open(ppd.path());
  ASSERT_TRUE(opened);
  EXPECT_EQ("1", opened->Attribute("VQTest"));
}

TEST(PPDFile, AnswersAnEmptyValueAsOne) {
  TestPPD ppd("*VQTest: \"\"\n");
  Expected<PPDFile> opened = PPDFile::Open(ppd.path());
  ASSERT_TRUE(opened);
  EXPECT_EQ("", opened->Attribute("VQTest"));
}

TEST(PPDFile, IsAColorDevicesOnlyIfItSaysExactlyTrue) {
  const auto is_color = [](const char *lines) {
    TestPPD ppd(lines);
    Expected<PPDFile> opened = PPDFile::Open(ppd.path());
    return opened && opened->IsColorDevice();
  };
  EXPECT_TRUE(is_color("*ColorDevice: True\n"));
  EXPECT_TRUE(is_color("*ColorDevice: \"True\"\n"));
  EXPECT_FALSE(is_color("*ColorDevice: true\n"));
  EXPECT_FALSE(is_color("*ColorDevice: False\n"));
  EXPECT_FALSE(is_color(""));
}

TEST(PPDFile, AnswersAllAttributesWithAKeywordInTheFilesOrder) {
  const PPDFile ppd = OpenLines(
      "*VQTest Second/Two: \"2\"\n*VQOther: \"x\"\n*VQTest First: \"1\"\n*VQTest: \"\"\n");
  EXPECT_EQ((Texts{"2", "1", ""}), ppd.Attributes("VQTest"));
  EXPECT_EQ(Texts{}, ppd.Attributes("VQAbsent"));
}

TEST(PPDFile, HasTheNickNameForItsName) {
  EXPECT_EQ("Printer 9", OpenText(Replaced(TestPPD::Text(""), "*NickName: \"Test\"",
                                           "*NickName: \" Printer 9 \""))
                             .Name());
}

TEST(PPDFile, WithoutNickNameHasWhatComesNearestForItsName) {
  std::string text = TestPPD::Text("");
  const auto name_without = [&](const std::string &keyword, const std::string &line) {
    text = Replaced(text, "*" + keyword + ": " + line + "\n", "");
    return OpenText(text).Name();
  };
  text = Replaced(text, "*ModelName: \"Test\"", "*ModelName: \"Model\"");
  text = Replaced(text, "*ShortNickName: \"Test\"", "*ShortNickName: \"Short\"");
  text = Replaced(text, "*Product: \"(Test)\"", "*Product: \"(Product)\"");
  EXPECT_EQ("Short", name_without("NickName", "\"Test\""));
  EXPECT_EQ("Model", name_without("ShortNickName", "\"Short\""));
  EXPECT_EQ("Product", name_without("ModelName", "\"Model\""));
  EXPECT_EQ("TEST.PPD", name_without("Product", "\"(Product)\""));
  EXPECT_EQ("printer without a name", name_without("PCFileName", "\"TEST.PPD\""));
}

TEST(PPDFile, ABlankNickNameIsNone) {
  EXPECT_EQ(
      "Test",
      OpenText(Replaced(TestPPD::Text(""), "*NickName: \"Test\"", "*NickName: \" \"")).Name());
}

TEST(PPDFile, AnswersTextsInUtf8WhateverTheFileIsWrittenIn) {
  const std::string lines =
      "*OpenGroup: Paper/Gr\xF6\xDF"
      "e\n" +
      WithOption("VQTest/W\xE4hle", "*DefaultVQTest: A\n*VQTest A/\xC4: \"\"\n") +
      "*CloseGroup: Paper\n";
  const PPDFile ppd = OpenText(Replaced(TestPPD::Text(lines), "*NickName: \"Test\"",
                                        "*NickName: \"Drucker f\xFCr Gro\xDF\""));
  EXPECT_EQ("Drucker f\u00FCr Gro\u00DF", ppd.Name());
  const std::optional<PPDOption> option = ppd.Option("VQTest");
  ASSERT_TRUE(option);
  EXPECT_EQ("Gr\u00F6\u00DFe", option->group);
  EXPECT_EQ("W\u00E4hle", option->text);
  EXPECT_EQ("\u00C4", option->choices.at(0).text);
}

// libcups takes names other than the NickName as they are.
TEST(PPDFile, AnswersANameInUtf8EvenIfItIsNot) {
  std::string text = Replaced(TestPPD::Text(""), "*NickName: \"Test\"\n", "");
  text = Replaced(text, "*ShortNickName: \"Test\"", "*ShortNickName: \"B\xFCro\"");
  EXPECT_EQ("B\u00FCro", OpenText(text).Name());
}

TEST(PPDFile, DropsTheCharacterThatLibcupsCutsALongTextIn) {
  std::string long_text = "x";
  for (int count = 0; count < 39; ++count) long_text += "\u00E4";
  const std::string lines = WithOption("VQTest", "*VQTest A/" + long_text + "\u00E4: \"\"\n");
  const PPDFile ppd = OpenText(Replaced(TestPPD::Text(lines), "ISOLatin1", "UTF-8"));
  const std::optional<PPDOption> option = ppd.Option("VQTest");
  ASSERT_TRUE(option);
  EXPECT_EQ(long_text, option->choices.at(0).text);
}

TEST(PPDFile, AnswersKeywordsWhereThereAreNoTexts) {
  const PPDFile ppd = OpenLines("*OpenGroup: Numbering\n" +
                                WithOption("VQTest/ ", "*VQTest A: \"\"\n*VQTest B/ : \"\"\n") +
                                "*CloseGroup: Numbering\n");
  const std::optional<PPDOption> option = ppd.Option("VQTest");
  ASSERT_TRUE(option);
  EXPECT_EQ("Numbering", option->group);
  EXPECT_EQ("VQTest", option->text);
  EXPECT_EQ("A", option->choices.at(0).text);
  EXPECT_EQ("B", option->choices.at(1).text);
}

TEST(PPDFile, AnswersTextsInTheLanguageOfTheSystem) {
  const std::string lines =
      "*cupsLanguages: \"de\"\n"
      "*OpenGroup: Numbers/Numbers\n" +
      WithOption("VQTest/Test", "*VQTest A/Apple: \"\"\n") +
      "*CloseGroup: Numbers\n"
      "*de.Translation Numbers/Nummern: \"\"\n"
      "*de.Translation VQTest/Pr\u00FCfung: \"\"\n"
      "*de.VQTest A/\u00C4pfel: \"\"\n"
      "*VQPlain: \"value\"\n";
  const GermanLanguage german;
  const PPDFile ppd = OpenLines(lines);
  const std::optional<PPDOption> option = ppd.Option("VQTest");
  ASSERT_TRUE(option);
  EXPECT_EQ("Nummern", option->group);
  EXPECT_EQ("Pr\u00FCfung", option->text);
  EXPECT_EQ("\u00C4pfel", option->choices.at(0).text);
  EXPECT_EQ("A", option->choices.at(0).keyword);
  EXPECT_EQ("value", ppd.Attribute("VQPlain"));
}

// libcups takes translations as they are.
TEST(PPDFile, AnswersTranslationsInUtf8EvenIfTheyAreNot) {
  const GermanLanguage german;
  const PPDFile ppd =
      OpenLines(WithOption("VQTest", "*VQTest A/Apple: \"\"\n") + "*de.VQTest A/\xC4pfel: \"\"\n");
  EXPECT_EQ("\u00C4pfel", ppd.Option("VQTest")->choices.at(0).text);
}

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
