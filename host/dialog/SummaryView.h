// What the job is, in words.

#ifndef HOST_DIALOG_SUMMARYVIEW_H
#define HOST_DIALOG_SUMMARYVIEW_H

#import <Cocoa/Cocoa.h>

#include <string>
#include <utility>
#include <vector>

using SummarySection = std::pair<std::string, std::vector<std::pair<std::string, std::string>>>;

/// Titles and values in two columns, under headings; long values wrap.
@interface SummaryView : NSView

- (void)showSections:(const std::vector<SummarySection> &)sections;

@end

#endif
