#include "host/ppd/edit/Enabling.h"

#include <strings.h>

#include <algorithm>
#include <set>

#include "host/base/Localized.h"
#include "host/base/Text.h"
#include "host/ppd/PPDFile.h"
#include "host/ppd/PPDSource.h"
#include "host/ppd/edit/DocumentFilter.h"
#include "host/ppd/edit/OptionBlocks.h"
#include "host/ppd/edit/OptionDefaults.h"
#include "host/ppd/edit/OptionLanguages.h"
#include "host/ppd/edit/OptionOrder.h"
#include "host/ppd/edit/PPDText.h"
#include "host/ppd/edit/PostScriptPrinter.h"

namespace {

Failure CannotParse(const Failure &why) {
  return why.Reworded(Localized("not a PPD file, or a damaged one: %1", {why.message}));
}

// The options that the lines open, with their choices.
std::vector<PPDOption> OptionsIn(std::string_view lines) {
  std::vector<PPDOption> options;
  bool is_open = false;
  for (const PPDStatement &statement : StatementsOf(lines)) {
    if (!OptionOpenedBy(statement).empty()) {
      options.emplace_back().keyword = statement.option;
      is_open = true;
    } else if (statement.keyword == "CloseUI" || statement.keyword == "JCLCloseUI") {
      is_open = false;
    } else if (is_open && statement.keyword == options.back().keyword) {
      options.back().choices.push_back({std::string(statement.option), ""});
    } else if (is_open && statement.keyword == "Default" + options.back().keyword) {
      options.back().default_choice = statement.value;
    }
  }
  return options;
}

Expected<void> CheckNotPrintersOwn(std::string_view base, const PPDFile &ppd,
                                   const PrinterOptions &options, std::string_view lines) {
  if (!options.support_keyword.empty() && ppd.Attribute(options.support_keyword)) {
    return Failure{Localized(
        "the printer's maker has put the attribute %1 into the file already; the options of %2 are "
        "only for files without it",
        {options.support_keyword, options.name})};
  }
  const std::vector<PPDOption> added = OptionsIn(lines);
  for (const PPDStatement &statement : StatementsOf(base)) {
    const std::string name(OptionOpenedBy(statement));
    const bool is_added = std::ranges::any_of(added, [&name](const PPDOption &option) {
      return strcasecmp(option.keyword.c_str(), name.c_str()) == 0;
    });
    if (!is_added) continue;
    return Failure{Localized(
        "the printer's maker has put the option %1 into the file already; the options of %2 are "
        "only for files without it",
        {name, options.name})};
  }
  return {};
}

// Who does what the options of a block say.
enum class Doer { kPrinter, kServersFilter, kFilterElsewhere };

Expected<std::string> LinesFor(const PPDFile &ppd, const PrinterOptions &options, Doer doer) {
  const std::string color = ppd.Attribute("ColorDevice").value_or("");
  const bool is_color = Trimmed(color) == "True";
  if (!is_color && Trimmed(color) != "False") {
    if (color.empty()) {
      return Failure{
          Localized("the file does not say whether it is a color printer: *ColorDevice must be "
                    "True or False")};
    }
    return Failure{
        Localized("the file does not say whether it is a color printer: *ColorDevice must be True "
                  "or False, not %1",
                  {Quoted(color)})};
  }
  const OptionLines &both = doer == Doer::kPrinter ? options.printer : options.document;
  const std::string &lines = is_color ? both.color : both.monochrome;
  if (!lines.empty()) return lines;
  return Failure{
      is_color
          ? Localized("the bundle %1 brings no options for color printers", {options.name})
          : Localized("the bundle %1 brings no options for monochrome printers", {options.name})};
}

bool HasSameChoices(const PPDOption &left, const PPDOption &right) {
  return std::ranges::equal(
      left.choices, right.choices,
      [](const PPDChoice &one, const PPDChoice &other) { return one.keyword == other.keyword; });
}

// That libcups, the reader that counts, finds everything as it was added.
Expected<void> CheckEnabled(const PPDFile &enabled, const PPDFile &base,
                            const PrinterOptions &options, std::string_view lines) {
  for (const PPDOption &added : OptionsIn(lines)) {
    const std::optional<PPDOption> found = enabled.Option(added.keyword);
    if (!found) return Failure{Localized("there is no option %1", {added.keyword})};
    if (!HasSameChoices(*found, added)) {
      return Failure{Localized("the option %1 has other choices", {added.keyword})};
    }
    if (found->default_choice != added.default_choice) {
      return Failure{Localized("the option %1 has another default", {added.keyword})};
    }
  }
  if (!options.support_keyword.empty() &&
      enabled.Attribute(options.support_keyword) != options.support_value) {
    return Failure{Localized("the attribute %1 is not %2",
                             {options.support_keyword, Quoted(options.support_value)})};
  }
  for (const PPDOption &own : base.Options()) {
    const std::optional<PPDOption> found = enabled.Option(own.keyword);
    if (!found || !HasSameChoices(*found, own) || found->default_choice != own.default_choice) {
      return Failure{Localized("the printer's option %1 is another one", {own.keyword})};
    }
  }
  return {};
}

// Whether the print server runs a filter of the bundles' for the lines of an earlier block.
bool HasFilterOf(const std::vector<PrinterOptions> &options,
                 const std::vector<OptionBlock> &blocks) {
  return std::ranges::any_of(blocks, [&options](const OptionBlock &block) {
    return std::ranges::any_of(options, [&block](const PrinterOptions &bundle) {
      return bundle.bundle == block.bundle && !bundle.document_filter.empty() &&
             block.lines.find(' ' + bundle.document_filter + "\"\n") != std::string::npos;
    });
  });
}

// Whether a filter draws. Who was once asked for stays in charge.
Expected<bool> IsByFilter(const PPDFile &base, const std::vector<OptionBlock> &earlier,
                          const std::vector<PrinterOptions> &options, DrawingMethod method) {
  if (method == DrawingMethod::kFitting && HasFilterOf(options, earlier)) {
    method = DrawingMethod::kFilter;
  }
  const auto without = std::ranges::find_if(
      options, [](const PrinterOptions &bundle) { return bundle.document_filter.empty(); });
  if (method != DrawingMethod::kFilter) {
    auto takes = CheckTakesPostScript(base);
    if (takes) return false;
    if (method == DrawingMethod::kPrinter || without != options.end()) {
      return takes.failure().Reworded(Localized("no PostScript printer: %1", {takes.message()}));
    }
  } else if (without != options.end()) {
    return Failure{
        Localized("the bundle %1 brings no filter (PDEDocumentFilter)", {without->name})};
  }
  if (options.size() == 1) return true;
  return Failure{Localized("only one bundle can bring a filter: %1 or %2",
                           {options[0].name, options[1].name})};
}

Failure DoNotFit(const PrinterOptions &options, const Failure &why) {
  return why.Reworded(Localized(
      "the options of the bundle %1 do not fit this file: %2; report it to the bundle's maker",
      {options.name, why.message}));
}

// The lines with the defaults that were chosen for the bundle's earlier block, whoever did its
// work.
std::string WithChoicesOf(const OptionBlock &block, const PPDFile &base,
                          const PrinterOptions &bundle, const std::string &lines) {
  const Doer doer = HasFilterOf({bundle}, {block}) ? Doer::kServersFilter : Doer::kPrinter;
  const Expected<std::string> beginning = LinesFor(base, bundle, doer);
  return WithDefaultsOf(block.lines, beginning ? *beginning : "", lines);
}

// Adds the block of a bundle, in the place of an earlier one's, whose defaults it keeps.
Expected<void> AddBlock(BlockedPPD &parts, const PPDFile &base, const PrinterOptions &bundle,
                        Doer doer, const std::vector<OptionBlock> &earlier) {
  Expected<std::string> lines = LinesFor(base, bundle, doer);
  if (!lines) return lines.failure();
  std::string before = JoinBlocks(parts);
  Expected<PPDFile> others = ParsePPD(before);
  if (!others) return CannotParse(others.failure());
  if (auto done = CheckNotPrintersOwn(before, *others, bundle, *lines); !done) return done;
  Expected<std::string> ordered = OrderedAfter(before, *lines);
  if (!ordered) return ordered.failure();
  if (const auto languages = base.Attribute("cupsLanguages")) {
    ordered = InLanguages(*languages, *ordered);
  }
  for (const OptionBlock &block : earlier) {
    if (block.bundle == bundle.bundle) *ordered = WithChoicesOf(block, base, bundle, *ordered);
  }
  if (doer == Doer::kServersFilter) {
    Expected<std::string> filters = LinesForDocumentFilter(*others, bundle);
    if (!filters) return filters.failure();
    *ordered += *filters;
  }
  parts.blocks.push_back({bundle.bundle, *ordered});
  std::string after = JoinBlocks(parts);
  if (auto done = CheckWhole(after); !done) return DoNotFit(bundle, done.failure());
  Expected<PPDFile> enabled = ParsePPD(after);
  if (!enabled) return DoNotFit(bundle, enabled.failure());
  if (auto done = CheckEnabled(*enabled, *others, bundle, *ordered); !done) {
    return DoNotFit(bundle, done.failure());
  }
  return {};
}

}  // namespace

