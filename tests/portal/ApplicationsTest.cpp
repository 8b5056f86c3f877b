#include "portal/Applications.h"

#include <gmock/gmock.h>

#include "tests/support/EnvironmentVariable.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class NameOfApplicationTest : public testing::Test {
 protected:
  std::string Name(const std::vector<std::string> &languages = {}) const {
    return NameOfApplication("org.example.Editor", {folder_.path() / "own", folder_.path() / "all"},
                             languages);
  }
  void Write(const std::string &folder, const std::string &lines) const {
    folder_.Write(folder + "/org.example.Editor.desktop", lines);
  }

  TemporaryFolder folder_;
};

}  // namespace

TEST_F(NameOfApplicationTest, StandsInItsDesktopFile) {
  Write("all", "[Desktop Entry]\nType=Application\nName=Editor\nName[de]=Schreiber\n");
  EXPECT_EQ("Editor", Name());
  EXPECT_EQ("Editor", Name({"fr"}));
  EXPECT_EQ("Schreiber", Name({"fr", "de"}));
}

TEST_F(NameOfApplicationTest, IsThatOfTheFirstFile) {
  Write("all", "[Desktop Entry]\nName=Editor\n");
  Write("own", "[Desktop Entry]\nName=My Editor\n");
  EXPECT_EQ("My Editor", Name());
}

TEST_F(NameOfApplicationTest, IsNotThatOfAnAction) {
  Write("all", "[Desktop Action new]\nName=New\n[Desktop Entry]\nName = Editor\n");
  EXPECT_EQ("Editor", Name());
}

TEST_F(NameOfApplicationTest, IsClean) {
  Write("all", "[Desktop Entry]\nName=\u202eEd\titor\n");
  EXPECT_EQ("Ed itor", Name());
}

TEST_F(NameOfApplicationTest, IsEmptyWithoutOne) {
  EXPECT_EQ("", Name());
  Write("all", "[Desktop Entry]\nType=Application\n");
  EXPECT_EQ("", Name());
}

TEST_F(NameOfApplicationTest, IsLookedForInTheseFoldersAlone) {
  folder_.Write("other.desktop", "[Desktop Entry]\nName=Other\n");
  EXPECT_EQ("", NameOfApplication("../other", {folder_.path() / "own"}, {}));
  EXPECT_EQ("", NameOfApplication("", {folder_.path()}, {}));
}

TEST(DesktopFileFoldersTest, AreThoseOfTheBaseDirectories) {
  const EnvironmentVariable home("HOME", "/home/me"), own("XDG_DATA_HOME", std::nullopt);
  const EnvironmentVariable all("XDG_DATA_DIRS", "/a:relative:/b");
  EXPECT_THAT(DesktopFileFolders(), ElementsAre("/home/me/.local/share/applications",
                                                "/a/applications", "/b/applications"));
}

TEST(LanguagesOfUserTest, AreThoseOfTheEnvironment) {
  const EnvironmentVariable all("LC_ALL", std::nullopt), messages("LC_MESSAGES", std::nullopt);
  const EnvironmentVariable language("LANGUAGE", "pt_BR:es");
  {
    const EnvironmentVariable lang("LANG", "de_AT.UTF-8");
    EXPECT_THAT(LanguagesOfUser(), ElementsAre("pt_BR", "pt", "es", "de_AT", "de"));
  }
  const EnvironmentVariable lang("LANG", "C");
  EXPECT_THAT(LanguagesOfUser(), IsEmpty());
}
