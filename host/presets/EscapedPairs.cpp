#include "host/presets/EscapedPairs.h"

namespace {

int HexDigit(char character) {
  if (character >= '0' && character <= '9') return character - '0';
  if (character >= 'A' && character <= 'F') return character - 'A' + 10;
  return -1;
}

// The code unit that is escaped here as \UXXXX, -1 if none is.
int EscapedUnit(std::string_view text) {
  if (text.size() < 6 || text[0] != '\\' || text[1] != 'U') return -1;
  int unit = 0;
  for (const char character : text.substr(2, 4)) {
    const int digit = HexDigit(character);
    if (digit < 0) return -1;
    unit = unit * 16 + digit;
  }
  return unit;
}

}  // namespace

std::string WithoutEscapedPairs(std::string_view xml) {
  std::string result;
  while (!xml.empty()) {
    const int high = EscapedUnit(xml);
    const int low = high < 0xD800 || high > 0xDBFF ? -1 : EscapedUnit(xml.substr(6));
    if (low < 0xDC00 || low > 0xDFFF) {
      result += xml.front();
      xml.remove_prefix(1);
      continue;
    }
    const int code = 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
    for (const int byte : {0xF0 | code >> 18, 0x80 | (code >> 12 & 0x3F), 0x80 | (code >> 6 & 0x3F),
                           0x80 | (code & 0x3F)}) {
      result += static_cast<char>(byte);
    }
    xml.remove_prefix(12);
  }
  return result;
}
