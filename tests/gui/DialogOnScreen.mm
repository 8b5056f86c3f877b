#import "tests/gui/DialogOnScreen.h"

#include <gmock/gmock.h>

#include "host/presets/Ticket.h"
#include "tests/support/NumberingPPD.h"
#import "tests/support/ObjCTest.h"

using testing::HasSubstr;

namespace {

const char kPage[] = "%!PS-Adobe-3.0\n%%Pages: 1\n%%EndComments\n%%Page: 1 1\n"
                     "/Helvetica findfont 24 scalefont setfont\n"
                     "72 700 moveto (Hello) show\nshowpage\n%%EOF\n";

Extensions Load(const std::string &bundle) {
  Expected<Extensions> extensions = Extensions::Load(bundle);
  return std::move(*extensions);
}

PrintSettings Settings(const std::map<std::string, std::string> &values) {
  PrintSettings settings = EmptyPrintSettings();
  for (const auto &[key, value] : values) {
    PMPrintSettingsSetValue(settings.get(),
                            (CFStringRef)[NSString stringWithUTF8String:key.c_str()],
                            (CFTypeRef)[NSString stringWithUTF8String:value.c_str()], false);
  }
  return settings;
}

void CollectTexts(NSView *view, std::string &texts) {
  if ([view isHidden]) return;
  if ([view isKindOfClass:[NSTextField class]]) {
    texts += std::string([[(NSTextField *)view stringValue] UTF8String]) + '\n';
  }
  for (NSView *subview in [view subviews]) CollectTexts(subview, texts);
}

}  // namespace

PrivateServer &TestServer() {
  static TemporaryFolder folder;
  static PrivateServer server;
  static bool has_queues = false;
  if (has_queues) return server;
  has_queues = true;
  const auto color = folder.Write("color.ppd", NumberingPPDText(true));
  const auto mono = folder.Write("mono.ppd", NumberingPPDText(false));
  server.AddQueue({.name = "Color",
                   .ppd = color,
                   .description = "Color printer",
                   .location = "2nd floor, by the lift",
                   .is_default = true});
  server.AddQueue({.name = "Mono", .ppd = mono, .description = "Monochrome printer"});
  server.AddQueue({.name = "Raw", .description = "Takes anything"});
  server.AddQueue({.name = "Rejecting", .ppd = color, .rejecting = "closed for lunch"});
  server.AddQueue({.name = "Stopped", .ppd = color, .stopped = "out of paper"});
  return server;
}

DialogOnScreen::DialogOnScreen(const DialogOptions &options) : extensions_(Load(options.bundle)) {
  for (const auto &[name, value] : TestServer().Environment()) variables_.emplace_back(name, value);
  if (!options.server.empty()) variables_.emplace_back("CUPS_SERVER", options.server);
  PrintDialogJob job;
  job.queue = options.queue;
  if (!options.ppd.empty()) job.ppd = std::move(*PPDFile::Open(options.ppd));
  job.settings = Settings(options.settings);
  if (!options.damaged_preset.empty()) {
    folder_.Write("presets/" + options.damaged_preset + ".plist", "<plist><dict><key>copies");
  }
  if (!options.last_used.empty()) {
    Expected<std::filesystem::path> path = store().LastUsedPathForWriting();
    EXPECT_TRUE(WriteTicket(*path, Settings(options.last_used).get()));
  }
  variables_.emplace_back("XDG_CONFIG_HOME", folder_.path() / "config");
  if (options.has_file) {
    job.files = {options.document.empty() ? folder_.Write("page.ps", kPage) : options.document};
    job.files.insert(job.files.end(), options.more_documents.begin(), options.more_documents.end());
  }
  job.shows_preview = options.preview;
  job.waits = options.waits;
  job.limit = options.limit;
  dialog_ = std::make_unique<PrintDialog>(std::move(job), extensions_, store());
  dialog_->Open();
  HandleEventsUntil([this] { return [dialog_->window() isKeyWindow]; });
  Activate([[dialog_->window() title] UTF8String]);
}

DialogOnScreen::~DialogOnScreen() {
  dialog_.reset();
  HandleEventsUntilSettled();
}

void DialogOnScreen::AwaitReady() {
  HandleEventsUntil([this] { return [[view() print] isEnabled]; });
  HandleEventsUntilSettled();
}

void DialogOnScreen::AwaitEnd() {
  HandleEventsUntil([this] { return dialog_->HasEnded(); });
}

std::string DialogOnScreen::Texts() {
  std::string texts;
  CollectTexts(view(), texts);
  return texts;
}

void DialogOnScreen::AwaitText(const std::string &text) {
  HandleEventsUntil([&] { return Texts().find(text) != std::string::npos; });
  EXPECT_THAT(Texts(), HasSubstr(text));
}

void DialogOnScreen::Choose(NSPopUpButton *pop_up, NSString *title) {
  const NSInteger wanted = [pop_up indexOfItemWithTitle:title];
  ASSERT_GE(wanted, 0) << [title UTF8String];
  const NSInteger now = [pop_up indexOfSelectedItem];
  [dialog_->window() makeFirstResponder:pop_up];
  PressKeys({"space"});
  for (NSInteger at = now; at < wanted; ++at) PressKeys({"Down"});
  for (NSInteger at = now; at > wanted; --at) PressKeys({"Up"});
  PressKeys({"Return"});
}

NSPopUpButton *DialogOnScreen::OptionPopUp(NSString *caption) {
  NSArray *views = [[view() panelView] subviews];
  for (NSUInteger at = 0; at + 1 < [views count]; ++at) {
    id label = [views objectAtIndex:at];
    if ([label isKindOfClass:[NSTextField class]] &&
        [[label stringValue] isEqualToString:[caption stringByAppendingString:@":"]]) {
      return [views objectAtIndex:at + 1];
    }
  }
  return nil;
}
