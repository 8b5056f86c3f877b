// Presets as tickets: read, damaged, and written by programs that end in the middle of it.

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <map>
#include <random>
#include <thread>

#include "host/presets/PresetStore.h"
#include "host/presets/Ticket.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/ExpectedValue.h"
#include "tests/support/LeakCheckingPause.h"
#import "tests/support/ObjCTest.h"
#include "tests/support/TemporaryFolder.h"

namespace fs = std::filesystem;
using testing::StartsWith;

namespace {

// Print settings that take a while to be written: of the version 'a' or 'b'.
PMPrintSettings SettingsOf(char version) {
  static const std::map<char, PrintSettings> versions = [] {
    std::map<char, PrintSettings> made;
    for (const char letter : {'a', 'b'}) {
      PrintSettings settings = EmptyPrintSettings();
      NSString *text = [NSString stringWithUTF8String:std::string(100'000, letter).c_str()];
      PMPrintSettingsSetValue(settings.get(), (CFStringRef) @"com.other.text", (CFStringRef)text,
                              false);
      PMPrintSettingsSetValue(settings.get(), (CFStringRef) @"VQBNSize",
                              (CFStringRef)[text substringToIndex:1], false);
      made[letter] = std::move(settings);
    }
    return made;
  }();
  return versions.at(version).get();
}

NSDictionary *Values(PMPrintSettings settings) {
  CFDictionaryRef values = nullptr;
  PMPrintSettingsCopyAsDictionary(settings, &values);
  return [(NSDictionary *)values autorelease];
}

// The version that the file holds; or why it is none, in a sentence.
std::string VersionIn(const fs::path &path) {
  Expected<PrintSettings> settings = ReadTicket(path);
  if (!settings) return settings.message();
  for (const char version : {'a', 'b'}) {
    if ([Values(settings->get()) isEqual:Values(SettingsOf(version))]) return {version};
  }
  return "the content is neither the old nor the new one";
}

// "" where it was written.
std::string Write(const fs::path &path, char version) {
  return MessageOf(WriteTicket(path, SettingsOf(version)));
}

using Seconds = std::chrono::duration<double>;

// How long it takes where nothing else delays it.
Seconds TimeOfWrite(const fs::path &path, char version) {
  Seconds fastest = Seconds::max();
  for (int time = 0; time < 5; ++time) {
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ("", Write(path, version));
    fastest = std::min<Seconds>(fastest, std::chrono::steady_clock::now() - begin);
  }
  return fastest;
}

// A preset in a folder of its own.
struct SavedPreset {
  TemporaryFolder folder;
  PresetStore store = PresetStore(folder.path() / "presets", {});
  fs::path path = *store.PathForWriting("draft");
};

// All under names that no preset has.
long FilesLeftBeside(const fs::path &path) {
  const fs::directory_iterator entries(path.parent_path());
  return std::count_if(begin(entries), end(entries), [](const fs::directory_entry &entry) {
    return entry.path().filename().string().starts_with(".pdeprint.");
  });
}

size_t CountOfNames(const PresetStore &store) { return store.List().size(); }

}  // namespace

OBJC_TEST(PresetWriting, IsReadAsItWasWritten) {
  SavedPreset preset;
  ASSERT_EQ("", Write(preset.path, 'a'));
  ASSERT_EQ("", Write(preset.path, 'b'));
  EXPECT_EQ("b", VersionIn(preset.store.Find("draft")->path));
}

OBJC_TEST(PresetWriting, DamagedPresetIsReportedWithItsPathAndStays) {
  LeakCheckingPause pause;  // the platform's parser gives up without cleaning up
  SavedPreset preset;
  ASSERT_EQ("", Write(preset.path, 'a'));
  const std::string whole = ContentOf(preset.path);
  for (const std::string &damaged : {std::string(), std::string("no property list"),
                                     whole.substr(0, whole.size() / 2), whole.substr(100)}) {
    preset.folder.Write(preset.path, damaged);
    Expected<PrintSettings> settings = ReadTicket(preset.store.Find("draft")->path);
    ASSERT_FALSE(settings);
    EXPECT_THAT(settings.message(),
                StartsWith("cannot read ticket " + preset.path.string() + ": "));
    EXPECT_EQ(1u, CountOfNames(preset.store));
    EXPECT_EQ(damaged, ContentOf(preset.path));
  }
}

OBJC_TEST(PresetWriting, DamagedPresetIsReplacedByAWholeOne) {
  SavedPreset preset;
  preset.folder.Write(preset.path, "no property list");
  EXPECT_EQ("", Write(preset.path, 'a'));
  EXPECT_EQ("a", VersionIn(preset.path));
}

// Every other round it is a ticket somewhere else.
OBJC_TEST(PresetWriting, LeavesTheOldOrTheNewFileWheneverTheWriterIsKilled) {
  SavedPreset preset;
  TemporaryFolder elsewhere;
  const fs::path ticket = elsewhere.path() / "ticket.plist";
  ASSERT_EQ("", Write(ticket, 'a'));
  const Seconds write_time = TimeOfWrite(preset.path, 'a');
  // The moment of the kill is what varies: within the first write and the one after it.
  std::uniform_real_distribution<double> part_of_writes(0, 1.5);
  std::mt19937 random(7);
  std::map<fs::path, std::string> version = {{preset.path, "a"}, {ticket, "a"}};
  int old_ones = 0, new_ones = 0;
  for (int round = 0; round < 300; ++round) {
    const fs::path &path = round % 2 == 0 ? preset.path : ticket;
    const char before = version[path].front();
    int ready[2];
    ASSERT_EQ(0, pipe(ready));
    const pid_t child = fork();
    if (child == 0) {
      if (write(ready[1], ".", 1) != 1) _exit(1);
      for (char letter = before;;) {
        @autoreleasepool {
          letter = letter == 'a' ? 'b' : 'a';
          if (!Write(path, letter).empty()) _exit(1);
        }
      }
    }
    char byte = 0;
    EXPECT_EQ(1, read(ready[0], &byte, 1));  // it is at work
    std::this_thread::sleep_for(part_of_writes(random) * write_time);
    kill(child, SIGKILL);
    int status = 0;
    ASSERT_EQ(child, waitpid(child, &status, 0));
    EXPECT_TRUE(WIFSIGNALED(status)) << "the writer failed by itself";
    close(ready[0]);
    close(ready[1]);

    @autoreleasepool {
      version[path] = VersionIn(path);
      ASSERT_EQ(1u, version[path].size()) << version[path];
      ++(version[path].front() == before ? old_ones : new_ones);
      ASSERT_EQ(1u, CountOfNames(preset.store)) << "what the writer left behind is listed";
    }
  }
  EXPECT_GT(old_ones, 0);
  EXPECT_GT(new_ones, 0);
  for (const fs::path &path : {preset.path, ticket}) {
    EXPECT_GT(FilesLeftBeside(path), 0) << "no writer was killed while it wrote " << path;
  }
}

OBJC_TEST(PresetWriting, LeavesTheOldPresetAndNothingElseOnAFullDisk) {
  SavedPreset preset;
  ASSERT_EQ("", Write(preset.path, 'a'));
  const std::string message = InChild([&preset] {
    // Larger files cannot be written then, as on a full disk.
    const rlimit limit = {1000, 1000};
    signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &limit);
    return Write(preset.path, 'b');
  });
  EXPECT_EQ("cannot write " + preset.path.string() + ": File too large", message);
  EXPECT_EQ("a", VersionIn(preset.path));
  const fs::directory_iterator files(preset.path.parent_path());
  EXPECT_EQ(1, std::distance(begin(files), end(files)));
}

OBJC_TEST(PresetWriting, LeavesTheOldPresetInAFolderThatCannotBeWritten) {
  SavedPreset preset;
  ASSERT_EQ("", Write(preset.path, 'a'));
  const fs::path folder = preset.path.parent_path();
  ASSERT_EQ(0, chmod(folder.c_str(), 0555));
  const std::string message = InChild([&preset]() -> std::string {
    return LosePrivileges() ? Write(preset.path, 'b') : "(still privileged)";
  });
  ASSERT_EQ(0, chmod(folder.c_str(), 0755));
  EXPECT_EQ("cannot write " + preset.path.string() + ": Permission denied", message);
  EXPECT_EQ("a", VersionIn(preset.path));
}
