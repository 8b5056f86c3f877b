// The panel for many inputs: its layout is loaded once, since every panel leaves its view behind.

#ifndef TESTS_FUZZ_PANEL_H
#define TESTS_FUZZ_PANEL_H

#import "tests/support/TestPanel.h"

namespace fuzz {

// One that is never unloaded, of a job of its own, with the shipped setting info.
TestPanel &LoadedPanel();

// A controller of this common information, which works the controls of LoadedPanel while it lives.
// The constructor raises what the set-up of a view raises.
class BorrowedPanel {
 public:
  explicit BorrowedPanel(velmoraBNCommonInfoRV2 *info);
  ~BorrowedPanel();
  BorrowedPanel(const BorrowedPanel &) = delete;
  BorrowedPanel &operator=(const BorrowedPanel &) = delete;

  velmoraBNViewControllerRV2 *controller() const { return controller_; }
  // Everything that a print dialog and a user do, once.
  void Work() const;

 private:
  velmoraBNViewControllerRV2 *controller_;
};

}  // namespace fuzz

#endif
