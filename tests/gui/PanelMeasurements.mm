// panel_measurements LANGUAGE PICTURE
//
// Shows the built panel in a language, of which a process has but one, and writes for both looks of
// it (on: numbering is on, a printer with color; off: numbering is off, a printer without) a
// picture, PICTURE-<look>.png. Standard output: a property list, look -> measurements; see
// PanelInLanguage.h.

#include <cstdio>
#include <string>

#import "host/dialog/Appearance.h"
#import "host/dialog/DialogWindow.h"
#import "tests/gui/TextArea.h"
#import "tests/support/BuiltBundle.h"
#include "tests/support/TestPPD.h"

namespace {

const char kColorPrinter[] = "*ColorDevice: True\n*VQBackgroundNumberingSupport: \"true\"\n";
const char kMonoPrinter[] = "*ColorDevice: False\n*VQBackgroundNumberingSupport: \"true\"\n";

void StartApplication(const std::string &language) {
  std::string program = "panel_measurements";
  std::string option = "-NSLanguages";
  std::string value = '(' + language + ')';
  char *arguments[] = {program.data(), option.data(), value.data(), nullptr};
  [NSProcessInfo initializeWithArguments:arguments count:3 environment:environ];
  [[NSUserDefaults standardUserDefaults] registerDefaults:@{@"GSSuppressAppIcon" : @"YES"}];
  UseLightAppearance();
  [[NSApplication sharedApplication] finishLaunching];
}

NSDictionary *Measurements(id<PDEPanel> panel) {
  NSView *view = [panel panelView];
  NSMutableDictionary *measurements = [NSMutableDictionary dictionary];
  for (NSString *outlet in @[
         @"functionValid", @"popUpSize", @"popUpDensity", @"popUpColor", @"textBoxStartNumber",
         @"stepperStartNumber", @"defaultButton", @"labelSize", @"labelDensity", @"labelColor",
         @"labelStartNumber", @"labelStartNumberRange"
       ]) {
    NSControl *control = Outlet(panel, outlet);
    NSString *text = TextOfControl(control);
    [measurements setObject:@{
      @"text" : text == nil ? @"" : text,
      @"frame" : NSStringFromRect([view convertRect:[control bounds] fromView:control]),
      @"textArea" : NSStringFromRect([view convertRect:TextArea(control) fromView:control]),
      @"wantedWidth" : [NSNumber numberWithDouble:[[control cell] cellSize].width],
    }
                     forKey:outlet];
  }
  [measurements setObject:@{@"frame" : NSStringFromRect([view bounds])} forKey:@"view"];
  return measurements;
}

NSDictionary *ShowLook(const char *printer, NSString *numbering, const std::string &picture) {
  TestPPD ppd(printer);
  TestHost *host = [TestHost hostWithPPD:ppd.get()];
  [host setValue:numbering forSetting:@"VQBackgroundNumbering"];
  [host setValue:@"999" forSetting:@"VQStartNumber"];
  id<PDEPanel> panel = NewPanel(host);
  NSView *view = [panel panelView];
  [panel willShow];
  StraightenButtons(view);
  DialogWindow *window = [[[DialogWindow alloc] initWithTitle:@"" view:view
                                                    resizable:NO] autorelease];
  [PictureOfView(view) writeToFile:[NSString stringWithUTF8String:picture.c_str()] atomically:NO];
  NSDictionary *measurements = Measurements(panel);
  [window setContentView:nil];  // before the panel goes
  return measurements;
}

}  // namespace

int main(int argc, char **argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: panel_measurements LANGUAGE PICTURE\n");
    return 2;
  }
  const std::string picture = argv[2];
  @autoreleasepool {
    StartApplication(argv[1]);
    NSDictionary *looks = @{
      @"on" : ShowLook(kColorPrinter, @"On", picture + "-on.png"),
      @"off" : ShowLook(kMonoPrinter, @"Off", picture + "-off.png"),
    };
    NSData *list = [NSPropertyListSerialization dataFromPropertyList:looks
                                                              format:NSPropertyListXMLFormat_v1_0
                                                    errorDescription:nullptr];
    std::fwrite([list bytes], 1, [list length], stdout);
  }
  return 0;
}
