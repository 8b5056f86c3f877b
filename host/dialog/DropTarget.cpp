#include "host/dialog/DropTarget.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace {

constexpr long kVersion = 5;                  // of the protocol
constexpr long kMostWords = 1024 * 1024 / 4;  // of a list of files

using Connection = std::unique_ptr<Display, decltype(&XCloseDisplay)>;

// The source may be gone at any moment; what is sent to it then is an error that would end this
// process.
class ErrorsOfNoMatter {
 public:
  explicit ErrorsOfNoMatter(Display *display)
      : display_(display), before_(XSetErrorHandler([](Display *, XErrorEvent *) { return 0; })) {}
  ~ErrorsOfNoMatter() {
    XSync(display_, False);
    XSetErrorHandler(before_);
  }
  ErrorsOfNoMatter(const ErrorsOfNoMatter &) = delete;
  ErrorsOfNoMatter &operator=(const ErrorsOfNoMatter &) = delete;

 private:
  Display *const display_;
  const XErrorHandler before_;
};

struct Property {
  Atom type = None;
  std::string bytes;
  std::vector<Atom> atoms;  // where it has them
  bool is_whole = false;
};

Property ReadProperty(Display *display, Window window, Atom name, bool deletes) {
  Property property;
  int bits = 0;
  unsigned long length = 0;
  unsigned long rest = 0;
  unsigned char *data = nullptr;
  const int status =
      XGetWindowProperty(display, window, name, 0, kMostWords, deletes ? True : False,
                         AnyPropertyType, &property.type, &bits, &length, &rest, &data);
  const std::unique_ptr<unsigned char, decltype(&XFree)> owned(data, XFree);
  if (status != Success) return property;
  property.is_whole = rest == 0;
  if (bits == 8) property.bytes.assign(reinterpret_cast<const char *>(data), length);
  if (bits == 32 && property.type == XA_ATOM) {
    const Atom *const atoms = reinterpret_cast<const Atom *>(data);
    property.atoms.assign(atoms, atoms + length);
  }
  return property;
}

}  // namespace

struct DropTarget::Proxy {
  Proxy(unsigned long window, Callbacks of_window);

  Atom Named(const char *name) const { return XInternAtom(connection.get(), name, False); }
  void Handle(const XEvent &event);
  void Message(const XClientMessageEvent &message);
  void Enter(const XClientMessageEvent &message);
  void Position();
  void Drop(const XClientMessageEvent &message);
  void TakeAnswer(const XSelectionEvent &answer);
  void TakePiece(const XPropertyEvent &changed);
  void Finish(bool is_taken);
  void Leave();
  void Send(const char *name, long second, long third, long fifth);
  bool Takes() const { return has_files && callbacks.takes(); }

  Callbacks callbacks;
  Connection connection{XOpenDisplay(nullptr), XCloseDisplay};
  Window window = None;

  // Of what is dragged over the window.
  Window source = None;
  Window target = None;  // as the source calls this window
  bool has_files = false;
  bool comes_in_pieces = false;
  std::string list;  // what has come of it

  std::vector<std::string> dropped;  // lists that nobody was told of yet
};

DropTarget::Proxy::Proxy(unsigned long of, Callbacks of_window) : callbacks(std::move(of_window)) {
  Display *display = connection.get();
  if (display == nullptr) return;
  const ErrorsOfNoMatter ignored(display);
  window = XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, 1, 1, 0, 0, 0);
  XSelectInput(display, window, PropertyChangeMask);
  for (const Window one : {window, static_cast<Window>(of)}) {
    XChangeProperty(display, one, Named("XdndProxy"), XA_WINDOW, 32, PropModeReplace,
                    reinterpret_cast<const unsigned char *>(&window), 1);
    XChangeProperty(display, one, Named("XdndAware"), XA_ATOM, 32, PropModeReplace,
                    reinterpret_cast<const unsigned char *>(&kVersion), 1);
  }
}

void DropTarget::Proxy::Handle(const XEvent &event) {
  switch (event.type) {
    case ClientMessage:
      return Message(event.xclient);
    case SelectionNotify:
      return TakeAnswer(event.xselection);
    case PropertyNotify:
      return TakePiece(event.xproperty);
    default:
      return;
  }
}

