#include "host/ppd/PPDSource.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "tests/support/RunProgram.h"
#include "tests/support/TestPPD.h"

namespace fs = std::filesystem;

namespace {

std::string ReasonAgainst(const fs::path &path) {
  Expected<std::string> bytes = ReadPPD(path);
  return bytes ? "" : bytes.message();
}

std::string Read(const fs::path &path) {
  Expected<std::string> bytes = ReadPPD(path);
  return bytes ? *bytes : bytes.message();
}

fs::path Compressed(const TemporaryFolder &folder, const std::string &bytes) {
  const fs::path file = folder.Write("a.ppd", bytes);
  EXPECT_EQ(0, RunProgram({"gzip", file.string()}).status);
  return file.string() + ".gz";
}

}  // namespace

TEST(PPDSource, ReadsTheBytesAsTheyAre) {
  TemporaryFolder folder;
  const std::string bytes("a\r\nb\0c\rd\xFF", 9);
  EXPECT_EQ(bytes, Read(folder.Write("a.ppd", bytes)));
  EXPECT_EQ("", Read(folder.Write("empty.ppd", "")));
}

TEST(PPDSource, ReadsCompressedBytes) {
  TemporaryFolder folder;
  const fs::path file = Compressed(folder, TestPPD::Text(kColorDevice));
  EXPECT_EQ(TestPPD::Text(kColorDevice), Read(file));
  EXPECT_TRUE(OpenPPD(file)->IsColorDevice());
}

TEST(PPDSource, CompressedBytesThatAreCutOffAreAFailure) {
  TemporaryFolder folder;
  const fs::path file = Compressed(folder, TestPPD::Text(kColorDevice));
  fs::resize_file(file, fs::file_size(file) / 2);
  EXPECT_EQ("the file is damaged or cut off", ReasonAgainst(file));
  EXPECT_EQ("the file is damaged or cut off", OpenPPD(file).message());
}

TEST(PPDSource, WhatIsNoFileIsAFailure) {
  TemporaryFolder folder;
  EXPECT_EQ("no such file", ReasonAgainst(folder.path() / "absent"));
  EXPECT_EQ("not a regular file", ReasonAgainst(folder.path()));
  const fs::path pipe = folder.path() / "pipe";
  ASSERT_EQ(0, mkfifo(pipe.c_str(), 0600));
  EXPECT_EQ("not a regular file", ReasonAgainst(pipe));
}

TEST(PPDSource, AHugeFileIsAFailure) {
  TemporaryFolder folder;
  const fs::path file = folder.Write("a.ppd", "");
  fs::resize_file(file, (16 << 20) + 1);
  EXPECT_EQ("the file is larger than 16 MiB", ReasonAgainst(file));
}

TEST(PPDSource, ParsesTheBytesOfAFile) {
  Expected<PPDFile> ppd = ParsePPD(TestPPD::Text(kColorDevice));
  ASSERT_TRUE(ppd) << ppd.message();
  EXPECT_TRUE(ppd->IsColorDevice());
  EXPECT_FALSE(ParsePPD("rubbish"));
}
