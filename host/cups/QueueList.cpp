#include "host/cups/QueueList.h"

#include <strings.h>

#include <algorithm>
#include <map>
#include <span>

#include "host/base/Localized.h"
#include "host/base/Text.h"
#include "host/base/Utf8.h"

namespace {

using QueuesByName = std::map<std::string, Queue>;

// Of these a queue lists the values that it takes. For others it silently takes its default, or
// holds the job for ever, or refuses it in words that do not say what would do.
constexpr const char *kListed[] = {"job-hold-until",
                                   "job-sheets",
                                   "multiple-document-handling",
                                   "number-up",
                                   "output-bin",
                                   "orientation-requested",
                                   "print-color-mode",
                                   "print-quality",
                                   "print-scaling",
                                   "sides"};

constexpr std::string_view kSupported = "-supported";
constexpr std::string_view kDefault = "-default";

// For these somebody has to make pages of the document, or a page of his own.
constexpr const char *kLayout[] = {"job-sheets", "number-up", "number-up-layout",
                                   "orientation-requested", "print-scaling"};

// Of these a queue says whether jobs may have them.
constexpr const char *kAccounting[] = {"job-account-id", "job-accounting-user-id"};

// "NAME" of "NAME-supported"; empty: it is none of these.
std::string SupportedOption(std::string_view attribute, std::span<const char *const> names) {
  const auto found = std::ranges::find_if(names, [attribute](std::string_view name) {
    return attribute.starts_with(name) && attribute.substr(name.size()) == kSupported;
  });
  return found == names.end() ? "" : *found;
}

// What is to be known of a queue.
std::vector<std::string> Attributes() {
  std::vector<std::string> names = {"printer-name",
                                    "printer-info",
                                    "printer-location",
                                    "printer-type",
                                    "printer-make-and-model",
                                    "printer-is-accepting-jobs",
                                    "printer-state",
                                    "printer-state-message",
                                    "printer-is-temporary",
                                    "printer-defaults",
                                    "document-format-supported",
                                    "printer-mandatory-job-attributes",
                                    "job-creation-attributes-supported"};
  for (const std::string name : kListed) names.push_back(name + std::string(kSupported));
  for (const std::string name : kAccounting) names.push_back(name + std::string(kSupported));
  return names;
}

// The values as a job may have them: keywords, numbers, and the numbers of keywords that have one.
std::vector<std::string> ValuesOf(const std::string &option, ipp_attribute_t *attribute) {
  std::vector<std::string> values;
  for (int at = 0; at < ippGetCount(attribute); ++at) {
    if (ippGetValueTag(attribute) == IPP_TAG_ENUM) {
      const int number = ippGetInteger(attribute, at);
      values.emplace_back(ippEnumString(option.c_str(), number));
      values.push_back(std::to_string(number));
    } else if (ippGetValueTag(attribute) == IPP_TAG_INTEGER) {
      values.push_back(std::to_string(ippGetInteger(attribute, at)));
    } else if (const char *keyword = ippGetString(attribute, at, nullptr)) {
      values.emplace_back(keyword);
    }
  }
  return values;
}

void TakeOffered(const std::string &attribute, ipp_attribute_t *value, OfferedOptions &offered) {
  if (attribute == "job-creation-attributes-supported" ||
      attribute == "printer-mandatory-job-attributes") {
    for (const std::string &name : ValuesOf("", value)) offered.try_emplace(name);
  } else if (const std::string option = SupportedOption(attribute, kListed); !option.empty()) {
    offered[option] = ValuesOf(option, value);
  } else if (const std::string account = SupportedOption(attribute, kAccounting);
             !account.empty() && ippGetBoolean(value, 0) != 0) {
    offered.try_emplace(account);
  }
}

// The server's defaults, without what it has from the user; empty: several values.
void TakeDefault(std::string attribute, ipp_attribute_t *value, JobOptions &defaults) {
  if (!attribute.ends_with(kDefault)) return;
  attribute.resize(attribute.size() - kDefault.size());
  const std::vector<std::string> values = ValuesOf(attribute, value);
  defaults[attribute] = values.size() == 1 ? values.front() : "";
}

void Take(const std::string &attribute, ipp_attribute_t *value, Queue &queue) {
  TakeOffered(attribute, value, queue.offered);
  TakeDefault(attribute, value, queue.defaults);
  const auto text = [value] {
    const char *string = ippGetString(value, 0, nullptr);
    return string == nullptr ? "" : ToUtf8(Trimmed(string));
  };
  if (attribute == "printer-name") {
    queue.name = ippGetString(value, 0, nullptr);
  } else if (attribute == "printer-info") {
    queue.description = text();
  } else if (attribute == "printer-location") {
    queue.location = text();
  } else if (attribute == "printer-make-and-model") {
    queue.model = text();
  } else if (attribute == "printer-state-message") {
    queue.state_message = text();
  } else if (attribute == "document-format-supported") {
    queue.formats.emplace();
    for (std::string &format : ValuesOf("", value)) queue.formats->insert(std::move(format));
  } else if (attribute == "printer-is-accepting-jobs") {
    queue.accepts_jobs = ippGetBoolean(value, 0) != 0;
  } else if (attribute == "printer-is-temporary") {
    queue.is_temporary = ippGetBoolean(value, 0) != 0;
  } else if (attribute == "printer-type") {
    queue.is_class = (ippGetInteger(value, 0) & CUPS_PRINTER_CLASS) != 0;
  } else if (attribute == "printer-state") {
    const int state = ippGetInteger(value, 0);
    queue.state = state == IPP_PSTATE_STOPPED      ? QueueState::kStopped
                  : state == IPP_PSTATE_PROCESSING ? QueueState::kPrinting
                                                   : QueueState::kIdle;
  }
}

QueuesByName QueuesIn(ipp_t *answer) {
  QueuesByName queues;
  Queue queue;
  const auto end_of_queue = [&] {
    if (!queue.formats) queue.formats.emplace();
    if (!queue.name.empty()) queues.emplace(queue.name, queue);
    queue = Queue();
  };
  for (ipp_attribute_t *attribute = ippFirstAttribute(answer); attribute != nullptr;
       attribute = ippNextAttribute(answer)) {
    const char *name = ippGetName(attribute);
    if (name == nullptr) {  // between two queues
      end_of_queue();
    } else if (ippGetGroupTag(attribute) == IPP_TAG_PRINTER) {
      Take(name, attribute, queue);
    }
  }
  end_of_queue();
  return queues;
}

// libcups keeps what it knows of the printer itself among the options.
bool IsAboutPrinter(std::string_view option) {
  if (option == "printer-resolution") return false;
  return option.starts_with("printer-") || option.starts_with("marker-") ||
         option.starts_with("auth-info") || option == "device-uri";
}

JobOptions DefaultsOf(const cups_dest_t &destination) {
  JobOptions defaults;
  for (const cups_option_t &option :
       std::span(destination.options, static_cast<size_t>(destination.num_options))) {
    if (!IsAboutPrinter(option.name)) defaults[option.name] = option.value;
  }
  return defaults;
}

std::set<std::string> DifferentFrom(const JobOptions &of_server, const JobOptions &defaults) {
  std::set<std::string> names;
  for (const auto &[name, value] : defaults) {
    const auto same = of_server.find(name);
    const bool is_same = same != of_server.end() && (same->second.empty() || same->second == value);
    if (!is_same) names.insert(name);
  }
  return names;
}

std::string NameOf(const cups_dest_t &destination) {
  std::string name = destination.name;
  if (destination.instance != nullptr) name += std::string("/") + destination.instance;
  return name;
}

// The list that libcups makes forgets the default where lpoptions has a line for it. False: the
// server did not say which it is.
bool MarkDefault(const ServerConnection &server, QueueList &list) {
  const CupsDestination chosen(cupsGetNamedDest(server.get(), nullptr, nullptr));
  if (chosen == nullptr) {
    list.why_no_default = LastWords();
    return !server.IsBroken();
  }
  const std::string name = NameOf(*chosen);
  for (Queue &queue : list.queues) {
    if (!IsSameQueue(queue.name, name)) continue;
    queue.is_default = true;
    return true;
  }
  list.why_no_default = Localized("%1 is not there", {Quoted(name)});
  return true;
}

}  // namespace

