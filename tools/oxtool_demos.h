// The parts of `oxtool demo`, one function per area of the library. Each
// prints to `out` and returns 0 when all it showed behaved as it should.
#ifndef OXTOOL_DEMOS_H
#define OXTOOL_DEMOS_H

#include <cstdio>

int DemoBase(FILE *out);

#endif
