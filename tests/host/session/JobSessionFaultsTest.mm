// Print-settings calls that fail, each in its turn, while a job is made up, and settings that an
// extension has locked.

#include <gmock/gmock.h>

#include "host/job/SettingOptions.h"
#include "host/presets/Ticket.h"
#include "host/session/JobSession.h"
#include "tests/support/ExpectedValue.h"
#include "tests/support/Interposed.h"
#include "tests/support/NumberingPPD.h"
#import "tests/support/ObjCTest.h"
#include "tests/support/TwoPanelsRun.h"

namespace fs = std::filesystem;
using testing::HasSubstr;

namespace {

const OSStatus kOutOfScope = -30871;

const JobOptions kPreset = {
    {"VQBackgroundNumbering", "On"}, {"VQBNSize", "Large"}, {"VQStartNumber", "25"},
    {"Duplex", "DuplexTumble"},      {"number-up", "2"},    {"copies", "2"}};

PrintSettings SettingsWith(const JobOptions &options) {
  PrintSettings settings = EmptyPrintSettings();
  for (const auto &[key, value] : options) {
    PMPrintSettingsSetValue(settings.get(),
                            (CFStringRef)[NSString stringWithUTF8String:key.c_str()],
                            (CFTypeRef)[NSString stringWithUTF8String:value.c_str()], false);
  }
  return settings;
}

PPDFile ColorPPD() {
  TemporaryFolder folder;
  Expected<PPDFile> ppd = PPDFile::Open(folder.Write("test.ppd", NumberingPPDText(true)));
  if (!ppd) std::abort();
  return std::move(*ppd);
}

Extensions &BuiltExtensions() {
  static Expected<Extensions> extensions =
      Extensions::Load(BINARY_DIRECTORY "/BackgroundNumbering.plugin");
  if (!extensions) std::abort();
  return *extensions;
}

JobOptions OptionsIn(const fs::path &ticket) {
  Expected<PrintSettings> settings = ReadTicket(ticket);
  return settings ? *JobOptionsFromSettings(settings->get())
                  : JobOptions{{"unreadable", settings.message()}};
}

// What differs between the two.
std::set<std::string> Differences(const JobOptions &one, const JobOptions &other) {
  std::set<std::string> keys;
  for (const auto &[key, value] : one) {
    if (const auto found = other.find(key); found == other.end() || found->second != value)
      keys.insert(key);
  }
  for (const auto &[key, value] : other) {
    if (!one.contains(key)) keys.insert(key);
  }
  return keys;
}

std::string TextOf(const JobOptions &ticket) {
  std::string text = "<plist><dict>";
  for (const auto &[key, value] : ticket) {
    text.append("<key>").append(key).append("</key><string>").append(value).append("</string>");
  }
  return text + "</dict></plist>";
}

struct Outcome {
  std::string refusal;                    // empty: it can be printed
  JobOptions printed;                     // if so
  JobOptions held;                        // what the settings turn out to hold, read afterwards
  std::optional<JobOptions> ticket;       // as it stands afterwards, where it was to be written
  std::string told;                       // all notes
  std::pair<int, int> of_panel = {0, 0};  // the numbers of the calls that the shown panel made
};

// A whole life of the session behind a dialog.
class Life {
 public:
  explicit Life(OSStatus status = 0, int call = 0) {
    preset_ = folder_.Write("preset.plist", TextOf(kPreset));
    ticket_ = folder_.Write("ticket.plist", TextOf({{"old", "ticket"}}));
    interposed::FailCall(call, status);
    Run();
    calls_ = interposed::CallsCounted();
    failed_ = interposed::FailedCall();
    interposed::FailCall(0, 0);
    if (session_ && session_->settings() != nullptr) {
      outcome.held = *JobOptionsFromSettings(session_->settings());
    }
    if (wrote_) outcome.ticket = OptionsIn(ticket_);
    if (!wrote_ || !write_failure_.empty()) {
      EXPECT_EQ((JobOptions{{"old", "ticket"}}), OptionsIn(ticket_));
    }
  }
  ~Life() { interposed::FailCall(0, 0); }

  int calls() const { return calls_; }
  const std::string &failed() const { return failed_; }

  Outcome outcome;

