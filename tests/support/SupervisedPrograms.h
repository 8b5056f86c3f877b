// The programs that this process has at work, each of them below a process that waits for it.

#ifndef TESTS_SUPPORT_SUPERVISEDPROGRAMS_H
#define TESTS_SUPPORT_SUPERVISEDPROGRAMS_H

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

struct ProcessStatus {
  char state = 'X';  // gone
  int parent = 0;
};

// "PID (NAME) STATE PARENT ..."
inline ProcessStatus StatusOf(int process) {
  std::string stat;
  std::getline(std::ifstream("/proc/" + std::to_string(process) + "/stat"), stat);
  const size_t name_end = stat.rfind(')');
  if (name_end == std::string::npos) return {};
  return {stat[name_end + 2], std::atoi(stat.c_str() + name_end + 4)};
}

inline std::vector<int> SupervisedPrograms() {
  std::vector<int> programs;
  std::error_code error;
  for (std::filesystem::directory_iterator process("/proc", error), end; !error && process != end;
       process.increment(error)) {
    const int id = std::atoi(process->path().filename().c_str());
    const int parent = id > 0 ? StatusOf(id).parent : 0;
    if (parent > 0 && StatusOf(parent).parent == getpid()) programs.push_back(id);
  }
  return programs;
}

#endif
