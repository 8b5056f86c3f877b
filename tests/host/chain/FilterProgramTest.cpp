#include "host/chain/FilterProgram.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "tests/support/EnvironmentVariable.h"
#include "tests/support/ExpectedValue.h"
#include "tests/support/TemporaryFolder.h"

namespace fs = std::filesystem;

namespace {

class FilterProgram : public testing::Test {
 protected:
  FilterProgram() { fs::permissions(folder_.path() / "filter", fs::perms(0755)); }

  std::string WhyNot(const std::string &name = "mark") const {
    return MessageOf(CheckFilterProgram(folders_, name));
  }
  std::string DoesNotRun() const {
    return "the print server does not run " + program_.string() +
           ": it and its folder must belong to root, with the mode 755";
  }

  TemporaryFolder folder_;
  const fs::path program_ = folder_.Write("filter/mark", "#!/bin/sh\n");
  const ServerFolders folders_ = {.root = "", .programs = folder_.path(), .data = ""};
  // The folder is this user's own.
  const EnvironmentVariable private_ = {"CUPS_SERVERBIN", folder_.path().string()};
};

}  // namespace

TEST_F(FilterProgram, IsFitWithTheRightMode) {
  fs::permissions(program_, fs::perms(0755));
  EXPECT_EQ(WhyNot(), "");
}

TEST_F(FilterProgram, MustBeThere) {
  EXPECT_EQ(WhyNot("absent"), "the print server has no filter absent (" +
                                  (folder_.path() / "filter/absent").string() +
                                  "); install it first");
}

TEST_F(FilterProgram, MustNotBeOthersToChange) {
  for (const int mode : {0775, 0757, 0777}) {
    fs::permissions(program_, fs::perms(mode));
    EXPECT_EQ(WhyNot(), DoesNotRun()) << std::oct << mode;
  }
}

TEST_F(FilterProgram, MustRunForEverybody) {
  for (const int mode : {0644, 0700, 0744, 0711, 04755}) {
    fs::permissions(program_, fs::perms(mode));
    EXPECT_EQ(WhyNot(), DoesNotRun()) << std::oct << mode;
  }
}

TEST_F(FilterProgram, MustBeAFileInASafeFolder) {
  fs::remove(program_);
  fs::create_directory(program_);
  EXPECT_EQ(WhyNot(), DoesNotRun());
  fs::remove(program_);
  folder_.Write("filter/mark", "");
  fs::permissions(program_, fs::perms(0755));
  fs::permissions(folder_.path() / "filter", fs::perms(0777));
  EXPECT_EQ(WhyNot(), DoesNotRun());
}

TEST_F(FilterProgram, MustBelongToRootUnlessTheServerIsPrivate) {
  fs::permissions(program_, fs::perms(0755));
  // The system lets nobody else make a file that belongs to another user.
  if (geteuid() != 0) GTEST_SKIP() << "only root can give files away";
  ASSERT_EQ(chown(program_.c_str(), 65534, 0), 0);
  EXPECT_EQ(WhyNot(), DoesNotRun());
}
