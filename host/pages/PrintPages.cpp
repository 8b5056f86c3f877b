#include "host/pages/PrintPages.h"

#include <algorithm>

#include "host/base/Localized.h"
#include "host/base/Messages.h"
#include "host/pages/JobPages.h"
#include "host/pages/LayoutOptions.h"

namespace fs = std::filesystem;

namespace {

bool AsksForMore(const JobOptions &options, const JobOptions &defaults) {
  return std::ranges::any_of(defaults, [&options](const auto &usual) {
    const auto asked = options.find(usual.first);
    return asked != options.end() && asked->second != usual.second;
  });
}

bool HasBanners(const JobOptions &options) {
  const auto sheets = options.find("job-sheets");
  return sheets != options.end() && sheets->second != "none" && sheets->second != "none,none";
}

// As the server shows it: with the name of the document.
Expected<fs::path> Named(const JobPages &pages, const fs::path &document) {
  const fs::path folder = pages.folder.path() / "pages";
  const fs::path file = folder / document.stem().concat(".pdf");
  std::error_code error;
  fs::create_directory(folder, error);
  if (!error) fs::rename(pages.file, file, error);
  if (error) return Failure{Localized("cannot write %1: %2", {file.string(), error.message()})};
  return file;
}

}  // namespace

Expected<int> PrintPages(const PrintServer &server, const JobRequest &request,
                         const std::optional<PagesHere> &here, PrintingProgress &progress) {
  if (!here) return server.Print(request, progress);
  JobRequest ordinary = request;
  std::erase_if(ordinary.options,
                [&here](const auto &option) { return here->defaults.contains(option.first); });
  if (!AsksForMore(request.options, here->defaults)) return server.Print(ordinary, progress);
  if (IsRaw(request.options)) {
    return Failure{
        Localized("%1 cannot be applied: %2",
                  {here->filters.front().bundle,
                   Localized("the job asks for documents to be sent as they are (raw)")})};
  }
  progress.is_making_pages = true;
  Expected<JobPages> pages = MakePages(
      {.files = request.files, .title = request.title, .options = request.options, .making = *here},
      progress.cancel);
  progress.is_making_pages = false;
  if (!pages) return pages.failure();
  if (!pages->is_changed) return server.Print(ordinary, progress);
  for (const std::string &note : pages->notes) Note(note);
  Expected<fs::path> file = Named(*pages, request.files.front());
  if (!file) return file.failure();
  JobRequest laid_out = ordinary;
  laid_out.options = OptionsOfLaidOut(ordinary.options);
  JobOptions more = HasBanners(ordinary.options) ? here->sent_with_banners : here->sent_with;
  if (laid_out.options.contains("PageSize")) more.erase("media");
  laid_out.options.merge(more);
  laid_out.files = {*file};
  return server.Print(laid_out, progress);
}
