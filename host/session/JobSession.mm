#include "host/session/JobSession.h"

#include <algorithm>
#include <utility>

#include "host/base/Localized.h"
#include "host/base/Text.h"
#include "host/job/OptionFit.h"
#include "host/job/SettingOptions.h"
#include "host/job/SettingValues.h"

namespace {

NSString *Key(const std::string &keyword) {
  return [NSString stringWithUTF8String:keyword.c_str()];
}

// What takes the value away where there is none.
id ValueToStore(const std::string &value) { return value.empty() ? nil : Key(value); }

const Setting *SettingOfKey(const std::vector<Setting> &settings, const std::string &key) {
  const auto found = std::find_if(settings.begin(), settings.end(),
                                  [&key](const Setting &setting) { return setting.key == key; });
  return found == settings.end() ? nullptr : &*found;
}

// Job options of every printer, and the options of printer descriptions that mean the same.
constexpr std::pair<const char *, const char *> kTwoNames[] = {
    {"sides", "Duplex"}, {"media", "PageSize"}, {"media", "PageRegion"}};

}  // namespace

JobSession::JobSession(Extensions &extensions)
    : extensions_(extensions), settings_(EmptyPrintSettings()) {
  if (auto values = ValuesOf(settings_.get()); !values) Remember(values.message());
}

JobSession::~JobSession() { DropPrinter(); }

void JobSession::DropPrinter() {
  panels_.clear();
  // A panel that is not freed keeps this object, and must not find a file in it that is closed.
  [host_.get() forgetPPDFile];
  host_ = Retained<HostCallback *>();
  ppd_.reset();
}

Notes JobSession::UsePrinter(std::optional<PPDFile> ppd, JobOptions defaults) {
  @autoreleasepool {
    // Nobody asked for these: they were the printer's before.
    for (const auto &[keyword, value] : std::exchange(defaults_set_, {})) {
      if (Value(keyword) == value) Put(keyword, "");
    }
    DropPrinter();
    ppd_ = std::move(ppd);
    defaults_ = std::move(defaults);
    has_printer_ = true;

    Notes notes;
    std::set<std::string> unset;
    LeaveOutUnfitDefaults(notes);
    if (ppd_) {
      extensions_.LoadNamedBy(*ppd_);
      TakeAwayBadValues(notes);
      const JobOptions before = OwnOptions();
      host_ =
          Retained<HostCallback *>::Adopt([[HostCallback alloc] initWithPrintSettings:settings()
                                                                              ppdFile:ppd_->get()]);
      panels_ = extensions_.Panels(host_.get());
      for (const auto &panel : panels_) panel->option_keywords();
      DropFaultyPanels();
      for (const std::string &keyword : Claimed()) {
        if (before.contains(keyword)) continue;
        unset.insert(keyword);
        if (const std::string own = Value(keyword); !own.empty()) panel_defaults_[keyword] = own;
      }
    }
    LearnPrinterSpecificKeywords();
    TakeAwayBadValues(notes);
    TakeAwayUnfitOptions(notes);
    for (const std::string &keyword : Claimed()) {
      if (Value(keyword).empty()) unset.insert(keyword);
    }
    SetDefaults(unset);
    return notes;
  }
}

Notes JobSession::UseSettings(PrintSettings settings) {
  @autoreleasepool {
    Notes notes;
    Expected<Retained<NSDictionary *>> before = ValuesOf(settings_.get());
    Expected<Retained<NSDictionary *>> values = ValuesOf(settings.get());
    if (!before || !values) {
      Remember(before ? values.message() : before.message());
      notes.push_back(fault_->message);
      return notes;
    }
    for (NSString *key in before->get()) {
      if ([values->get() objectForKey:key] == nil) Replace(key, nil, notes);
    }
    for (NSString *key in values->get()) Replace(key, [values->get() objectForKey:key], notes);
    for (const std::string &name : TextsThatAreNoOptions(values->get())) {
      notes.push_back(
          Localized("%1 is not sent to the printer: no option can have this name or this value",
                    {Quoted(name)}));
    }
    defaults_set_.clear();

    if (!has_printer_) return notes;
    TakeAwayBadValues(notes);
    TakeAwayUnfitOptions(notes);
    std::set<std::string> unset;
    for (const std::string &keyword : Claimed()) {
      if (Value(keyword).empty()) unset.insert(keyword);
    }
    SetDefaults(unset);
    return notes;
  }
}

std::set<std::string> JobSession::Claimed() const {
  std::set<std::string> keywords;
  for (const auto &panel : panels_) {
    keywords.insert(panel->option_keywords().begin(), panel->option_keywords().end());
  }
  return keywords;
}

