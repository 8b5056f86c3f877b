#include "host/ppd/AppliedBy.h"

#include <algorithm>
#include <filesystem>

#include "host/ppd/FilterLines.h"

namespace {

bool NamesFilter(const PPDFile &ppd, const std::string &program) {
  const auto is_its = [&program](const FilterLine &line) {
    return std::filesystem::path(line.program).filename() == program;
  };
  return std::ranges::any_of(FilterLinesOf(ppd), is_its) ||
         std::ranges::any_of(PreFilterLinesOf(ppd), is_its);
}

}  // namespace

AppliedBy WhoApplies(const PPDFile &ppd, const PrinterOptions &options) {
  if (!options.document_filter.empty() && NamesFilter(ppd, options.document_filter)) {
    return AppliedBy::kServer;
  }
  const bool is_supported = !options.support_keyword.empty() &&
                            ppd.Attribute(options.support_keyword) == options.support_value;
  return is_supported ? AppliedBy::kPrinter : AppliedBy::kNobody;
}
