// The program, killed while it writes a ticket, which lies where presets lie.

#include <gmock/gmock.h>
#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <deque>
#include <random>
#include <thread>

#include "host/job/SettingOptions.h"
#include "host/presets/PresetStore.h"
#include "host/presets/Ticket.h"
#include "tests/support/NumberingPPD.h"
#import "tests/support/ObjCTest.h"
#include "tests/support/RunProgram.h"

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using testing::StartsWith;

namespace {

using Clock = std::chrono::steady_clock;

// Tells when files appear in a folder, and when they take another's place.
class FolderWatch {
 public:
  explicit FolderWatch(const fs::path &folder) : queue_(inotify_init1(IN_CLOEXEC)) {
    if (inotify_add_watch(queue_, folder.c_str(), IN_CREATE | IN_MOVED_TO) < 0) std::abort();
  }
  ~FolderWatch() { close(queue_); }
  FolderWatch(const FolderWatch &) = delete;
  FolderWatch &operator=(const FolderWatch &) = delete;

  // Waits for such an event, of those since the last one that was waited for.
  bool Await(uint32_t event) {
    pollfd ready = {queue_, POLLIN, 0};
    while (!pending_.empty() ||
           poll(&ready, 1, std::chrono::milliseconds(kPatience).count()) == 1) {
      if (pending_.empty()) ReadEvents();
      while (!pending_.empty()) {
        const uint32_t came = pending_.front();
        pending_.pop_front();
        if ((came & event) != 0) return true;
      }
    }
    return false;
  }

 private:
  void ReadEvents() {
    alignas(inotify_event) char bytes[4096];
    const ssize_t length = read(queue_, bytes, sizeof bytes);
    for (ssize_t at = 0; at < length;) {
      const auto *one = reinterpret_cast<const inotify_event *>(bytes + at);
      pending_.push_back(one->mask);
      at += static_cast<ssize_t>(sizeof *one + one->len);
    }
  }

  std::deque<uint32_t> pending_;
  int queue_;
};

const char kBundle[] = BINARY_DIRECTORY "/BackgroundNumbering.plugin";

// What nobody but this program's user would miss, in every version.
const std::string kText(30'000, 'x');

class KilledWriter {
 public:
  KilledWriter() : store_(folder_.path() / "presets", {}), path_(*store_.PathForWriting("draft")) {
    folder_.Write(path_, "<plist><dict><key>com.other.text</key><string>" + kText +
                             "</string><key>VQBNSize</key><string>Small</string></dict></plist>");
  }

  std::unique_ptr<RunningProgram> Start(const std::string &size) const {
    return std::make_unique<RunningProgram>(
        std::vector<std::string>{kPdeprint, "settings", "--plugin", kBundle, "--ppd", ppd_,
                                 "--ticket", path_, "--set", "Size=" + size},
        RunOptions{.environment = {{"DISPLAY", std::nullopt}, {"LANGUAGE", "en"}},
                   .folder = {},
                   .out = {}});
  }

  // From the moment when the new file appears under its temporary name.
  std::chrono::duration<double> TimeToReplace() const {
    FolderWatch watch(path_.parent_path());
    const auto program = Start("Small");
    EXPECT_TRUE(watch.Await(IN_CREATE));
    const auto begin = Clock::now();
    EXPECT_TRUE(watch.Await(IN_MOVED_TO));
    const auto end = Clock::now();
    EXPECT_EQ(0, program->Wait().status);
    return end - begin;
  }

  // The size in the whole ticket that is there; or what is wrong with it.
  std::string Size() const {
    Expected<PrintSettings> settings = ReadTicket(path_);
    if (!settings) return settings.message();
    JobOptions options = *JobOptionsFromSettings(settings->get());
    return options["com.other.text"] == kText ? options["VQBNSize"] : "another text";
  }

  size_t Listed() const { return store_.List().size(); }

  size_t LeftBehind() const {
    size_t count = 0;
    for (const fs::directory_entry &entry : fs::directory_iterator(path_.parent_path())) {
      if (entry.path() == path_) continue;
      EXPECT_THAT(entry.path().filename().string(), StartsWith(".pdeprint.")) << entry.path();
      ++count;
    }
    return count;
  }

  const fs::path &path() const { return path_; }

 private:
  TemporaryFolder folder_;
  const std::string ppd_ = folder_.Write("color.ppd", NumberingPPDText(/*color=*/true));
  PresetStore store_;
  fs::path path_;
};

}  // namespace

OBJC_TEST(KilledWriter, LeavesTheOldOrTheNewTicketAndNoOtherPreset) {
  const int kKills = 200;
  const KilledWriter writer;
  std::chrono::duration<double> time = std::chrono::duration<double>::max();
  for (int run = 0; run < 3; ++run) time = std::min(time, writer.TimeToReplace());
  std::uniform_real_distribution<double> part(0, 2);
  std::mt19937 random(7);
  int kills = 0, old_ones = 0, new_ones = 0;
  for (int run = 0; kills < kKills; ++run) {
    ASSERT_LT(run, 3 * kKills) << "most writers ended before they could be killed";
    @autoreleasepool {
      const std::string before = writer.Size();
      const std::string after = before == "Small" ? "Large" : "Small";
      FolderWatch watch(writer.path().parent_path());
      const auto program = writer.Start(after);
      ASSERT_TRUE(watch.Await(IN_CREATE)) << program->Wait().err;
      std::this_thread::sleep_for(part(random) * time);
      program->Signal(SIGKILL);
      if (program->Wait().status == 128 + SIGKILL) ++kills;

      const std::string now = writer.Size();
      ASSERT_TRUE(now == before || now == after) << now;
      ++(now == before ? old_ones : new_ones);
      ASSERT_EQ(1u, writer.Listed()) << "what the writer left behind is listed";
    }
  }
  EXPECT_GT(old_ones, 0) << "no kill came before the new ticket was in place";
  EXPECT_GT(new_ones, 0) << "no kill came after the new ticket was in place";
  // Nothing deletes these: another program may be writing one.
  EXPECT_EQ(static_cast<size_t>(old_ones), writer.LeftBehind());
  ::testing::Test::RecordProperty("old", old_ones);
  ::testing::Test::RecordProperty("new", new_ones);
}
