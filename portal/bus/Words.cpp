#include "portal/bus/Words.h"

#include "portal/bus/Handles.h"

namespace {

// Dictionaries of more keys are no job.
constexpr size_t kMostKeys = 1000;

// Reads a basic value of the type that is the message's letter for it.
template <typename Kind, typename Raw>
int ReadValue(sd_bus_message *message, char type, Value &value) {
  Raw raw = {};
  const int done = sd_bus_message_read_basic(message, type, &raw);
  if (done >= 0) value = Kind(raw);
  return done;
}

// 0: it is of a kind that is not known, and passed over.
int ReadVariant(sd_bus_message *message, Value &value) {
  char type = 0;
  const char *contents = nullptr;
  int done = sd_bus_message_peek_type(message, &type, &contents);
  if (done < 0) return done;
  const std::string_view kind = contents == nullptr ? "" : contents;
  if (kind.size() != 1 || std::string_view("bduis").find(kind) == std::string_view::npos) {
    done = sd_bus_message_skip(message, "v");
    return done < 0 ? done : 0;
  }
  done = sd_bus_message_enter_container(message, SD_BUS_TYPE_VARIANT, contents);
  if (done < 0) return done;
  switch (kind.front()) {
    case 'b':
      done = ReadValue<bool, int>(message, 'b', value);
      break;
    case 'd':
      done = ReadValue<double, double>(message, 'd', value);
      break;
    case 'u':
      done = ReadValue<uint32_t, uint32_t>(message, 'u', value);
      break;
    case 'i':
      done = ReadValue<int32_t, int32_t>(message, 'i', value);
      break;
    default:
      done = ReadValue<std::string, const char *>(message, 's', value);
  }
  if (done < 0) return done;
  done = sd_bus_message_exit_container(message);
  return done < 0 ? done : 1;
}

int Append(sd_bus_message *message, bool value) {
  return sd_bus_message_append(message, "v", "b", static_cast<int>(value));
}
int Append(sd_bus_message *message, int32_t value) {
  return sd_bus_message_append(message, "v", "i", value);
}
int Append(sd_bus_message *message, uint32_t value) {
  return sd_bus_message_append(message, "v", "u", value);
}
int Append(sd_bus_message *message, double value) {
  return sd_bus_message_append(message, "v", "d", value);
}
int Append(sd_bus_message *message, const std::string &value) {
  return sd_bus_message_append(message, "v", "s", value.c_str());
}

// One entry of a dictionary, whose value the function appends.
template <typename AppendValue>
int AppendEntry(sd_bus_message *message, const std::string &key, AppendValue append) {
  int done = sd_bus_message_open_container(message, SD_BUS_TYPE_DICT_ENTRY, "sv");
  if (done >= 0) done = sd_bus_message_append(message, "s", key.c_str());
  if (done >= 0) done = append();
  return done < 0 ? done : sd_bus_message_close_container(message);
}

int AppendDictionary(sd_bus_message *message, const Dictionary &dictionary) {
  int done = sd_bus_message_open_container(message, SD_BUS_TYPE_VARIANT, "a{sv}");
  if (done >= 0) done = sd_bus_message_open_container(message, SD_BUS_TYPE_ARRAY, "{sv}");
  for (const auto &[key, value] : dictionary) {
    if (done < 0) return done;
    done = AppendEntry(message, key, [&, &stored = value] {
      return std::visit([message](const auto &each) { return Append(message, each); }, stored);
    });
  }
  if (done >= 0) done = sd_bus_message_close_container(message);
  return done < 0 ? done : sd_bus_message_close_container(message);
}

int AppendResults(sd_bus_message *message, const Reply &reply) {
  int done = sd_bus_message_open_container(message, SD_BUS_TYPE_ARRAY, "{sv}");
  if (done >= 0 && reply.words) {
    done = AppendEntry(message, "settings",
                       [&] { return AppendDictionary(message, reply.words->settings); });
  }
  if (done >= 0 && reply.words) {
    done = AppendEntry(message, "page-setup",
                       [&] { return AppendDictionary(message, reply.words->page_setup); });
  }
  if (done >= 0 && reply.token) {
    done = AppendEntry(message, "token", [&] { return Append(message, *reply.token); });
  }
  return done < 0 ? done : sd_bus_message_close_container(message);
}

}  // namespace

int ReadDictionary(sd_bus_message *message, Dictionary &dictionary) {
  int done = sd_bus_message_enter_container(message, SD_BUS_TYPE_ARRAY, "{sv}");
  if (done < 0) return done;
  while ((done = sd_bus_message_enter_container(message, SD_BUS_TYPE_DICT_ENTRY, "sv")) > 0) {
    const char *key = nullptr;
    done = sd_bus_message_read_basic(message, 's', &key);
    if (done < 0) return done;
    Value value;
    done = ReadVariant(message, value);
    if (done < 0) return done;
    if (done > 0 && dictionary.size() < kMostKeys) dictionary.insert_or_assign(key, value);
    done = sd_bus_message_exit_container(message);
    if (done < 0) return done;
  }
  return done < 0 ? done : sd_bus_message_exit_container(message);
}

int SendReply(sd_bus_message *call, const Reply &reply) {
  sd_bus_message *raw = nullptr;
  int done = sd_bus_message_new_method_return(call, &raw);
  const Message message(raw);
  if (done >= 0) {
    done = sd_bus_message_append(raw, "u", static_cast<uint32_t>(reply.response));
  }
  if (done >= 0) done = AppendResults(raw, reply);
  return done < 0 ? done : sd_bus_send(nullptr, raw, nullptr);
}
