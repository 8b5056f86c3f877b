// The text of a ticket file, before the platform's parser sees it.

#ifndef HOST_PRESETS_TICKETTEXT_H
#define HOST_PRESETS_TICKETTEXT_H

#include <optional>
#include <string>
#include <string_view>

// In bytes.
inline constexpr size_t kLargestTicket = 1 << 20;

// Why this text cannot be a ticket, if it cannot: it is empty, no XML property list, larger than
// any ticket, not well-formed, or nested so deep that the parser, which descends with every level,
// would not come back. Declarations of markup are taken for damage.
std::optional<std::string> ReasonAgainstTicketText(std::string_view text);

// The text without the byte-order mark that some editors put before it.
std::string_view WithoutByteOrderMark(std::string_view text);

// The text with an XML declaration of ours in the place of its own, if it has one. The platform
// takes a text without one for another format, and one in another encoding may have tags in it that
// nobody sees here.
std::string WithUtf8Declaration(std::string_view text);

#endif
