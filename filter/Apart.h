// Work on documents that may be anything, in a process of its own: what ends that does not end the
// job.

#ifndef FILTER_APART_H
#define FILTER_APART_H

#include <chrono>
#include <functional>
#include <string>

// Runs the work, which answers whether it succeeded, in a copy of this process that gets so much
// time of a processor at most. Why it did not succeed, if it could not tell so itself; empty: see
// `succeeded`.
std::string RunApart(const std::function<bool()> &work, std::chrono::seconds limit,
                     bool &succeeded);

// Ends this process with the one that started it, or at once where that has gone.
void EndWithParent(int parent);

// Limits this process.
void LimitProcessorTime(std::chrono::seconds limit);

#endif
