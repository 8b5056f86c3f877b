#include "host/pages/SavePages.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

#include "host/base/Localized.h"
#include "host/cups/JobTransfer.h"
#include "host/pages/LayoutOptions.h"
#include "host/pages/PdfPages.h"

namespace fs = std::filesystem;

namespace {

struct Piece {
  fs::path made, out;
};

// "pages.png", 7 of 12: "pages-07.png".
fs::path NumberedPath(const fs::path &out, int page, int count) {
  std::string number = std::to_string(page);
  number.insert(0, std::to_string(count).size() - number.size(), '0');
  fs::path name = out.stem();
  name += "-" + number;
  name += out.extension();
  return out.parent_path() / name;
}

Expected<void> CheckFree(const SaveRequest &request, const fs::path &out) {
  std::error_code error;
  if (!fs::exists(out, error)) return {};
  if (!fs::is_regular_file(out, error)) {
    return Failure{
        Localized("cannot write %1: %2", {out.string(), Localized("not a regular file")})};
  }
  if (request.existing == Existing::kReplaced) return {};
  return IsThereAlready(out);
}

Expected<std::vector<Piece>> Document(const SaveRequest &request, const JobPages &pages,
                                      SavingProgress &progress) {
  Piece piece = {pages.folder.path() / "document.pdf", request.out};
  if (auto done = TakeDocument(pages.file, piece.made, progress.cancel); !done) {
    return done.failure();
  }
  return std::vector{piece};
}

Expected<std::vector<Piece>> Pictures(const SaveRequest &request, const JobPages &pages,
                                      SavingProgress &progress) {
  std::vector<Piece> pieces;
  PageDrawer drawer;
  for (int page = 1; page <= pages.count; ++page) {
    Piece piece = {pages.folder.path() / (std::to_string(page) + ".png"),
                   NumberedPath(request.out, page, pages.count)};
    if (auto free = CheckFree(request, piece.out); !free) return free.failure();
    auto drawn = drawer.Draw({.room = {}, .dpi = *request.dpi}, pages.file, page, piece.made,
                             progress.cancel);
    if (!drawn && progress.cancel) return JobCanceled();
    if (!drawn) {
      return drawn.failure().Reworded(
          Localized("page %1 cannot be drawn: %2", {std::to_string(page), drawn.message()}));
    }
    pieces.push_back(std::move(piece));
    progress.drawn = page;
  }
  return pieces;
}

Expected<void> Copy(const Piece &piece, Existing existing) {
  const auto failure = [&piece] {
    return Failure{Localized("cannot read %1: %2", {piece.made.string(), std::strerror(errno)})};
  };
  const int file = open(piece.made.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return failure();
  struct stat about = {};
  void *bytes = MAP_FAILED;
  if (fstat(file, &about) == 0) {
    bytes = mmap(nullptr, static_cast<size_t>(about.st_size), PROT_READ, MAP_PRIVATE, file, 0);
  }
  const Failure reason = failure();
  close(file);
  if (bytes == MAP_FAILED) return reason;
  const size_t size = static_cast<size_t>(about.st_size);
  Expected<void> written = WriteWholeFile(
      piece.out, std::string_view(static_cast<const char *>(bytes), size), piece.out, existing);
  munmap(bytes, size);
  std::error_code error;
  const bool is_in_the_way = existing == Existing::kKept && fs::exists(piece.out, error);
  if (!written && is_in_the_way) return IsThereAlready(piece.out);
  return written;
}

// What has replaced something stays: it is all that there is.
void TakeBack(const SaveRequest &request, const SavedPages &saved) {
  std::error_code error;
  if (request.existing == Existing::kReplaced) return;
  for (const fs::path &file : saved.files) fs::remove(file, error);
}

}  // namespace

Failure IsThereAlready(const fs::path &path) {
  return Failure{Localized("%1 is there already", {path.string()})};
}

Expected<SavedPages> SavePages(const SaveRequest &request, SavingProgress &progress) {
  if (!request.dpi) {
    if (auto free = CheckFree(request, request.out); !free) return free.failure();
  }
  if (IsRaw(request.pages.options)) {
    return Failure{Localized("the job asks for documents to be sent as they are (raw)")};
  }
  Expected<JobPages> pages = MakePages(request.pages, progress.cancel);
  if (!pages) return pages.failure();
  progress.pages = pages->count;
  auto pieces =
      request.dpi ? Pictures(request, *pages, progress) : Document(request, *pages, progress);
  if (!pieces) return pieces.failure();
  SavedPages saved = {.files = {}, .count = pages->count, .notes = std::move(pages->notes)};
  for (const Piece &piece : *pieces) {
    Expected<void> done = progress.cancel ? JobCanceled() : Copy(piece, request.existing);
    if (!done) {
      TakeBack(request, saved);
      return done.failure();
    }
    saved.files.push_back(piece.out);
  }
  return saved;
}