Expected<EnabledPPD> EnableOptions(std::string_view ppd, const std::vector<PrinterOptions> &options,
                                   DrawingMethod method) {
  if (auto done = CheckWhole(ppd); !done) return done.failure();
  Expected<BlockedPPD> parts = SplitBlocks(ppd);
  if (!parts) return parts.failure();
  Expected<PPDFile> base = ParsePPD(parts->base);
  if (!base) return CannotParse(base.failure());
  const Expected<bool> by_filter = IsByFilter(*base, parts->blocks, options, method);
  if (!by_filter) return by_filter.failure();
  EnabledPPD result;

  std::vector<OptionBlock> earlier;
  for (const PrinterOptions &bundle : options) {
    const auto is_its = [&bundle](const OptionBlock &block) {
      return block.bundle == bundle.bundle;
    };
    std::ranges::copy_if(parts->blocks, std::back_inserter(earlier), is_its);
    std::erase_if(parts->blocks, is_its);
  }
  for (const PrinterOptions &bundle : options) {
    const Doer doer = *by_filter ? Doer::kServersFilter : Doer::kPrinter;
    if (auto done = AddBlock(*parts, *base, bundle, doer, earlier); !done) return done.failure();
    if (*by_filter) {
      result.filter = bundle.document_filter;
      result.picture_filter = bundle.picture_filter;
    }
  }
  result.text = JoinBlocks(*parts);
  return result;
}

Expected<std::string> AddDocumentOptions(std::string_view ppd, const PrinterOptions &options) {
  if (auto done = CheckWhole(ppd); !done) return done.failure();
  Expected<BlockedPPD> parts = SplitBlocks(ppd);
  if (!parts) return parts.failure();
  Expected<PPDFile> base = ParsePPD(parts->base);
  if (!base) return CannotParse(base.failure());
  std::erase_if(parts->blocks,
                [&options](const OptionBlock &block) { return block.bundle == options.bundle; });
  if (auto done = AddBlock(*parts, *base, options, Doer::kFilterElsewhere, {}); !done) {
    return done.failure();
  }
  return JoinBlocks(*parts);
}

Expected<DisabledPPD> DisableOptions(std::string_view ppd) {
  if (auto done = CheckWhole(ppd); !done) return done.failure();
  Expected<BlockedPPD> parts = SplitBlocks(ppd);
  if (!parts) return parts.failure();
  Expected<PPDFile> base = ParsePPD(parts->base);
  if (!base) return CannotParse(base.failure());
  DisabledPPD disabled{.text = std::move(parts->base), .bundles = {}};
  for (OptionBlock &block : parts->blocks) disabled.bundles.push_back(std::move(block.bundle));
  return disabled;
}
