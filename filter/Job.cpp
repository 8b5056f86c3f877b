#include "filter/Job.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <stdexcept>

#include "filter/Apart.h"
#include "filter/Descriptor.h"
#include "filter/Envelope.h"
#include "filter/HidingPages.h"
#include "filter/Input.h"
#include "filter/JobChoices.h"
#include "filter/Log.h"
#include "filter/PageCount.h"
#include "numbering/pdf/NumberDocument.h"

namespace {

using numbering::Choices;
using numbering::Placement;

// A broken file may keep the library busy for ever; a large one takes its time.
std::chrono::seconds TimeFor(size_t size) { return std::chrono::seconds(120 + size / 100'000); }

// Where a program that reads the next one's input has had enough, it is for that one to say whether
// this is a mistake.
int Written(bool all) {
  if (all || errno == EPIPE) return 0;
  LogError("The document cannot be handed on: " + SystemReason());
  return 1;
}

// Pictures may come to PDF printers without a program that tells the server of pages.
bool MayLogPages(const Job &job) {
  return job.type.starts_with("image/") && job.final_type.find("/pdf") != std::string::npos;
}

void LogPages(const Envelope &envelope, int copies) {
  const auto log = [&] {
    try {
      const size_t pages = numbering::PagesOfDocument(envelope.document);
      for (size_t page = 1; page <= pages; ++page) LogPage(page, copies);
      return true;
    } catch (const std::exception &error) {
      LogDebug(std::string("the pages cannot be counted: ") + error.what());
      return false;
    }
  };
  bool succeeded = false;
  RunApart(log, TimeFor(envelope.document.size()), succeeded);
}

// On which pages the number goes over them.
numbering::IsOver Placements(const LookedAt &looked_at, const Choices &choices) {
  if (choices.placement != Placement::Automatic) {
    return [over = choices.placement == Placement::Over](size_t) { return over; };
  }
  return [&hiding = looked_at.hiding](size_t page) {
    return page >= hiding.size() || hiding[page];
  };
}

LookedAt LookAt(const Input &input, const Envelope &envelope, const Choices &choices) {
  if (choices.placement != Placement::Automatic) return {};
  const auto begin = static_cast<size_t>(envelope.document.data() - input.bytes().data());
  return HidingPages(input.file(), begin, envelope.document.size(), choices);
}

// The document with numbers, in a file. False: the reason is in the log.
bool Number(const Envelope &envelope, const Choices &choices, const numbering::IsOver &is_over,
            int file) {
  try {
    std::FILE *out = fdopen(file, "wb");
    size_t over = 0;
    const auto counting = [&](size_t page) {
      const bool is = is_over(page);
      over += is ? 1 : 0;
      return is;
    };
    const numbering::DocumentNumbers numbers = numbering::NumberDocument(
        envelope.document, out, choices, counting, envelope.comments + std::string(kNumberedMark));
    if (std::fflush(out) != 0) throw std::runtime_error(SystemReason());
    if (!numbers.failures.empty()) {
      LogWarning(std::to_string(numbers.failures.size()) + " of " + std::to_string(numbers.pages) +
                 " pages have no number: " + numbers.failures.front());
    }
    LogDebug(std::to_string(numbers.pages) + " pages from " + std::to_string(choices.start) +
             " on, the number over " + std::to_string(over) + " of them");
    return true;
  } catch (const std::exception &error) {
    LogWarning(std::string("The pages have no numbers: ") + error.what());
    return false;
  }
}

int PrintNumbered(Input &input, const Envelope &envelope, const Choices &choices) {
  const Descriptor numbered = TemporaryFile();
  if (!numbered.IsOpen()) {
    LogWarning("The pages have no numbers: no temporary file can be made: " + SystemReason());
    return Written(input.PassOn(STDOUT_FILENO));
  }
  LogInfo("Numbering the pages.");
  const LookedAt looked_at = LookAt(input, envelope, choices);
  const numbering::IsOver is_over = Placements(looked_at, choices);
  bool succeeded = false;
  const std::string trouble =
      RunApart([&] { return Number(envelope, choices, is_over, numbered.get()); },
               TimeFor(envelope.document.size()), succeeded);
  if (!trouble.empty()) LogWarning("The pages have no numbers: " + trouble);
  if (!succeeded) return Written(input.PassOn(STDOUT_FILENO));
  for (const std::string &complaint : looked_at.complaints) LogWarning(complaint);
  lseek(numbered.get(), 0, SEEK_SET);
  return Written(WriteAll(STDOUT_FILENO, envelope.before) &&
                 CopyAll(numbered.get(), STDOUT_FILENO) &&
                 WriteAll(STDOUT_FILENO, envelope.behind));
}

}  // namespace

int PrintWithNumbers(const Job &job) {
  Descriptor source(job.file ? open(job.file->c_str(), O_RDONLY | O_CLOEXEC) : STDIN_FILENO);
  if (!source.IsOpen()) {
    LogError("The document " + *job.file + " cannot be opened: " + SystemReason());
    return 1;
  }
  Input input(std::move(source));
  const Choices choices = JobChoices(job.options.c_str(), job.ppd);
  const bool counts = NobodyElseCountsPages(job);
  if (!choices.on && !counts && !MayLogPages(job)) return Written(input.PassOn(STDOUT_FILENO));

  const std::string trouble = input.Load();
  const Envelope envelope = EnvelopeOf(input.bytes());
  if (counts || (MayLogPages(job) && !envelope.was_laid_out)) {
    LogPages(envelope, CopiesByPrinter(envelope.comments, job.copies));
  }
  if (!choices.on) return Written(input.PassOn(STDOUT_FILENO));
  if (!trouble.empty() || envelope.document.empty()) {
    LogWarning("The pages have no numbers: " + (trouble.empty() ? "this is no PDF file" : trouble));
    return Written(input.PassOn(STDOUT_FILENO));
  }
  if (envelope.was_numbered) {
    LogDebug("the pages have their numbers");
    return Written(input.PassOn(STDOUT_FILENO));
  }
  return PrintNumbered(input, envelope, choices);
}
