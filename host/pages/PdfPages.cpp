#include "host/pages/PdfPages.h"

#include <fstream>
#include <string>

#include "host/base/Localized.h"
#include "host/cups/JobTransfer.h"
#include "host/pages/ChildProgram.h"
#include "host/pages/ProgramStatus.h"
#include "host/pages/Programs.h"

namespace fs = std::filesystem;

namespace {

// A hostile document keeps a helper busy for as long as it may run.
constexpr std::chrono::seconds kLongestDrawing(30);

fs::path Beside(fs::path place, const char *suffix) { return place += suffix; }

Expected<void> Ask(const Expected<fs::path> &helper, std::vector<std::string> arguments,
                   const fs::path &place, const std::atomic<bool> &cancel,
                   std::chrono::milliseconds limit = std::chrono::minutes(10)) {
  if (!helper) return helper.failure();
  Expected<ChildEnd> end = Run({.path = *helper,
                                .arguments = std::move(arguments),
                                .environment = {},
                                .out = Beside(place, ".answer"),
                                .log = Beside(place, ".answer.log"),
                                .limit = limit},
                               cancel);
  if (!end) return end.failure();
  if (end->kind == ChildEnd::Kind::kCanceled) return JobCanceled();
  if (end->kind == ChildEnd::Kind::kTookTooLong) {
    return Failure{Localized("the program %1 takes too long", {helper->filename().string()})};
  }
  const int status = end->kind == ChildEnd::Kind::kExited ? end->number : kDamaged;
  if (status == kPdfDone) return {};
  if (status == kNeedsPassword) return Failure{Localized("the document needs a password")};
  if (status == kTooLarge) return Failure{Localized("the page is too large to be drawn")};
  return Failure{Localized("the document is damaged")};
}

Expected<int> AskForNumber(std::vector<std::string> arguments, const fs::path &place,
                           const std::atomic<bool> &cancel) {
  if (auto done = Ask(PdfHelper(), std::move(arguments), place, cancel); !done) {
    return done.failure();
  }
  int pages = -1;
  if (!(std::ifstream(Beside(place, ".answer")) >> pages)) {
    return Failure{Localized("the document is damaged")};
  }
  return pages;
}

}  // namespace

Expected<int> CountPages(const fs::path &pdf, const fs::path &place,
                         const std::atomic<bool> &cancel) {
  return AskForNumber({"count", pdf.string()}, place, cancel);
}

Expected<int> JoinPages(const std::vector<fs::path> &pdfs, const fs::path &out,
                        const std::atomic<bool> &cancel) {
  std::vector<std::string> arguments = {"join", out.string()};
  for (const fs::path &pdf : pdfs) arguments.push_back(pdf.string());
  return AskForNumber(std::move(arguments), out, cancel);
}

Expected<void> TakeDocument(const fs::path &pdf, const fs::path &out,
                            const std::atomic<bool> &cancel) {
  return Ask(PdfHelper(), {"document", out.string(), pdf.string()}, out, cancel);
}

Expected<void> TakePage(const fs::path &pdf, int page, const fs::path &out,
                        const std::atomic<bool> &cancel) {
  return Ask(PdfHelper(), {"single", out.string(), pdf.string(), std::to_string(page)}, out,
             cancel);
}

Expected<void> DrawPage(const DrawingSize &size, const fs::path &pdf, int page, const fs::path &out,
                        const std::atomic<bool> &cancel) {
  const std::string way = size.dpi == 0 ? "fit" : "at";
  std::vector<std::string> arguments = {way, out.string(), pdf.string(), std::to_string(page)};
  if (size.dpi == 0) {
    arguments.push_back(std::to_string(size.room.width));
    arguments.push_back(std::to_string(size.room.height));
  } else {
    arguments.push_back(std::to_string(size.dpi));
  }
  return Ask(PictureHelper(), std::move(arguments), out, cancel, kLongestDrawing);
}
