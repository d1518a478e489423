// Version, compile flags, error texts and the default allocator of the stream layer.

#include "zlib/zutil.h"

#include <cstdlib>

extern "C" {

const char* const z_errmsg[10] = {
    "need dictionary",      // Z_NEED_DICT 2
    "stream end",           // Z_STREAM_END 1
    "",                     // Z_OK 0
    "file error",           // Z_ERRNO -1
    "stream error",         // Z_STREAM_ERROR -2
    "data error",           // Z_DATA_ERROR -3
    "insufficient memory",  // Z_MEM_ERROR -4
    "buffer error",         // Z_BUF_ERROR -5
    "incompatible version", // Z_VERSION_ERROR -6
    "",
};

const char* ZEXPORT zlibVersion(void) { return ZLIB_VERSION; }

// 169 = 0xA9: uInt, uLong and pointers described as in a 64-bit build (size codes 1, 2, 2 in
// bits 0-5), z_off_t as 64 bits (code 2 in bits 6-7).
uLong ZEXPORT zlibCompileFlags(void) { return 169; }

const char* ZEXPORT zError(int err) { return qvzlib::errorText(err); }

}  // extern "C"

namespace qvzlib {

voidpf defaultAlloc(voidpf /*opaque*/, uInt items, uInt size) {
  return std::malloc(static_cast<size_t>(items) * size);
}

void defaultFree(voidpf /*opaque*/, voidpf address) { std::free(address); }

void useDefaultAllocatorWhereUnset(z_streamp strm) {
  if (strm->zalloc == nullptr) {
    strm->zalloc = defaultAlloc;
    strm->opaque = nullptr;
  }
  if (strm->zfree == nullptr) strm->zfree = defaultFree;
}

}  // namespace qvzlib