void DropTarget::Proxy::Message(const XClientMessageEvent &message) {
  if (message.format != 32) return;
  if (message.message_type == Named("XdndEnter")) return Enter(message);
  if (static_cast<Window>(message.data.l[0]) != source || source == None) return;
  target = message.window;
  if (message.message_type == Named("XdndPosition")) return Position();
  if (message.message_type == Named("XdndDrop")) return Drop(message);
  if (message.message_type == Named("XdndLeave")) return Leave();
}

void DropTarget::Proxy::Enter(const XClientMessageEvent &message) {
  Leave();
  source = static_cast<Window>(message.data.l[0]);
  std::vector<Atom> types;
  if ((message.data.l[1] & 1) != 0) {  // more than fit into the message
    types = ReadProperty(connection.get(), source, Named("XdndTypeList"), false).atoms;
  } else {
    for (int at = 2; at < 5; ++at) types.push_back(static_cast<Atom>(message.data.l[at]));
  }
  has_files = std::ranges::find(types, Named("text/uri-list")) != types.end();
}

void DropTarget::Proxy::Position() {
  const bool takes = Takes();
  // The empty rectangle: it may be otherwise at the next position.
  Send("XdndStatus", takes ? 1 : 0, 0, takes ? static_cast<long>(Named("XdndActionCopy")) : None);
}

void DropTarget::Proxy::Drop(const XClientMessageEvent &message) {
  if (!Takes()) return Finish(false);
  XConvertSelection(connection.get(), Named("XdndSelection"), Named("text/uri-list"),
                    Named("PDEPRINT_DROP"), window, static_cast<Time>(message.data.l[2]));
}

void DropTarget::Proxy::TakeAnswer(const XSelectionEvent &answer) {
  if (source == None) return;
  if (answer.property == None) return Finish(false);
  Property property = ReadProperty(connection.get(), window, answer.property, true);
  comes_in_pieces = property.type == Named("INCR");
  if (comes_in_pieces) return;
  list = std::move(property.bytes);
  Finish(property.is_whole);
}

void DropTarget::Proxy::TakePiece(const XPropertyEvent &changed) {
  if (!comes_in_pieces || changed.state != PropertyNewValue ||
      changed.atom != Named("PDEPRINT_DROP")) {
    return;
  }
  const Property piece = ReadProperty(connection.get(), window, changed.atom, true);
  if (piece.bytes.empty()) return Finish(true);
  list += piece.bytes;
  if (!piece.is_whole || list.size() > 4 * kMostWords) Finish(false);
}

void DropTarget::Proxy::Finish(bool is_taken) {
  Send("XdndFinished", is_taken ? 1 : 0,
       is_taken ? static_cast<long>(Named("XdndActionCopy")) : None, 0);
  if (is_taken) dropped.push_back(std::move(list));
  Leave();
}

void DropTarget::Proxy::Leave() {
  source = None;
  has_files = false;
  comes_in_pieces = false;
  list.clear();
}

// To the source, on behalf of the window.
void DropTarget::Proxy::Send(const char *name, long second, long third, long fifth) {
  XEvent event = {};
  event.xclient.type = ClientMessage;
  event.xclient.window = source;
  event.xclient.message_type = Named(name);
  event.xclient.format = 32;
  event.xclient.data.l[0] = static_cast<long>(target);
  event.xclient.data.l[1] = second;
  event.xclient.data.l[2] = third;
  event.xclient.data.l[4] = fifth;
  XSendEvent(connection.get(), source, False, NoEventMask, &event);
}

DropTarget::DropTarget(unsigned long window, Callbacks callbacks)
    : proxy_(std::make_unique<Proxy>(window, std::move(callbacks))) {}

DropTarget::~DropTarget() = default;

int DropTarget::descriptor() const {
  return proxy_->connection == nullptr ? -1 : ConnectionNumber(proxy_->connection.get());
}

void DropTarget::HandleEvents() {
  Display *display = proxy_->connection.get();
  if (display == nullptr) return;
  do {
    const ErrorsOfNoMatter ignored(display);
    while (XPending(display) > 0) {
      XEvent event;
      XNextEvent(display, &event);
      proxy_->Handle(event);
    }
    // Events that came while others were handled: the descriptor does not tell of them any more.
  } while (XEventsQueued(display, QueuedAlready) > 0);
  // At the very end: it may take time, or ask the user.
  for (const std::string &list : std::exchange(proxy_->dropped, {})) {
    proxy_->callbacks.dropped(list);
  }
}
