// The print dialog on queues of a real server, worked with real key and mouse events.

#ifndef TESTS_GUI_DIALOGONSCREEN_H
#define TESTS_GUI_DIALOGONSCREEN_H

#include <chrono>
#include <memory>
#include <string>

#include "host/dialog/PrintDialog.h"
#import "tests/gui/Screen.h"
#include "tests/support/PrivateServer.h"

inline constexpr char kBuiltBundle[] = BINARY_DIRECTORY "/BackgroundNumbering.plugin";

struct DialogOptions {
  std::string queue = "Color";
  std::filesystem::path ppd = {};  // instead of a queue's; empty: a queue
  std::string bundle = kBuiltBundle;
  std::string server = {};  // empty: the tests' own
  std::map<std::string, std::string> settings = {};
  std::string damaged_preset = {};                    // the name of one; empty: none
  std::map<std::string, std::string> last_used = {};  // empty: nothing was printed yet
  bool waits = false;
  bool has_file = true;
  std::filesystem::path document = {};                     // empty: one page of PostScript
  std::vector<std::filesystem::path> more_documents = {};  // behind it
  bool preview = false;
  std::chrono::milliseconds limit{5000};
};

// The server of all tests here, with the queues Color (the default one), Mono, Raw (without a PPD
// file), Rejecting and Stopped.
PrivateServer &TestServer();

class DialogOnScreen {
 public:
  // Opens the dialog for one file and gives it the keyboard.
  explicit DialogOnScreen(const DialogOptions &options = {});
  ~DialogOnScreen();
  DialogOnScreen(const DialogOnScreen &) = delete;
  DialogOnScreen &operator=(const DialogOnScreen &) = delete;

  PrintDialog &dialog() { return *dialog_; }
  PrintDialogView *view() { return dialog_->view(); }
  JobSession &session() { return dialog_->session(); }
  Extensions &extensions() { return extensions_; }
  const std::filesystem::path &presets() const { return folder_.path(); }
  PresetStore store() const { return PresetStore(folder_.path() / "presets", {}); }

  // Until the printer has been answered, and the job can be printed.
  void AwaitReady();
  void AwaitEnd();
  // Until this stands somewhere in the window.
  void AwaitText(const std::string &text);
  // All texts in the window that can be seen, one a line.
  std::string Texts();

  // Turns a pop-up to an item with keys.
  void Choose(NSPopUpButton *pop_up, NSString *title);
  void ShowPanel(NSString *name) { Choose([view() panels], name); }
  // The pop-up of an option on the panel of the printer's options.
  NSPopUpButton *OptionPopUp(NSString *caption);

 private:
  TemporaryFolder folder_;
  std::list<EnvironmentVariable> variables_;
  Extensions extensions_;
  std::unique_ptr<PrintDialog> dialog_;
};

#endif
