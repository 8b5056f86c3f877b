// The text of a PPD file, taken apart without changing a byte of it.

#ifndef HOST_PPD_EDIT_PPDTEXT_H
#define HOST_PPD_EDIT_PPDTEXT_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/base/Expected.h"

struct TextLine {
  std::string_view text;
  std::string_view end;  // LF, CRLF or CR; empty: the last line may have none
};

// Whatever ends them, also mixed.
std::vector<TextLine> LinesOf(std::string_view text);

// The line end that most lines have: LF where there is none.
std::string_view LineEndOf(std::string_view text);

// The text with this end for every line end.
std::string WithLineEnds(std::string_view text, std::string_view end);

// "*KEYWORD OPTION/LABEL: VALUE". All parts are parts of the text that was taken apart.
struct PPDStatement {
  std::string_view all;      // with its line end; a quoted value may take several lines
  std::string_view keyword;  // without the asterisk; empty: a comment, or no statement
  std::string_view option;   // without an asterisk
  std::string_view label;    // the text for people
  std::string_view value;    // without quotation marks
  size_t line = 0;           // its first, from 1
  bool is_unclosed = false;  // a quotation goes on to the end of the file
};

// Statement by statement, nothing left out, as libcups cuts them.
std::vector<PPDStatement> StatementsOf(std::string_view ppd);

// The option that the statement opens; empty: it opens none.
std::string_view OptionOpenedBy(const PPDStatement &statement);

// The failure: what libcups does not complain of and is damage all the same: zero bytes, a
// quotation, an option or a group that is not closed.
Expected<void> CheckWhole(std::string_view ppd);

#endif
