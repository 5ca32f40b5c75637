// The parts of `oxtool demo`, one function per area of the library. Each
// prints to `out` and returns 0 when all it showed behaved as it should.
#ifndef OXTOOL_DEMOS_H
#define OXTOOL_DEMOS_H

#include <cstdio>

int DemoBase(FILE *out);
int DemoValues(FILE *out);
int DemoDataset(FILE *out);
int DemoExchange(FILE *out);

// The file commands; each returns the exit status.
int RunDump(const char *path);
int RunSample(const char *path, const char *saveType);

#endif
