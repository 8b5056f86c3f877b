#include "tests/portal/PortalClient.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include "portal/bus/Words.h"
#include "tests/portal/PortalSession.h"
#include "tests/support/Patience.h"

namespace {

constexpr char kName[] = "org.freedesktop.portal.Desktop";
constexpr char kPath[] = "/org/freedesktop/portal/desktop";
constexpr char kPrint[] = "org.freedesktop.portal.Print";
constexpr char kRequest[] = "org.freedesktop.portal.Request";

void Append(sd_bus_message *message, const Dictionary &dictionary) {
  sd_bus_message_open_container(message, SD_BUS_TYPE_ARRAY, "{sv}");
  for (const auto &[key, value] : dictionary) {
    if (const auto *text = std::get_if<std::string>(&value)) {
      sd_bus_message_append(message, "{sv}", key.c_str(), "s", text->c_str());
    } else if (const auto *number = std::get_if<double>(&value)) {
      sd_bus_message_append(message, "{sv}", key.c_str(), "d", *number);
    } else if (const auto *token = std::get_if<uint32_t>(&value)) {
      sd_bus_message_append(message, "{sv}", key.c_str(), "u", *token);
    }
  }
  sd_bus_message_close_container(message);
}

// What the portal answers: dictionaries within one, and a token.
Reply ReadReply(sd_bus_message *message) {
  Reply reply;
  uint32_t response = 0;
  sd_bus_message_read_basic(message, 'u', &response);
  reply.response = static_cast<Response>(response);
  sd_bus_message_enter_container(message, SD_BUS_TYPE_ARRAY, "{sv}");
  while (sd_bus_message_enter_container(message, SD_BUS_TYPE_DICT_ENTRY, "sv") > 0) {
    const char *key = nullptr;
    sd_bus_message_read_basic(message, 's', &key);
    const std::string name = key;
    uint32_t token = 0;
    if (name == "token" && sd_bus_message_read(message, "v", "u", &token) >= 0) {
      reply.token = token;
    } else if (name == "settings" || name == "page-setup") {
      if (!reply.words) reply.words.emplace();
      sd_bus_message_enter_container(message, SD_BUS_TYPE_VARIANT, "a{sv}");
      ReadDictionary(message, name == "settings" ? reply.words->settings : reply.words->page_setup);
      sd_bus_message_exit_container(message);
    } else {
      sd_bus_message_skip(message, "v");
    }
    sd_bus_message_exit_container(message);
  }
  return reply;
}

}  // namespace

PortalClient::PortalClient(const std::string &address) : bus_(ConnectTo(address)) {
  sd_bus_match_signal(bus_.get(), nullptr, nullptr, nullptr, kRequest, "Response", HearResponse,
                      this);
}

int PortalClient::HearResponse(sd_bus_message *message, void *client, sd_bus_error *) {
  auto &self = *static_cast<PortalClient *>(client);
  self.replies_[sd_bus_message_get_path(message)] = ReadReply(message);
  return 0;
}

Message PortalClient::NewCall(const char *path, const char *interface, const char *method) {
  sd_bus_message *call = nullptr;
  sd_bus_message_new_method_call(bus_.get(), &call, kName, path, interface, method);
  return Message(call);
}

std::string PortalClient::Send(const Message &call) {
  sd_bus_error error = {};
  sd_bus_message *raw = nullptr;
  const int done = sd_bus_call(bus_.get(), call.get(), 0, &error, &raw);
  const Message answer(raw);
  EXPECT_GE(done, 0) << error.name << ": " << error.message;
  sd_bus_error_free(&error);
  const char *handle = "";
  if (done >= 0) sd_bus_message_read_basic(raw, 'o', &handle);
  return handle;
}

std::string PortalClient::PreparePrint(const JobWords &words, const std::string &parent) {
  const Message call = NewCall(kPath, kPrint, "PreparePrint");
  sd_bus_message_append(call.get(), "ss", parent.c_str(), "Report");
  Append(call.get(), words.settings);
  Append(call.get(), words.page_setup);
  Append(call.get(), {{"handle_token", NewToken()}});
  return Send(call);
}

std::string PortalClient::Print(const std::filesystem::path &document, uint32_t token) {
  return Print(Descriptor(open(document.c_str(), O_RDONLY | O_CLOEXEC)), token);
}

std::string PortalClient::Print(const Descriptor &document, uint32_t token) {
  const Message call = NewCall(kPath, kPrint, "Print");
  sd_bus_message_append(call.get(), "ssh", "", "Report", document.get());
  Dictionary options = {{"handle_token", NewToken()}};
  if (token != 0) options["token"] = token;
  Append(call.get(), options);
  return Send(call);
}

void PortalClient::Close(const std::string &handle) {
  const Message call = NewCall(handle.c_str(), kRequest, "Close");
  const int done = sd_bus_call(bus_.get(), call.get(), 0, nullptr, nullptr);
  EXPECT_GE(done, 0) << "cannot be closed";
}

std::optional<Reply> PortalClient::Await(const std::string &handle) {
  Becomes([&] {
    while (sd_bus_process(bus_.get(), nullptr) > 0) continue;
    return replies_.contains(handle);
  });
  const auto found = replies_.find(handle);
  EXPECT_NE(found, replies_.end()) << "no answer";
  if (found == replies_.end()) return std::nullopt;
  return found->second;
}
