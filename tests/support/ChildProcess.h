// What a test must not do to its own process.

#ifndef TESTS_SUPPORT_CHILDPROCESS_H
#define TESTS_SUPPORT_CHILDPROCESS_H

#include <linux/capability.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

// Runs the body in a child process and answers what it answers, at most a pipe's worth, or how the
// child ended without an answer.
template <typename Body>
std::string InChild(Body body) {
  int answer[2];
  if (pipe(answer) != 0) return "(no pipe)";
  const pid_t child = fork();
  if (child == 0) {
    const std::string text = body();
    const ssize_t written = write(answer[1], text.data(), text.size());
    _exit(written == static_cast<ssize_t>(text.size()) ? 0 : 1);
  }
  close(answer[1]);
  std::string text;
  char bytes[4096];
  for (ssize_t count; (count = read(answer[0], bytes, sizeof bytes)) > 0;) {
    text.append(bytes, static_cast<size_t>(count));
  }
  close(answer[0]);
  int status = -1;
  if (waitpid(child, &status, 0) != child || status != 0) {
    return "(the child ended with status " + std::to_string(status) + ")";
  }
  return text;
}

// For a child: permissions hold for it from here on, also where it is root. Whether they do.
inline bool LosePrivileges() {
  __user_cap_header_struct header = {_LINUX_CAPABILITY_VERSION_3, 0};
  const __user_cap_data_struct none[_LINUX_CAPABILITY_U32S_3] = {};
  return syscall(SYS_capset, &header, none) == 0;
}

// For a child: permissions hold for the programs that it runs, also where it is root.
inline bool LosePrivilegesOfPrograms() {
  if (geteuid() != 0) return true;
  return prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE) == 0 &&
         prctl(PR_CAPBSET_DROP, CAP_DAC_READ_SEARCH) == 0;
}

// For a child: the folder is a disk of its own for it and the programs that it runs, empty and of
// four pages. Not every machine allows that.
inline bool MountSmallDisk(const std::filesystem::path &folder) {
  const uid_t user = geteuid();
  const gid_t group = getegid();
  if (unshare(user == 0 ? CLONE_NEWNS : CLONE_NEWNS | CLONE_NEWUSER) != 0) return false;
  if (user != 0) {
    std::ofstream("/proc/self/setgroups") << "deny";
    std::ofstream("/proc/self/uid_map") << user << ' ' << user << " 1";
    std::ofstream("/proc/self/gid_map") << group << ' ' << group << " 1";
  }
  return mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
         mount("none", folder.c_str(), "tmpfs", 0, "size=16k") == 0;
}

// Takes all the room that is left there.
inline void FillDisk(const std::filesystem::path &folder) {
  std::ofstream file(folder / "filler");
  const std::string page(4096, 'x');
  while (file << page << std::flush) continue;
}

#endif
