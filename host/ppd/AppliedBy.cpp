#include "host/ppd/AppliedBy.h"

#include <algorithm>
#include <string_view>

#include "host/base/Text.h"

namespace {

// The last word of "TYPE [TYPE] COST PROGRAM", without its folder.
std::string_view ProgramOf(std::string_view line) {
  line = Trimmed(line);
  return line.substr(line.find_last_of(" \t/") + 1);
}

bool NamesFilter(const PPDFile &ppd, const std::string &program) {
  return std::ranges::any_of(
      std::initializer_list<const char *>{"cupsFilter", "cupsFilter2", "cupsPreFilter"},
      [&](const char *keyword) {
        return std::ranges::any_of(ppd.Attributes(keyword), [&program](const std::string &line) {
          return ProgramOf(line) == program;
        });
      });
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
