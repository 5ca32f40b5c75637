// Internals shared by Ox_MD5Digest and Ox_SHA1Digest: input ranges, the
// containment comparison, and the block functions (reachable by tests so
// that the processor-specific SHA-1 path can be checked against the
// portable one).
#ifndef OX_DIGEST_INTERNAL_H
#define OX_DIGEST_INTERNAL_H

#include <cstddef>
#include <cstdint>

#include "Ox_Buffer.h"

// The part of `data` that an Update(data, offset, len) names: a negative
// offset counts as 0, a negative length runs to the end, and the range
// never passes the end. `*begin` is null when nothing is named.
void OxDigestBufferRange(const Ox_Buffer &data, int offset, int len,
                         const unsigned char **begin, size_t *count);

// 1 when every bit set in the first `size` bytes of `a` is set in `b`;
// bytes past `aSize` or `bSize` read as zero.
int OxDigestContains(const unsigned char *a, long aSize,
                     const unsigned char *b, long bSize, int size);

// MD5 compression of `blocks` 64-byte blocks into `state`.
void OxMd5Blocks(uint32_t state[4], const unsigned char *data, size_t blocks);

// SHA-1 compression of `blocks` 64-byte blocks into `state`: the portable
// form, the form on the processor's SHA instructions (only where
// OxSha1HasShaExtensions() holds), and the one in use.
void OxSha1BlocksPortable(uint32_t state[5], const unsigned char *data,
                          size_t blocks);
void OxSha1BlocksShaExt(uint32_t state[5], const unsigned char *data,
                        size_t blocks);
bool OxSha1HasShaExtensions();
void OxSha1Blocks(uint32_t state[5], const unsigned char *data, size_t blocks);

#endif
