#import "tests/fuzz/StoredValues.h"

#include "tests/fuzz/Lines.h"
#include "tests/fuzz/Texts.h"

namespace fuzz {

namespace {

// Takes the first word from the front of the line.
std::string_view TakeWord(std::string_view &line) {
  const size_t end = std::min(line.find(' '), line.size());
  const std::string_view word = line.substr(0, end);
  line.remove_prefix(std::min(end + 1, line.size()));
  return word;
}

NSString *KeyOf(std::string_view name) {
  NSDictionary *keys = @{
    @"Valid" : @"VQBackgroundNumbering",
    @"Size" : @"VQBNSize",
    @"Density" : @"VQBNDensity",
    @"Color" : @"VQBNColor",
    @"StartNumber" : @"VQStartNumber",
  };
  NSString *text = TextOfBytes(name);
  NSString *key = [keys objectForKey:text];
  return key == nil ? text : key;
}

NSString *Huge(NSString *text) {
  constexpr NSUInteger kLength = 20'000;
  return [@"" stringByPaddingToLength:kLength
                           withString:[text length] == 0 ? @" " : text
                      startingAtIndex:0];
}

id ValueOf(std::string_view kind, std::string_view bytes) {
  NSString *text = TextOfBytes(bytes);
  if (kind == "integer") return [NSNumber numberWithLongLong:[text longLongValue]];
  if (kind == "real") return [NSNumber numberWithDouble:[text doubleValue]];
  if (kind == "boolean") return [NSNumber numberWithBool:[text length] > 0];
  if (kind == "data") return [NSData dataWithBytes:bytes.data() length:bytes.size()];
  if (kind == "date") return [NSDate dateWithTimeIntervalSince1970:[text doubleValue]];
  if (kind == "array") return @[ text, @[ text ] ];
  if (kind == "dictionary") return @{text : text};
  if (kind == "null") return [NSNull null];
  if (kind == "huge") return Huge(text);
  return text;
}

}  // namespace

NSDictionary *StoredValues(std::string_view lines) {
  NSMutableDictionary *values = [NSMutableDictionary dictionary];
  for (const std::string &line : LinesOfInput(lines)) {
    std::string_view rest = line;
    const std::string_view name = TakeWord(rest);
    const std::string_view kind = TakeWord(rest);
    [values setObject:ValueOf(kind, rest) forKey:KeyOf(name)];
  }
  return values;
}

}  // namespace fuzz
