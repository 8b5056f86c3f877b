// Pictures of the pages of a job, and what was made on the way to them.

#ifndef HOST_PREVIEW_PAGESTORE_H
#define HOST_PREVIEW_PAGESTORE_H

#include <atomic>
#include <deque>
#include <filesystem>
#include <mutex>
#include <optional>
#include <string>

#include "host/base/Expected.h"
#include "host/pages/JobPages.h"
#include "host/pages/PdfPages.h"

struct PagePicture {
  int page = 0;         // from 1
  int pages = 0;        // of the job
  PixelSize size;       // of the picture
  std::string samples;  // red, green and blue of each pixel, row by row from the top
};

// Pages are laid out anew only where a job differs in more than the options of document filters,
// and filters get to see the page alone that is looked at, behind empty pages: so a change of
// theirs shows at once.
class PageStore {
 public:
  // Of one copy. Behind the last page, that one. Blocks,
  // on any thread, and waits for another one that is at it; ends soon after it is canceled. The
  // failure: as that of MakePages.
  Expected<PagePicture> Picture(const PagesRequest &job, int page, const DrawingSize &size,
                                const std::atomic<bool> &cancel);

  // Leaves nothing behind; waits for whoever is at it.
  void Clear();

 private:
  struct Drawn {
    PagesRequest job;
    DrawingSize size;
    PagePicture picture;
  };
  const PagePicture *Find(const PagesRequest &job, int page, const DrawingSize &size) const;
  Expected<void> LayOut(const PagesRequest &job, const std::atomic<bool> &cancel);
  Expected<PagePicture> Draw(const PagesRequest &job, int page, const DrawingSize &size,
                             const std::atomic<bool> &cancel);

  std::mutex busy_;
  std::optional<PrivateFolder> folder_;
  std::optional<PagesRequest> laid_out_for_;  // without the options of filters
  std::filesystem::path laid_out_;
  int pages_ = 0;
  int taken_ = 0;  // the page that was taken out of it last; 0: none
  PageDrawer drawer_;
  std::deque<Drawn> drawn_;  // the last ones
};

#endif
