// Shared pieces of the stream layer: error texts, the default allocator and the calls that go
// through the caller's allocator.

#ifndef QV_ZLIB_ZUTIL_H
#define QV_ZLIB_ZUTIL_H

#include "qvimage/zlib.h"

extern "C" {
// The error texts, indexed by Z_NEED_DICT - code (so codes 2 down to -6, then an empty text).
extern __attribute__((visibility("default"))) const char* const z_errmsg[10];
}

namespace qvzlib {

// The text of a return code, for strm->msg.
inline const char* errorText(int code) { return z_errmsg[Z_NEED_DICT - code]; }

// The allocator a stream uses when the caller leaves zalloc / zfree null.
voidpf defaultAlloc(voidpf opaque, uInt items, uInt size);
void defaultFree(voidpf opaque, voidpf address);

// Fills in the default allocator where the caller left it null.
void useDefaultAllocatorWhereUnset(z_streamp strm);

inline voidpf streamAlloc(z_streamp strm, uInt items, uInt size) { return strm->zalloc(strm->opaque, items, size); }
inline void streamFree(z_streamp strm, voidpf address) { strm->zfree(strm->opaque, address); }

}  // namespace qvzlib

#endif
