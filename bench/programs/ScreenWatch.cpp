#include "bench/programs/ScreenWatch.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XShm.h>
#include <X11/extensions/Xdamage.h>
#include <poll.h>
#include <sys/ipc.h>
#include <sys/shm.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <thread>

using namespace std::chrono_literals;

namespace {

constexpr size_t kCaret = 64;  // pixels
constexpr int kMoment = 50;    // milliseconds

[[noreturn]] void GiveUp(const char *reason) {
  std::cerr << "the display cannot be watched: " << reason << '\n';
  std::exit(1);
}

// Windows go while they are asked about.
int PassOver(Display *, XErrorEvent *) { return 0; }

}  // namespace

bool Picture::HasOneColor() const {
  return std::ranges::all_of(pixels, [this](auto pixel) { return pixel == pixels.front(); });
}

void Picture::Write(const std::filesystem::path &path) const {
  std::ofstream file(path, std::ios::binary);
  file << "P6 " << width << ' ' << height << " 255\n";
  for (const std::uint32_t pixel : pixels) {
    for (const int shift : {16, 8, 0}) file.put(static_cast<char>(pixel >> shift));
  }
}

bool AreDifferent(const Picture &left, const Picture &right) {
  if (left.width != right.width || left.height != right.height) return true;
  size_t different = 0;
  for (size_t i = 0; i < left.pixels.size(); ++i) different += left.pixels[i] != right.pixels[i];
  return different > kCaret;
}

struct ScreenWatch::Connection {
  Display *display;
  Window root;
  Atom client_list;
  int damage_event;
  Damage damage;
  XShmSegmentInfo segment;

  // The windows that the window manager manages, the newest being the last.
  std::vector<Window> Clients() const {
    Atom type;
    int format;
    unsigned long count;
    unsigned long left;
    unsigned char *data = nullptr;
    std::vector<Window> windows;
    if (XGetWindowProperty(display, root, client_list, 0, 100, False, AnyPropertyType, &type,
                           &format, &count, &left, &data) == Success &&
        format == 32) {
      const auto *list = reinterpret_cast<const Window *>(data);
      windows.assign(list, list + count);
    }
    if (data != nullptr) XFree(data);
    return windows;
  }
};

ScreenWatch::ScreenWatch() : connection_(std::make_unique<Connection>()) {
  Connection &x = *connection_;
  x.display = XOpenDisplay(nullptr);
  if (x.display == nullptr) GiveUp("there is none; set DISPLAY");
  XSetErrorHandler(PassOver);
  x.root = DefaultRootWindow(x.display);
  x.client_list = XInternAtom(x.display, "_NET_CLIENT_LIST", False);
  int error_base;
  if (!XDamageQueryExtension(x.display, &x.damage_event, &error_base) ||
      !XShmQueryExtension(x.display)) {
    GiveUp("its server lacks the extensions DAMAGE and MIT-SHM");
  }
  XWindowAttributes root;
  XGetWindowAttributes(x.display, x.root, &root);
  const size_t size = static_cast<size_t>(root.width) * static_cast<size_t>(root.height) * 4;
  x.segment.shmid = shmget(IPC_PRIVATE, size, IPC_CREAT | 0600);
  x.segment.shmaddr = static_cast<char *>(shmat(x.segment.shmid, nullptr, 0));
  x.segment.readOnly = False;
  if (!XShmAttach(x.display, &x.segment)) GiveUp("no memory can be shared with its server");
  x.damage = XDamageCreate(x.display, x.root, XDamageReportNonEmpty);
  XSync(x.display, False);
  shmctl(x.segment.shmid, IPC_RMID, nullptr);
}

ScreenWatch::~ScreenWatch() {
  XShmDetach(connection_->display, &connection_->segment);
  shmdt(connection_->segment.shmaddr);
  XCloseDisplay(connection_->display);
}

ScreenWatch::Clock::time_point ScreenWatch::AwaitDrawing() {
  Connection &x = *connection_;
  for (bool has_waited = false;; has_waited = true) {
    bool was_drawn = false;
    while (XPending(x.display) > 0) {
      XEvent event;
      XNextEvent(x.display, &event);
      if (event.type == x.damage_event + XDamageNotify) was_drawn = true;
    }
    const auto now = Clock::now();
    if (was_drawn) {
      XDamageSubtract(x.display, x.damage, None, None);
      XFlush(x.display);
    }
    if (was_drawn || has_waited) return now;
    pollfd events = {ConnectionNumber(x.display), POLLIN, 0};
    poll(&events, 1, kMoment);
  }
}

Picture ScreenWatch::ContentOfWindow() {
  Connection &x = *connection_;
  Picture picture;
  const std::vector<Window> clients = x.Clients();
  XWindowAttributes window;
  if (clients.empty() || !XGetWindowAttributes(x.display, clients.back(), &window) ||
      window.map_state != IsViewable) {
    return picture;
  }
  Window child;
  int left = 0;
  int top = 0;
  XTranslateCoordinates(x.display, clients.back(), x.root, 0, 0, &left, &top, &child);
  XWindowAttributes root;
  XGetWindowAttributes(x.display, x.root, &root);
  const int right = std::min(left + window.width, root.width);
  const int bottom = std::min(top + window.height, root.height);
  left = std::max(left, 0);
  top = std::max(top, 0);
  if (left >= right || top >= bottom) return picture;

  XImage *image = XShmCreateImage(
      x.display, root.visual, static_cast<unsigned>(root.depth), ZPixmap, x.segment.shmaddr,
      &x.segment, static_cast<unsigned>(right - left), static_cast<unsigned>(bottom - top));
  if (image->bits_per_pixel != 32) GiveUp("its pixels have not 32 bits");
  if (XShmGetImage(x.display, x.root, image, left, top, AllPlanes)) {
    picture.width = image->width;
    picture.height = image->height;
    const char *row = image->data;
    for (int y = 0; y < image->height; ++y, row += image->bytes_per_line) {
      const auto *line = reinterpret_cast<const std::uint32_t *>(row);
      picture.pixels.insert(picture.pixels.end(), line, line + image->width);
    }
    for (std::uint32_t &pixel : picture.pixels) pixel &= 0xFFFFFF;
  }
  image->data = nullptr;  // the segment's
  XDestroyImage(image);
  return picture;
}

void ScreenWatch::AwaitNoWindow() {
  const auto deadline = Clock::now() + 10s;
  while (!connection_->Clients().empty()) {
    if (Clock::now() > deadline) GiveUp("a window stays");
    std::this_thread::sleep_for(5ms);
  }
}
