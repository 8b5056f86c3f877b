#include "host/command/PPDChange.h"

#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <system_error>

#include "host/base/Localized.h"
#include "host/base/Messages.h"
#include "host/base/MoveFile.h"
#include "host/base/Process.h"
#include "host/base/WholeFile.h"
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

int Done(const std::string &text) { return PrintResults(text + '\n') ? kDone : kFailed; }

int Failed(const std::string &message) {
  Complain(message);
  return kFailed;
}

}  // namespace

Expected<PPDToChange> TakePPD(const PPDChangeOptions &options) {
  PPDToChange ppd;
  if (options.queue.empty()) {
    ppd.name = options.ppd.string();
    Expected<std::string> text = ReadPPD(options.ppd);
    if (!text) return Failure{Localized("cannot read %1: %2", {ppd.name, text.message()})};
    ppd.text = std::move(*text);
    return ppd;
  }
  const PrintServer server = ServerOf(options);
  Expected<Queue> queue = server.FindQueue(options.queue);
  if (!queue) return queue.failure();
  // An instance has its queue's.
  ppd.name = ppd.queue = queue->name.substr(0, queue->name.find('/'));
  Expected<std::optional<std::string>> text = server.PPDTextOfQueue(ppd.queue);
  if (!text) return text.failure();
  if (!*text) return Failure{Localized("the queue %1 has no PPD file", {ppd.queue})};
  ppd.text = std::move(**text);
  return ppd;
}

int LeavePPD(const PPDChangeOptions &options, const PPDToChange &ppd, const std::string &text,
             const std::string &change) {
  if (ppd.queue.empty()) {
    if (auto done = WriteWholeFile(options.output, text); !done) return Failed(done.message());
    return Done("wrote " + options.output.string() + ", " + change);
  }
  const PrintServer server = ServerOf(options);
  if (options.apply) {
    if (text == ppd.text) return Done("the queue " + ppd.queue + " is as it was, " + change);
    if (auto done = server.ReplacePPD(ppd.queue, text); !done) return Failed(done.message());
    return Done("the queue " + ppd.queue + " on the print server " + server.Address() +
                " has a new PPD file, " + change);
  }
  const fs::path path = options.output.empty() ? fs::path(ppd.queue + ".ppd") : options.output;
  const auto written =
      options.output.empty() ? WriteNewFile(path, text) : WriteWholeFile(path, text);
  if (!written) return Failed(written.message());
  return Done("wrote " + path.string() + ", " + change + "; this command gives it to the queue:\n" +
              CommandFor(server.Address(), ppd.queue, path));
}
