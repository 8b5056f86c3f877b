// A program from which something is dragged and dropped, as X11 programs do it (XDND, version 5).
//   drag_source [--pieces] [--leave] [--type TYPE]... X Y LIST
// Drags from the left edge of the screen to the point, and drops a text/uri-list there. With types,
// these are offered in place of it. Says what came of it: "unaware" (no window there takes drops),
// "refused", "left", "failed" or "taken".

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <poll.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds kPatience(60);
constexpr size_t kPiece = 20;  // bytes

Display *display = nullptr;

[[noreturn]] void Fail(const std::string &what) {
  std::cerr << "drag_source: " << what << '\n';
  std::exit(1);
}

Atom Named(const std::string &name) { return XInternAtom(display, name.c_str(), False); }

// The first of a property's 32-bit numbers; none: `otherwise`.
unsigned long NumberIn(Window window, const char *property, unsigned long otherwise) {
  Atom type = None;
  int bits = 0;
  unsigned long length = 0;
  unsigned long rest = 0;
  unsigned char *data = nullptr;
  XGetWindowProperty(display, window, Named(property), 0, 1, False, AnyPropertyType, &type, &bits,
                     &length, &rest, &data);
  unsigned long number = otherwise;
  if (bits == 32 && length > 0) std::memcpy(&number, data, sizeof number);
  if (data != nullptr) XFree(data);
  return number;
}

bool IsAware(Window window) { return NumberIn(window, "XdndAware", 0) >= 3; }

// From the root downwards, the first window under the point that takes drops; none: None.
Window AwareWindowAt(int x, int y) {
  const Window root = DefaultRootWindow(display);
  Window window = root;
  while (!IsAware(window)) {
    int inner_x = 0;
    int inner_y = 0;
    Window child = None;
    XTranslateCoordinates(display, root, window, x, y, &inner_x, &inner_y, &child);
    if (child == None) return None;
    window = child;
  }
  return window;
}

