// What lies around a PDF document on its way to the printer: the printer's own language before and
// behind it, and the comments in which programs on the way tell each other.

#ifndef FILTER_ENVELOPE_H
#define FILTER_ENVELOPE_H

#include <string>
#include <string_view>

// The line that documents which were numbered here have.
inline constexpr std::string_view kNumberedMark = "%%BackgroundNumbers\n";

struct Envelope {
  std::string_view before, document,
      behind;            // all of it, but for what is broken behind the document
  std::string comments;  // lines, each with its end
  bool was_numbered = false;
  bool was_laid_out = false;  // by the print system, which made pages of the document
};

// Parts of these bytes; the document is empty where they are no PDF file.
Envelope EnvelopeOf(std::string_view bytes);

#endif
