// Messages to the user, on standard error.

#ifndef HOST_BASE_MESSAGES_H
#define HOST_BASE_MESSAGES_H

#include <string>
#include <string_view>

// Writes "pdeprint: MESSAGE".
void Complain(std::string_view message);
// What was complained of last; empty: nothing yet.
std::string LastComplaint();
// Writes "pdeprint: note: MESSAGE": nothing has failed.
void Note(std::string_view message);

#endif
