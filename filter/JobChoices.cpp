#include "filter/JobChoices.h"

#include <cups/cups.h>
#include <cups/ppd.h>

#include <memory>

#include "filter/Log.h"

namespace {

class Options {
 public:
  explicit Options(const char *text) { count_ = cupsParseOptions(text, 0, &options_); }
  ~Options() { cupsFreeOptions(count_, options_); }
  Options(const Options &) = delete;
  Options &operator=(const Options &) = delete;

  const char *Value(const std::string &name) const {
    return cupsGetOption(name.c_str(), count_, options_);
  }

 private:
  int count_ = 0;
  cups_option_t *options_ = nullptr;
};

struct ClosePPD {
  void operator()(ppd_file_t *ppd) const { ppdClose(ppd); }
};
using PPD = std::unique_ptr<ppd_file_t, ClosePPD>;

const char *DefaultOf(const PPD &ppd, const std::string &name) {
  const ppd_option_t *option = ppd ? ppdFindOption(ppd.get(), name.c_str()) : nullptr;
  return option == nullptr ? nullptr : option->defchoice;
}

}  // namespace

numbering::Choices JobChoices(const char *options, const char *ppd) {
  const Options job(options);
  const PPD queue(ppd == nullptr ? nullptr : ppdOpenFile(ppd));
  if (ppd != nullptr && !queue) LogDebug(std::string("cannot read the PPD file ") + ppd);
  numbering::Choices choices;
  for (const std::string_view option : numbering::kOptions) {
    const std::string name(option);
    const char *said = job.Value(name);
    if (said != nullptr && Choose(choices, name, said)) continue;
    if (said != nullptr) {
      LogWarning(name + "=" + said + " is no choice of this option; its default is taken");
    }
    const char *usual = DefaultOf(queue, name);
    if (usual != nullptr && !Choose(choices, name, usual)) {
      LogDebug(std::string("the PPD file's default for ") + name + " is unknown: " + usual);
    }
  }
  return choices;
}
