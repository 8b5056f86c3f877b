#include "host/dialog/CopiesAndPages.h"

#import "host/dialog/Controls.h"

CopiesAndPages::Field::Field(NSTextField *box, const TypedOption &option)
    : box_(Retained<NSTextField *>::Share(box)), option_(option) {}

void CopiesAndPages::Field::Show(const JobOptions &options) {
  [box_.get() setStringValue:String(option_.TextIn(options))];
  shown_ = Text();
}

std::string CopiesAndPages::Field::Text() const { return ::Text([box_.get() stringValue]); }

std::optional<std::string> CopiesAndPages::Field::Typed() const {
  std::string text = Text();
  if (text == shown_) return std::nullopt;
  return text;
}

void CopiesAndPages::Field::PutBack(const std::string &typed) {
  [box_.get() setStringValue:String(typed)];
}

Expected<void> CopiesAndPages::Field::Take(JobSession &session) {
  const Expected<std::string> value = option_.parse(Text());
  if (value) return option_.Set(*value, session);
  [[box_.get() window] makeFirstResponder:box_.get()];
  return value.failure();
}

CopiesAndPages::CopiesAndPages(PrintDialogView *view, JobSession &session)
    : session_(session),
      copies_([view copies], kCopiesOption),
      pages_([view pages], kPagesOption),
      stepper_(Retained<NSStepper *>::Share([view copiesStepper])) {
  NSTextField *copies = [view copies];
  NSStepper *stepper = stepper_.get();
  actions_.Tie(stepper, [copies, stepper] { [copies setIntValue:[stepper intValue]]; });
}

void CopiesAndPages::Show() {
  // What cannot be read is told of when it is printed; the fields keep what they have.
  Expected<JobOptions> options = session_.Options();
  if (!options) return;
  copies_.Show(*options);
  [stepper_.get() setIntValue:[String(copies()) intValue]];
  pages_.Show(*options);
}

void CopiesAndPages::ShowWhereNotTyped() {
  const std::optional<std::string> copies = copies_.Typed();
  const std::optional<std::string> pages = pages_.Typed();
  Show();
  if (copies) copies_.PutBack(*copies);
  if (pages) pages_.PutBack(*pages);
}

void CopiesAndPages::AddTo(JobOptions &options) const {
  const Expected<std::string> value = kPagesOption.parse(pages());
  if (!value) return;
  if (value->empty()) {
    options.erase(kPagesOption.name);
  } else {
    options[kPagesOption.name] = *value;
  }
}

Expected<void> CopiesAndPages::Take() {
  if (auto done = copies_.Take(session_); !done) return done;
  [stepper_.get() setIntValue:[String(copies()) intValue]];
  return pages_.Take(session_);
}
