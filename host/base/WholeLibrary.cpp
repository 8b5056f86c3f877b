#include "host/base/WholeLibrary.h"

#include <link.h>

#include <cstring>
#include <fstream>

bool IsWholeLibrary(const std::filesystem::path &path) {
  std::error_code error;
  const std::uintmax_t size = std::filesystem::file_size(path, error);
  std::ifstream file(path, std::ios::binary);
  ElfW(Ehdr) header = {};
  if (error || !file.read(reinterpret_cast<char *>(&header), sizeof header)) return true;
  if (std::memcmp(header.e_ident, ELFMAG, SELFMAG) != 0) return true;
  const auto sections = static_cast<std::uintmax_t>(header.e_shnum) * header.e_shentsize;
  if (header.e_shoff > size || sections > size - header.e_shoff) return false;
  file.seekg(static_cast<std::streamoff>(header.e_phoff));
  for (int i = 0; i < header.e_phnum; ++i) {
    ElfW(Phdr) segment = {};
    if (!file.read(reinterpret_cast<char *>(&segment), sizeof segment)) return false;
    if (segment.p_offset > size || segment.p_filesz > size - segment.p_offset) return false;
  }
  return true;
}
