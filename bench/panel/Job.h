// A printer that numbers its pages, a job, and the built bundle's panel for it.

#ifndef BENCH_PANEL_JOB_H
#define BENCH_PANEL_JOB_H

#import "tests/support/BuiltBundle.h"
#import "view/velmoraBNViewControllerRV2+Input.h"
#import "view/velmoraBNViewControllerRV2+Summary.h"

// The built PPD file of the color printer; opened once.
ppd_file_t *NumberingPrinter();

// Print settings with everything chosen, on the numbering printer. Autoreleased.
TestHost *NewJob();

velmoraBNViewControllerRV2 *ControllerOf(id<PDEPanel> panel);

#endif
