#include "host/pages/PdfPages.h"

#include <fstream>

#include "host/base/Localized.h"
#include "host/cups/JobTransfer.h"
#include "host/pages/ChildProgram.h"
#include "host/pages/ProgramStatus.h"
#include "host/pages/Programs.h"

namespace fs = std::filesystem;

namespace {

Expected<int> Ask(std::vector<std::string> arguments, const fs::path &place,
                  const std::atomic<bool> &cancel) {
  Expected<fs::path> helper = PdfHelper();
  if (!helper) return helper.failure();
  fs::path answer = place, log = place;
  answer += ".count";
  log += ".count.log";
  Expected<ChildEnd> end = Run({.path = *helper,
                                .arguments = std::move(arguments),
                                .environment = {},
                                .out = answer,
                                .log = log},
                               cancel);
  if (!end) return end.failure();
  if (end->kind == ChildEnd::Kind::kCanceled) return JobCanceled();
  const bool has_exited = end->kind == ChildEnd::Kind::kExited;
  if (has_exited && end->number == kNeedsPassword) {
    return Failure{Localized("the document needs a password")};
  }
  int pages = -1;
  if (!has_exited || end->number != 0 || !(std::ifstream(answer) >> pages)) {
    return Failure{Localized("the document is damaged")};
  }
  return pages;
}

}  // namespace

Expected<int> CountPages(const fs::path &pdf, const fs::path &place,
                         const std::atomic<bool> &cancel) {
  return Ask({"count", pdf.string()}, place, cancel);
}

Expected<int> JoinPages(const std::vector<fs::path> &pdfs, const fs::path &out,
                        const std::atomic<bool> &cancel) {
  std::vector<std::string> arguments = {"join", out.string()};
  for (const fs::path &pdf : pdfs) arguments.push_back(pdf.string());
  return Ask(std::move(arguments), out, cancel);
}
