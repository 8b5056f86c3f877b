#include "host/dialog/Notices.h"

#include <algorithm>
#include <utility>

#include "host/base/Localized.h"
#include "host/base/Messages.h"
#import "host/dialog/Controls.h"

namespace {

std::string Describe(const LeftOut &one) {
  return Localized("%1 is left out: %2", {one.name, one.reason});
}

}  // namespace

Notices::Notices(const Extensions &extensions, Show show)
    : extensions_(extensions), show_(std::move(show)) {}

void Notices::ReplaceNotes(Notes notes) {
  for (const std::string &note : notes) Note(note);
  notes_ = std::move(notes);
  ShowAll();
}

void Notices::AddNote(const std::string &note) {
  if (std::find(notes_.begin(), notes_.end(), note) == notes_.end()) notes_.push_back(note);
  ShowAll();
}

void Notices::AddDamagedPreset(const std::string &message) {
  if (damaged_presets_.insert(message).second) Complain(message);
  ShowAll();
}

void Notices::TellOfLeftOut() {
  const auto &left_out = extensions_.left_out();
  for (; left_out_told_ < left_out.size(); ++left_out_told_) {
    Complain(Describe(left_out[left_out_told_]));
  }
  ShowAll();
}

bool Notices::IsReasonOfLeftOut(const std::string &reason) const {
  const auto &left_out = extensions_.left_out();
  return std::any_of(left_out.begin(), left_out.end(),
                     [&reason](const LeftOut &one) { return one.reason == reason; });
}

void Notices::ShowAll() {
  std::string text;
  const auto add = [&text](const std::string &notice) {
    text += (text.empty() ? "" : "\n") + Text(Sentence(notice));
  };
  for (const std::string &note : notes_) add(note);
  for (const std::string &note : about_printer_) add(note);
  for (const std::string &message : damaged_presets_) add(message);
  for (const LeftOut &one : extensions_.left_out()) add(Describe(one));
  show_(text);
}