void JobSession::LearnPrinterSpecificKeywords() {
  printer_specific_.merge(Claimed());
  if (!ppd_) return;
  for (const std::string &keyword : ppd_->OptionKeywords()) printer_specific_.insert(keyword);
}

void JobSession::TakeAway(const std::string &keyword, const std::string &why, Notes &notes) {
  const std::string value = Value(keyword);
  Put(keyword, "");
  const std::string what = value.empty() ? keyword : keyword + ' ' + Quoted(value);
  notes.push_back(Localized("%1 does not fit: %2", {what, why}));
}

void JobSession::TakeAwayBadValues(Notes &notes) {
  std::set<std::string> texts = Claimed();
  for (const Setting &setting : extensions_.Settings()) texts.insert(setting.key);
  if (ppd_) {
    for (const std::string &keyword : ppd_->OptionKeywords()) texts.insert(keyword);
  }
  for (const std::string &keyword : texts) {
    const Retained<id> value = Stored(keyword);
    if (value.get() == nil || [value.get() isKindOfClass:[NSString class]]) continue;
    if ([value.get() isKindOfClass:[NSNumber class]]) {
      Put(keyword, Value(keyword));
    } else {
      TakeAway(keyword, Localized("its value is no text"), notes);
    }
  }
  for (const Setting &setting : SettingsWithBadValues(extensions_.Settings(), OwnOptions())) {
    TakeAway(setting.key, setting.Demand(), notes);
  }
}

void JobSession::TakeAwayUnfitOptions(Notes &notes) {
  std::set<std::string> specific = printer_specific_;
  for (const Setting &setting : extensions_.Settings()) specific.insert(setting.key);
  JobOptions options = OwnOptions();
  // What the printer's description does not list is for the panels to correct.
  for (const std::string &keyword : Claimed()) {
    if (!ppd_->HasOption(keyword)) options.erase(keyword);
  }
  for (const UnfitOption &unfit : UnfitOptions(options, ppd(), specific)) {
    TakeAway(unfit.keyword, unfit.reason, notes);
  }
}

// Of a choice that the printer does not know it takes its own; a custom value is sent as it is.
void JobSession::LeaveOutUnfitDefaults(Notes &notes) {
  if (!ppd_) return;
  std::erase_if(defaults_, [&](const auto &option) {
    const auto &[keyword, value] = option;
    const std::string taken_by = ppd_->TakesUnfitCustomValue(keyword, value);
    if (taken_by.empty()) return false;
    notes.push_back(
        Localized("%1 does not fit: %2",
                  {keyword + ' ' + Quoted(value),
                   Localized("this printer has no %1", {taken_by + ' ' + Quoted(value)})}));
    return true;
  });
}

bool JobSession::IsAllowed(const std::string &keyword, const std::string &value) const {
  if (const Setting *setting = SettingOfKey(extensions_.Settings(), keyword)) {
    Expected<std::string> stored = setting->Check(value);
    if (!stored || *stored != value) return false;
  }
  return !ppd_ || !ppd_->HasOption(keyword) || ppd_->Allows(keyword, value);
}

std::string JobSession::DefaultOf(const std::string &keyword) const {
  std::vector<std::string> candidates;
  if (const auto of_queue = defaults_.find(keyword); of_queue != defaults_.end()) {
    candidates.push_back(of_queue->second);
  }
  if (ppd_) candidates.push_back(ppd_->DefaultChoice(keyword));
  if (const auto own = panel_defaults_.find(keyword); own != panel_defaults_.end()) {
    candidates.push_back(own->second);
  }
  for (const std::string &candidate : candidates) {
    if (!candidate.empty() && IsAllowed(keyword, candidate)) return candidate;
  }
  return "";
}

void JobSession::SetDefaults(const std::set<std::string> &keywords) {
  for (const std::string &keyword : keywords) {
    if (const std::string value = DefaultOf(keyword); !value.empty()) Put(keyword, value);
    if (const std::string value = Value(keyword); !value.empty()) defaults_set_[keyword] = value;
  }
}

void JobSession::DropFaultyPanels() {
  for (const auto &panel : panels_) {
    if (panel->fault()) extensions_.LeaveOut(*panel);
  }
  std::erase_if(panels_, [](const auto &panel) { return panel->fault().has_value(); });
}

void JobSession::Remember(const std::string &failure) const {
  if (!fault_) fault_ = Failure{failure};
}

