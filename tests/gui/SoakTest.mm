// What many changes of the queue and many openings of the dialog leave behind.

#include <malloc.h>

#include <chrono>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <map>

#import "tests/gui/DialogOnScreen.h"
#import "tests/support/BuiltBundle.h"
#include "tests/support/Interposed.h"
#import "tests/support/LiveInstances.h"
#include "tests/support/NumberingPPD.h"
#import "tests/support/ObjCTest.h"

namespace {

// What the platform makes once, but not before it is needed.
const int kWarmUp = 3;
const long kSlack = 5;

// NUMBERING_SOAK_ROUNDS asks for more.
int Rounds() {
  const char *rounds = std::getenv("NUMBERING_SOAK_ROUNDS");
  return rounds == nullptr ? 10 : std::atoi(rounds);
}

struct Heap {
  std::map<std::string, long> objects;  // by class
  long bytes = 0;
};

Heap HeapNow() {
  malloc_trim(0);
  const struct mallinfo2 info = mallinfo2();
  return {.objects = LiveInstances(), .bytes = static_cast<long>(info.uordblks + info.hblkhd)};
}

// What so many rounds leave behind.
Heap GrowthOver(int rounds, const std::function<void()> &round) {
  const auto run = [&round](int times) {
    for (int i = 0; i < times; ++i) {
      @autoreleasepool {
        round();
        interposed::Clear();  // what the tests themselves keep
      }
    }
  };
  run(kWarmUp);
  const Heap before = HeapNow();
  run(rounds);
  Heap growth = HeapNow();
  growth.bytes -= before.bytes;
  for (const auto &[name, count] : before.objects) growth.objects[name] -= count;
  return growth;
}

// A panel in a window, saved and dropped.
void DropPanel(ppd_file_t *ppd) {
  TestHost *host = [TestHost hostWithPPD:ppd];
  id<PDEPanel> panel = NewPanel(host);
  NSWindow *window = [[[NSWindow alloc] initWithContentRect:NSMakeRect(0, 0, 600, 400)
                                                  styleMask:NSTitledWindowMask
                                                    backing:NSBackingStoreBuffered
                                                      defer:YES] autorelease];
  [window setReleasedWhenClosed:NO];
  [[window contentView] addSubview:[panel panelView]];
  [panel restoreValuesAndReturnError:nullptr];
  [panel willShow];
  [window display];
  [panel saveValuesAndReturnError:nullptr];
  [[panel panelView] removeFromSuperview];
}

// Of one panel. Its view stays with all controls, on purpose: the dialog may still show it.
const Heap &LeftByAPanel() {
  static const Heap left = [] {
    const int panels = 20;
    const TemporaryFolder folder;
    Expected<PPDFile> ppd = PPDFile::Open(folder.Write("printer.ppd", NumberingPPDText(true)));
    Heap growth = GrowthOver(panels, [&ppd] { DropPanel(ppd->get()); });
    for (auto &[name, count] : growth.objects) count = (count + panels / 2) / panels;
    growth.bytes /= panels;
    return growth;
  }();
  return left;
}

void ExpectOnlyViewsOfPanels(const char *what, const std::function<void()> &round) {
  using Clock = std::chrono::steady_clock;
  const Heap &panel = LeftByAPanel();
  const int rounds = Rounds();
  const auto begin = Clock::now();
  const Heap left = GrowthOver(rounds, round);
  const std::chrono::duration<double> seconds = Clock::now() - begin;
  std::cout << rounds << " times " << what << " in " << seconds.count()
            << " s: " << left.bytes / rounds << " bytes left each; by a panel " << panel.bytes
            << '\n';
  for (const auto &[name, count] : left.objects) {
    const auto explained = panel.objects.find(name);
    const long each = explained == panel.objects.end() ? 0 : explained->second;
    EXPECT_NEAR(static_cast<double>(count), static_cast<double>(rounds * each), kSlack) << name;
  }
  EXPECT_LE(left.bytes, rounds * panel.bytes * 21 / 20 + 100'000);
}

}  // namespace

OBJC_TEST(Soak, AChangeOfTheQueueLeavesOnlyWhatADroppedPanelLeaves) {
  LeftByAPanel();
  DialogOnScreen screen;
  screen.AwaitReady();
  bool is_stopped = false;
  ExpectOnlyViewsOfPanels("another queue", [&] {
    is_stopped = !is_stopped;
    NSPopUpButton *printers = [screen.view() printers];
    [printers selectItemWithTitle:is_stopped ? @"Stopped" : @"Color"];
    [NSApp sendAction:[printers action] to:[printers target] from:printers];
    screen.AwaitReady();
    EXPECT_EQ(1u, screen.session().panels().size());
  });
}

OBJC_TEST(Soak, AnOpeningOfTheDialogLeavesOnlyWhatADroppedPanelLeaves) {
  LeftByAPanel();
  ExpectOnlyViewsOfPanels("a dialog", [] {
    DialogOnScreen screen;
    screen.AwaitReady();
  });
}
