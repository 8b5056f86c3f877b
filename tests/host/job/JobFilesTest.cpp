#include "host/job/JobFiles.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "tests/support/ExpectedValue.h"
#include "tests/support/TemporaryFolder.h"

namespace fs = std::filesystem;

namespace {

std::string Reason(const std::vector<fs::path> &files) { return MessageOf(CheckFiles(files)); }

}  // namespace

TEST(JobFiles, FilesWithContentCanBePrinted) {
  TemporaryFolder folder;
  EXPECT_EQ("", Reason({folder.Write("a.ps", "%!"), folder.Write("b.pdf", "%PDF")}));
  EXPECT_EQ("", Reason({}));
}

TEST(JobFiles, TheFirstFileThatCannotBePrintedIsNamed) {
  TemporaryFolder folder;
  const fs::path good = folder.Write("good.ps", "%!");
  const fs::path absent = folder.path() / "absent.ps";
  const fs::path empty = folder.Write("empty.ps", "");
  EXPECT_EQ("cannot print " + absent.string() + ": no such file", Reason({good, absent, empty}));
  EXPECT_EQ("cannot print " + empty.string() + ": the file is empty", Reason({good, empty}));
  EXPECT_EQ("cannot print " + folder.path().string() + ": it is a folder", Reason({folder.path()}));
}

// Reading it might never end.
TEST(JobFiles, APipeCannotBePrinted) {
  TemporaryFolder folder;
  const fs::path pipe = folder.path() / "pipe";
  ASSERT_EQ(0, mkfifo(pipe.c_str(), 0600));
  EXPECT_EQ("cannot print " + pipe.string() + ": not a regular file", Reason({pipe}));
}

TEST(JobFiles, AJobIsNamedAfterItsFiles) {
  EXPECT_EQ("", TitleOfJob({}));
  EXPECT_EQ("a.ps", TitleOfJob({"/tmp/a.ps"}));
  EXPECT_EQ("a.ps and 2 more", TitleOfJob({"/tmp/a.ps", "b.ps", "c.ps"}));
}

// The server and the window take it for that.
TEST(JobFiles, AJobsNameIsUtf8WhateverItsFilesNameIs) {
  EXPECT_EQ("größe.ps", TitleOfJob({"/tmp/größe.ps"}));
  EXPECT_EQ("größe.ps", TitleOfJob({"/tmp/gr\xF6\xDF"
                                    "e.ps"}));
}
