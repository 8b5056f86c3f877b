#include "host/dialog/PrinterChooser.h"

#include <strings.h>

#include <algorithm>

#include "host/base/Localized.h"
#include "host/base/Text.h"
#import "host/dialog/Controls.h"
#include "host/pages/PdfFileQueue.h"
#include "host/ppd/PPDSource.h"
#include "host/ppd/PdfFilePrinter.h"

namespace {

// Nobody notices a wait as short as this. Most servers answer within it, and the window need not
// show the question first.
constexpr std::chrono::milliseconds kAtOnce(50);

}  // namespace

// Runs the question on a thread of its own, and hands its answer over on this one.
template <typename Answer>
void PrinterChooser::Ask(std::function<Answer()> question, void (PrinterChooser::*take)(Answer)) {
  auto task = std::make_shared<BackgroundTask<Answer>>(std::move(question));
  poller_ = Poller();  // whoever takes the answer may ask the next question
  if (task->WaitFor(kAtOnce)) return (this->*take)(task->Take());
  poller_ = Poller([this, task, take] {
    if (!task->HasEnded()) {
      passwords_.AnswerQuestion();
      return false;
    }
    (this->*take)(task->Take());
    return true;
  });
}

PrinterChooser::PrinterChooser(NSPopUpButton *pop_up, PrintServer server, PasswordWindow &passwords,
                               std::string wanted, FileOffer offer, Callbacks callbacks)
    : pop_up_(Retained<NSPopUpButton *>::Share(pop_up)),
      server_(std::move(server)),
      passwords_(passwords),
      wanted_(std::move(wanted)),
      offer_(offer),
      callbacks_(std::move(callbacks)) {}

void PrinterChooser::AskForQueues() {
  callbacks_.asking(Localized("Asking %1 for its printers…", {server_.Address()}));
  Ask<QueuesAnswer>([server = server_] { return server.Queues(); }, &PrinterChooser::TakeQueues);
}

void PrinterChooser::TakeQueues(QueuesAnswer queues) {
  [pop_up_.get() removeAllItems];
  queues_.clear();
  if (!queues) {
    AddFileOffer();
    [pop_up_.get() selectItemAtIndex:-1];
    return Fail(queues.message());
  }
  queues_ = std::move(*queues);
  for (const Queue &queue : queues_) AddItem(pop_up_.get(), String(queue.name), nil);
  AddFileOffer();
  auto chosen = std::find_if(queues_.begin(), queues_.end(), [this](const Queue &queue) {
    // The print system takes no notice of the case of letters.
    return wanted_.empty() ? queue.is_default
                           : strcasecmp(queue.name.c_str(), wanted_.c_str()) == 0;
  });
  if (chosen == queues_.end() && !wanted_.empty()) {
    [pop_up_.get() selectItemAtIndex:-1];
    return Fail(Localized("there is no printer %1 on %2; choose another one above",
                          {Quoted(wanted_), server_.Address()}));
  }
  if (chosen == queues_.end()) chosen = queues_.begin();
  [pop_up_.get() selectItemAtIndex:chosen - queues_.begin()];
  AskFor(*chosen);
}

void PrinterChooser::AskForChosen() {
  if ([[pop_up_.get() selectedItem] representedObject] != nil) return AnswerFile();
  const NSInteger index = [pop_up_.get() indexOfSelectedItem];
  if (index < 0 || static_cast<size_t>(index) >= queues_.size()) return;
  AskFor(queues_[index]);
}

void PrinterChooser::AskFor(const Queue &queue) {
  wanted_ = queue.name;
  callbacks_.asking(Localized("Asking %1 about %2…", {server_.Address(), queue.name}));
  Ask<PPDAnswer>([server = server_, name = queue.name] { return server.PPDOfQueue(name); },
                 &PrinterChooser::TakePPD);
}

void PrinterChooser::TakePPD(PPDAnswer ppd) {
  if (!ppd) return Fail(ppd.message());
  const auto queue = std::find_if(queues_.begin(), queues_.end(),
                                  [this](const Queue &known) { return known.name == wanted_; });
  answered_ = wanted_;
  callbacks_.answered(*queue, std::move(*ppd));
}

void PrinterChooser::AddFileOffer() {
  if (offer_ == FileOffer::kNone) return;
  AddItem(pop_up_.get(), String(Localized("Save as PDF…")), @"file");
}

void PrinterChooser::AnswerFile() {
  poller_ = Poller();  // what was asked of a queue
  Expected<PPDFile> ppd = ParsePPD(PdfFilePrinterPPD());
  if (!ppd) return Fail(ppd.message());
  answered_ = Text([pop_up_.get() titleOfSelectedItem]);
  callbacks_.answered(PdfFileQueue(), std::move(*ppd));
}

void PrinterChooser::Retry() {
  // The queues too may have changed while their server was away.
  AskForQueues();
}

void PrinterChooser::ShowAnswered() {
  wanted_ = answered_;
  [pop_up_.get() selectItemWithTitle:String(answered_)];
}

void PrinterChooser::Stop() { poller_ = Poller(); }

void PrinterChooser::Fail(const std::string &reason) { callbacks_.failed(reason); }

std::string DescribeQueue(const Queue &queue) {
  std::string text = queue.description.empty() ? queue.model : queue.description;
  const auto add = [&text](const std::string &part) {
    if (part.empty()) return;
    if (!text.empty()) text += " — ";
    text += part;
  };
  add(queue.location);
  if (!queue.accepts_jobs) {
    add(Localized("does not accept jobs"));
  } else if (queue.state == QueueState::kStopped) {
    add(Localized("stopped: jobs wait"));
  }
  if (queue.state == QueueState::kStopped || !queue.accepts_jobs) add(queue.state_message);
  return text;
}
