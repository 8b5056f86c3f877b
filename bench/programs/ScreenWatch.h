// What is seen of a program on the display.

#ifndef BENCH_PROGRAMS_SCREENWATCH_H
#define BENCH_PROGRAMS_SCREENWATCH_H

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <vector>

struct Picture {
  int width = 0;
  int height = 0;
  std::vector<std::uint32_t> pixels;

  bool HasOneColor() const;
  // As a portable pixmap.
  void Write(const std::filesystem::path &path) const;
};

// Whether two pictures differ by more than a blinking caret.
bool AreDifferent(const Picture &left, const Picture &right);

// The display that DISPLAY names, with a window manager and no windows but those of the programs
// that are measured. It is looked at from outside, in the same way whoever draws. What fails ends
// the program.
class ScreenWatch {
 public:
  using Clock = std::chrono::steady_clock;

  ScreenWatch();
  ~ScreenWatch();
  ScreenWatch(const ScreenWatch &) = delete;
  ScreenWatch &operator=(const ScreenWatch &) = delete;

  // Until something has been drawn anywhere, and no longer than a moment: windows also come to
  // sight without being drawn anew. Answers when that was.
  Clock::time_point AwaitDrawing();

  // The content of the newest window that a user would see, without its frame; empty: there is
  // none.
  Picture ContentOfWindow();

  // Until there is no window.
  void AwaitNoWindow();

 private:
  struct Connection;
  std::unique_ptr<Connection> connection_;
};

#endif
