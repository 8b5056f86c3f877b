#include <algorithm>
#include <iostream>

#include "host/Commands.h"
#include "host/JobTicket.h"
#include "host/Messages.h"
#include "host/PanelSession.h"
#include "host/Process.h"
#include "host/SettingInfo.h"

namespace {

struct Change {
  const Setting *setting;
  std::string value;
};

Expected<Change> ParseChange(const std::string &text, const std::vector<Setting> &settings) {
  const size_t equals = text.find('=');
  if (equals == std::string::npos) {
    return Failure{"--set " + text + ": write NAME=VALUE, for instance StartNumber=25"};
  }
  const std::string name = text.substr(0, equals);
  const auto setting = std::find_if(settings.begin(), settings.end(),
                                    [&name](const Setting &known) { return known.name == name; });
  if (setting == settings.end()) {
    std::string names;
    for (const Setting &known : settings) names += (names.empty() ? "" : ", ") + known.name;
    return Failure{"--set " + text + ": there is no setting \"" + name + "\"; there are " + names};
  }
  Expected<std::string> value = setting->Check(text.substr(equals + 1));
  if (!value) return Failure{value.message()};
  return Change{&*setting, *value};
}

int Run(const SettingsOptions &options, PanelSession &session,
        const std::vector<Setting> &settings) {
  std::vector<Change> changes;
  for (const std::string &text : options.set) {
    Expected<Change> change = ParseChange(text, settings);
    if (!change) {
      Complain(change.message());
      return kWrongUsage;
    }
    changes.push_back(*change);
  }
  for (const Change &change : changes) {
    NSString *key = [NSString stringWithUTF8String:change.setting->key.c_str()];
    NSString *value = [NSString stringWithUTF8String:change.value.c_str()];
    PMPrintSettingsSetValue(session.settings(), (CFStringRef)key, (CFTypeRef)value, false);
  }

  const JobOptions before = JobOptionsFromSettings(session.settings());
  id<PDEPanel> panel = session.panel();
  if ([panel respondsToSelector:@selector(shouldPrint)] && ![panel shouldPrint]) {
    Complain("the panel does not allow this job to be printed");
    return kFailed;
  }
  PanelReport report = session.Report();

  // The panel corrects what the printer cannot do. A value asked for here is refused instead.
  for (const auto &[key, value] : before) {
    const auto now = report.options.find(key);
    const std::string corrected = now == report.options.end() ? "unset" : now->second;
    if (corrected == value) continue;
    const auto asked =
        std::find_if(changes.begin(), changes.end(),
                     [&name = key](const Change &change) { return change.setting->key == name; });
    if (asked != changes.end()) {
      Complain(asked->setting->name + " cannot be \"" + value + "\" on this printer: it must be " +
               corrected);
      return kWrongUsage;
    }
    Complain("note: this printer cannot do " + key + "=" + value + "; it is now " + corrected);
  }
  // What a printer makes of a value that it does not know is not what was asked for.
  for (const Setting &setting : SettingsWithBadValues(settings, report.options)) {
    Complain("the job's " + setting.key + " is \"" + report.options[setting.key] +
             "\": it must be " + setting.Allowed() + "; mend it with --set " + setting.name +
             "=VALUE");
    return kFailed;
  }

  if (!options.ticket.empty()) {
    if (auto failure = WriteTicket(options.ticket, session.settings())) {
      Complain(failure->message);
      return kFailed;
    }
    report.ticket = options.ticket.string();
  }
  return PrintResults(options.json ? report.Json() : report.Text()) ? kDone : kFailed;
}

}  // namespace

int Settings(const SettingsOptions &options) {
  @autoreleasepool {
    NSBundle *bundle = nil;
    @try {
      auto session = PanelSession::Open(options.ppd, options.plugin, options.ticket);
      if (!session) {
        Complain(session.message());
        return kFailed;
      }
      bundle = (*session)->bundle();
      Expected<std::vector<Setting>> settings = SettingsOfBundle(bundle);
      if (!settings && !options.set.empty()) {
        Complain(settings.message());
        return kFailed;
      }
      return Run(options, **session, settings ? *settings : std::vector<Setting>());
    } @catch (NSException *exception) {
      Complain(DescribeException(bundle, exception));
      return kFailed;
    }
  }
}
