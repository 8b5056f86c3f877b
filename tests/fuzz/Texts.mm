#include "tests/fuzz/Texts.h"

#include <string>

#include "host/base/Utf8.h"

namespace fuzz {

namespace {

// The half of a surrogate pair that the bytes begin with, in the form of UTF-8; 0: they do not.
unichar HalfOfPair(std::string_view bytes) {
  if (bytes.size() < 3 || bytes[0] != '\xED') return 0;
  const auto second = static_cast<unsigned char>(bytes[1]);
  const auto third = static_cast<unsigned char>(bytes[2]);
  if (second < 0xA0 || second > 0xBF || (third & 0xC0) != 0x80) return 0;
  return static_cast<unichar>(0xD000 | (second & 0x3F) << 6 | (third & 0x3F));
}

// A part of a pair: the platform makes no string of a half alone.
NSString *HalfAlone(unichar half) {
  const bool is_first = half < 0xDC00;
  const unichar pair[] = {is_first ? half : unichar{0xD800}, is_first ? unichar{0xDC00} : half};
  return [[NSString stringWithCharacters:pair
                                  length:2] substringWithRange:NSMakeRange(is_first ? 0 : 1, 1)];
}

NSString *TextOfUtf8(const std::string &utf8) {
  NSData *data = [NSData dataWithBytes:utf8.data() length:utf8.size()];
  return [[[NSString alloc] initWithData:data encoding:NSUTF8StringEncoding] autorelease];
}

}  // namespace

NSString *TextOfBytes(std::string_view bytes) {
  NSMutableString *text = [NSMutableString string];
  size_t end = 0;
  for (size_t at = 0; at < bytes.size(); at = end) {
    if (const unichar half = HalfOfPair(bytes.substr(at))) {
      [text appendString:HalfAlone(half)];
      end = at + 3;
      continue;
    }
    for (end = at + 1; end < bytes.size() && HalfOfPair(bytes.substr(end)) == 0;) ++end;
    [text appendString:TextOfUtf8(ToUtf8(bytes.substr(at, end - at)))];
  }
  return [[text copy] autorelease];
}

}  // namespace fuzz
