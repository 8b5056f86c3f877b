#include "host/ppd/PPDFile.h"

#include <strings.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <set>
#include <span>
#include <system_error>

#include "host/base/Localized.h"
#include "host/base/RegularFile.h"
#include "host/base/Text.h"
#include "host/base/Utf8.h"
#include "host/ppd/CustomChoice.h"
#include "host/ppd/Keywords.h"

namespace {

struct IgnoringCase {
  bool operator()(const char *left, const char *right) const { return strcasecmp(left, right) < 0; }
};

constexpr char kInstalledHardware[] = "InstallableOptions";

// libcups has converted most texts; those of custom choices and of translations it takes as they
// are. Texts in UTF-8 it cuts anywhere.
std::string Text(std::string_view text, const char *keyword) {
  if (text.size() == PPD_MAX_TEXT - 1) text = WithoutCutCharacter(text);
  text = Trimmed(text);
  return ToUtf8(text.empty() ? std::string_view(keyword) : text);
}

std::span<const ppd_group_t> Groups(const ppd_file_t &ppd) {
  return {ppd.groups, ppd.groups == nullptr ? 0 : static_cast<size_t>(ppd.num_groups)};
}

// The options of subgroups are among these: libcups does not keep them apart.
std::span<const ppd_option_t> OptionsOf(const ppd_group_t &group) {
  return {group.options, group.options == nullptr ? 0 : static_cast<size_t>(group.num_options)};
}

std::span<const ppd_choice_t> AllChoicesOf(const ppd_option_t &option) {
  return {option.choices, option.choices == nullptr ? 0 : static_cast<size_t>(option.num_choices)};
}

bool IsListed(const ppd_choice_t &choice) {
  return choice.choice[0] != '\0' && !IsSame(choice.choice, kCustomChoice);
}

std::vector<PPDChoice> ChoicesOf(const ppd_option_t &option) {
  std::vector<PPDChoice> choices;
  // Of choices that libcups cannot tell apart only the first can be had.
  std::set<const char *, IgnoringCase> seen;
  for (const ppd_choice_t &choice : AllChoicesOf(option)) {
    if (!IsListed(choice) || !seen.insert(choice.choice).second) continue;
    choices.push_back({choice.choice, Text(choice.text, choice.choice)});
  }
  return choices;
}

// The choice that libcups takes this keyword for, as it is written in the list; empty: none.
std::string ListedChoice(const ppd_option_t &option, const char *keyword) {
  for (const ppd_choice_t &choice : AllChoicesOf(option)) {
    if (IsListed(choice) && IsSame(choice.choice, keyword)) return choice.choice;
  }
  return "";
}

std::string DefaultOf(const ppd_file_t &ppd, const ppd_option_t &option) {
  std::string listed = ListedChoice(option, option.defchoice);
  if (!listed.empty() || !AllowsCustomChoice(ppd, option, option.defchoice)) return listed;
  return option.defchoice;
}

PPDOption Described(const ppd_file_t &ppd, const ppd_group_t &group, const ppd_option_t &option) {
  PPDOption described;
  described.keyword = option.keyword;
  described.text = Text(option.text, option.keyword);
  described.group = Text(group.text, group.name);
  described.choices = ChoicesOf(option);
  described.default_choice = DefaultOf(ppd, option);
  return described;
}

}  // namespace

PPDFile::PPDFile(ppd_file_t *ppd, PPDTexts texts) : ppd_(ppd) {
  if (texts == PPDTexts::kUsersLanguage) ppdLocalize(ppd);
  ppdMarkDefaults(ppd);
}

Expected<PPDFile> PPDFile::Open(const std::filesystem::path &path, PPDTexts texts) {
  if (auto done = CheckRegularFile(path); !done) return done.failure();

  errno = 0;
  if (ppd_file_t *ppd = ppdOpenFile(path.c_str())) return PPDFile(ppd, texts);
  const int system_error = errno;
  int line = 0;
  const ppd_status_t reason = ppdLastError(&line);
  std::string message = ppdErrorString(reason);
  if (reason == PPD_FILE_OPEN_ERROR && system_error != 0) {
    message += std::string(": ") + std::strerror(system_error);
  } else if (line > 0) {
    message = Localized("%1 on line %2", {message, std::to_string(line)});
  }
  return Failure{message};
}

