// Keywords of options and choices, as libcups compares them.

#ifndef HOST_PPD_KEYWORDS_H
#define HOST_PPD_KEYWORDS_H

#include <strings.h>

#include <string>

inline bool IsSame(const char *left, const char *right) { return strcasecmp(left, right) == 0; }

inline bool IsPageSize(const char *keyword) {
  return IsSame(keyword, "PageSize") || IsSame(keyword, "PageRegion");
}

// PageRegion follows PageSize; people know only that one.
inline std::string KeywordForPeople(const char *keyword) {
  return IsPageSize(keyword) ? "PageSize" : keyword;
}

#endif
