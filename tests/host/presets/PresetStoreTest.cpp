#include "host/presets/PresetStore.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <ostream>

#include "tests/support/ChildProcess.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/ExpectedValue.h"
#include "tests/support/TemporaryFolder.h"

namespace fs = std::filesystem;

static bool operator==(const Preset &preset, const Preset &other) {
  return preset.name == other.name && preset.path == other.path &&
         preset.for_all_users == other.for_all_users;
}
static std::ostream &operator<<(std::ostream &stream, const Preset &preset) {
  return stream << preset.name << " at " << preset.path
                << (preset.for_all_users ? " for all users" : "");
}

namespace {

using Names = std::vector<std::string>;
using Presets = std::vector<Preset>;

Names NamesIn(const PresetStore &store) {
  Names names;
  for (const Preset &preset : store.List()) names.push_back(preset.name);
  return names;
}

// The user's presets, and two folders of presets for all users; nothing is there yet.
class PresetStoreTest : public testing::Test {
 protected:
  // Answers the preset's path.
  fs::path Save(const std::string &name, std::string_view content = "content") const {
    Expected<fs::path> path = store().PathForWriting(name);
    EXPECT_TRUE(path) << MessageOf(path);
    return path ? folder_.Write(*path, content) : fs::path();
  }

  PresetStore store() const { return PresetStore(users(), {all() / "1", all() / "2"}); }
  fs::path users() const { return folder_.path() / "config/presets"; }
  fs::path all() const { return folder_.path() / "all"; }
  const TemporaryFolder &folder() const { return folder_; }

  // What the body answers in a process that can read the presets and change nothing there.
  template <typename Body>
  std::string WithoutRightToWrite(Body body) const {
    EXPECT_EQ(0, chmod(users().c_str(), 0555));
    std::string answer = InChild(
        [&body]() -> std::string { return LosePrivileges() ? body() : "(still privileged)"; });
    EXPECT_EQ(0, chmod(users().c_str(), 0755));
    return answer;
  }

 private:
  TemporaryFolder folder_;
};

}  // namespace

TEST_F(PresetStoreTest, IsEmptyBeforeThereIsAFolder) {
  EXPECT_EQ(Presets{}, store().List());
  EXPECT_EQ(std::nullopt, store().Find("a"));
  EXPECT_FALSE(fs::exists(users())) << "looking made the folder";
}

TEST_F(PresetStoreTest, ListsWhatWasSaved) {
  const fs::path path = Save("Two sides / draft");
  const Preset preset{"Two sides / draft", path, false};
  EXPECT_EQ(Presets{preset}, store().List());
  EXPECT_EQ(preset, store().Find("Two sides / draft"));
}

TEST_F(PresetStoreTest, ListsByName) {
  for (const char *name : {"b", "a", "C", "B", "Draft 10", "Draft 2"}) Save(name);
  EXPECT_EQ((Names{"a", "b", "B", "C", "Draft 2", "Draft 10"}), NamesIn(store()));
}

TEST_F(PresetStoreTest, NamesThatDifferInCaseAreDifferentPresets) {
  Save("draft", "small");
  Save("Draft", "large");
  EXPECT_EQ((Names{"draft", "Draft"}), NamesIn(store()));
  EXPECT_EQ("small", ContentOf(store().Find("draft")->path));
  EXPECT_EQ("large", ContentOf(store().Find("Draft")->path));
  EXPECT_EQ(std::nullopt, store().Find("DRAFT"));
}

TEST_F(PresetStoreTest, LeavesAloneWhatElseLiesInTheFolder) {
  Save("a");
  // A ticket that was being written when the program was killed is among them.
  for (const char *name : {".pdeprint.Xa3k9Q", "notes.txt", ".hidden.plist", "Last Used.plist"}) {
    folder().Write(users() / name, "mine");
  }
  fs::create_directory(users() / "folder.plist");
  fs::create_symlink("nowhere", users() / "link.plist");
  EXPECT_EQ(Names{"a"}, NamesIn(store()));
  EXPECT_EQ("", MessageOf(store().Rename("a", "b")));
  EXPECT_EQ("", MessageOf(store().Delete("b")));
  Save("c");
  for (const char *name : {".pdeprint.Xa3k9Q", "notes.txt", ".hidden.plist", "Last Used.plist"}) {
    EXPECT_EQ("mine", ContentOf(users() / name)) << name;
  }
  EXPECT_TRUE(fs::exists(users() / "folder.plist"));
  EXPECT_TRUE(fs::is_symlink(users() / "link.plist"));
}

TEST_F(PresetStoreTest, ListsAPresetThatIsALinkToAFile) {
  Save("a");
  folder().Write("far/ticket", "content");
  fs::create_symlink(folder().path() / "far/ticket", users() / "b.plist");
  EXPECT_EQ((Names{"a", "b"}), NamesIn(store()));
}

TEST_F(PresetStoreTest, ListsThePresetsForAllUsers) {
  const fs::path path = folder().Write(all() / "2/office.plist", "office");
  EXPECT_EQ((Presets{{"office", path, true}}), store().List());
}