Expected<QueueList> ListQueues(const ServerConnection &server) {
  IppMessage request = server.Request(IPP_OP_CUPS_GET_PRINTERS);
  AskFor(request.get(), Attributes());
  const IppMessage answer = server.Ask(std::move(request));
  const auto refusal = [&server] {
    return server.Refused(Localized("the print server %1 does not list its queues: %2"));
  };
  if (answer == nullptr && cupsLastError() != IPP_STATUS_ERROR_NOT_FOUND) return refusal();
  const QueuesByName known = QueuesIn(answer.get());
  if (known.empty()) {
    return Failure{Localized("the print server %1 has no queues", {server.address()})};
  }

  QueueList list;
  const CupsDestinations destinations(server.get());
  for (const cups_dest_t &destination : destinations.get()) {
    const auto found = known.find(destination.name);
    if (found == known.end()) continue;
    Queue queue = found->second;
    queue.name = NameOf(destination);
    queue.defaults = DefaultsOf(destination);
    queue.of_user = DifferentFrom(found->second.defaults, queue.defaults);
    list.queues.push_back(std::move(queue));
  }
  if (list.queues.empty()) return refusal();
  if (!MarkDefault(server, list)) return refusal();
  return list;
}

Failure NoSuchQueue(const ServerConnection &server, const std::string &name) {
  Expected<QueueList> list = ListQueues(server);
  if (!list) return list.failure();
  return Failure{Localized("the print server %1 has no queue %2; there is %3",
                           {server.address(), Quoted(name), NamesOf(list->queues)})};
}

std::string NamesOf(const std::vector<Queue> &queues) {
  constexpr size_t kMost = 10;
  std::string names;
  for (const Queue &queue : std::span(queues).first(std::min(queues.size(), kMost))) {
    names += (names.empty() ? "" : ", ") + queue.name;
  }
  if (queues.size() <= kMost) return names;
  return LocalizedCount("%1 and %2 more", {names}, queues.size() - kMost);
}

bool IsSameQueue(const std::string &left, const std::string &right) {
  return strcasecmp(left.c_str(), right.c_str()) == 0;
}

OfferedOptions OfferedBy(const Queue &queue, bool has_ppd) {
  OfferedOptions offered = queue.offered;
  if (has_ppd || queue.is_class) return offered;
  for (const char *name : kLayout) offered.erase(name);
  return offered;
}

std::string WithoutInstance(const std::string &name) { return name.substr(0, name.find('/')); }
