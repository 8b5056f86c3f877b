#include "host/ppd/PPDSource.h"

#include <cups/file.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <memory>
#include <system_error>

#include "host/base/Localized.h"
#include "host/base/RegularFile.h"

namespace {

constexpr size_t kLargest = 16 << 20;

struct Closer {
  void operator()(cups_file_t *file) const { cupsFileClose(file); }
};

// The length of the file's bytes, uncompressed, in 32 bits: a compressed file ends with it. libcups
// takes a file that cannot be read to its end, or is cut off, for a shorter one.
uint32_t LengthSaid(const std::filesystem::path &path) {
  std::ifstream file(path, std::ios::binary);
  std::array<unsigned char, 4> bytes = {};
  const auto read = [&] { file.read(reinterpret_cast<char *>(bytes.data()), bytes.size()); };
  read();
  if (bytes[0] != 0x1f || bytes[1] != 0x8b) {
    std::error_code error;
    return static_cast<uint32_t>(std::filesystem::file_size(path, error));
  }
  file.clear();
  file.seekg(-4, std::ios::end);
  read();
  uint32_t length = 0;
  for (size_t i = bytes.size(); i > 0; --i) length = length << 8 | bytes[i - 1];
  return length;
}

}  // namespace

Expected<std::string> ReadPPD(const std::filesystem::path &path) {
  if (auto done = CheckRegularFile(path); !done) return done.failure();

  const std::unique_ptr<cups_file_t, Closer> file(cupsFileOpen(path.c_str(), "r"));
  if (file == nullptr) return Failure{std::strerror(errno)};
  std::string bytes;
  std::array<char, 65536> piece;
  ssize_t length;
  while ((length = cupsFileRead(file.get(), piece.data(), piece.size())) > 0) {
    bytes.append(piece.data(), static_cast<size_t>(length));
    if (bytes.size() > kLargest) return Failure{Localized("the file is larger than 16 MiB")};
  }
  if (bytes.size() != LengthSaid(path)) return Failure{Localized("the file is damaged or cut off")};
  return bytes;
}

Expected<PPDFile> OpenPPD(const std::filesystem::path &path, PPDTexts texts) {
  Expected<PPDFile> ppd = PPDFile::Open(path, texts);
  if (!ppd) return ppd;
  if (Expected<std::string> bytes = ReadPPD(path); !bytes) return bytes.failure();
  return ppd;
}

bool FillFile(const MemoryFile &file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(file.get(), bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    bytes.remove_prefix(static_cast<size_t>(written));
  }
  return lseek(file.get(), 0, SEEK_SET) == 0;
}

Failure NoMemoryFile() { return Failure{Localized("no memory file: %1", {std::strerror(errno)})}; }

Expected<PPDFile> ParsePPD(std::string_view bytes) {
  const MemoryFile file;
  if (!FillFile(file, bytes)) return NoMemoryFile();
  Expected<PPDFile> ppd = PPDFile::Open(file.path());
  if (ppd) ppd->source_ = bytes;
  return ppd;
}
