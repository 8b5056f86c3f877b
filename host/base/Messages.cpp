#include "host/base/Messages.h"

#include <iostream>
#include <mutex>

#include "host/base/Localized.h"
#include "host/base/OneLine.h"

namespace {

std::mutex mutex;  // of the last complaint
std::string last_complaint;

// What is quoted may hold line ends, or control the terminal.
void Write(std::string_view message) {
  std::cerr << "pdeprint: " << OnOneLine(std::string(message)) << '\n';
}

}  // namespace

void Complain(std::string_view message) {
  Write(message);
  const std::scoped_lock lock(mutex);
  last_complaint = message;
}

std::string LastComplaint() {
  const std::scoped_lock lock(mutex);
  return last_complaint;
}

void Note(std::string_view message) { Write(Localized("note: %1", {std::string(message)})); }
