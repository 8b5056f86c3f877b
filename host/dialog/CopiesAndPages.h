// The fields for copies and pages.

#ifndef HOST_DIALOG_COPIESANDPAGES_H
#define HOST_DIALOG_COPIESANDPAGES_H

#import <Cocoa/Cocoa.h>

#include <optional>
#include <string>

#include "host/base/Expected.h"
#include "host/base/Retained.h"
#include "host/dialog/ActionTarget.h"
#import "host/dialog/PrintDialogView.h"
#include "host/dialog/TypedOption.h"
#include "host/session/JobSession.h"

// What is typed becomes the job's when it is taken, and not before.
class CopiesAndPages {
 public:
  // The session must outlive the object.
  CopiesAndPages(PrintDialogView *view, JobSession &session);

  // Shows what the job has.
  void Show();
  // Likewise, but what was typed since then stays.
  void ShowWhereNotTyped();
  // Takes what stands in the fields. The failure: one cannot be read, and has the focus, or the job
  // does not take it.
  Expected<void> Take();

  // Puts the pages that stand in the field among options, unless they cannot be read.
  void AddTo(JobOptions &options) const;

  // As they stand in the fields.
  std::string copies() const { return copies_.Text(); }
  std::string pages() const { return pages_.Text(); }  // empty: all

 private:
  class Field {
   public:
    Field(NSTextField *box, const TypedOption &option);
    void Show(const JobOptions &options);
    std::string Text() const;
    std::optional<std::string> Typed() const;  // since it was shown last; none: nothing
    void PutBack(const std::string &typed);
    Expected<void> Take(JobSession &session);

   private:
    Retained<NSTextField *> box_;
    const TypedOption &option_;
    std::string shown_;
  };

  JobSession &session_;
  Field copies_;
  Field pages_;
  Retained<NSStepper *> stepper_;
  Actions actions_;
};

#endif
