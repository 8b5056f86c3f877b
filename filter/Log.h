// What the print server's log gets to know. Each call is one line; the server understands them by
// their first word (filter(7)).

#ifndef FILTER_LOG_H
#define FILTER_LOG_H

#include <string>

void LogDebug(const std::string &text);
void LogInfo(const std::string &text);
void LogWarning(const std::string &text);
void LogError(const std::string &text);
// That a page is printed, for the server's page log.
void LogPage(size_t page, int copies);

#endif
