#include "host/dialog/TypedOption.h"

#include "host/job/PageRanges.h"

namespace {

std::string AsItIs(const std::string &value) { return value; }

std::string ValueIn(const JobOptions &options, const TypedOption &option) {
  const auto found = options.find(option.name);
  return found == options.end() ? option.usual : found->second;
}

}  // namespace

const TypedOption kCopiesOption = {
    .name = "copies", .usual = "1", .instead = nullptr, .parse = ParseCopies, .as_typed = AsItIs};
const TypedOption kPagesOption = {.name = "page-ranges",
                                  .usual = "",
                                  .instead = AllPages,
                                  .parse = ParsePageRanges,
                                  .as_typed = TypedPageRanges};

std::string TypedOption::TextIn(const JobOptions &options) const {
  return as_typed(ValueIn(options, *this));
}

Expected<void> TypedOption::Set(const std::string &value, JobSession &session) const {
  Expected<JobOptions> options = session.Options();
  if (!options) return options.failure();
  if (value == ValueIn(*options, *this)) return {};
  if (auto done = session.Set(name, value); !done) return done;
  if (!value.empty()) return {};
  // Where nothing is set the queue's default holds.
  options = session.Options();
  if (!options) return options.failure();
  return options->contains(name) ? session.Set(name, instead()) : Expected<void>();
}
