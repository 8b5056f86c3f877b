// What sessions of a job are made of.

#ifndef TESTS_HOST_SESSION_SESSIONOFJOB_H
#define TESTS_HOST_SESSION_SESSIONOFJOB_H

#include <algorithm>

#include "host/job/SettingOptions.h"
#include "host/session/JobSession.h"
#include "tests/support/MessageOf.h"
#include "tests/support/NumberingPPD.h"
#import "tests/support/ObjCTest.h"
#include "tests/support/TestPPD.h"
#include "tests/support/TwoPanelsRun.h"

using Names = std::vector<std::string>;

inline constexpr char kBuilt[] = BINARY_DIRECTORY "/BackgroundNumbering.plugin";

inline PPDFile PPDWithText(const std::string &text) {
  TemporaryFolder folder;
  Expected<PPDFile> ppd = PPDFile::Open(folder.Write("test.ppd", text));
  if (!ppd) std::abort();
  return std::move(*ppd);
}

inline PPDFile ColorPPD() { return PPDWithText(NumberingPPDText(true)); }
inline PPDFile MonoPPD() { return PPDWithText(NumberingPPDText(false)); }
// Without numbering, and without options but those of TestPPD.
inline PPDFile PlainPPD(const std::string &lines = "") { return PPDWithText(TestPPD::Text(lines)); }

inline std::string Option(const std::string &keyword, const Names &choices) {
  std::string lines = "*OpenUI *" + keyword + ": PickOne\n*Default" + keyword + ": " + choices[0];
  for (const std::string &choice : choices) lines += "\n*" + keyword + ' ' + choice + ": \"\"";
  return lines + "\n*CloseUI: *" + keyword + "\n";
}

inline PrintSettings SettingsWith(NSDictionary *values) {
  PrintSettings settings = EmptyPrintSettings();
  for (NSString *key in values) {
    PMPrintSettingsSetValue(settings.get(), (CFStringRef)key, [values objectForKey:key], false);
  }
  return settings;
}

// All bundles of the tests: the built one and the one with two panels.
struct Bundles {
  TwoPanelsRun run;
  Extensions extensions;

  explicit Bundles(const std::string &faults = "", const std::filesystem::path &named = kBuilt)
      : run(faults), extensions(Loaded(named)) {}

  static Extensions Loaded(const std::filesystem::path &named) {
    Expected<Extensions> extensions = Extensions::Load(named);
    if (!extensions) std::abort();
    return std::move(*extensions);
  }
};

inline Names PanelNames(const JobSession &session) {
  Names names;
  for (const auto &panel : session.panels()) names.push_back(panel->name());
  return names;
}

inline Names KeywordsOf(const std::vector<PPDOption> &options) {
  Names keywords;
  for (const PPDOption &option : options) keywords.push_back(option.keyword);
  return keywords;
}

inline std::string ReasonOf(JobSession &session) { return MessageOf(session.CheckPrintable()); }

inline JobOptions SettingsOf(const JobSession &session) {
  return *JobOptionsFromSettings(session.settings());
}

inline const JobOptions kDefaults = {{"Duplex", "None"},     {"InputSlot", "Auto"},
                                     {"VQBNColor", "Black"}, {"VQBNDensity", "Medium"},
                                     {"VQBNSize", "Medium"}, {"VQBackgroundNumbering", "Off"},
                                     {"VQStartNumber", "1"}};

inline JobOptions With(JobOptions options, const JobOptions &changes) {
  for (const auto &[keyword, value] : changes) options[keyword] = value;
  return options;
}

#endif
