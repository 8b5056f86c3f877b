#include "host/session/JobSession.h"

#include "host/base/Localized.h"
#include "host/base/Text.h"
#include "host/job/JobFiles.h"
#include "host/session/Repair.h"

JobSession::JobSession(Extensions &extensions)
    : extensions_(extensions), check_(nullptr, extensions.Settings()) {}

JobSession::~JobSession() { DropPrinter(); }

void JobSession::DropPrinter() {
  panels_.clear();
  // A panel that is not freed keeps this object, and must not find a file in it that is closed.
  [host_.get() forgetPPDFile];
  host_ = Retained<HostCallback *>();
  check_ = ValueCheck(nullptr, extensions_.Settings());
  ppd_.reset();
  applications_.clear();
  here_.reset();
  why_not_here_.clear();
  has_printer_ = false;
}

void JobSession::LoseSettings() {
  DropPrinter();
  settings_ = JobSettings::None();
  defaults_ = JobDefaults();
  filled_in_.clear();
}

Expected<Notes> JobSession::UsePrinter(std::optional<PPDFile> ppd, const JobOptions &defaults,
                                       OfferedOptions offered, const DocumentFormats &formats,
                                       const std::set<std::string> &of_user) {
  @autoreleasepool {
    Expected<Notes> notes = Take(std::move(ppd), defaults, std::move(offered), formats, of_user);
    if (!notes) LoseSettings();
    return notes;
  }
}

Expected<Notes> JobSession::UseSettings(PrintSettings settings) {
  @autoreleasepool {
    Expected<Notes> notes = Use(settings.get());
    if (!notes) LoseSettings();
    return notes;
  }
}

Expected<Notes> JobSession::Take(std::optional<PPDFile> ppd, const JobOptions &defaults,
                                 OfferedOptions offered, const DocumentFormats &formats,
                                 const std::set<std::string> &of_user) {
  if (settings_.get() == nullptr) settings_ = JobSettings();
  if (auto done = WithdrawFilledIn(); !done) return done.failure();
  DropPrinter();
  TakeAbility(std::move(ppd), formats);
  offered_ = std::move(offered);
  LearnWhatFits();
  Expected<StoredValues> before = settings_.Values();
  if (!before) return before.failure();
  Notes notes;
  if (ppd_) {
    if (auto done = TakePanels(notes); !done) return done.failure();
  }
  LearnWhatFits();
  std::set<std::string> unset;
  for (const std::string &keyword : Claimed()) {
    if (before->contains(keyword)) continue;
    unset.insert(keyword);
    Expected<std::string> own = Value(keyword);
    if (!own) return own.failure();
    if (!own->empty()) defaults_.AddPanels(keyword, *own);
  }
  const Notes of_queue = defaults_.UseQueue(defaults, of_user, check_);
  notes.insert(notes.end(), of_queue.begin(), of_queue.end());
  has_printer_ = true;
  if (auto done = MakeFit(notes); !done) return done.failure();
  if (auto done = FillIn(unset); !done) return done.failure();
  return notes;
}

void JobSession::TakeAbility(std::optional<PPDFile> ppd, const DocumentFormats &formats) {
  if (ppd) extensions_.LoadNamedBy(*ppd);
  QueueAbility ability = AbilityOf(std::move(ppd), formats, extensions_);
  ppd_ = std::move(ability.ppd);
  applications_ = std::move(ability.applications);
  here_ = std::move(ability.here);
  making_ = std::move(ability.making);
  why_not_here_ = std::move(ability.why_not_here);
}

std::string JobSession::ReasonForNoPanel() const {
  return WithReason(extensions_.ReasonForNoPanel(ppd()), why_not_here_);
}

// What is stored when panels are made must not be what they take for a programming error.
Expected<void> JobSession::TakePanels(Notes &notes) {
  Expected<Notes> more = Repair(
      settings_,
      [this](const auto &key, const auto &value) { return check_.FittingPanels(key, value); },
      [this](const std::string &key) { return check_.IsKeyOfText(key); });
  if (!more) return more.failure();
  notes.insert(notes.end(), more->begin(), more->end());
  host_ = Retained<HostCallback *>::Adopt([[HostCallback alloc] initWithPrintSettings:settings()
                                                                              ppdFile:ppd_->get()]);
  panels_ = extensions_.Panels(host_.get());
  for (const auto &panel : panels_) panel->option_keywords();
  DropFaultyPanels();
  return {};
}

Expected<Notes> JobSession::Use(PMPrintSettings settings) {
  if (settings_.get() == nullptr) settings_ = JobSettings();
  Expected<Notes> notes = settings_.ReplaceBy(settings);
  if (!notes) return notes;
  filled_in_.clear();
  if (!has_printer_) return notes;
  if (auto done = MakeFit(*notes); !done) return done.failure();
  if (auto done = FillIn({}); !done) return done.failure();
  return notes;
}

std::set<std::string> JobSession::Claimed() const {
  std::set<std::string> keywords;
  for (const auto &panel : panels_) {
    keywords.insert(panel->option_keywords().begin(), panel->option_keywords().end());
  }
  return keywords;
}

void JobSession::LearnWhatFits() {
  printer_specific_.merge(Claimed());
  if (ppd_) {
    for (const std::string &keyword : ppd_->OptionKeywords()) printer_specific_.insert(keyword);
  }
  check_ = ValueCheck(ppd(), extensions_.Settings(), Claimed(), printer_specific_, offered_);
}

