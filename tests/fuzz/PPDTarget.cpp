#include "host/ppd/PPDFile.h"
#include "host/ppd/PPDSource.h"
#include "host/ppd/edit/Enabling.h"
#include "tests/fuzz/Targets.h"
#include "tests/support/MarkOptions.h"

namespace fuzz {

namespace {

// What a dialog asks of a printer.
std::string Ask(const PPDFile &ppd) {
  if (ppd.Name().empty()) return "the printer has no name";
  ppd.IsColorDevice();
  ppd.Attributes("APDialogExtension");
  JobOptions last_choices;
  for (const PPDOption &option : ppd.Options()) {
    if (option.choices.empty()) return "the option " + option.keyword + " has no choices";
    for (const PPDChoice &choice : option.choices) {
      if (!ppd.Allows(option.keyword, choice.keyword)) {
        return "the listed choice " + choice.keyword + " of " + option.keyword + " is refused";
      }
    }
    ppd.Allows(option.keyword, "Custom.1x1in");
    last_choices[option.keyword] = option.choices.back().keyword;
  }
  if (ppd.Conflicts(last_choices).empty()) return "";
  const std::optional<JobOptions> changes = ppd.Resolution(last_choices, "");
  if (!changes) return "";
  for (const auto &[keyword, choice] : *changes) last_choices[keyword] = choice;
  return ppd.Conflicts(last_choices).empty() ? "" : "a resolution leaves conflicts";
}

std::string Change(std::string_view file) {
  const Expected<DisabledPPD> original = DisableOptions(file);
  Expected<EnabledPPD> enabled = EnableOptions(file, {MarkOptions()});
  if (!enabled) return enabled.message().empty() ? "refused without a reason" : "";
  if (!original) return "options can be added, not taken out: " + original.message();
  if (Expected<PPDFile> ppd = ParsePPD(enabled->text); !ppd) {
    return "libcups does not open what was written: " + ppd.message();
  }
  Expected<DisabledPPD> disabled = DisableOptions(enabled->text);
  if (!disabled) return "what was added cannot be taken out: " + disabled.message();
  Expected<DisabledPPD> before = original;
  if (disabled->text != before->text) return "taking out leaves another file than before";
  Expected<EnabledPPD> twice = EnableOptions(enabled->text, {MarkOptions()});
  if (!twice) return "what was added cannot be renewed: " + twice.message();
  return twice->text == enabled->text ? "" : "renewing what was added changes it";
}

}  // namespace

std::string TryPPD(std::string_view file) {
  if (const Expected<PPDFile> ppd = ParsePPD(file)) {
    Expected<PPDFile> opened = ParsePPD(file);
    const std::string finding = Ask(*opened);
    if (!finding.empty()) return finding;
  }
  return Change(file);
}

}  // namespace fuzz
