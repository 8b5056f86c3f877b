// The pop-up of printers, and the questions to the server behind it.

#ifndef HOST_DIALOG_PRINTERCHOOSER_H
#define HOST_DIALOG_PRINTERCHOOSER_H

#import <Cocoa/Cocoa.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/base/BackgroundTask.h"
#include "host/cups/PrintServer.h"
#include "host/dialog/PasswordWindow.h"
#include "host/dialog/Poller.h"

class PrinterChooser {
 public:
  struct Callbacks {
    std::function<void(const std::string &question)> asking;  // a new question, for people
    std::function<void(const std::string &reason)> failed;
    std::function<void(const Queue &queue, std::optional<PPDFile> ppd)> answered;
  };

  // The pop-up gets the queues' names. The queue wanted first; empty: the default one, or else the
  // first.
  // With the offer to keep the pages as a file its last item is that; it is answered with the queue
  // of such files (PdfFileQueue), without a server.
  enum class FileOffer { kNone, kPdf };
  PrinterChooser(NSPopUpButton *pop_up, PrintServer server, PasswordWindow &passwords,
                 std::string wanted, FileOffer offer, Callbacks callbacks);

  // Asks for the queues, then for the printer description of the one that is wanted.
  void AskForQueues();
  // Asks for the one that the pop-up shows.
  void AskForChosen();
  // Asks again what was not answered.
  void Retry();
  // Shows again the queue that was answered last.
  void ShowAnswered();
  // Stops asking: nothing is called back any more.
  void Stop();

 private:
  using QueuesAnswer = Expected<std::vector<Queue>>;
  using PPDAnswer = Expected<std::optional<PPDFile>>;

  template <typename Answer>
  void Ask(std::function<Answer()> question, void (PrinterChooser::*take)(Answer));
  void TakeQueues(QueuesAnswer queues);
  void AskFor(const Queue &queue);
  void TakePPD(PPDAnswer ppd);
  void Fail(const std::string &reason);
  void AddFileOffer();
  void AnswerFile();

  Retained<NSPopUpButton *> pop_up_;
  PrintServer server_;
  PasswordWindow &passwords_;
  std::string wanted_;
  const FileOffer offer_;
  Callbacks callbacks_;
  std::vector<Queue> queues_;
  std::string answered_;
  Poller poller_;
};

// The queue as people know it: description, location, and its state if that is worth a word.
std::string DescribeQueue(const Queue &queue);

#endif