class Drag {
 public:
  Drag(std::vector<std::string> types, std::string list, bool in_pieces)
      : list_(std::move(list)), in_pieces_(in_pieces) {
    for (const std::string &type : types) types_.push_back(Named(type));
    window_ = XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, 1, 1, 0, 0, 0);
    XSetSelectionOwner(display, Named("XdndSelection"), window_, CurrentTime);
    XChangeProperty(display, window_, Named("XdndTypeList"), XA_ATOM, 32, PropModeReplace,
                    reinterpret_cast<const unsigned char *>(types_.data()),
                    static_cast<int>(types_.size()));
  }

  std::string To(int x, int y, bool leaves) {
    target_ = AwareWindowAt(x, y);
    if (target_ == None) return "unaware";
    recipient_ = NumberIn(target_, "XdndProxy", target_);
    if (!IsAware(recipient_)) return "unaware";
    const auto type = [this](size_t at) {
      return at < types_.size() ? static_cast<long>(types_[at]) : None;
    };
    Send("XdndEnter", (5L << 24) | (types_.size() > 3 ? 1 : 0), type(0), type(1), type(2));
    bool accepts = false;
    for (const int step : {1, 0}) {
      Send("XdndPosition", 0, (static_cast<long>(x + step) << 16) | (y + step), CurrentTime,
           static_cast<long>(Named("XdndActionCopy")));
      accepts = (Await("XdndStatus").data.l[1] & 1) != 0;
    }
    if (!accepts || leaves) {
      Send("XdndLeave", 0, 0, 0, 0);
      XSync(display, False);
      return leaves ? "left" : "refused";
    }
    Send("XdndDrop", 0, CurrentTime, 0, 0);
    return (Await("XdndFinished").data.l[1] & 1) != 0 ? "taken" : "failed";
  }

 private:
  void Send(const char *name, long second, long third, long fourth, long fifth) {
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.window = target_;
    event.xclient.message_type = Named(name);
    event.xclient.format = 32;
    const long words[] = {static_cast<long>(window_), second, third, fourth, fifth};
    std::memcpy(event.xclient.data.l, words, sizeof words);
    XSendEvent(display, recipient_, False, NoEventMask, &event);
    XFlush(display);
  }

  XEvent NextEvent() {
    const auto end = Clock::now() + kPatience;
    while (XPending(display) == 0) {
      const auto left =
          std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
      pollfd connection = {ConnectionNumber(display), POLLIN, 0};
      if (left <= 0 || poll(&connection, 1, static_cast<int>(left)) == 0) Fail("nobody answers");
    }
    XEvent event;
    XNextEvent(display, &event);
    return event;
  }

  // Gives what is asked for meanwhile.
  XClientMessageEvent Await(const char *name) {
    for (;;) {
      const XEvent event = NextEvent();
      if (event.type == SelectionRequest) Answer(event.xselectionrequest);
      if (event.type == PropertyNotify) GivePiece(event.xproperty);
      if (event.type != ClientMessage || event.xclient.message_type != Named(name)) continue;
      if (static_cast<Window>(event.xclient.data.l[0]) != target_) Fail("another window answers");
      return event.xclient;
    }
  }

  void Answer(const XSelectionRequestEvent &request) {
    const bool is_known = request.target == Named("text/uri-list") &&
                          std::find(types_.begin(), types_.end(), request.target) != types_.end();
    if (is_known && in_pieces_) {
      const long size = static_cast<long>(list_.size());
      XSelectInput(display, request.requestor, PropertyChangeMask);
      XChangeProperty(display, request.requestor, request.property, Named("INCR"), 32,
                      PropModeReplace, reinterpret_cast<const unsigned char *>(&size), 1);
    } else if (is_known) {
      Put(request.requestor, request.property, list_);
    }
    XEvent answer = {};
    answer.xselection.type = SelectionNotify;
    answer.xselection.requestor = request.requestor;
    answer.xselection.selection = request.selection;
    answer.xselection.target = request.target;
    answer.xselection.property = is_known ? request.property : None;
    answer.xselection.time = request.time;
    XSendEvent(display, request.requestor, False, NoEventMask, &answer);
    XFlush(display);
  }

  void GivePiece(const XPropertyEvent &changed) {
    if (changed.state != PropertyDelete || changed.window == window_) return;
    Put(changed.window, changed.atom, list_.substr(0, kPiece));
    if (list_.empty()) XSelectInput(display, changed.window, NoEventMask);
    list_.erase(0, kPiece);
    XFlush(display);
  }

  static void Put(Window window, Atom property, const std::string &text) {
    XChangeProperty(display, window, property, Named("text/uri-list"), 8, PropModeReplace,
                    reinterpret_cast<const unsigned char *>(text.data()),
                    static_cast<int>(text.size()));
  }

  std::string list_;
  const bool in_pieces_;
  std::vector<Atom> types_;
  Window window_ = None;
  Window target_ = None;
  Window recipient_ = None;  // of messages to it
};

}  // namespace

int main(int argc, char **argv) {
  std::vector<std::string> words(argv + 1, argv + argc);
  std::vector<std::string> types;
  bool in_pieces = false;
  bool leaves = false;
  while (!words.empty() && words[0].starts_with("--")) {
    in_pieces = in_pieces || words[0] == "--pieces";
    leaves = leaves || words[0] == "--leave";
    if (words[0] == "--type") {
      words.erase(words.begin());
      types.push_back(words.at(0));
    }
    words.erase(words.begin());
  }
  if (words.size() != 3) Fail("wrong usage");
  if (types.empty()) types = {"text/uri-list"};
  display = XOpenDisplay(nullptr);
  if (display == nullptr) Fail("there is no display");
  Drag drag(types, words[2], in_pieces);
  std::cout << drag.To(std::stoi(words[0]), std::stoi(words[1]), leaves) << '\n';
  XCloseDisplay(display);
}
