// What a test must not do to its own process.

#ifndef TESTS_SUPPORT_CHILDPROCESS_H
#define TESTS_SUPPORT_CHILDPROCESS_H

#include <linux/capability.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

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

#endif
