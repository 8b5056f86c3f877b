// What the job is, in words.

#ifndef HOST_DIALOG_SUMMARYVIEW_H
#define HOST_DIALOG_SUMMARYVIEW_H

#import <Cocoa/Cocoa.h>

#include <vector>

#include "host/dialog/SummarySection.h"

/// Titles and values in two columns, under headings; long values wrap.
@interface SummaryView : NSView

- (instancetype)initWithSections:(const std::vector<SummarySection> &)sections;

@end

#endif
