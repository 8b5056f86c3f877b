// A library that loads and defines nothing of interest.

extern "C" int HostTestEmpty();
int HostTestEmpty() { return 0; }
