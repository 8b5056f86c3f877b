// The first panelView: beside the loading of the layout, everything that sets the panel up.

#import "bench/layout/BareOwner.h"
#import "bench/panel/Job.h"
#import "bench/panel/Measured.h"

namespace {

id<PDEPanel> panel = nil;
BareOwner *owner = nil;

void Fill(NSPopUpButton *pop_up, int items) {
  [pop_up removeAllItems];
  for (int item = 0; item < items; ++item) {
    [pop_up addItemWithTitle:[NSString stringWithFormat:@"Item %d", item]];
  }
}

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
  // The part of it that the platform's menus take: as many items as the panel has.
  MeasureAlone(
      "panel-view/menus-filled", [] { owner = [[BareOwner alloc] init]; },
      [] {
        [owner loadLayoutOfBundle:BuiltBundle()];
        Fill(owner.popUpSize, 3);
        Fill(owner.popUpDensity, 3);
        Fill(owner.popUpColor, 7);
      },
      [] {
        GiveBackLayout(owner);
        [owner release];
      });
  return true;
}();

}  // namespace
