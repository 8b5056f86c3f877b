#include "host/pages/JobPages.h"

#include <algorithm>
#include <cstring>
#include <fstream>

#include "host/base/Localized.h"
#include "host/base/WholeFile.h"
#include "host/chain/CheapestWay.h"
#include "host/chain/MimeTables.h"
#include "host/chain/ServerFolders.h"
#include "host/cups/JobTransfer.h"
#include "host/pages/DocumentType.h"
#include "host/pages/FilterRun.h"
#include "host/pages/LayoutOptions.h"
#include "host/pages/PdfPages.h"
#include "host/pages/PrinterForLayout.h"
#include "host/pages/Programs.h"
#include "host/ppd/FilterLines.h"

namespace fs = std::filesystem;

namespace {

bool HaveSameBytes(const fs::path &left, const fs::path &right) {
  std::ifstream one(left, std::ios::binary), other(right, std::ios::binary);
  std::vector<char> bytes(1 << 16), others(1 << 16);
  do {
    one.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    other.read(others.data(), static_cast<std::streamsize>(others.size()));
    if (one.gcount() != other.gcount()) return false;
    if (std::memcmp(bytes.data(), others.data(), static_cast<size_t>(one.gcount())) != 0) {
      return false;
    }
  } while (one && other);
  return true;
}

bool IsEmpty(const fs::path &file) {
  std::error_code error;
  return fs::file_size(file, error) == 0 || error;
}

// Where no page is printed, a printer's own language may be all that there is.
bool HasDocument(const fs::path &laid_out) {
  constexpr size_t kLongestBefore = 1 << 16;
  std::string begin(kLongestBefore, '\0');
  std::ifstream file(laid_out, std::ios::binary);
  file.read(begin.data(), static_cast<std::streamsize>(begin.size()));
  begin.resize(static_cast<size_t>(file.gcount()));
  return begin.find("%PDF-") != std::string::npos;
}

Failure NoPage() { return Failure{Localized("no page is to be printed")}; }

Failure MakesNothing(const FilterStep &step) {
  return Failure{
      Localized("the program %1 makes nothing of it", {step.program.filename().string()})};
}

class Maker {
 public:
  Maker(const PagesRequest &request, const PrivateFolder &folder, const std::atomic<bool> &cancel)
      : request_(request),
        folder_(folder),
        cancel_(cancel),
        ppd_(folder.path() / "printer.ppd"),
        ppd_of_part_(folder.path() / "part.ppd") {}

  Expected<fs::path> LayOut() {
    if (auto done = WriteDescriptions(); !done) return Explained(done.failure());
    std::vector<fs::path> parts;
    for (const fs::path &file : request_.files) {
      Expected<fs::path> part = LaidOut(file, /*is_followed=*/&file != &request_.files.back());
      if (!part) return Explained(part.failure());
      if (!part->empty()) parts.push_back(std::move(*part));
    }
    if (parts.empty()) return NoPage();
    Expected<fs::path> all = Joined(parts);
    if (!all) return Explained(all.failure());
    return all;
  }

  Expected<FilteredPages> Filter(const fs::path &laid_out) const {
    FilteredPages pages{.file = laid_out, .notes = {}};
    for (const DocumentFilter &filter : request_.making.filters) {
      if (auto done = Apply(filter, pages); !done) return Explained(done.failure());
    }
    return pages;
  }

  // Where there is no room any more, that is why.
  Failure Explained(const Failure &failure) const {
    const Expected<void> room = folder_.CheckRoom();
    return room ? failure : room.failure();
  }

 private:
  fs::path NewFile(const char *suffix) {
    return folder_.path() / (std::to_string(++files_) + suffix);
  }

  Expected<void> WriteDescriptions() {
    const std::string text = ForLayout(request_.making.ppd, LastSide::kAsPrinter);
    if (auto done = WriteWholeFile(ppd_, text); !done) return done;
    return WriteWholeFile(ppd_of_part_, ForLayout(request_.making.ppd, LastSide::kBack));
  }

  // A file of the job as pages; empty: none of them is printed.
  Expected<fs::path> LaidOut(const fs::path &file, bool is_followed) {
    const auto failure = [&file](const Failure &why) {
      return why.Reworded(Localized("cannot print %1: %2", {file.string(), why.message}));
    };
    Expected<std::string> type = TypeOf(file);
    if (!type) return type.failure();
    fs::path document = file;
    std::string made = *type;
    if (*type != kPdf) {
      const std::vector<FilterLine> way = WayFrom(*type);
      if (way.empty()) {
        return failure({Localized(
            "no program here makes pages of documents of the type %1; install the package %2",
            {*type, "cups-filters"})});
      }
      for (const FilterLine &step : way) {
        Expected<fs::path> next = Converted(document, step);
        if (!next) return failure(next.failure());
        document = std::move(*next);
        made = step.destination;
      }
    }
    Expected<fs::path> program = SystemFilter("pdftopdf");
    if (!program) return program.failure();
    FilterStep step{
        .program = *program,
        .from = kPdf,
        .to = kLaidOutPdf,
        .in = document,
        .out = NewFile(".pdf"),
        .ppd = is_followed ? ppd_of_part_ : ppd_,
        .title = request_.title,
        .options = made == kPdf ? request_.options : OptionsForCopies(request_.options)};
    Expected<FilterWords> words = RunFilter(step, cancel_);
    if (words) return HasDocument(step.out) ? step.out : fs::path();
    // The reason in plain words, where the document itself is.
    Expected<int> count = CountPages(document, step.out, cancel_);
    return failure(count ? words.failure() : count.failure());
  }

