#include <algorithm>

#include "host/base/Messages.h"
#include "host/base/Process.h"
#include "host/command/Commands.h"
#include "host/extension/PanelSession.h"
#include "host/extension/SettingInfo.h"
#include "host/job/JobTicket.h"

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

Expected<std::vector<Change>> ParseChanges(const std::vector<std::string> &texts,
                                           const std::vector<Setting> &settings) {
  std::vector<Change> changes;
  for (const std::string &text : texts) {
    Expected<Change> change = ParseChange(text, settings);
    if (!change) return Failure{change.message()};
    changes.push_back(*change);
  }
  return changes;
}

void Apply(const std::vector<Change> &changes, PMPrintSettings settings) {
  for (const Change &change : changes) {
    NSString *key = [NSString stringWithUTF8String:change.setting->key.c_str()];
    NSString *value = [NSString stringWithUTF8String:change.value.c_str()];
    PMPrintSettingsSetValue(settings, (CFStringRef)key, (CFTypeRef)value, false);
  }
}

// The panel corrects what the printer cannot do. Of a stored value that is noted; a value that was
// asked for here is a failure.
std::optional<Failure> ExplainCorrections(const JobOptions &before, const JobOptions &after,
                                          const std::vector<Change> &changes) {
  for (const auto &[key, value] : before) {
    const auto now = after.find(key);
    const std::string corrected = now == after.end() ? "unset" : now->second;
    if (corrected == value) continue;
    for (const Change &change : changes) {
      if (change.setting->key != key) continue;
      return Failure{change.setting->name + " cannot be \"" + value +
                     "\" on this printer: it must be " + corrected};
    }
    Complain("note: this printer cannot do " + key + "=" + value + "; it is now " + corrected);
  }
  return std::nullopt;
}

int Run(const SettingsOptions &options, PanelSession &session) {
  Expected<std::vector<Setting>> known = SettingsOfBundle(session.bundle());
  if (!known && !options.set.empty()) {
    Complain(known.message());
    return kFailed;
  }
  const std::vector<Setting> settings = known ? *known : std::vector<Setting>();
  Expected<std::vector<Change>> changes = ParseChanges(options.set, settings);
  if (!changes) {
    Complain(changes.message());
    return kWrongUsage;
  }
  Apply(*changes, session.settings());

  const JobOptions before = JobOptionsFromSettings(session.settings());
  id<PDEPanel> panel = session.panel();
  if ([panel respondsToSelector:@selector(shouldPrint)] && ![panel shouldPrint]) {
    Complain("the panel does not allow this job to be printed");
    return kFailed;
  }
  PanelReport report = session.Report();
  if (auto refusal = ExplainCorrections(before, report.options, *changes)) {
    Complain(refusal->message);
    return kWrongUsage;
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
  return WithPanelSession(options,
                          [&options](PanelSession &session) { return Run(options, session); });
}
