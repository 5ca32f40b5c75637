// The base layer: strings, buffers, lists, pools, the mutex and the free
// helper functions on which every class of the library stands.
#ifndef OX_BASELIB_H
#define OX_BASELIB_H

#include "Ox_Export.h"
#include "Ox_String.h"
#include "Ox_Buffer.h"
#include "Ox_List.h"
#include "Ox_ThreadMutex.h"
#include "Ox_BaseFunc.h"

#endif
