// How long it takes from the start of a program until its dialog stands on the screen.

#ifndef BENCH_PROGRAMS_DIALOGS_H
#define BENCH_PROGRAMS_DIALOGS_H

#include <filesystem>

#include "bench/results/Samples.h"
#include "tests/support/PrivateServer.h"

// Adds "window" (seconds) and "memory" (bytes), a value a round, for pdeprint, GTK 3, GTK 4 and Qt
// 5 on a queue of the server, for a bare window, and for one that does not look for image formats.
// "-first" at the end of the name: until something is painted. A picture of each goes into the
// folder.
void MeasureDialogs(int rounds, const PrivateServer &server, const std::string &queue,
                    const std::filesystem::path &pictures, Measures &measures);

#endif
