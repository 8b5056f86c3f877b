// Looks at the pages of a document, for the filter.
//   backgroundnumbers-look BEGIN SIZE PAGE START LARGENESS
// The document is the part of standard input, a file, that begins there and has this size. For each
// page from this one on, counted from 0, a character goes to standard output: "#" for one that
// would hide its number, "." for one that would not.

#include <poppler-document.h>
#include <poppler-page.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <unistd.h>

#include <charconv>
#include <climits>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

#include "filter/look/PagePicture.h"

namespace {

constexpr int kCannotLook = 3;  // the library's own is 1

// Pictures in a document may unpack to more than the machine has.
void LimitMemory() {
#if !__has_feature(address_sanitizer) && !__has_feature(thread_sanitizer)
  constexpr rlim_t kMemory = 1 << 30;
  const rlimit limits = {kMemory, kMemory};
  setrlimit(RLIMIT_DATA, &limits);
#endif
}

size_t Number(std::string_view text) {
  size_t number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

void IgnoreMessage(const std::string &, void *) {}

}  // namespace

int main(int argc, char **argv) {
  if (argc != 6) return kCannotLook;
  LimitMemory();
  const size_t begin = Number(argv[1]), size = Number(argv[2]), start = Number(argv[4]);
  const double largeness = std::atof(argv[5]);
  void *memory = mmap(nullptr, begin + size, PROT_READ, MAP_PRIVATE, STDIN_FILENO, 0);
  if (memory == MAP_FAILED || size > INT_MAX) return kCannotLook;
  poppler::set_debug_error_function(IgnoreMessage, nullptr);
  const std::unique_ptr<poppler::document> document(poppler::document::load_from_raw_data(
      static_cast<const char *>(memory) + begin, static_cast<int>(size)));
  if (!document || document->is_locked()) return kCannotLook;
  for (int at = static_cast<int>(Number(argv[3])); at < document->pages(); ++at) {
    const std::unique_ptr<poppler::page> page(document->create_page(at));
    const std::string digits = std::to_string(start + static_cast<size_t>(at));
    const char answer = !page || HidesNumber(*page, digits, largeness) ? '#' : '.';
    if (write(STDOUT_FILENO, &answer, 1) != 1) break;
  }
  _exit(0);
}
