// The text of a ticket file, before the platform's parser sees it.
//
// libxml2 says whether it is well-formed, and how deep. By hand is what it cannot know: what the
// platform's parser, which is no reader of XML but looks for tags, takes otherwise than it is.

#ifndef HOST_PRESETS_TICKETTEXT_H
#define HOST_PRESETS_TICKETTEXT_H

#include <string>
#include <string_view>

#include "host/base/Expected.h"

// In bytes.
inline constexpr size_t kLargestTicket = 1 << 20;

// What the platform's parser is given for the bytes of a file: the same text in UTF-8, whatever it
// says of its encoding, without a byte-order mark, and with a declaration, as the platform takes a
// text without one for another format. Nothing is fetched, and no entity is replaced.
//
// The failure: it is empty, no XML property list, larger than any ticket, not well-formed, or
// nested so deep that the parser, which descends with every level, would not come back. What
// no property list has is taken for damage, as the parser would see tags in it, or none where there
// are some: entities other than XML's own, instructions, a document type with declarations or angle
// brackets in it.
Expected<std::string> TicketDocument(std::string_view bytes);

#endif
