// What the Debian source package says of the sources, beside its version.

#include <gtest/gtest.h>

#include <regex>
#include <set>

#include "tests/install/InstalledTree.h"

namespace {

std::string File(const std::string &name) { return ContentOf(SOURCE_DIRECTORY "/" + name); }

// What the expression's first group matches, everywhere.
std::set<std::string> FindAll(const std::string &text, const char *expression) {
  const std::regex regex(expression);
  std::set<std::string> all;
  for (std::sregex_iterator match(text.begin(), text.end(), regex), end; match != end; ++match) {
    all.insert(match->str(1));
  }
  return all;
}

}  // namespace

// The symbols file promises them to packages that have been built with the library.
TEST(SourcePackage, TheLibraryExportsWhatItsSymbolsFileNamesAndNothingElse) {
  const InstalledTree tree({"--component", "library"});
  const RunResult table =
      RunProgram({"nm", "-D", "--defined-only", tree.prefix() / "lib/libPrintCore.so.1"});
  ASSERT_EQ(0, table.status) << table.err;
  const std::set<std::string> exported = FindAll(table.out, R"([0-9a-f]+ [A-Za-z] (\S+)\n)");
  EXPECT_TRUE(exported.contains("PMPrintSettingsSetValue"));
  EXPECT_EQ(FindAll(File("debian/libprintcore1.symbols"), R"(\n (\S+)@Base )"), exported);
}

// Both are what it takes to build, here without and there with Debian's own tools.
TEST(SourcePackage, AsksForWhatTheScriptsInstallForBuilding) {
  std::string fields = File("debian/control");
  fields = fields.substr(fields.find("\nBuild-Depends:"));
  const std::set<std::string> packages = FindAll(fields.substr(0, fields.find("\nRules")),
                                                 R"([: ] ([a-z0-9-]+)(?: \(>= [^)]*\))?(?=,\n|$))");
  std::string list = File("packaging/debian-packages");
  list = list.substr(list.find("[build]\n") + 7);
  std::set<std::string> expected = FindAll(list.substr(0, list.find("\n[")), R"(\n([a-z][^\n]*))");
  EXPECT_EQ(1u, expected.erase("make"));  // which ninja stands for, and Debian always has
  EXPECT_EQ(expected, packages);
}

// Who publishes the packages changes the address in one place, and finds the other by this.
TEST(SourcePackage, ReleasesAreLookedForWhereTheMaintainersAre) {
  const std::set<std::string> domain =
      FindAll(File("debian/control"), R"(\nMaintainer: [^<]*<[^@]*@(.*)>)");
  EXPECT_EQ(1u, domain.size());
  EXPECT_EQ(domain, FindAll(File("debian/watch"), R"(\nhttps://([^/]*)/)"));
}

// Tests that are run on an installed system call programs of the sources.
TEST(SourcePackage, EveryTestForInstalledSystemsIsThere) {
  for (const std::string &test : FindAll(File("debian/tests/control"), R"(Tests: (\S+))")) {
    const std::filesystem::path program = SOURCE_DIRECTORY "/debian/tests/" + test;
    EXPECT_EQ(std::filesystem::perms::owner_exec,
              std::filesystem::status(program).permissions() & std::filesystem::perms::owner_exec)
        << program;
    for (const std::string &script : FindAll(ContentOf(program), R"((scripts/[a-z/.-]+))")) {
      EXPECT_TRUE(std::filesystem::exists(SOURCE_DIRECTORY "/" + script)) << program << script;
    }
  }
}