std::optional<std::string> PPDFile::Attribute(const std::string &keyword) const {
  const ppd_attr_t *attribute = ppdFindAttr(ppd_.get(), keyword.c_str(), nullptr);
  if (attribute == nullptr || attribute->value == nullptr) return std::nullopt;
  return attribute->value;
}

bool PPDFile::IsColorDevice() const { return Attribute("ColorDevice") == "True"; }

std::string PPDFile::Name() const {
  if (ppd_->nickname != nullptr && !Trimmed(ppd_->nickname).empty()) {
    return ToUtf8(Trimmed(ppd_->nickname));
  }
  for (const char *keyword : {"ShortNickName", "ModelName", "Product", "PCFileName"}) {
    const std::string value = Attribute(keyword).value_or("");
    std::string_view name = Trimmed(value);
    if (name.starts_with('(') && name.ends_with(')')) {  // a string of PostScript
      name = Trimmed(name.substr(1, name.size() - 2));
    }
    if (!name.empty()) return ToUtf8(name);
  }
  return Localized("printer without a name");
}

std::vector<std::string> PPDFile::Attributes(const std::string &keyword) const {
  std::vector<std::string> values;
  for (const ppd_attr_t *attribute = ppdFindAttr(ppd_.get(), keyword.c_str(), nullptr);
       attribute != nullptr; attribute = ppdFindNextAttr(ppd_.get(), keyword.c_str(), nullptr)) {
    if (attribute->value != nullptr) values.emplace_back(attribute->value);
  }
  return values;
}

template <typename Take>
void PPDFile::ForOptionsOfJobs(Take take) const {
  for (const ppd_group_t &group : Groups(*ppd_)) {
    if (IsSame(group.name, kInstalledHardware)) continue;
    for (const ppd_option_t &option : OptionsOf(group)) {
      if (IsSame(option.keyword, "PageRegion")) continue;
      if (std::ranges::none_of(AllChoicesOf(option), IsListed)) continue;
      // Of two options with one keyword libcups knows one.
      if (ppdFindOption(ppd_.get(), option.keyword) == &option) take(group, option);
    }
  }
}

std::vector<PPDOption> PPDFile::Options() const {
  std::vector<PPDOption> options;
  ForOptionsOfJobs([&](const ppd_group_t &group, const ppd_option_t &option) {
    options.push_back(Described(*ppd_, group, option));
  });
  return options;
}

std::vector<std::string> PPDFile::OptionKeywords() const {
  std::vector<std::string> keywords;
  ForOptionsOfJobs([&](const ppd_group_t &, const ppd_option_t &option) {
    keywords.emplace_back(option.keyword);
  });
  return keywords;
}

const ppd_option_t *PPDFile::Found(const std::string &keyword) const {
  const ppd_option_t *option = ppdFindOption(ppd_.get(), keyword.c_str());
  return option != nullptr && option->keyword == keyword ? option : nullptr;
}

bool PPDFile::HasOption(const std::string &keyword) const { return Found(keyword) != nullptr; }

std::optional<PPDOption> PPDFile::Option(const std::string &keyword) const {
  const ppd_option_t *option = Found(keyword);
  if (option == nullptr) return std::nullopt;
  for (const ppd_group_t &group : Groups(*ppd_)) {
    for (const ppd_option_t &candidate : OptionsOf(group)) {
      if (&candidate == option) return Described(*ppd_, group, *option);
    }
  }
  return std::nullopt;
}

std::string PPDFile::DefaultChoice(const std::string &keyword) const {
  const ppd_option_t *option = Found(keyword);
  return option == nullptr ? "" : DefaultOf(*ppd_, *option);
}

bool PPDFile::Allows(const std::string &option, const std::string &choice) const {
  const ppd_option_t *found = Found(option);
  if (found == nullptr) return false;
  if (IsCustomChoice(choice)) return AllowsCustomChoice(*ppd_, *found, choice);
  return !choice.empty() && ListedChoice(*found, choice.c_str()) == choice;
}

std::string PPDFile::TakesUnfitCustomValue(const std::string &option,
                                           const std::string &choice) const {
  if (!MayBeTakenForCustomChoice(choice)) return "";
  const ppd_option_t *found = ppdFindOption(ppd_.get(), option.c_str());
  return found == nullptr || Allows(found->keyword, choice) ? "" : found->keyword;
}
