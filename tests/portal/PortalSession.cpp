#include "tests/portal/PortalSession.h"

#include <gtest/gtest.h>

#include <sstream>

namespace fs = std::filesystem;

namespace {

constexpr char kServiceName[] = "org.freedesktop.impl.portal.desktop.pdeprint";

std::string ServiceFile(const std::string &name, const std::string &command) {
  return "[D-BUS Service]\nName=" + name + "\nExec=" + command + '\n';
}

struct ProcessState {
  char state = 0;  // there is none
  pid_t parent = 0;
};

ProcessState StateOf(pid_t process) {
  const std::string stat = ContentOf("/proc/" + std::to_string(process) + "/stat");
  const size_t end = stat.rfind(')');
  if (end == std::string::npos) return {};
  ProcessState state;
  std::istringstream(stat.substr(end + 1)) >> state.state >> state.parent;
  return state;
}

std::vector<pid_t> ChildrenOf(pid_t parent) {
  std::vector<pid_t> children;
  for (const fs::directory_entry &entry : fs::directory_iterator("/proc")) {
    const std::string number = entry.path().filename().string();
    if (number.find_first_not_of("0123456789") != std::string::npos) continue;
    const ProcessState state = StateOf(std::stoi(number));
    if (state.parent == parent && state.state != 'Z') children.push_back(std::stoi(number));
  }
  return children;
}

// Null: it is not there yet.
Connection TryToConnect(const std::string &address) {
  sd_bus *raw = nullptr;
  sd_bus_new(&raw);
  Connection bus(raw);
  sd_bus_set_address(raw, address.c_str());
  sd_bus_set_bus_client(raw, 1);
  return sd_bus_start(raw) < 0 ? nullptr : std::move(bus);
}

}  // namespace

Connection ConnectTo(const std::string &address) {
  Connection bus = TryToConnect(address);
  EXPECT_NE(nullptr, bus) << "no connection to " << address;
  return bus;
}

bool IsRunning(pid_t process) {
  const char state = StateOf(process).state;
  return state != 0 && state != 'Z';
}

PortalSession::PortalSession(const EnvironmentChanges &changes) : environment_(changes) {
  folder_.Write(
      "bus.conf",
      "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN\" "
      "\"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n<busconfig>"
      "<type>session</type><listen>" +
          address() + "</listen><servicedir>" + (folder_.path() / "services").string() +
          "</servicedir><policy context=\"default\"><allow send_destination=\"*\" "
          "eavesdrop=\"true\"/><allow eavesdrop=\"true\"/><allow own=\"*\"/></policy>"
          "</busconfig>\n");
  const auto add_service = [this](const std::string &name, const std::string &command) {
    folder_.Write("services/" + name + ".service", ServiceFile(name, command));
  };
  add_service("org.freedesktop.portal.Desktop", "/usr/libexec/xdg-desktop-portal");
  add_service("org.freedesktop.impl.portal.PermissionStore", "/usr/libexec/xdg-permission-store");
  add_service(kServiceName, BINARY_DIRECTORY "/pdeprint-portal --document-limit=5");
  folder_.Write("portals/pdeprint.portal", ContentOf(SOURCE_DIRECTORY "/portal/pdeprint.portal"));
  // From version 1.17 on; before, the name of the desktop tells.
  folder_.Write("config/xdg-desktop-portal/portals.conf",
                "[preferred]\norg.freedesktop.impl.portal.Print=pdeprint\n");
  fs::create_directories(data());
  const std::string folder = folder_.path();
  environment_.merge(EnvironmentChanges{{"XDG_CONFIG_HOME", folder + "/config"},
                                        {"XDG_DATA_HOME", data().string()},
                                        {"XDG_CACHE_HOME", folder + "/cache"},
                                        {"XDG_RUNTIME_DIR", folder},
                                        {"XDG_CURRENT_DESKTOP", "pdeprint"},
                                        {"XDG_DESKTOP_PORTAL_DIR", folder + "/portals"},
                                        {"DBUS_SESSION_BUS_ADDRESS", address()},
                                        {"NO_AT_BRIDGE", "1"},
                                        {"GSETTINGS_BACKEND", "memory"},
                                        {"LANGUAGE", "en"}});
  bus_ = std::make_unique<RunningProgram>(
      std::vector<std::string>{"dbus-daemon", "--nofork", "--nosyslog",
                               "--config-file=" + folder + "/bus.conf"},
      RunOptions{.environment = environment_});
  EXPECT_TRUE(Becomes([this] { return TryToConnect(address()) != nullptr; })) << "no bus";
}

EnvironmentChanges PortalSession::Environment() const { return environment_; }

pid_t PortalSession::Service() const {
  const Connection bus = ConnectTo(address());
  sd_bus_message *raw = nullptr;
  const int done = sd_bus_call_method(bus.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus",
                                      "org.freedesktop.DBus", "GetConnectionUnixProcessID", nullptr,
                                      &raw, "s", kServiceName);
  const Message answer(raw);
  uint32_t process = 0;
  if (done >= 0) sd_bus_message_read_basic(raw, 'u', &process);
  return static_cast<pid_t>(process);
}

std::vector<pid_t> PortalSession::Children() const {
  const pid_t service = Service();
  return service == 0 ? std::vector<pid_t>() : ChildrenOf(service);
}