 private:
  void Run() {
    Expected<PrintSettings> preset = ReadTicket(preset_);
    if (!preset) return Refuse(preset.message());
    session_ = std::make_unique<JobSession>(BuiltExtensions());
    JobSession &session = *session_;
    Expected<Notes> notes =
        session.UsePrinter(ColorPPD(), {{"VQBNDensity", "Dark"}, {"InputSlot", "Manual"}});
    if (!notes) return Refuse(notes.message());
    Tell(*notes);
    notes = session.UseSettings(std::move(*preset));
    if (!notes) return Refuse(notes.message());
    Tell(*notes);
    outcome.of_panel.first = interposed::CallsCounted();
    for (const auto &panel : session.panels()) {
      panel->View();
      (void)panel->Restore();
      panel->WillShow();
      (void)panel->Save();
    }
    outcome.of_panel.second = interposed::CallsCounted();
    if (auto done = session.Set("copies", "3"); !done) return Refuse(done.message());
    if (auto done = session.ChangeOption("InputSlot", "Tray1"); !done)
      return Refuse(done.message());
    if (auto done = session.CheckPrintable(); !done) return Refuse(done.message());
    Expected<JobOptions> options = session.Options();
    if (!options) return Refuse(options.message());
    outcome.printed = *options;
    const Expected<void> written = WriteTicket(ticket_, session.settings());
    wrote_ = static_cast<bool>(written);
    write_failure_ = MessageOf(written);
    EXPECT_EQ(wrote_, write_failure_.empty());
  }

  void Refuse(const std::string &why) {
    EXPECT_NE("", why);
    outcome.refusal = why;
  }
  void Tell(const Notes &notes) {
    for (const std::string &note : notes) outcome.told += note + '\n';
  }

  TemporaryFolder folder_;
  fs::path preset_, ticket_;
  std::unique_ptr<JobSession> session_;
  int calls_ = 0;
  std::string failed_;
  bool wrote_ = false;
  std::string write_failure_;
};

// What is printed and written is always what the settings hold, as panels show it.
void ExpectToBeAsShown(const Outcome &outcome) {
  if (!outcome.refusal.empty()) return;
  for (const auto &[key, value] : outcome.held) {
    EXPECT_TRUE(outcome.printed.contains(key) && outcome.printed.at(key) == value) << key;
  }
  if (outcome.ticket) EXPECT_EQ(outcome.held, *outcome.ticket);
}

void SetLocked(const JobSession &session, NSString *key, NSString *value) {
  PMPrintSettingsSetValue(session.settings(), (CFStringRef)key, (CFTypeRef)value, true);
}

}  // namespace

OBJC_TEST(JobSessionFaults, AWholeLifePrintsAndWritesWhatWasChosen) {
  const Life life;
  EXPECT_EQ("", life.outcome.refusal);
  EXPECT_EQ("", life.outcome.told);
  const JobOptions expected = {{"VQBackgroundNumbering", "On"},
                               {"VQBNSize", "Large"},
                               {"VQStartNumber", "25"},
                               {"VQBNDensity", "Dark"},
                               {"VQBNColor", "Black"},
                               {"Duplex", "DuplexTumble"},
                               {"number-up", "2"},
                               {"copies", "3"},
                               {"InputSlot", "Tray1"}};
  EXPECT_EQ(expected, life.outcome.printed);
  EXPECT_EQ(expected, life.outcome.ticket);
}

// A panel's own call that fails is for the panel to know; but also then what is printed is what the
// settings hold, from which the panel shows it.
OBJC_TEST(JobSessionFaults, AFailingCallIsARefusalOrMakesNoDifference) {
  const Outcome whole = Life().outcome;
  const int calls = Life().calls();
  ASSERT_GT(calls, 60);
  int refused = 0;
  for (int call = 1; call <= calls; ++call) {
    @autoreleasepool {
      const Life life(call % 2 == 0 ? kPMInvalidParameter : kOutOfScope, call);
      SCOPED_TRACE("call " + std::to_string(call) + ": " + life.failed());
      ASSERT_NE("", life.failed());
      ExpectToBeAsShown(life.outcome);
      refused += life.outcome.refusal.empty() ? 0 : 1;
      const bool is_panels = call > whole.of_panel.first && call <= whole.of_panel.second;
      if (!life.outcome.refusal.empty() || is_panels) continue;
      EXPECT_EQ(whole.printed, life.outcome.printed);
      if (life.outcome.ticket) EXPECT_EQ(*whole.ticket, *life.outcome.ticket);
    }
  }
  EXPECT_GT(refused, 30);
}

// A key that is locked is none of the print system's failures. What somebody has chosen for it, and
// is not done, is told; where nobody has chosen anything it may stay as it is.
OBJC_TEST(JobSessionFaults, ALockedKeyStaysAsItIsAndChoicesForItAreToldOf) {
  const Outcome whole = Life().outcome;
  const int calls = Life().calls();
  for (int call = 1; call <= calls; ++call) {
    @autoreleasepool {
      const Life life(kPMItemIsLocked, call);
      SCOPED_TRACE("call " + std::to_string(call) + ": " + life.failed());
      ExpectToBeAsShown(life.outcome);
      const bool is_panels = call > whole.of_panel.first && call <= whole.of_panel.second;
      if (!life.outcome.refusal.empty() || is_panels) continue;
      for (const std::string &key : Differences(whole.printed, life.outcome.printed)) {
        EXPECT_EQ(0u, life.failed().find("set " + key + "=")) << key;
        if (kPreset.contains(key)) {
          EXPECT_THAT(life.outcome.told, HasSubstr(key));
        }
      }
    }
  }
}

