// The documents of a job in a list that people work with.

#ifndef HOST_DIALOG_DOCUMENTSVIEW_H
#define HOST_DIALOG_DOCUMENTSVIEW_H

#import <Cocoa/Cocoa.h>

#include <functional>
#include <string>
#include <vector>

#include "host/job/JobDocuments.h"

@class DocumentsTable;

/// The list, and beside it buttons for what can be done with the selected document; all but adding
/// has a key, too.
@interface DocumentsView : NSView <NSTableViewDataSource, NSTableViewDelegate> {
  JobDocuments *_documents;
  std::function<void()> _wantsMore;
  std::vector<std::string> _names;
  // Subviews, and retained as such.
  DocumentsTable *_table;
  NSButton *_add, *_remove, *_up, *_down;
}

@property(readonly) NSTableView *table;
@property(readonly) NSButton *add;
@property(readonly) NSButton *remove;
@property(readonly) NSButton *up;
@property(readonly) NSButton *down;

/// The documents must outlive the view. Whether others are to be added is asked for at the end of
/// an event.
- (instancetype)initWithDocuments:(JobDocuments *)documents
                        wantsMore:(std::function<void()>)wantsMore;

/// Shows them as they are now; the selection stays at its place.
- (void)showDocuments;
- (void)select:(size_t)at;

@end

#endif
