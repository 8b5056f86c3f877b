#include "host/cups/PPDFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "tests/support/RunProgram.h"
#include "tests/support/TestPPD.h"

namespace fs = std::filesystem;

namespace {

// Why the file cannot be opened; "" if it can.
std::string ReasonAgainst(const fs::path &path) {
  Expected<PPDFile> ppd = PPDFile::Open(path);
  return ppd ? "" : ppd.message();
}

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
  fs::create_symlink(folder.Write("a.ppd", TestPPD::Text(kColor)), folder.path() / "link.ppd");
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
