#include "host/dialog/TransientWindow.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace {

// While the object lives, the display's answer that something is wrong raises nothing and ends
// nothing: the other program may close its window at any moment.
class ErrorsOf {
 public:
  explicit ErrorsOf(Display *display) : display_(display) {
    XSync(display_, False);
    before_ = XSetErrorHandler([](Display *, XErrorEvent *) { return 0; });
  }
  ~ErrorsOf() {
    XSync(display_, False);
    XSetErrorHandler(before_);
  }
  ErrorsOf(const ErrorsOf &) = delete;
  ErrorsOf &operator=(const ErrorsOf &) = delete;

 private:
  Display *display_;
  XErrorHandler before_;
};

void SetAtom(Display *display, Window window, const char *property, const char *value) {
  const Atom atom = XInternAtom(display, value, False);
  XChangeProperty(display, window, XInternAtom(display, property, False), XA_ATOM, 32,
                  PropModeReplace, reinterpret_cast<const unsigned char *>(&atom), 1);
}

}  // namespace

bool MakeDialogOf(void *display, unsigned long window, unsigned long parent) {
  auto *const server = static_cast<Display *>(display);
  const ErrorsOf errors(server);
  XWindowAttributes attributes;
  if (XGetWindowAttributes(server, parent, &attributes) == 0) return false;
  XSetTransientForHint(server, window, parent);
  SetAtom(server, window, "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DIALOG");
  SetAtom(server, window, "_NET_WM_STATE", "_NET_WM_STATE_MODAL");
  return true;
}
