#include "host/preview/PageStore.h"

#include <algorithm>
#include <fstream>
#include <utility>

#include "host/base/Localized.h"
#include "host/cups/JobTransfer.h"
#include "host/pages/LayoutOptions.h"

namespace fs = std::filesystem;

namespace {

constexpr size_t kMostDrawn = 12;

PagesRequest OneCopy(PagesRequest job) {
  job.options["copies"] = "1";
  return job;
}

// What its layout depends on.
PagesRequest LayoutOf(PagesRequest job) {
  std::erase_if(job.options, [&job](const auto &option) {
    return job.making.of_filters.contains(option.first);
  });
  return job;
}

Failure CannotDraw() { return Failure{Localized("the document is damaged")}; }

Expected<PagePicture> ReadPicture(const fs::path &path) {
  std::ifstream file(path, std::ios::binary);
  std::string kind;
  PagePicture picture;
  int most = 0;
  file >> kind >> picture.size.width >> picture.size.height >> most;
  file.get();
  constexpr int kLargest = 1 << 15;
  const bool is_picture = file && kind == "P6" && most == 255 && picture.size.width > 0 &&
                          picture.size.height > 0 && picture.size.width < kLargest &&
                          picture.size.height < kLargest;
  if (!is_picture) return CannotDraw();
  picture.samples.resize(size_t{3} * static_cast<size_t>(picture.size.width) *
                         static_cast<size_t>(picture.size.height));
  file.read(picture.samples.data(), static_cast<std::streamsize>(picture.samples.size()));
  if (!file) return CannotDraw();
  return picture;
}

}  // namespace

Expected<PagePicture> PageStore::Picture(const PagesRequest &job, int page, const DrawingSize &size,
                                         const std::atomic<bool> &cancel) {
  const std::scoped_lock lock(busy_);
  if (cancel) return JobCanceled();
  const PagesRequest wanted = OneCopy(job);
  drawer_.Begin();
  if (auto done = LayOut(wanted, cancel); !done) return done.failure();
  const int number = std::clamp(page, 1, pages_);
  if (const PagePicture *known = Find(wanted, number, size)) return *known;
  Expected<PagePicture> picture = Draw(wanted, number, size, cancel);
  drawer_.Begin();
  if (!picture) return cancel ? JobCanceled() : picture.failure();
  if (drawn_.size() == kMostDrawn) drawn_.pop_front();
  drawn_.push_back({wanted, size, *picture});
  return picture;
}

void PageStore::Clear() {
  const std::scoped_lock lock(busy_);
  laid_out_for_.reset();
  folder_.reset();
  drawer_.End();
  drawn_.clear();
}

const PagePicture *PageStore::Find(const PagesRequest &job, int page,
                                   const DrawingSize &size) const {
  const auto known = std::ranges::find_if(drawn_, [&](const Drawn &drawn) {
    return drawn.picture.page == page && drawn.size == size && drawn.job == job;
  });
  return known == drawn_.end() ? nullptr : &known->picture;
}

Expected<void> PageStore::LayOut(const PagesRequest &job, const std::atomic<bool> &cancel) {
  PagesRequest layout = LayoutOf(job);
  if (laid_out_for_ == layout) return {};
  laid_out_for_.reset();
  folder_.reset();
  drawn_.clear();
  if (IsRaw(job.options)) {
    return Failure{Localized("the job asks for documents to be sent as they are (raw)")};
  }
  Expected<PrivateFolder> folder = PrivateFolder::Make();
  if (!folder) return folder.failure();
  folder_.emplace(std::move(*folder));
  Expected<fs::path> laid_out = LayOutPages(job, *folder_, cancel);
  if (!laid_out) return laid_out.failure();
  Expected<int> pages = CountPages(*laid_out, *laid_out, cancel);
  if (!pages) return pages.failure();
  if (*pages == 0) return Failure{Localized("no page is to be printed")};
  laid_out_ = std::move(*laid_out);
  pages_ = *pages;
  taken_ = 0;
  laid_out_for_ = std::move(layout);
  return {};
}

Expected<PagePicture> PageStore::Draw(const PagesRequest &job, int page, const DrawingSize &size,
                                      const std::atomic<bool> &cancel) {
  const fs::path single = folder_->path() / "single.pdf", drawn = folder_->path() / "page.ppm";
  if (taken_ != page) {
    taken_ = 0;
    if (auto done = TakePage(laid_out_, page, single, cancel); !done) return done.failure();
    taken_ = page;
  }
  Expected<FilteredPages> filtered = ApplyFilters(job, single, *folder_, cancel);
  if (!filtered) return filtered.failure();
  if (auto done = drawer_.Draw(size, filtered->file, page, drawn, cancel); !done) {
    return done.failure();
  }
  Expected<PagePicture> picture = ReadPicture(drawn);
  if (!picture) return picture;
  picture->page = page;
  picture->pages = pages_;
  return picture;
}