TEST_F(PresetStoreTest, FirstFolderForAllUsersComesFirst) {
  folder().Write(all() / "2/a.plist", "second");
  folder().Write(all() / "1/a.plist", "first");
  EXPECT_EQ((Presets{{"a", all() / "1/a.plist", true}}), store().List());
}

TEST_F(PresetStoreTest, UsersOwnPresetHidesOneForAllUsers) {
  folder().Write(all() / "1/a.plist", "for all");
  const fs::path path = Save("a");
  EXPECT_EQ((Presets{{"a", path, false}}), store().List());
  EXPECT_EQ("", MessageOf(store().Delete("a")));
  EXPECT_EQ((Presets{{"a", all() / "1/a.plist", true}}), store().List());
}

TEST_F(PresetStoreTest, PathForWritingIsWherePresetIsStored) {
  EXPECT_EQ(Save("a"), store().PathForWriting("a").operator*());
  EXPECT_EQ(Names{"a"}, NamesIn(store()));
  EXPECT_EQ("content", ContentOf(users() / "a.plist")) << "asking for the path changed the preset";
}

TEST_F(PresetStoreTest, PathForWritingIsTheUsersWhereAPresetIsForAllUsers) {
  folder().Write(all() / "1/a.plist", "for all");
  EXPECT_EQ(users() / "a.plist", store().PathForWriting("a").operator*());
}

TEST_F(PresetStoreTest, PathForWritingMakesTheFolderForTheUserAlone) {
  ASSERT_EQ("", MessageOf(store().PathForWriting("a")));
  struct stat status = {};
  ASSERT_EQ(0, stat(users().c_str(), &status));
  EXPECT_EQ(0700u, status.st_mode & 07777);
}

TEST_F(PresetStoreTest, PathForWritingRefusesWhatCheckNameRefuses) {
  for (const char *name : {"", " a", "last used", "a\nb", "\xFF"}) {
    EXPECT_NE("", MessageOf(store().CheckName(name)));
    EXPECT_EQ(MessageOf(store().CheckName(name)), MessageOf(store().PathForWriting(name)));
  }
  EXPECT_FALSE(fs::exists(users()));
}

TEST_F(PresetStoreTest, PathForWritingSaysWhatIsInTheWayOfTheFolder) {
  const fs::path file = folder().Write(users().parent_path(), "a file");
  const std::string message = "cannot make the folder " + file.string() +
                              ": File exists; set XDG_CONFIG_HOME to a folder that can be written";
  EXPECT_EQ(message, MessageOf(store().PathForWriting("a")));
  EXPECT_EQ(message, MessageOf(store().LastUsedPathForWriting()));
}

TEST_F(PresetStoreTest, RenameKeepsTheContent) {
  const fs::path path = Save("a");
  EXPECT_EQ("", MessageOf(store().Rename("a", "b/c")));
  EXPECT_FALSE(fs::exists(path));
  EXPECT_EQ((Presets{{"b/c", users() / "b%2Fc.plist", false}}), store().List());
  EXPECT_EQ("content", ContentOf(users() / "b%2Fc.plist"));
}

TEST_F(PresetStoreTest, RenameChangesTheCaseOfLetters) {
  Save("draft");
  EXPECT_EQ("", MessageOf(store().Rename("draft", "Draft")));
  EXPECT_EQ(Names{"Draft"}, NamesIn(store()));
}

TEST_F(PresetStoreTest, RenameToTheSameNameChangesNothing) {
  Save("a");
  EXPECT_EQ("", MessageOf(store().Rename("a", "a")));
  EXPECT_EQ("content", ContentOf(users() / "a.plist"));
}

TEST_F(PresetStoreTest, RenameNeverReplacesAPreset) {
  const fs::path a = Save("a", "content of a");
  const fs::path b = Save("b", "content of b");
  EXPECT_EQ("cannot rename " + a.string() + ": " + b.string() +
                " is in the way; choose another name than \"b\"",
            MessageOf(store().Rename("a", "b")));
  EXPECT_EQ("content of a", ContentOf(a));
  EXPECT_EQ("content of b", ContentOf(b));
}

TEST_F(PresetStoreTest, RenameRefusesWhatCheckNameRefuses) {
  Save("a");
  for (const char *name : {"", "a ", "Default settings", "a\tb", "\xFF"}) {
    EXPECT_NE("", MessageOf(store().CheckName(name)));
    EXPECT_EQ(MessageOf(store().CheckName(name)), MessageOf(store().Rename("a", name)));
  }
  EXPECT_EQ(Names{"a"}, NamesIn(store()));
}

TEST_F(PresetStoreTest, RenameAndDeleteRefuseAPresetThatIsNotThere) {
  const std::string message = "there is no preset \"a\"; choose another one";
  EXPECT_EQ(message, MessageOf(store().Rename("a", "b")));
  EXPECT_EQ(message, MessageOf(store().Delete("a")));
}

