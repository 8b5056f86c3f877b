// What the user should know, above everything else in the window.

#ifndef HOST_DIALOG_NOTICES_H
#define HOST_DIALOG_NOTICES_H

#include <functional>
#include <set>
#include <string>
#include <utility>

#include "host/extension/Extensions.h"
#include "host/session/JobSession.h"

// Notes of what happened last and of the printer; presets that are damaged and bundles that are
// left out, which stay. Whatever does not come from what the user has just done is on standard
// error, too.
class Notices {
 public:
  // Shows this text, a line for each notice; empty: nothing.
  using Show = std::function<void(const std::string &text)>;

  // The bundles must outlive the object.
  Notices(const Extensions &extensions, Show show);

  // What the printer or the settings have come to: in place of all notes before, and on standard
  // error.
  void ReplaceNotes(Notes notes);
  // What is special about the printer, as long as it is that one; shown with what comes next.
  void SetAboutPrinter(Notes notes) { about_printer_ = std::move(notes); }
  // What the user wanted cannot be done. Nothing is noted twice.
  void AddNote(const std::string &note);
  // Forgets the notes; those that are shown stay until the next time that something is.
  void ForgetNotes() { notes_.clear(); }

  // A preset that cannot be read; told of once.
  void AddDamagedPreset(const std::string &message);
  // The bundles that were left out since the last time.
  void TellOfLeftOut();
  // Whether one is left out for this reason.
  bool IsReasonOfLeftOut(const std::string &reason) const;

  void ShowAll();

 private:
  const Extensions &extensions_;
  Show show_;
  Notes notes_;
  Notes about_printer_;
  std::set<std::string> damaged_presets_;  // and why
  size_t left_out_told_ = 0;
};

#endif