Expected<void> JobSession::MakeFit(Notes &notes) {
  Expected<Notes> more = Repair(
      settings_,
      [this, &notes](const auto &key, const auto &value) {
        const std::string note = check_.NoteOfReplacing(key, value);
        if (!note.empty()) notes.push_back(note);
        return check_.Fitting(key, value);
      },
      [this](const std::string &key) { return check_.IsKeyOfText(key); });
  if (!more) return more.failure();
  notes.insert(notes.end(), more->begin(), more->end());
  return {};
}

// Nobody asked for these: they were the printer's before.
Expected<void> JobSession::WithdrawFilledIn() {
  for (const auto &[keyword, value] : std::exchange(filled_in_, {})) {
    Expected<std::string> now = Value(keyword);
    if (!now) return now.failure();
    if (*now != value) continue;
    if (auto set = settings_.Set(keyword, ""); !set) return set.failure();
  }
  return {};
}

// What panels claim and has no value, and these keywords.
Expected<void> JobSession::FillIn(const std::set<std::string> &also) {
  for (const std::string &keyword : Claimed()) {
    Expected<std::string> value = Value(keyword);
    if (!value) return value.failure();
    if (!value->empty() && !also.contains(keyword)) continue;
    const std::string of_printer = defaults_.Of(keyword, ppd(), check_);
    if (!of_printer.empty()) {
      if (auto set = settings_.Set(keyword, of_printer); !set) return set.failure();
      value = Value(keyword);
      if (!value) return value.failure();
    }
    if (!value->empty()) filled_in_[keyword] = *value;
  }
  return {};
}

void JobSession::DropFaultyPanels() {
  for (const auto &panel : panels_) {
    if (panel->fault()) extensions_.LeaveOut(*panel);
  }
  std::erase_if(panels_, [](const auto &panel) { return panel->fault().has_value(); });
}

Expected<std::string> JobSession::Value(const std::string &keyword) const {
  return settings_.Value(keyword);
}

Expected<void> JobSession::Set(const std::string &keyword, const std::string &value) {
  Expected<Change> change = settings_.Set(keyword, value);
  if (!change) return change.failure();
  if (*change == Change::kMade) return {};
  return IsLocked([NSString stringWithUTF8String:keyword.c_str()]);
}

Expected<JobOptions> JobSession::Options() const {
  Expected<JobOptions> own = OwnOptions();
  if (!own) return own;
  JobOptions all = defaults_.Under(*own, filled_in_, ppd());
  if (ppd_) all.merge(ppd_->GoingWith(all));
  return all;
}

Expected<JobOptions> JobSession::Choices() const {
  Expected<JobOptions> options = Options();
  if (!options) return options;
  if (!ppd_) return JobOptions();
  const JobOptions marked = ppd_->Choices(*options);
  JobOptions choices;
  for (const std::string &keyword : ppd_->OptionKeywords()) {
    // As the job has it: a value of its own is marked under another name.
    if (const auto given = options->find(keyword); given != options->end()) {
      choices[keyword] = given->second;
    } else if (const auto choice = marked.find(keyword); choice != marked.end()) {
      choices[keyword] = choice->second;
    } else {
      choices[keyword] = ppd_->DefaultChoice(keyword);
    }
  }
  return choices;
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
  Expected<JobOptions> options = OwnOptions();
  if (!options) return options.failure();
  for (const auto &[key, value] : *options) {
    Expected<std::string> fitting = check_.Fitting(key, value);
    if (fitting) continue;
    return Failure{Localized("the job's %1 is %2: %3", {key, Quoted(value), fitting.message()})};
  }
  return {};
}

Expected<JobRequest> JobSession::RequestFor(const std::string &queue,
                                            const std::vector<std::filesystem::path> &files,
                                            const std::string &title) const {
  Expected<JobOptions> options = Options();
  if (!options) return options.failure();
  return JobRequest{.queue = queue,
                    .title = title.empty() ? TitleOfJob(files) : title,
                    .options = std::move(*options),
                    .files = files};
}

Expected<PagesRequest> JobSession::PagesFor(const std::vector<std::filesystem::path> &files,
                                            const std::string &title) const {
  if (!ppd_) {
    return Failure{Localized("the printer has no PPD file that says how its pages are laid out")};
  }
  Expected<JobRequest> request = RequestFor("", files, title);
  if (!request) return request.failure();
  return PagesRequest{.files = std::move(request->files),
                      .title = std::move(request->title),
                      .options = std::move(request->options),
                      .making = making_,
                      .is_two_sided = IsTwoSided()};
}

Expected<void> JobSession::PutBackAfter(const std::function<void()> &work) {
  JobSettings before;
  if (Expected<Notes> kept = before.ReplaceBy(settings()); !kept) return kept.failure();
  work();
  Expected<Notes> back = settings_.ReplaceBy(before.get());
  if (!back) return back.failure();
  return {};
}

// As the program reads it that lays out pages.
bool JobSession::IsTwoSided() const {
  Expected<JobOptions> choices = Choices();
  if (!choices) return false;
  for (const char *keyword : {"Duplex", "JCLDuplex", "EFDuplex", "KD03Duplex"}) {
    const auto choice = choices->find(keyword);
    if (choice != choices->end() && choice->second.starts_with("Duplex")) return true;
  }
  Expected<JobOptions> options = Options();
  const auto sides = options ? options->find("sides") : JobOptions::iterator();
  return options && sides != options->end() && sides->second.starts_with("two-sided");
}

std::vector<std::pair<std::string, SummaryLines>> JobSession::Summary() {
  std::vector<std::pair<std::string, SummaryLines>> summary;
  for (const auto &panel : panels_) {
    SummaryLines lines = panel->Summary();
    if (!lines.empty()) summary.emplace_back(panel->name(), std::move(lines));
  }
  return summary;
}
