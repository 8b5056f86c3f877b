#include "host/extension/Guarded.h"

std::string Words(NSString *text) {
  const char *bytes = [text UTF8String];
  return bytes == nullptr ? "" : bytes;
}

std::string DescribeException(id exception) {
  if (![exception isKindOfClass:[NSException class]]) {
    return Words([exception description]);
  }
  const std::string reason = Words([(NSException *)exception reason]);
  return Words([(NSException *)exception name]) + (reason.empty() ? "" : ": " + reason);
}