const char kUnreadable[] = "cannot read the settings of the job: error -50 of the print system";

OBJC_TEST(JobSessionFaults, SettingsThatCannotBeReadForOnceAreAFailureForOnce) {
  JobSession session(BuiltExtensions());
  ASSERT_TRUE(session.UsePrinter(ColorPPD(), {}));
  interposed::FailCall(1, kPMInvalidParameter);
  EXPECT_EQ(kUnreadable, MessageOf(session.Options()));
  EXPECT_TRUE(session.Options());
  interposed::FailCall(0, 0);
}

OBJC_TEST(JobSessionFaults, APrinterWhoseSettingsCannotBeMadeToFitIsNone) {
  JobSession session(BuiltExtensions());
  interposed::FailCall(1, kPMInvalidParameter);
  EXPECT_FALSE(session.UsePrinter(ColorPPD(), {}));
  interposed::FailCall(0, 0);
  EXPECT_EQ(nullptr, session.ppd());
  EXPECT_TRUE(session.panels().empty());
  EXPECT_EQ(kUnreadable, MessageOf(session.CheckPrintable()));
  EXPECT_EQ(kUnreadable, MessageOf(session.RequestFor("Office", {})));
  EXPECT_TRUE(session.UsePrinter(ColorPPD(), {})) << "another time";
  EXPECT_TRUE(session.CheckPrintable());
}

OBJC_TEST(JobSessionFaults, ASessionForWhichNoSettingsCanBeMadePrintsNothing) {
  interposed::FailCall(1, kPMInvalidParameter);
  JobSession session(BuiltExtensions());
  ASSERT_EQ("create", interposed::FailedCall());
  interposed::FailCall(0, 0);
  EXPECT_FALSE(session.CheckPrintable());
  EXPECT_FALSE(session.Options());
}

OBJC_TEST(JobSessionFaults, SettingsThatAreNoneAreAFailureAndNothingIsPrintedOfThoseBefore) {
  JobSession session(BuiltExtensions());
  EXPECT_TRUE(session.UseSettings(SettingsWith({{"copies", "2"}})));
  EXPECT_EQ(kUnreadable, MessageOf(session.UseSettings(PrintSettings())));
  EXPECT_EQ(kUnreadable, MessageOf(session.Value("copies")));
}

OBJC_TEST(JobSessionFaults, ATicketThatDoesNotFitALockedSettingIsToldOf) {
  JobSession session(BuiltExtensions());
  EXPECT_TRUE(session.UsePrinter(ColorPPD(), {}));
  SetLocked(session, @"Duplex", @"DuplexTumble");
  SetLocked(session, @"InputSlot", @"Manual");
  EXPECT_EQ(Notes{"cannot change Duplex of the job: an extension has locked it"},
            session.UseSettings(SettingsWith({{"Duplex", "None"}, {"InputSlot", "Manual"}})));
  EXPECT_EQ("DuplexTumble", session.Value("Duplex"));
  EXPECT_TRUE(session.CheckPrintable());
}

OBJC_TEST(JobSessionFaults, ALockedSettingCannotBeSetAndThePanelsAreNotTold) {
  TwoPanelsRun run;
  Expected<Extensions> extensions = Extensions::Load(TWO_PANELS);
  ASSERT_TRUE(extensions);
  JobSession session(*extensions);
  EXPECT_TRUE(session.UsePrinter(ColorPPD(), {}));
  SetLocked(session, @"InputSlot", @"Manual");
  run.Calls();
  const std::string why = "cannot change InputSlot of the job: an extension has locked it";
  EXPECT_EQ(why, MessageOf(session.Set("InputSlot", "Tray1")));
  EXPECT_EQ(why, MessageOf(session.Set("InputSlot", "")));
  EXPECT_EQ(why, MessageOf(session.ChangeOption("InputSlot", "Tray1")));
  EXPECT_EQ(std::vector<std::string>(), run.Calls());
  EXPECT_EQ("Manual", session.Value("InputSlot"));
}

OBJC_TEST(JobSessionFaults, WhatIsLockedAndDoesNotFitThePrinterIsNotPrinted) {
  JobSession session(BuiltExtensions());
  EXPECT_TRUE(session.UsePrinter(ColorPPD(), {}));
  SetLocked(session, @"VQBNColor", @"Red");
  EXPECT_TRUE(session.CheckPrintable());
  TemporaryFolder folder;
  Expected<PPDFile> mono = PPDFile::Open(folder.Write("mono.ppd", NumberingPPDText(false)));
  ASSERT_TRUE(mono);
  EXPECT_TRUE(session.UsePrinter(std::move(*mono), {}));
  // The panel would have it Black.
  EXPECT_FALSE(session.CheckPrintable());
}
