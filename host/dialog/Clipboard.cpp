#include "host/dialog/Clipboard.h"

#include <X11/Xlib.h>
#include <poll.h>

#include <memory>

namespace {

using Clock = std::chrono::steady_clock;

constexpr long kLongest = 64 * 1024;

// A connection of its own: the platform's has events that are not ours to take.
using Connection = std::unique_ptr<Display, decltype(&XCloseDisplay)>;

bool AwaitAnswer(Display *display, Window window, XEvent &answer, Clock::time_point end) {
  while (!XCheckTypedWindowEvent(display, window, SelectionNotify, &answer)) {
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
    if (left <= 0) return false;
    pollfd connection = {ConnectionNumber(display), POLLIN, 0};
    poll(&connection, 1, static_cast<int>(left));
  }
  return true;
}

std::optional<std::string> TextIn(Display *display, Window window, Atom property, Atom wanted) {
  Atom type = None;
  int bits = 0;
  unsigned long length = 0;
  unsigned long rest = 0;
  unsigned char *data = nullptr;
  const int status = XGetWindowProperty(display, window, property, 0, kLongest / 4, False, wanted,
                                        &type, &bits, &length, &rest, &data);
  const std::unique_ptr<unsigned char, decltype(&XFree)> owned(data, XFree);
  // Long texts come piece by piece, in another type.
  if (status != Success || type != wanted || bits != 8 || rest != 0) return std::nullopt;
  return std::string(reinterpret_cast<const char *>(data), length);
}

}  // namespace

std::optional<std::string> ClipboardText(std::chrono::milliseconds limit) {
  const Connection connection(XOpenDisplay(nullptr), XCloseDisplay);
  Display *display = connection.get();
  if (display == nullptr) return std::nullopt;
  // It goes with the connection.
  const Window window =
      XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, 1, 1, 0, 0, 0);
  const Atom text = XInternAtom(display, "UTF8_STRING", False);
  const Atom property = XInternAtom(display, "PDEPRINT_CLIPBOARD", False);
  XConvertSelection(display, XInternAtom(display, "CLIPBOARD", False), text, property, window,
                    CurrentTime);
  XFlush(display);
  XEvent answer;
  if (!AwaitAnswer(display, window, answer, Clock::now() + limit) ||
      answer.xselection.property == None) {
    return std::nullopt;
  }
  return TextIn(display, window, property, text);
}
