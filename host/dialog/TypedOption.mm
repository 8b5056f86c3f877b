#include "host/dialog/TypedOption.h"

#include "host/job/PageRanges.h"

const TypedOption kCopiesOption = {
    .name = "copies", .usual = "1", .instead = nullptr, .parse = ParseCopies};
const TypedOption kPagesOption = {
    .name = "page-ranges", .usual = "", .instead = "1-9999", .parse = ParsePageRanges};

namespace {

std::string ValueIn(const JobOptions &options, const TypedOption &option) {
  const auto found = options.find(option.name);
  return found == options.end() ? option.usual : found->second;
}

}  // namespace

std::string TypedOption::TextIn(const JobOptions &options) const {
  const std::string value = ValueIn(options, *this);
  return instead != nullptr && value == instead ? usual : value;
}

Expected<void> TypedOption::Set(const std::string &value, JobSession &session) const {
  if (value == ValueIn(session.Options(), *this)) return {};
  if (auto done = session.Set(name, value); !done) return done;
  // Where nothing is set the queue's default holds.
  if (!value.empty() || !session.Options().contains(name)) return {};
  return session.Set(name, instead);
}
