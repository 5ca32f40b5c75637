// The walk along a chain of variant references, in one place for every
// reader and writer that follows references.
#ifndef OX_VARIANT_CHAIN_H
#define OX_VARIANT_CHAIN_H

#include "Ox_Variant.h"

// The variant at the end of the reference chain starting at `start`: the
// first one that is not a reference with a target (a reference without a
// target ends the chain as itself). Null when the chain runs in a circle,
// which has no end, and for a null `start`.
const Ox_Variant *OxVariantChainEnd(const Ox_Variant *start);

#endif
