#include "portal/bus/PortalBus.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <memory>

#include "portal/bus/Words.h"

namespace {

constexpr char kName[] = "org.freedesktop.impl.portal.desktop.pdeprint";
constexpr char kPath[] = "/org/freedesktop/portal/desktop";

// Of the portal's handles, ".../request/CLIENT/TOKEN", the name on the bus that CLIENT stands for:
// "1_5" is ":1.5". Empty: the handle is another one.
std::string ClientOf(const std::string &handle) {
  const std::string begin = std::string(kPath) + "/request/";
  if (!handle.starts_with(begin)) return "";
  const size_t end = handle.find('/', begin.size());
  if (end == std::string::npos) return "";
  std::string client = handle.substr(begin.size(), end - begin.size());
  std::ranges::replace(client, '_', '.');
  return ':' + client;
}

std::string TextIn(const Dictionary &dictionary, const char *key) {
  const auto *text = Find<std::string>(dictionary, key);
  return text == nullptr ? "" : *text;
}

}  // namespace

const sd_bus_vtable PortalBus::kPrint[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("PreparePrint", "osssa{sv}a{sv}a{sv}", "ua{sv}", HearPreparePrint,
                  SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("Print", "osssha{sv}", "ua{sv}", HearPrint, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_VTABLE_END};

const sd_bus_vtable PortalBus::kRequest[] = {
    SD_BUS_VTABLE_START(0), SD_BUS_METHOD("Close", "", "", HearClose, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_VTABLE_END};

int PortalBus::Connect() {
  sd_bus *bus = nullptr;
  int done = sd_bus_open_user(&bus);
  bus_.reset(bus);
  if (done >= 0) {
    done = sd_bus_add_object_vtable(bus, nullptr, kPath, "org.freedesktop.impl.portal.Print",
                                    kPrint, this);
  }
  if (done >= 0) {
    done = sd_bus_add_match(bus, nullptr,
                            "type='signal',sender='org.freedesktop.DBus',"
                            "interface='org.freedesktop.DBus',member='NameOwnerChanged',arg2=''",
                            HearNameOwnerChanged, this);
  }
  if (done >= 0) done = sd_bus_request_name(bus, kName, 0);
  return done < 0 ? -done : 0;
}

std::optional<PortalBus::Clock::time_point> PortalBus::NextTime() const {
  uint64_t microseconds = 0;  // of the same clock
  if (sd_bus_get_timeout(bus_.get(), &microseconds) < 0 || microseconds == UINT64_MAX) {
    return std::nullopt;
  }
  return Clock::time_point(std::chrono::microseconds(microseconds));
}

int PortalBus::Process() {
  int done = 1;
  while (done > 0) done = sd_bus_process(bus_.get(), nullptr);
  return -done;
}

int PortalBus::HearPreparePrint(sd_bus_message *message, void *bus, sd_bus_error *) {
  auto &self = *static_cast<PortalBus *>(bus);
  Call call;
  JobWords words;
  Dictionary options;
  int done = self.ReadCall(message, call);
  if (done >= 0) done = ReadDictionary(message, words.settings);
  if (done >= 0) done = ReadDictionary(message, words.page_setup);
  if (done >= 0) done = ReadDictionary(message, options);
  if (done >= 0) done = self.Offer(message, call);
  if (done < 0) return done;
  call.accept_label = TextIn(options, "accept_label");
  self.service_.PreparePrint(std::move(call), words);
  return 1;
}

int PortalBus::HearPrint(sd_bus_message *message, void *bus, sd_bus_error *) {
  auto &self = *static_cast<PortalBus *>(bus);
  Call call;
  int file = -1;  // the message's
  Dictionary options;
  int done = self.ReadCall(message, call);
  if (done >= 0) done = sd_bus_message_read_basic(message, 'h', &file);
  if (done >= 0) done = ReadDictionary(message, options);
  if (done < 0) return done;
  Descriptor document(fcntl(file, F_DUPFD_CLOEXEC, 0));
  if (document.get() < 0) return -errno;
  done = self.Offer(message, call);
  if (done < 0) return done;
  const auto *token = Find<uint32_t>(options, "token");
  self.service_.Print(std::move(call), std::move(document), token == nullptr ? 0 : *token);
  return 1;
}

int PortalBus::HearClose(sd_bus_message *message, void *bus, sd_bus_error *) {
  auto &self = *static_cast<PortalBus *>(bus);
  self.service_.Close(sd_bus_message_get_path(message), sd_bus_message_get_sender(message));
  return sd_bus_reply_method_return(message, "");
}

int PortalBus::HearNameOwnerChanged(sd_bus_message *message, void *bus, sd_bus_error *) {
  auto &self = *static_cast<PortalBus *>(bus);
  const char *name = nullptr;
  const int done = sd_bus_message_read_basic(message, 's', &name);
  if (done > 0) self.service_.Forget(name);
  return 0;
}

int PortalBus::ReadCall(sd_bus_message *message, Call &call) {
  const char *handle = nullptr, *application = nullptr, *parent = nullptr, *title = nullptr;
  const int done = sd_bus_message_read(message, "osss", &handle, &application, &parent, &title);
  if (done < 0) return done;
  call.handle = handle;
  call.caller = {.sender = sd_bus_message_get_sender(message),
                 .client = ClientOf(handle),
                 .application = application};
  call.parent = parent;
  call.title = title;
  return done;
}

int PortalBus::Offer(sd_bus_message *message, Call &call) {
  sd_bus_slot *slot = nullptr;
  const int done = sd_bus_add_object_vtable(bus_.get(), &slot, call.handle.c_str(),
                                            "org.freedesktop.impl.portal.Request", kRequest, this);
  if (done < 0) return done;
  // Both go with the answer, which belongs to the call.
  const auto object = std::make_shared<Slot>(slot);
  const auto asked = std::make_shared<Message>(sd_bus_message_ref(message));
  call.answer = [object, asked](const Reply &reply) { SendReply(asked->get(), reply); };
  return done;
}