TEST_F(PresetStoreTest, RenameAndDeleteRefuseAPresetForAllUsers) {
  const fs::path path = folder().Write(all() / "1/a.plist", "for all");
  const std::string message =
      path.string() + " is for all users; save its settings as a preset of your own instead";
  EXPECT_EQ(message, MessageOf(store().Rename("a", "b")));
  EXPECT_EQ(message, MessageOf(store().Delete("a")));
  EXPECT_EQ("for all", ContentOf(path));
}

TEST_F(PresetStoreTest, RenameSaysWhatFailed) {
  const fs::path path = Save("a");
  const std::string message =
      WithoutRightToWrite([this] { return MessageOf(store().Rename("a", "b")); });
  EXPECT_EQ("cannot rename " + path.string() + ": Permission denied", message);
  EXPECT_EQ(Names{"a"}, NamesIn(store()));
}

TEST_F(PresetStoreTest, TellsWhichFolderCannotBeRead) {
  EXPECT_EQ("", MessageOf(store().CheckFolders())) << "there is none";
  Save("a");
  EXPECT_EQ("", MessageOf(store().CheckFolders()));
  EXPECT_EQ(0, chmod(users().c_str(), 0));
  const std::string message = InChild([this]() -> std::string {
    return LosePrivileges() ? MessageOf(store().CheckFolders()) : "(still privileged)";
  });
  EXPECT_EQ(0, chmod(users().c_str(), 0755));
  EXPECT_EQ("cannot read " + users().string() + ": Permission denied", message);
}

TEST_F(PresetStoreTest, DeleteRemovesThePresetAndNoOther) {
  Save("a");
  Save("b");
  EXPECT_EQ("", MessageOf(store().Delete("a")));
  EXPECT_EQ(Names{"b"}, NamesIn(store()));
  EXPECT_FALSE(fs::exists(users() / "a.plist"));
}

TEST_F(PresetStoreTest, DeleteSaysWhatFailed) {
  const fs::path path = Save("a");
  const std::string message =
      WithoutRightToWrite([this] { return MessageOf(store().Delete("a")); });
  EXPECT_EQ("cannot delete " + path.string() + ": Permission denied", message);
  EXPECT_EQ(Names{"a"}, NamesIn(store()));
}

TEST_F(PresetStoreTest, LastUsedIsNoPreset) {
  Save("a");
  Expected<fs::path> path = store().LastUsedPathForWriting();
  ASSERT_TRUE(path) << MessageOf(path);
  folder().Write(*path, "last");
  EXPECT_EQ(*path, store().LastUsedPath());
  EXPECT_EQ(Names{"a"}, NamesIn(store()));
  EXPECT_EQ(std::nullopt, store().Find(kLastUsed));
}

TEST_F(PresetStoreTest, LastUsedNeedNotBeThere) {
  EXPECT_FALSE(fs::exists(store().LastUsedPath()));
  EXPECT_FALSE(fs::exists(users())) << "looking made the folder";
}

TEST_F(PresetStoreTest, LastUsedPathForWritingMakesTheFolder) {
  ASSERT_EQ("", MessageOf(store().LastUsedPathForWriting()));
  EXPECT_TRUE(fs::is_directory(store().LastUsedPath().parent_path()));
}

TEST_F(PresetStoreTest, UserWithoutAFolderHasThePresetsForAllUsers) {
  folder().Write(all() / "1/a.plist", "for all");
  const PresetStore store("", {all() / "1"});
  EXPECT_EQ(Names{"a"}, NamesIn(store));
  EXPECT_EQ(fs::path(), store.LastUsedPath());
  const std::string message =
      "there is no home folder to keep presets in; set HOME or XDG_CONFIG_HOME";
  EXPECT_EQ(message, MessageOf(store.PathForWriting("a")));
  EXPECT_EQ(message, MessageOf(store.LastUsedPathForWriting()));
}

TEST_F(PresetStoreTest, OfUserIsInTheFoldersOfTheXdgBaseDirectories) {
  const std::string root = folder().path().string();
  EnvironmentVariable config("XDG_CONFIG_HOME", root + "/own");
  EnvironmentVariable folders("XDG_CONFIG_DIRS", root + "/all1:" + root + "/all2");
  folder().Write("own/pdeprint/presets/a.plist", "");
  folder().Write("all1/pdeprint/presets/b.plist", "");
  folder().Write("all2/pdeprint/presets/b.plist", "");
  folder().Write("all2/pdeprint/presets/c.plist", "");
  const Presets expected = {{"a", root + "/own/pdeprint/presets/a.plist", false},
                            {"b", root + "/all1/pdeprint/presets/b.plist", true},
                            {"c", root + "/all2/pdeprint/presets/c.plist", true}};
  EXPECT_EQ(expected, PresetStore::OfUser().List());
}

TEST_F(PresetStoreTest, OfUserIsInTheHomeFolderWithoutXdgConfigHome) {
  EnvironmentVariable config("XDG_CONFIG_HOME", std::nullopt);
  EnvironmentVariable home("HOME", folder().path().string());
  Expected<fs::path> path = PresetStore::OfUser().PathForWriting("a");
  ASSERT_TRUE(path) << MessageOf(path);
  EXPECT_EQ(folder().path() / ".config/pdeprint/presets/a.plist", *path);
}
