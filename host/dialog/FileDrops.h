// Files that are dropped onto a window, between its events.

#ifndef HOST_DIALOG_FILEDROPS_H
#define HOST_DIALOG_FILEDROPS_H

#import <Cocoa/Cocoa.h>

#include <functional>

#include "host/base/Retained.h"
#include "host/dialog/DropTarget.h"
#include "host/dialog/UriList.h"

class FileDrops {
 public:
  struct Callbacks {
    std::function<bool()> takes;  // whether files can be dropped now; while a question is open they
                                  // cannot
    std::function<void(const ListedFiles &files)> dropped;
  };

  // The window must outlive the object.
  FileDrops(NSWindow *window, Callbacks callbacks);
  ~FileDrops();
  FileDrops(const FileDrops &) = delete;
  FileDrops &operator=(const FileDrops &) = delete;

 private:
  Callbacks callbacks_;
  DropTarget target_;
  Retained<id> watcher_;  // of the target's descriptor
};

#endif