Retained<id> JobSession::Stored(const std::string &keyword) const {
  Expected<Retained<id>> value = ValueOf(settings(), Key(keyword));
  if (value) return *value;
  Remember(value.message());
  return {};
}

std::string JobSession::Value(const std::string &keyword) const {
  Expected<std::optional<std::string>> value = JobOptionFromSettings(settings(), keyword);
  if (value) return value->value_or("");
  Remember(value.message());
  return "";
}

JobOptions JobSession::OwnOptions() const {
  Expected<JobOptions> options = JobOptionsFromSettings(settings());
  if (options) return std::move(*options);
  Remember(options.message());
  return {};
}

Expected<void> JobSession::Set(const std::string &keyword, const std::string &value) {
  Expected<Change> change = SetValue(settings(), Key(keyword), ValueToStore(value));
  if (!change) return change.failure();
  if (*change == Change::kMade) return {};
  return IsLocked(Key(keyword));
}

void JobSession::Put(const std::string &keyword, const std::string &value) {
  Expected<Change> change = SetValue(settings(), Key(keyword), ValueToStore(value));
  if (!change) Remember(change.message());
}

void JobSession::Replace(NSString *key, id value, Notes &notes) {
  Expected<Change> change = SetValue(settings(), key, value);
  if (!change) return Remember(change.message());
  if (*change == Change::kMade) return;
  Expected<Retained<id>> now = ValueOf(settings(), key);
  if (!now) return Remember(now.message());
  if (![now->get() isEqual:value]) notes.push_back(IsLocked(key).message);
}

// A default under one of the names would beat what is set under the other.
JobOptions JobSession::Options() const {
  JobOptions options = OwnOptions();
  JobOptions defaults = defaults_;
  for (const auto &[general, of_printer] : kTwoNames) {
    if (options.contains(general)) {
      defaults.erase(of_printer);
      const auto filled_in = defaults_set_.find(of_printer);
      if (filled_in != defaults_set_.end() && filled_in->second == Value(of_printer)) {
        options.erase(of_printer);
      }
    }
    if (options.contains(of_printer)) defaults.erase(general);
  }
  options.insert(defaults.begin(), defaults.end());
  return options;
}

std::string JobSession::Choice(const std::string &keyword) const {
  if (std::string value = Value(keyword); !value.empty()) return value;
  const auto of_queue = defaults_.find(keyword);
  if (of_queue != defaults_.end() && IsAllowed(keyword, of_queue->second)) return of_queue->second;
  if (!ppd_ || !ppd_->HasOption(keyword)) return "";
  const std::string choice = ppd_->ChoiceOf(keyword, Options());
  return choice.empty() ? ppd_->DefaultChoice(keyword) : choice;
}

std::vector<PPDOption> JobSession::OtherOptions() const {
  if (!ppd_) return {};
  std::vector<PPDOption> options = ppd_->Options();
  std::erase_if(options, [claimed = Claimed()](const PPDOption &option) {
    return claimed.contains(option.keyword);
  });
  return options;
}

Expected<void> JobSession::ChangeOption(const std::string &keyword, const std::string &choice) {
  if (auto done = Set(keyword, choice); !done) return done;
  for (const auto &panel : panels_) panel->OptionDidChange(keyword, choice);
  return {};
}

Expected<void> JobSession::CheckPrintable() {
  for (const auto &panel : panels_) {
    if (!panel->ShouldPrint()) {
      return Failure{Localized("%1 does not allow this job to be printed", {panel->name()})};
    }
  }
  const JobOptions options = OwnOptions();
  if (fault_) return *fault_;
  const auto reason = [](const std::string &keyword, const std::string &value,
                         const std::string &why) {
    return Failure{Localized("the job's %1 is %2: %3", {keyword, Quoted(value), why})};
  };
  for (const Setting &setting : SettingsWithBadValues(extensions_.Settings(), options)) {
    return reason(setting.key, options.at(setting.key), setting.Demand());
  }
  // What a panel claims, it may know how to print without an option of the PPD file.
  std::set<std::string> specific = printer_specific_;
  for (const std::string &keyword : Claimed()) specific.erase(keyword);
  for (const UnfitOption &unfit : UnfitOptions(options, ppd(), specific)) {
    return reason(unfit.keyword, unfit.value, unfit.reason);
  }
  return {};
}

std::vector<std::pair<std::string, SummaryLines>> JobSession::Summary() {
  std::vector<std::pair<std::string, SummaryLines>> summary;
  for (const auto &panel : panels_) {
    SummaryLines lines = panel->Summary();
    if (!lines.empty()) summary.emplace_back(panel->name(), std::move(lines));
  }
  return summary;
}
