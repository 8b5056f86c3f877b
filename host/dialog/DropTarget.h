// Files that other programs drop onto a window, as X11 programs do it: the protocol XDND.

#ifndef HOST_DIALOG_DROPTARGET_H
#define HOST_DIALOG_DROPTARGET_H

#include <functional>
#include <memory>
#include <string>

// The platform's own way leads over its pasteboard server, which need not know what is dragged. So
// the window names a proxy for drops: another one, of a connection of its own.
class DropTarget {
 public:
  struct Callbacks {
    std::function<bool()> takes;  // whether something can be dropped now
    std::function<void(const std::string &uri_list)> dropped;
  };

  // The window, by its number on this process's display, must outlive the object.
  DropTarget(unsigned long window, Callbacks callbacks);
  ~DropTarget();
  DropTarget(const DropTarget &) = delete;
  DropTarget &operator=(const DropTarget &) = delete;

  // The descriptor that can be read when HandleEvents has something to do; negative: there is no
  // display.
  int descriptor() const;
  void HandleEvents();

 private:
  struct Proxy;
  std::unique_ptr<Proxy> proxy_;
};

#endif
