#include "host/pages/PdfPages.h"

#include <fstream>
#include <string>

#include "host/base/Localized.h"
#include "host/cups/JobTransfer.h"
#include "host/pages/ProgramStatus.h"
#include "host/pages/Programs.h"

namespace fs = std::filesystem;

namespace {

// A hostile document keeps a helper busy for as long as it may run.
constexpr std::chrono::seconds kLongestDrawing(30);

fs::path Beside(fs::path place, const char *suffix) { return place += suffix; }

Expected<void> Answer(const fs::path &helper, const ChildEnd &end) {
  if (end.kind == ChildEnd::Kind::kCanceled) return JobCanceled();
  if (end.kind == ChildEnd::Kind::kTookTooLong) {
    return Failure{Localized("the program %1 takes too long", {helper.filename().string()})};
  }
  const int status = end.kind == ChildEnd::Kind::kExited ? end.number : kDamaged;
  if (status == kPdfDone) return {};
  if (status == kNeedsPassword) return Failure{Localized("the document needs a password")};
  if (status == kForbidsPrinting) {
    return Failure{Localized("the document does not allow printing")};
  }
  if (status == kTooLarge) return Failure{Localized("the page is too large to be drawn")};
  return Failure{Localized("the document is damaged")};
}

Expected<void> Ask(std::vector<std::string> arguments, const fs::path &place,
                   const std::atomic<bool> &cancel) {
  const Expected<fs::path> helper = PdfHelper();
  if (!helper) return helper.failure();
  const Expected<ChildEnd> end = Run({.path = *helper,
                                      .arguments = std::move(arguments),
                                      .environment = {},
                                      .out = Beside(place, ".answer"),
                                      .log = Beside(place, ".answer.log")},
                                     cancel);
  if (!end) return end.failure();
  return Answer(*helper, *end);
}

Expected<RunningChild> StartDrawing(const fs::path &helper) {
  return RunningChild::Start({.path = helper,
                              .arguments = {},
                              .environment = {},
                              .out = "/dev/null",
                              .log = "/dev/null",
                              .limit = kLongestDrawing});
}

// Its words, each with a zero byte behind it, and one more.
std::string Request(const DrawingSize &size, const fs::path &pdf, int page, const fs::path &out) {
  std::vector<std::string> words = {size.dpi == 0 ? "fit" : "at", out.string(), pdf.string(),
                                    std::to_string(page)};
  if (size.dpi == 0) {
    words.push_back(std::to_string(size.room.width));
    words.push_back(std::to_string(size.room.height));
  } else {
    words.push_back(std::to_string(size.dpi));
  }
  std::string request;
  for (const std::string &word : words) request += word + '\0';
  return request + '\0';
}

Expected<int> AskForNumber(std::vector<std::string> arguments, const fs::path &place,
                           const std::atomic<bool> &cancel) {
  if (auto done = Ask(std::move(arguments), place, cancel); !done) {
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
  return Ask({"document", out.string(), pdf.string()}, out, cancel);
}

Expected<void> TakePage(const fs::path &pdf, int page, const fs::path &out,
                        const std::atomic<bool> &cancel) {
  return Ask({"single", out.string(), pdf.string(), std::to_string(page)}, out, cancel);
}

void PageDrawer::Begin() {
  const Expected<fs::path> helper = PictureHelper();
  if (program_ || !helper) return;
  Expected<RunningChild> program = StartDrawing(*helper);
  if (program) program_.emplace(std::move(*program));
}

Expected<void> PageDrawer::Draw(const DrawingSize &size, const fs::path &pdf, int page,
                                const fs::path &out, const std::atomic<bool> &cancel) {
  const Expected<fs::path> helper = PictureHelper();
  if (!helper) return helper.failure();
  const std::string request = Request(size, pdf, page, out);
  // One that was begun ahead may have ended since.
  if (!program_ || !program_->Tell(request)) {
    program_.reset();
    Expected<RunningChild> program = StartDrawing(*helper);
    if (!program) return program.failure();
    program_.emplace(std::move(*program));
    program_->Tell(request);
  }
  const ChildEnd end = program_->Wait(kLongestDrawing, cancel);
  program_.reset();
  return Answer(*helper, end);
}
