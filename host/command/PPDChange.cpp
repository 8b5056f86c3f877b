#include "host/command/PPDChange.h"

#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <optional>
#include <system_error>

#include "host/base/Localized.h"
#include "host/base/Messages.h"
#include "host/base/MoveFile.h"
#include "host/base/Process.h"
#include "host/base/WholeFile.h"
#include "host/command/ChangeReport.h"
#include "host/command/Server.h"
#include "host/ppd/PPDSource.h"

namespace fs = std::filesystem;

namespace {

std::string AbsolutePath(const fs::path &path) {
  std::error_code error;
  const fs::path absolute = fs::absolute(path, error);
  return error ? path.string() : absolute.lexically_normal().string();
}

// A word of a shell command.
std::string ShellQuoted(const std::string &text) {
  const bool is_plain = !text.empty() && std::ranges::all_of(text, [](unsigned char character) {
    return std::isalnum(character) != 0 ||
           std::string_view("._-/:@%+=,").find(static_cast<char>(character)) !=
               std::string_view::npos;
  });
  if (is_plain) return text;
  std::string quoted = "'";
  for (const char character : text) {
    if (character == '\'') {
      quoted += "'\\''";
    } else {
      quoted += character;
    }
  }
  return quoted + '\'';
}

// Whether every user's programs talk to this server unless told otherwise.
bool IsDefaultServer(const std::string &address) {
  return address == "localhost:631" || address == "/run/cups/cups.sock" ||
         address == "/var/run/cups/cups.sock";
}

std::string CommandFor(const std::string &server, const std::string &queue, const fs::path &ppd) {
  const std::string host = IsDefaultServer(server) ? "" : "-h " + ShellQuoted(server) + ' ';
  return "lpadmin " + host + "-p " + ShellQuoted(queue) + " -P " + ShellQuoted(AbsolutePath(ppd));
}

// Never in the place of another file.
Expected<void> WriteNewFile(const fs::path &path, const std::string &bytes) {
  const Failure in_the_way{
      Localized("%1 is there already; name the new file with -o", {path.string()})};
  std::error_code error;
  if (fs::exists(fs::symlink_status(path, error))) return in_the_way;
  const fs::path temporary = path.parent_path() / (".pdeprint." + std::to_string(getpid()));
  if (auto done = WriteWholeFile(temporary, bytes, path); !done) return done;
  error = MoveWithoutReplacing(temporary, path);
  if (!error) return {};
  unlink(temporary.c_str());
  if (error == std::errc::file_exists) return in_the_way;
  return Failure{Localized("cannot write %1: %2", {path.string(), error.message()})};
}

int Failed(const std::string &message) {
  Complain(message);
  return kFailed;
}

Expected<PPDToChange> TakeFile(const fs::path &path) {
  PPDToChange ppd{.name = path.string(), .queue = "", .text = ""};
  Expected<std::string> text = ReadPPD(path);
  if (!text) return Failure{Localized("cannot read %1: %2", {ppd.name, text.message()})};
  ppd.text = std::move(*text);
  return ppd;
}

Failure HasNoPPD(const std::string &queue) {
  return Failure{Localized("the queue %1 has no PPD file", {queue})};
}

// The PPD file that the server has for it is one of its printers'.
Failure IsClass(const PrintServer &server, const std::string &name) {
  return Failure{Localized("%1 on the print server %2 is a class of printers; name one of them",
                           {name, server.Address()})};
}

// An instance has its queue's.
std::string NameWithoutInstance(const Queue &queue) {
  return queue.name.substr(0, queue.name.find('/'));
}

// No value inside: the queue has no PPD file.
Expected<std::optional<PPDToChange>> TakeQueue(const PrintServer &server, const Queue &queue) {
  const std::string name = NameWithoutInstance(queue);
  Expected<std::optional<std::string>> text = server.PPDTextOfQueue(name);
  if (!text) return text.failure();
  if (!*text) return std::optional<PPDToChange>();
  return std::optional<PPDToChange>({.name = name, .queue = name, .text = std::move(**text)});
}

// What is to be known of a queue whose new file is not the whole story.
void AddNotes(const Queue &queue, const PPDToChange &ppd, ChangedPPD &changed) {
  if (!queue.is_temporary || changed.text == ppd.text) return;
  changed.notes.push_back(
      Localized("the queue is temporary and soon goes with its PPD file; make it permanent: %1",
                {"lpadmin -p " + ShellQuoted(ppd.queue) + " -o printer-is-shared=true"}));
}

// Where the queue's new file has been left, and whether there was something to do.
struct Left {
  std::string result;  // for scripts
  bool is_new = true;
};

Expected<Left> LeaveWithQueue(const PPDChangeOptions &options, const PrintServer &server,
                              const PPDToChange &ppd, const ChangedPPD &changed) {
  if (options.apply) {
    if (changed.text == ppd.text) {
      return Left{"the queue " + ppd.queue + " is as it was, " + changed.change, false};
    }
    if (auto done = server.ReplacePPD(ppd.queue, changed.text); !done) return done.failure();
    return Left{"the queue " + ppd.queue + " on the print server " + server.Address() +
                " has a new PPD file, " + changed.change};
  }
  const fs::path path = options.output.empty() ? fs::path(ppd.queue + ".ppd") : options.output;
  const auto written = options.output.empty() ? WriteNewFile(path, changed.text)
                                              : WriteWholeFile(path, changed.text);
  if (!written) return written.failure();
  return Left{"wrote " + path.string() + ", " + changed.change +
              "; this command gives it to the queue:\n" +
              CommandFor(server.Address(), ppd.queue, path)};
}

Expected<Left> LeaveFile(const PPDChangeOptions &options, const ChangedPPD &changed) {
  if (auto done = WriteWholeFile(options.output, changed.text); !done) return done.failure();
  return Left{"wrote " + options.output.string() + ", " + changed.change};
}

int Leave(const Expected<Left> &left, const PPDToChange &ppd, const ChangedPPD &changed) {
  for (const std::string &note : changed.notes) Note(ppd.name + ": " + note);
  if (!left) return Failed(left.message());
  return PrintResults(left->result + '\n') ? kDone : kFailed;
}

int ChangeFile(const PPDChangeOptions &options, const PPDChange &change) {
  const Expected<PPDToChange> ppd = TakeFile(options.ppd);
  if (!ppd) return Failed(ppd.message());
  const Expected<ChangedPPD> changed = change.make(*ppd);
  if (!changed) return Failed(change.refusal(ppd->name, changed.message()));
  return Leave(LeaveFile(options, *changed), *ppd, *changed);
}

int ChangeQueue(const PPDChangeOptions &options, const PPDChange &change) {
  const PrintServer server = ServerOf(options);
  const Expected<Queue> queue = server.FindQueue(options.queue);
  if (!queue) return Failed(queue.message());
  if (queue->is_class) return Failed(IsClass(server, queue->name).message);
  const Expected<std::optional<PPDToChange>> ppd = TakeQueue(server, *queue);
  if (!ppd) return Failed(ppd.message());
  if (!*ppd) return Failed(HasNoPPD(NameWithoutInstance(*queue)).message);
  Expected<ChangedPPD> changed = change.make(**ppd);
  if (!changed) return Failed(change.refusal((*ppd)->name, changed.message()));
  AddNotes(*queue, **ppd, *changed);
  return Leave(LeaveWithQueue(options, server, **ppd, *changed), **ppd, *changed);
}

// A failure is the server's, or one of writing.
Expected<ChangeResult> ResultFor(const PPDChangeOptions &options, const PPDChange &change,
                                 const PrintServer &server, const Queue &queue) {
  ChangeResult result{.queue = queue.name};
  const auto refused = [&result](const Failure &failure) {
    result.state = ChangeState::kRefused;
    result.text = failure.message;
    return result;
  };
  if (queue.is_class) return refused(IsClass(server, queue.name));
  const Expected<std::optional<PPDToChange>> ppd = TakeQueue(server, queue);
  if (!ppd) return ppd.failure();
  if (!*ppd) return refused(HasNoPPD(queue.name));
  Expected<ChangedPPD> changed = change.make(**ppd);
  if (!changed) return refused(changed.failure());
  AddNotes(queue, **ppd, *changed);
  result.text = changed->change;
  result.notes = changed->notes;
  result.state = ChangeState::kUnchanged;
  if (changed->text == (*ppd)->text) return result;
  const Expected<Left> left = LeaveWithQueue(options, server, **ppd, *changed);
  if (!left) return left.failure();
  result.state = options.apply ? ChangeState::kChanged : ChangeState::kWritten;
  return result;
}

int ChangeAll(const PPDChangeOptions &options, const PPDChange &change) {
  const PrintServer server = ServerOf(options);
  const Expected<std::vector<Queue>> queues = server.Queues();
  if (!queues) return Failed(queues.message());
  std::vector<ChangeResult> results;
  bool all_done = true;
  // Once the server has gone, asking about each further queue would take the limit each time.
  std::optional<Failure> is_over;
  for (const Queue &queue : *queues) {
    if (queue.name.find('/') != std::string::npos) continue;
    Expected<ChangeResult> result = Failure{};
    result =
        is_over ? *is_over : InEnglish([&] { return ResultFor(options, change, server, queue); });
    if (result) {
      results.push_back(std::move(*result));
      continue;
    }
    all_done = false;
    const Failure &failure = result.failure();
    if (failure.is_unanswered || failure.wants_password) is_over = failure;
    results.push_back({queue.name, ChangeState::kFailed, failure.message, {}});
  }
  if (!PrintResults(options.json ? ChangesJson(results) : ChangesText(results))) return kFailed;
  return all_done ? kDone : kFailed;
}

}  // namespace

int ChangePPDs(const PPDChangeOptions &options, const PPDChange &change) {
  if (options.all) return ChangeAll(options, change);
  return options.queue.empty() ? ChangeFile(options, change) : ChangeQueue(options, change);
}
