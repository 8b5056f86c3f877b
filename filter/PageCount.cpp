#include "filter/PageCount.h"

#include <cups/ppd.h>

#include <cstdlib>
#include <memory>

namespace {

struct ClosePPD {
  void operator()(ppd_file_t *ppd) const { ppdClose(ppd); }
};

constexpr char kPostScript[] = "application/vnd.cups-postscript";
// What such a file gets in the place of the server's own way.
constexpr char kPassedOn[] = "application/vnd.cups-postscript application/vnd.cups-postscript 0 -";

}  // namespace

bool NobodyElseCountsPages(const Job &job) {
  if (job.final_type != kPostScript || job.ppd == nullptr) return false;
  const std::unique_ptr<ppd_file_t, ClosePPD> ppd(ppdOpenFile(job.ppd));
  if (!ppd) return false;
  for (const ppd_attr_t *line = ppdFindAttr(ppd.get(), "cupsFilter2", nullptr); line != nullptr;
       line = ppdFindNextAttr(ppd.get(), "cupsFilter2", nullptr)) {
    if (line->value != nullptr && std::string_view(line->value) == kPassedOn) return true;
  }
  return false;
}

int CopiesByPrinter(std::string_view comments, int of_job) {
  constexpr std::string_view kCopies = "%%PDFTOPDFNumCopies :";
  const size_t at = comments.find(kCopies);
  if (at == std::string_view::npos) return of_job;
  const int copies = std::atoi(std::string(comments.substr(at + kCopies.size(), 12)).c_str());
  return copies > 0 ? copies : of_job;
}
