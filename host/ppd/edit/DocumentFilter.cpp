#include "host/ppd/edit/DocumentFilter.h"

#include <algorithm>
#include <array>

#include "host/base/Localized.h"
#include "host/ppd/FilterLines.h"

namespace {

// Kinds of pixels that printers and their drivers take.
constexpr std::array kPixels = {kRasterType, "image/pwg-raster", "image/urf", "application/PCLm"};

// Those that the print system makes PDF of.
constexpr std::array kPictures = {
    "image/gif",
    "image/png",
    "image/jpeg",
    "image/tiff",
    "image/x-bitmap",
    "image/x-photocd",
    "image/x-portable-anymap",
    "image/x-portable-bitmap",
    "image/x-portable-graymap",
    "image/x-portable-pixmap",
    "image/x-sgi-rgb",
    "image/x-xbitmap",
    "image/x-xpixmap",
    "image/x-sun-raster",
};

bool IsOneOf(const auto &list, const std::string &type) {
  return std::ranges::find(list, type) != list.end();
}

std::string Text(const std::string &keyword, const FilterLine &line) {
  const std::string destination = line.destination.empty() ? "" : line.destination + ' ';
  const std::string most = line.most ? "maxsize(" + std::to_string(*line.most) + ") " : "";
  return '*' + keyword + ": \"" + line.source + ' ' + destination + std::to_string(line.cost) +
         ' ' + most + line.program + "\"\n";
}

// What the printer gets of these pixels: a driver sends in its own way what it is given.
const std::string &SentAs(const FilterLine &pixels) {
  const bool is_passed_on = pixels.program == kPassedOn && !pixels.destination.empty();
  return is_passed_on ? pixels.destination : pixels.source;
}

class Writer {
 public:
  Writer(const PPDFile &ppd, const PrinterOptions &options)
      : options_(options), lines_(FilterLinesOf(ppd)), keyword_(FilterKeyword(ppd)) {
    std::erase_if(lines_, [](const FilterLine &line) { return !IsForDocuments(line); });
    for (const FilterLine &line : lines_) least_ = std::min(least_, line.cost);
    if (!keyword_.empty()) return;
    // One line of ours, and the server's own for files without any is not in force any more. Of the
    // older keyword's lines, its programs conclude that the pages are counted elsewhere.
    keyword_ = "cupsFilter2";
    for (FilterLine line : lines_) {
      line.destination = line.source;
      Add(line);
    }
  }

  std::string Write() {
    bool has_pre_filter = false;
    for (const FilterLine &line : lines_) {
      if (line.source == kLaidOutPdf && line.program == kPassedOn) {
        // No filter is left there that others could go before. Of two lines that are alike, that
        // with the lower cost is in force.
        Add({line.source, line.destination, line.cost - 1, options_.document_filter, line.most});
        continue;
      }
      if (!has_pre_filter) {
        result_ += Text("cupsPreFilter", {kLaidOutPdf, "", 0, options_.document_filter, {}});
      }
      has_pre_filter = true;
      if (line.source == kPostScriptType && line.program == kPassedOn) {
        // PostScript documents would come straight here: now a way through PDF costs less.
        Add({kLaidOutPdf, kPostScriptType, line.cost - 1, "pdftops", {}});
      }
    }
    if (!result_.empty() && !options_.picture_filter.empty()) AddPictures();
    return std::move(result_);
  }

 private:
  void Add(const FilterLine &line) { result_ += Text(keyword_, line); }

  // Pictures become pixels at once where that costs less, or go to the printer as they are: these
  // lines cost less than any other way.
  void AddPictures() {
    const auto is_pixels = [](const FilterLine &line) { return IsOneOf(kPixels, line.source); };
    const bool has_pdf = std::ranges::any_of(lines_, [](const FilterLine &line) {
      return line.source == kLaidOutPdf && line.program == kPassedOn;
    });
    const auto pixels = std::ranges::min_element(
        lines_, {}, [&](const FilterLine &line) { return std::pair(!is_pixels(line), line.cost); });
    const bool has_pixels = pixels != lines_.end() && is_pixels(*pixels);
    for (const std::string picture : kPictures) {
      const bool is_taken = std::ranges::any_of(
          lines_, [&picture](const FilterLine &line) { return line.source == picture; });
      if (!is_taken && !has_pixels) continue;
      if (has_pdf) Add({picture, "application/pdf", least_ - 2, options_.picture_filter, {}});
      if (has_pixels) Add({picture, SentAs(*pixels), least_ - 1, options_.picture_filter, {}});
    }
  }

  const PrinterOptions &options_;
  std::vector<FilterLine> lines_;
  std::string keyword_;
  int least_ = 0;
  std::string result_;
};

}  // namespace

Expected<std::string> LinesForDocumentFilter(const PPDFile &ppd, const PrinterOptions &options) {
  for (const FilterLine &line : FilterLinesOf(ppd)) {
    if (line.source == "application/pdf" && line.program == kPassedOn) {
      return Failure{
          Localized("another print server prepares its documents; enable the queue there, or print "
                    "with pdeprint")};
    }
  }
  for (const FilterLine &line : PreFilterLinesOf(ppd)) {
    if (line.source == kLaidOutPdf) {
      return Failure{Localized("its PPD file has another filter in the place of %1: %2",
                               {options.document_filter, line.program})};
    }
  }
  std::string lines = Writer(ppd, options).Write();
  if (!lines.empty()) return lines;
  return Failure{Localized("there is no place for the filter %1", {options.document_filter})};
}
