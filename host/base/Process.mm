#include "host/base/Process.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <iostream>
#include <string>
#include <vector>

#import <Foundation/Foundation.h>

#include "host/base/Language.h"
#include "host/base/Localized.h"
#include "host/base/Messages.h"

namespace {

bool IsText(const char *bytes) {
  return [[[NSString alloc] initWithBytes:bytes length:strlen(bytes)
                                 encoding:NSUTF8StringEncoding] autorelease] != nil;
}

}  // namespace

void PrepareProcess() {
  signal(SIGXFSZ, SIG_IGN);
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(stream, F_GETFD) < 0)
      open("/dev/null", stream == STDERR_FILENO ? O_WRONLY : O_RDONLY);
  }
  @autoreleasepool {
    @try {
      [NSProcessInfo class];
    } @catch (NSException *exception) {
      // It has looked at the arguments and variables already, and found what is no text.
    }
    // What bundles and the platform log is for the system's log; standard error is for the user.
    static char program[] = "pdeprint";
    static char log_option[] = "-GSLogSyslog";
    static char yes[] = "YES";
    char *arguments[] = {program, log_option, yes, nullptr};
    std::vector<char *> variables;
    for (char **variable = environ; *variable != nullptr; ++variable) {
      if (IsText(*variable)) variables.push_back(*variable);
    }
    variables.push_back(nullptr);
    [NSProcessInfo initializeWithArguments:arguments count:3 environment:variables.data()];
  }
  UseLanguageOfUser();
}

bool PrintResults(std::string_view text) {
  errno = 0;
  if (std::cout << text << std::flush) return true;
  Complain(Localized("cannot write the results to standard output: %1", {std::strerror(errno)}));
  return false;
}
