// The printer's options that no extension panel shows.

#ifndef HOST_DIALOG_OPTIONSVIEW_H
#define HOST_DIALOG_OPTIONSVIEW_H

#import <Cocoa/Cocoa.h>

#include <functional>
#include <string>
#include <vector>

#include "host/ppd/PPDFile.h"

/// One pop-up an option, under the headings of their groups.
@interface OptionsView : NSView {
  std::vector<PPDOption> _options;
  std::function<void(const std::string &keyword, const std::string &choice)> _whenChosen;
  NSMutableArray *_popUps;  // in the order of the options
}

/// Calls back with the keywords of the option and the choice when the user has chosen.
- (instancetype)
    initWithOptions:(const std::vector<PPDOption> &)options
         whenChosen:
             (std::function<void(const std::string &keyword, const std::string &choice)>)whenChosen;

/// Shows what is chosen, by the keywords of options and choices; of others nothing.
- (void)showChoices:(const JobOptions &)choices;

@end

#endif
