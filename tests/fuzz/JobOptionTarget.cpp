#include "host/base/Text.h"
#include "host/base/Utf8.h"
#include "host/command/SettingChanges.h"
#include "host/extension/Setting.h"
#include "host/job/PageRanges.h"
#include "host/ppd/PPDSource.h"
#include "tests/fuzz/Targets.h"
#include "tests/support/NumberingPPD.h"

namespace fuzz {

namespace {

bool IsUtf8(std::string_view text) { return ToUtf8(text) == text; }

std::string Pages(std::string_view text) {
  Expected<std::string> pages = ParsePageRanges(text);
  if (!pages) return pages.message().empty() ? "pages are refused without a reason" : "";
  Expected<std::string> again = ParsePageRanges(*pages);
  if (!again) return "the pages " + *pages + " are refused: " + again.message();
  return *again == *pages ? "" : "the pages " + *pages + " become " + *again;
}

std::string Copies(std::string_view text) {
  Expected<std::string> copies = ParseCopies(text);
  if (!copies) return copies.message().empty() ? "copies are refused without a reason" : "";
  Expected<std::string> again = ParseCopies(*copies);
  return again && *again == *copies ? "" : "copies are refused that were accepted: " + *copies;
}

std::string Change(const std::string &text) {
  static Expected<PPDFile> ppd = ParsePPD(
      NumberingPPDText(true,
                       "*OpenUI *Punch/Punch: PickOne\n*DefaultPunch: None\n*Punch None/Off: \"\"\n"
                       "*CloseUI: *Punch\n*CustomPunch True/Custom: \"\"\n"
                       "*ParamCustomPunch Holes/Holes: 1 int 1 9\n"));
  static const std::vector<Setting> settings = {
      {.name = "Valid", .key = "VQBackgroundNumbering", .choices = {"On", "Off"}},
      {.name = "StartNumber", .key = "VQStartNumber", .min = 1, .max = 999},
      {.name = "Margin", .key = "Margin", .min = -5, .max = 5}};
  static const ValueCheck check(&*ppd, settings, /*claimed=*/{"Margin"});
  Expected<std::vector<SettingChange>> changes = ParseSettingChanges({text}, check);
  if (!changes) return changes.message().empty() ? "refused without a reason" : "";
  const SettingChange &change = changes->front();
  if (change.value.empty()) return "a change to nothing is accepted";
  if (!IsUtf8(change.value)) return "a value is accepted that is no UTF-8";
  Expected<std::string> again = check.Fitting(change.key, change.value);
  if (!again || *again != change.value) {
    return "a value is accepted that may not be stored: " + change.value;
  }
  return "";
}

std::string Words(std::string_view text) {
  if (!IsUtf8(Quoted(text))) return "a quoted text is no UTF-8";
  return IsUtf8(ToUtf8(text)) ? "" : "a text in UTF-8 is none";
}

}  // namespace

std::string TryJobOption(std::string_view text) {
  for (const std::string &finding :
       {Pages(text), Copies(text), Change(std::string(text)), Words(text)}) {
    if (!finding.empty()) return finding;
  }
  return "";
}

}  // namespace fuzz
