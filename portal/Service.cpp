#include "portal/Service.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <fstream>
#include <iostream>
#include <memory>

#include "portal/Applications.h"
#include "portal/DocumentCopy.h"
#include "portal/Texts.h"
#include "portal/Ticket.h"

namespace {

constexpr char kTicket[] = "ticket";
constexpr char kDocument[] = "document.pdf";
constexpr char kOut[] = "out";

// For a dialog that is asked to close; what does not, is killed.
constexpr std::chrono::seconds kGrace{10};

// What a program wrote, as far as it makes sense.
std::string ContentOf(const std::filesystem::path &file) {
  constexpr size_t kMost = size_t{1} << 20;
  std::ifstream stream(file, std::ios::binary);
  std::string content(kMost, '\0');
  stream.read(content.data(), static_cast<std::streamsize>(content.size()));
  content.resize(static_cast<size_t>(std::max<std::streamsize>(stream.gcount(), 0)));
  return content;
}

DialogTexts TextsOf(const Call &call) {
  return {.parent = CleanParent(call.parent),
          .title = CleanText(call.title),
          .application =
              NameOfApplication(call.caller.application, DesktopFileFolders(), LanguagesOfUser()),
          .accept = CleanLabel(call.accept_label)};
}

Response ResponseFor(Outcome outcome) {
  switch (outcome) {
    case Outcome::kAccepted:
    case Outcome::kPrinted:
    case Outcome::kSaved:
      return Response::kDone;
    case Outcome::kCanceled:
      return Response::kCanceled;
    case Outcome::kFailed:
      break;
  }
  return Response::kFailed;
}

}  // namespace

void Service::PreparePrint(Call call, const JobWords &words) {
  Request *request = Begin(std::move(call));
  if (request == nullptr) return;
  if (!WriteTicket(request->File(kTicket), OptionsOf(words))) {
    Complain(*request, ENOSPC);
    return;
  }
  OpenDialog(*request, QueueOf(words), {},
             [this, words](Request &ended, int) { HasAccepted(ended, words); });
}

void Service::Print(Call call, Descriptor document, uint32_t token) {
  // It is spent, whatever becomes of the request.
  const auto job =
      std::make_shared<std::optional<AcceptedJob>>(tokens_.Take(token, call.caller, Clock::now()));
  Request *request = Begin(std::move(call));
  if (request == nullptr) return;
  request->limit = Clock::now() + options_.document_limit;
  request->child.emplace(StartCopying(document, request->File(kDocument)));
  request->next = [this, job](Request &ended, int status) { HasDocument(ended, *job, status); };
}

void Service::Close(const std::string &handle, const std::string &sender) {
  for (Request &request : requests_) {
    if (request.call.handle == handle && request.call.caller.sender == sender) End(request);
  }
}

void Service::Forget(const std::string &name) {
  tokens_.Forget(name);
  for (Request &request : requests_) {
    const Caller &caller = request.call.caller;
    if (caller.sender == name || caller.client == name) End(request);
  }
}

std::vector<int> Service::Ends() const {
  std::vector<int> ends;
  for (const Request &request : requests_) {
    if (request.child) ends.push_back(request.child->end());
  }
  return ends;
}

std::optional<Service::Clock::time_point> Service::NextTime() const {
  std::optional<Clock::time_point> next = tokens_.NextEnd();
  for (const Request &request : requests_) {
    if (request.child && request.child->end() < 0) return Clock::now();  // it has never begun
    if (request.limit && (!next || *request.limit < *next)) next = request.limit;
  }
  return next;
}

void Service::Attend() {
  const auto now = Clock::now();
  tokens_.DropOld(now);
  for (Request &request : requests_) {
    if (request.limit && *request.limit <= now) request.child->Signal(SIGKILL);
    const std::optional<int> status = request.child ? request.child->TakeStatus() : std::nullopt;
    if (!status) continue;
    request.child.reset();
    request.limit.reset();
    const Step next = std::move(request.next);
    if (request.is_closed) {
      Answer(request, {});
    } else {
      next(request, *status);
    }
  }
  requests_.remove_if([](const Request &request) { return request.is_over; });
}

// Null: it is answered already.
Service::Request *Service::Begin(Call call) {
  const auto has_same_client = [&call](const Request &request) {
    return request.call.caller.sender == call.caller.sender &&
           request.call.caller.client == call.caller.client;
  };
  const auto going_on = static_cast<size_t>(std::ranges::count_if(requests_, has_same_client));
  Expected<PrivateFolder> folder = PrivateFolder::Make();
  if (going_on < kMostOfClient && folder) {
    return &requests_.emplace_back(Request{std::move(call), std::move(*folder)});
  }
  std::cerr << "pdeprint-portal: "
            << (folder ? "too many requests of one application" : folder.message()) << '\n';
  call.answer({});
  return nullptr;
}

void Service::End(Request &request) {
  if (request.is_closed || !request.child) return;
  request.is_closed = true;
  request.limit = Clock::now() + kGrace;
  request.child->Signal(SIGTERM);
}

void Service::Answer(Request &request, const Reply &reply) {
  request.is_over = true;
  request.call.answer(reply);
}

void Service::OpenDialog(Request &request, const std::string &queue,
                         const std::filesystem::path &document, Step next) {
  const Command command =
      ShowCommand(options_.pdeprint, TextsOf(request.call), queue, request.File(kTicket), document);
  request.child.emplace(Child::Run(command, request.File(kOut)));
  request.next = std::move(next);
}

void Service::HasDocument(Request &request, const std::optional<AcceptedJob> &job, int status) {
  const std::filesystem::path document = request.File(kDocument);
  if (status != 0) {
    // Without a number of its own it was killed: it took too long.
    Complain(request, status < 128 ? status : ETIMEDOUT);
    return;
  }
  if (!job) {
    OpenDialog(request, "", document, [](Request &ended, int) {
      Answer(ended, {.response = ResponseFor(ReadResult(ContentOf(ended.File(kOut))).outcome)});
    });
    return;
  }
  std::error_code error;
  std::filesystem::rename(job->folder.path() / kTicket, request.File(kTicket), error);
  const Command command = PrintCommand(options_.pdeprint, CleanText(request.call.title), job->queue,
                                       request.File(kTicket), document);
  request.child.emplace(Child::Run(command, request.File(kOut)));
  request.next = [](Request &ended, int end) {
    Answer(ended, {.response = end == 0 ? Response::kDone : Response::kFailed});
  };
}

void Service::HasAccepted(Request &request, const JobWords &words) {
  const DialogResult result = ReadResult(ContentOf(request.File(kOut)));
  Reply reply = {.response = ResponseFor(result.outcome)};
  if (result.outcome == Outcome::kAccepted) {
    reply.words = AnswerTo(words, result.chosen);
    AcceptedJob job = {result.chosen.queue, std::move(request.folder)};
    reply.token = tokens_.Give(request.call.caller, std::move(job), Clock::now());
  }
  Answer(request, reply);
}

// Who has printed would not hear of it from the application.
void Service::Complain(Request &request, int reason) {
  const std::string title = CleanText(request.call.title);
  request.child.emplace(
      Child::Run(ComplainCommand(options_.pdeprint, title, reason), request.File(kOut)));
  request.next = [](Request &ended, int) { Answer(ended, {}); };
}
