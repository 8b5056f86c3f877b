// A view controller with everything under it real: common information, tickets, print settings, PPD
// file and, once loaded, the controls of a layout.

#ifndef TESTS_SUPPORT_TESTPANEL_H
#define TESTS_SUPPORT_TESTPANEL_H

#include <string>
#include <vector>

#import "tests/support/TestBundle.h"
#import "tests/support/TestHost.h"
#include "tests/support/TestPPD.h"
#import "view/velmoraBNViewControllerRV2+Input.h"
#import "view/velmoraBNViewControllerRV2+Summary.h"

struct PanelOptions {
  id setting_info = ShippedSettingInfo();
  std::string strings = "";  // a localized-string key is its own text
  std::string ppd_lines = kColorDevice;
  NSDictionary *stored = nil;  // what the job's print settings hold from the start
  bool print_settings = true;  // false: the job has none
  Class controller_class = [velmoraBNViewControllerRV2 class];
  Class info_class = [velmoraBNCommonInfoRV2 class];
};

class TestPanel {
 public:
  explicit TestPanel(const PanelOptions &options = {});
  // Gives the controls back too, which the controller does not.
  ~TestPanel();

  TestHost *host() const { return host_; }
  velmoraBNCommonInfoRV2 *info() const { return info_; }
  velmoraBNViewControllerRV2 *controller() const { return controller_; }

  // Loads the shipped layout.
  velmoraBNViewControllerRV2 *Load();

  // Types into the start-number box as a text and tells the controller directly: what a handler
  // raises does not come through the notification center.
  void Type(NSString *text);

  // Releases the controller and answers nothing of it any more; the controls are the caller's.
  void DropController();

 private:
  TestPPD ppd_;
  TestBundle bundle_;
  TestHost *host_;
  velmoraBNCommonInfoRV2 *info_;
  velmoraBNViewControllerRV2 *controller_;
};

/// Takes all outlets from the controller and gives back the layout's root view that they stand in.
void GiveBackControls(velmoraBNViewControllerRV2 *controller);

/// The captions, the range caption being the last.
NSArray *Labels(velmoraBNViewControllerRV2 *controller);
/// The menus, in the order size, density, color.
NSArray *PopUps(velmoraBNViewControllerRV2 *controller);

/// What the tests' recording classes noted down since it was last cleared.
std::vector<std::string> &Events();

/// A ticket manager that notes every message of the view controller before it does its work.
@interface RecordingTicketManager : velmoraBNPrintTicketManagerRV2
@end

/// The object of the last changeValue:ticketName: of a RecordingTicketManager.
id LastChangedValue();

/// Makes the controller's ticket manager a RecordingTicketManager, and forgets past events.
void RecordTicketManager(velmoraBNViewControllerRV2 *controller);

/// While it lives, the default notification center notes subscriptions and their end.
class RecordingNotifications {
 public:
  explicit RecordingNotifications(id observer);
  ~RecordingNotifications();
};

#endif
