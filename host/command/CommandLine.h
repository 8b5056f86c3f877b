// The arguments of pdeprint.

#ifndef HOST_COMMAND_COMMANDLINE_H
#define HOST_COMMAND_COMMANDLINE_H

// Does what the arguments ask for; the answer is the exit status. argv[0] is the program. Throws
// what the libraries throw.
int RunCommandLine(int argc, char **argv);

#endif
