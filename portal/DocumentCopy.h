// Documents that applications hand over, as open files of any kind.

#ifndef PORTAL_DOCUMENTCOPY_H
#define PORTAL_DOCUMENTCOPY_H

#include <cstdint>
#include <filesystem>

#include "portal/Child.h"
#include "portal/Descriptor.h"

// More than any document; who sends it would only fill the disk.
inline constexpr uintmax_t kLargestDocument = uintmax_t{2} << 30;

// Copies what can be read from there, from where it stands, into a new file for the user alone. The
// child's status is 0, or in the system's numbers why it is not whole; ENODATA: there was nothing.
// A source that never ends is the caller's to end.
Child StartCopying(const Descriptor &source, const std::filesystem::path &file,
                   uintmax_t most = kLargestDocument);

#endif
