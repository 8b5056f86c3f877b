#include "host/job/JobDocuments.h"

#include <algorithm>

#include "host/base/Localized.h"
#include "host/base/OneLine.h"
#include "host/base/Utf8.h"
#include "host/job/JobFiles.h"

namespace fs = std::filesystem;

namespace {

fs::path Place(const fs::path &file) {
  std::error_code error;
  const fs::path place = fs::absolute(file, error);
  return error ? file : place.lexically_normal();
}

bool IsNamesake(const fs::path &one, const fs::path &other) {
  return one.filename() == other.filename() && Place(one) != Place(other);
}

}  // namespace

std::string JobDocuments::Title() const { return TitleOfJob(files_); }

std::vector<std::string> JobDocuments::Names() const {
  std::vector<std::string> names;
  for (const fs::path &file : files_) {
    std::string name = ToUtf8(file.filename().string());
    if (std::ranges::any_of(files_,
                            [&file](const fs::path &other) { return IsNamesake(file, other); })) {
      name += " — " + ToUtf8(Place(file).parent_path().string());
    }
    names.push_back(OnOneLine(std::move(name)));
  }
  return names;
}

std::vector<Failure> JobDocuments::Add(const Files &files) {
  if (!CanAdd()) return {{Localized("no documents can be added now")}};
  std::vector<Failure> failures;
  const size_t before = files_.size();
  for (const fs::path &file : files) {
    if (const auto checked = CheckFile(file)) {
      files_.push_back(file);
    } else {
      failures.push_back(checked.failure());
    }
  }
  if (files_.size() > before) Tell();
  return failures;
}

void JobDocuments::Remove(size_t at) {
  if (!CanRemove() || at >= files_.size()) return;
  files_.erase(files_.begin() + static_cast<Files::difference_type>(at));
  Tell();
}

void JobDocuments::MoveUp(size_t at) {
  if (!CanMoveUp(at)) return;
  std::swap(files_[at - 1], files_[at]);
  Tell();
}

void JobDocuments::MoveDown(size_t at) {
  if (!CanMoveDown(at)) return;
  std::swap(files_[at], files_[at + 1]);
  Tell();
}

void JobDocuments::SetFixed(bool fixed) {
  if (std::exchange(is_fixed_, fixed) != fixed) Tell();
}