  Expected<std::string> TypeOf(const fs::path &file) const {
    const auto said = request_.options.find("document-format");
    if (said != request_.options.end() && said->second != "application/octet-stream") {
      return said->second;
    }
    return TypeOfFile(file);
  }

  // To PDF, or, where the converter lays out the pages itself, to what it makes.
  std::vector<FilterLine> WayFrom(const std::string &type) {
    if (conversions_.empty()) {
      conversions_ = MimeTables(FindServerFolders()).conversions();
      std::erase_if(conversions_, [](const FilterLine &step) {
        return step.source == kPdf || step.program == kPassedOn;
      });
    }
    auto way = CheapestWay(conversions_, type, kPdf);
    if (!way) way = CheapestWay(conversions_, type, kLaidOutPdf);
    return way.value_or(std::vector<FilterLine>());
  }

  Expected<fs::path> Converted(const fs::path &document, const FilterLine &conversion) {
    Expected<fs::path> program = SystemFilter(conversion.program);
    if (!program) return program.failure();
    FilterStep step{.program = *program,
                    .from = conversion.source,
                    .to = conversion.destination,
                    .in = document,
                    .out = NewFile(".converted"),
                    .ppd = ppd_,
                    .title = request_.title,
                    .options = request_.options};
    step.options["copies"] = "1";
    Expected<FilterWords> words = RunFilter(step, cancel_);
    if (!words) return words.failure();
    if (IsEmpty(step.out)) return MakesNothing(step);
    return step.out;
  }

  Expected<fs::path> Joined(const std::vector<fs::path> &parts) {
    if (parts.size() == 1) return parts.front();
    fs::path all = NewFile(".pdf");
    Expected<int> joined = JoinPages(parts, all, cancel_);
    if (!joined) return joined.failure();
    return all;
  }

  Expected<void> Apply(const DocumentFilter &filter, FilteredPages &pages) const {
    const auto failure = [&filter](const Failure &why) {
      return why.Reworded(Localized("%1 cannot be applied: %2", {filter.bundle, why.message}));
    };
    Expected<fs::path> program = ProgramOf(filter);
    if (!program) return failure(program.failure());
    FilterStep step{.program = *program,
                    .from = kLaidOutPdf,
                    .to = kLaidOutPdf,
                    .in = pages.file,
                    .out = folder_.path() / filter.program,
                    .ppd = ppd_,
                    .title = request_.title,
                    .options = request_.options};
    step.out += ".pdf";
    step.options["copies"] = "1";
    Expected<FilterWords> words = RunFilter(step, cancel_);
    if (!words) return failure(words.failure());
    if (IsEmpty(step.out)) return failure(MakesNothing(step));
    if (HaveSameBytes(step.in, step.out)) {
      // Filters pass on what they cannot change; then they say so.
      if (!words->warnings.empty()) return failure({words->warnings.back()});
      return {};
    }
    for (const std::string &warning : words->warnings) {
      pages.notes.push_back(filter.bundle + ": " + warning);
    }
    pages.file = step.out;
    pages.is_changed = true;
    return {};
  }

  const PagesRequest &request_;
  const PrivateFolder &folder_;
  const std::atomic<bool> &cancel_;
  const fs::path ppd_, ppd_of_part_;
  std::vector<FilterLine> conversions_;
  int files_ = 0;
};

}  // namespace

Expected<JobPages> MakePages(const PagesRequest &request, const std::atomic<bool> &cancel) {
  Expected<PrivateFolder> folder = PrivateFolder::Make();
  if (!folder) return folder.failure();
  Expected<fs::path> laid_out = LayOutPages(request, *folder, cancel);
  if (!laid_out) return laid_out.failure();
  Expected<FilteredPages> filtered = ApplyFilters(request, *laid_out, *folder, cancel);
  if (!filtered) return filtered.failure();
  Expected<int> count = CountPages(filtered->file, filtered->file, cancel);
  if (!count) {
    return cancel ? JobCanceled() : Maker(request, *folder, cancel).Explained(count.failure());
  }
  if (*count == 0) return NoPage();
  return JobPages{.folder = std::move(*folder),
                  .file = std::move(filtered->file),
                  .count = *count,
                  .is_changed = filtered->is_changed,
                  .notes = std::move(filtered->notes)};
}

Expected<fs::path> LayOutPages(const PagesRequest &request, const PrivateFolder &folder,
                               const std::atomic<bool> &cancel) {
  Expected<fs::path> laid_out = Maker(request, folder, cancel).LayOut();
  if (!laid_out && cancel) return JobCanceled();
  return laid_out;
}

Expected<FilteredPages> ApplyFilters(const PagesRequest &request, const fs::path &laid_out,
                                     const PrivateFolder &folder, const std::atomic<bool> &cancel) {
  Expected<FilteredPages> filtered = Maker(request, folder, cancel).Filter(laid_out);
  if (!filtered && cancel) return JobCanceled();
  return filtered;
}
