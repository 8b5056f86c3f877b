#include "host/ppd/PPDFile.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <cstdlib>

#include "tests/host/ppd/OpenedPPD.h"
#include "tests/support/RunProgram.h"

namespace fs = std::filesystem;
using testing::StartsWith;

namespace {

using Texts = std::vector<std::string>;

// Why the file cannot be opened; "" if it can.
std::string ReasonAgainst(const fs::path &path) {
  Expected<PPDFile> ppd = PPDFile::Open(path);
  return ppd ? "" : ppd.message();
}

std::string Replaced(std::string text, const std::string &what, const std::string &with) {
  return text.replace(text.find(what), what.size(), with);
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
  EXPECT_THAT(ReasonAgainst(folder.Write("empty.ppd", "")), StartsWith(missing));
  EXPECT_THAT(ReasonAgainst(folder.Write("cut.ppd", TestPPD::Text("").substr(0, 7))),
              StartsWith(missing));
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
