#include "host/ppd/PPDSource.h"
#include "host/session/JobSession.h"
#include "tests/fuzz/InstalledBundle.h"
#include "tests/fuzz/Outcome.h"
#import "tests/fuzz/StoredValues.h"
#include "tests/fuzz/Targets.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestPPD.h"

namespace fuzz {

namespace {

// A printer with few start numbers, since a list of all is most of the work with a printer.
constexpr char kLines[] = R"(*VQBackgroundNumberingSupport: "true"
*OpenUI *Duplex/Two-Sided: PickOne
*DefaultDuplex: None
*Duplex None/Off: ""
*Duplex DuplexTumble/Short Edge: ""
*CloseUI: *Duplex
*OpenUI *MediaType/Type: PickOne
*DefaultMediaType: Plain
*MediaType Plain/Plain: ""
*MediaType Transparency/Transparency: ""
*CloseUI: *MediaType
*UIConstraints: *Duplex DuplexTumble *MediaType Transparency
*UIConstraints: *MediaType Transparency *Duplex DuplexTumble
*OpenUI *VQBNSize/Size: PickOne
*DefaultVQBNSize: Medium
*VQBNSize Small/Small: ""
*VQBNSize Medium/Medium: ""
*CloseUI: *VQBNSize
*OpenUI *VQStartNumber/Start Number: PickOne
*DefaultVQStartNumber: 1
*VQStartNumber 1/1: ""
*VQStartNumber 25/25: ""
*CloseUI: *VQStartNumber
*CustomPageSize True: "pop pop pop"
*ParamCustomPageSize Width: 1 points 36 1000
*ParamCustomPageSize Height: 2 points 36 1000
)";

Extensions LoadBundle() {
  static const TemporaryFolder folder;
  Expected<Extensions> extensions = Extensions::Load(InstallBundle(folder.path()));
  if (!extensions) std::abort();
  return std::move(*extensions);
}

bool CanBeWritten(NSString *text) { return [text canBeConvertedToEncoding:NSUTF8StringEncoding]; }

// As a ticket holds them: it is written in UTF-8.
PrintSettings SettingsWith(NSDictionary *values) {
  PrintSettings settings = EmptyPrintSettings();
  for (NSString *key in values) {
    id value = [values objectForKey:key];
    if (!CanBeWritten(key)) continue;
    if ([value isKindOfClass:[NSString class]] && !CanBeWritten(value)) continue;
    PMPrintSettingsSetValue(settings.get(), (CFStringRef)key, (CFTypeRef)value, false);
  }
  return settings;
}

// The panel must never come to see what it takes for a programming error, and nothing may be left
// that the printer would silently make something else of.
std::string Judge(JobSession &session) {
  (void)session.CheckPrintable();
  session.Summary();
  for (const auto &panel : session.panels()) {
    if (panel->fault()) return "the panel has a fault: " + *panel->fault();
  }
  if (session.panels().size() != 1) return "there is no panel: " + session.ReasonForNoPanel();
  Expected<JobOptions> options = session.OwnOptions();
  if (!options) return options.message();
  for (const auto &[key, value] : *options) {
    const Expected<std::string> fitting = session.check().Fitting(key, value);
    if (!fitting) return key + " is left with a value that does not fit: " + fitting.message();
    if (*fitting != value) return key + " is left with a value in another form: " + value;
  }
  return "";
}

std::string Run(NSDictionary *values) {
  static const std::string color = TestPPD::Text(std::string(kColorDevice) + kLines);
  static const std::string monochrome = TestPPD::Text(std::string(kMonoDevice) + kLines);
  static Extensions extensions = LoadBundle();
  JobSession session(extensions);
  if (!session.UseSettings(SettingsWith(values))) return "settings are not taken";
  if (!session.UsePrinter(std::move(*ParsePPD(color)), {})) return "the printer is not taken";
  std::string finding = Judge(session);
  if (!finding.empty()) return "color printer: " + finding;
  if (!session.UsePrinter(std::move(*ParsePPD(monochrome)), {})) return "no second printer";
  finding = Judge(session);
  if (!finding.empty()) return "monochrome printer: " + finding;
  if (!session.UseSettings(SettingsWith(values))) return "settings are not taken again";
  finding = Judge(session);
  return finding.empty() ? "" : "monochrome printer first: " + finding;
}

}  // namespace

std::string TrySession(std::string_view lines) {
  return Outcome([lines] { return Run(StoredValues(lines)); });
}

}  // namespace fuzz
