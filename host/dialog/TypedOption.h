// Job options that people type.

#ifndef HOST_DIALOG_TYPEDOPTION_H
#define HOST_DIALOG_TYPEDOPTION_H

#include <string>
#include <string_view>

#include "host/base/Expected.h"
#include "host/base/JobOptions.h"
#include "host/session/JobSession.h"

struct TypedOption {
  const char *name;   // of the job option
  const char *usual;  // its value where the job has none
  // Of the usual value, where the queue's default is another one; null: itself.
  std::string (*instead)();
  // The option's value for what was typed; "" is no value.
  Expected<std::string> (*parse)(std::string_view text);
  // The other way round.
  std::string (*as_typed)(const std::string &value);

  // What people see of it in a job with these options.
  std::string TextIn(const JobOptions &options) const;
  // Gives the job a value that was parsed, unless it has it already. The failure: all is as before.
  Expected<void> Set(const std::string &value, JobSession &session) const;
};

extern const TypedOption kCopiesOption;
extern const TypedOption kPagesOption;  // no text: all pages

#endif
