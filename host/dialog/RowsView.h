// A panel of captions and what people choose behind them.

#ifndef HOST_DIALOG_ROWSVIEW_H
#define HOST_DIALOG_ROWSVIEW_H

#import <Cocoa/Cocoa.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "host/session/panels/PanelRows.h"

struct RowsViewCallbacks {
  // Of the row with this index, a choice or what is being typed.
  std::function<void(size_t row, const std::string &value)> chosen;
  std::function<void(size_t row, const std::string &text)> typed;
};

/// One pop-up or text box a row, under the headings of their groups. Where there are many rows a
/// field above them says which are shown.
@interface RowsView : NSView <NSTextFieldDelegate> {
  PanelRows _rows;
  RowsViewCallbacks _callbacks;
  NSTextField *_filterCaption, *_filter, *_noneMatches;  // nil: there are not many rows
  // Subviews, in the order of the rows.
  std::vector<NSTextField *> _captions;
  std::vector<NSControl *> _controls;
  std::vector<NSTextField *> _hints;     // nil: a row without
  std::vector<NSTextField *> _headings;  // above the row; nil: it begins no group
  std::vector<std::string> _shown;       // the values
}

- (instancetype)initWithRows:(PanelRows)rows callbacks:(RowsViewCallbacks)callbacks;

/// In the order in which they stand.
- (const PanelRows &)rows;

/// Shows what a job has, but for the row that is being typed or chosen in; SIZE_MAX: none is.
- (void)showJob:(const JobOptions &)job besides:(size_t)row;

/// The texts that are not as they were shown, by the indexes of their rows.
- (std::vector<std::pair<size_t, std::string>>)texts;
- (void)giveFocusTo:(size_t)row;

@end

#endif
