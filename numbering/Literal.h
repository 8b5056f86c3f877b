// Numbers as PostScript and PDF write them.

#ifndef NUMBERING_LITERAL_H
#define NUMBERING_LITERAL_H

#include <string>

namespace numbering {

// With at most so many decimals (9 at most), and no digit more than it takes: 1, .36, -2.5.
std::string Literal(double value, int decimals = 4);

// Appends it, and a blank.
void AppendLiteral(std::string &text, double value, int decimals = 4);

}  // namespace numbering

#endif
