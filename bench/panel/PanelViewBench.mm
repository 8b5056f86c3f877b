// The first panelView: beside the loading of the layout, everything that sets the panel up.

#import "bench/layout/BareOwner.h"
#import "bench/panel/Job.h"
#import "bench/panel/Measured.h"

namespace {

id<PDEPanel> panel = nil;
BareOwner *owner = nil;

const bool registered = [] {
  MeasureAlone(
      "panel-view/ours", [] { panel = [NewPanel(NewJob()) retain]; }, [] { [panel panelView]; },
      [] {
        GiveBackLayout(ControllerOf(panel));
        [panel release];
      });
  MeasureAlone(
      "panel-view/platform", [] { owner = [[BareOwner alloc] init]; },
      [] { [owner loadLayoutOfBundle:BuiltBundle()]; },
      [] {
        GiveBackLayout(owner);
        [owner release];
      });
  return true;
}();

}  // namespace
