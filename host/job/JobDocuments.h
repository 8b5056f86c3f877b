// The documents of a job while it is made up: which, and in which order.

#ifndef HOST_JOB_JOBDOCUMENTS_H
#define HOST_JOB_JOBDOCUMENTS_H

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "host/base/Expected.h"

// A job that has documents keeps one at least; one without gets none.
class JobDocuments {
 public:
  using Files = std::vector<std::filesystem::path>;

  explicit JobDocuments(Files files) : files_(std::move(files)) {}

  // In the order in which they are printed.
  const Files &files() const { return files_; }
  bool empty() const { return files_.empty(); }
  // The job's, in UTF-8; empty for no documents.
  std::string Title() const;
  // What people tell them apart by, in UTF-8: their names, and their folders where two have the
  // same name.
  std::vector<std::string> Names() const;

  // Adds those that can be printed at the end, in this order. The failures of the others.
  std::vector<Failure> Add(const Files &files);

  bool CanRemove() const { return !is_fixed_ && files_.size() > 1; }
  void Remove(size_t at);
  bool CanMoveUp(size_t at) const { return !is_fixed_ && at > 0 && at < files_.size(); }
  bool CanMoveDown(size_t at) const { return !is_fixed_ && at + 1 < files_.size(); }
  void MoveUp(size_t at);
  void MoveDown(size_t at);

  // While the job is on its way nothing is added, removed or moved.
  void SetFixed(bool fixed);
  bool CanAdd() const { return !is_fixed_ && !empty(); }

  // Called after every change of what is said above.
  void SetChanged(std::function<void()> changed) { changed_ = std::move(changed); }

 private:
  void Tell() const {
    if (changed_) changed_();
  }

  Files files_;
  bool is_fixed_ = false;
  std::function<void()> changed_;
};

#endif
