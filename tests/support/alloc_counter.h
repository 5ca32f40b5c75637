// A count of the heap calls of a test binary: every malloc, calloc and
// realloc passes through the counting versions in alloc_counter.cpp
// (operator new of the runtime calls malloc as well). A binary that uses
// this header lists alloc_counter.cpp among its sources.
//
// The hook is left out under the sanitizers, which bring allocators of
// their own, and off glibc; OX_TEST_COUNTS_MALLOC says whether it is in.
#ifndef OX_TESTS_SUPPORT_ALLOC_COUNTER_H
#define OX_TESTS_SUPPORT_ALLOC_COUNTER_H

#include <cstddef>  // defines __GLIBC__ through the C library's headers

#if defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define OX_TEST_NO_MALLOC_HOOK 1
#endif
#endif
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define OX_TEST_NO_MALLOC_HOOK 1
#endif

#if !defined(OX_TEST_NO_MALLOC_HOOK) && defined(__GLIBC__)
#define OX_TEST_COUNTS_MALLOC 1
// Heap calls of this process so far.
long HeapCalls();
#endif

#endif
