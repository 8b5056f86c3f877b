#include "host/ppd/edit/PostScriptPrinter.h"

#include <charconv>
#include <optional>

#include "host/base/Localized.h"
#include "host/base/Text.h"
#include "host/ppd/FilterLines.h"

namespace {

constexpr char kFoomatic[] = "foomatic-rip";

// "cat" with places for options, which no option of a PostScript printer fills.
bool JustPassesOn(std::string_view command) {
  std::string rest;
  for (size_t at = 0; at < command.size(); ++at) {
    if (command[at] == '%' && at + 1 < command.size() && command[at + 1] >= 'A' &&
        command[at + 1] <= 'Z') {
      ++at;
    } else {
      rest += command[at];
    }
  }
  return Trimmed(rest) == "cat";
}

Expected<void> CheckThroughFoomatic(const PPDFile &ppd) {
  for (const char *keyword : {"FoomaticRIPCommandLinePDF", "FoomaticRIPPostPipe"}) {
    if (ppd.Attribute(keyword)) {
      return Failure{Localized(
          "its filter foomatic-rip sends documents through another program (*%1)", {keyword})};
    }
  }
  const std::string command = ppd.Attribute("FoomaticRIPCommandLine").value_or("");
  if (!JustPassesOn(command)) {
    return Failure{
        Localized("its filter foomatic-rip makes something else of PostScript, with the command %1",
                  {Quoted(command)})};
  }
  for (const std::string &option : ppd.Attributes("FoomaticRIPOption")) {
    if (option.find("CmdLine") != std::string::npos) {
      return Failure{Localized(
          "an option of its changes what its filter foomatic-rip does (*FoomaticRIPOption: %1)",
          {option})};
    }
  }
  return {};
}

Expected<void> CheckThrough(const FilterLine &filter, const PPDFile &ppd) {
  if (filter.program == kFoomatic) return CheckThroughFoomatic(ppd);
  if (filter.program != kPassedOn) {
    return Failure{Localized(
        "it does not get PostScript as the print system makes it, but %1 through the filter %2",
        {filter.source, filter.program})};
  }
  if (filter.source == kPostScriptType) return {};
  return Failure{
      Localized("it gets documents of the type %1 as they are, without the code of its options",
                {filter.source})};
}

Expected<void> CheckLanguageLevel(const PPDFile &ppd) {
  const std::optional<std::string> value = ppd.Attribute("LanguageLevel");
  if (!value) {
    return Failure{
        Localized("its PPD file does not say which *LanguageLevel of PostScript it has")};
  }
  const std::string_view text = Trimmed(*value);
  int level = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), level);
  if (error == std::errc() && end == text.data() + text.size() && level >= 2) return {};
  return Failure{
      Localized("its PostScript is of *LanguageLevel %1; options need 2 or more", {Quoted(text)})};
}

}  // namespace

Expected<void> CheckTakesPostScript(const PPDFile &ppd) {
  bool gets_postscript = false;
  for (const FilterLine &filter : FilterLinesOf(ppd)) {
    if (!IsForDocuments(filter)) continue;
    if (auto through = CheckThrough(filter, ppd); !through) return through;
    gets_postscript = gets_postscript || filter.source == kPostScriptType;
  }
  if (!gets_postscript) {
    return Failure{Localized("none of its filters is for PostScript (%1)", {kPostScriptType})};
  }
  return CheckLanguageLevel(ppd);
}
