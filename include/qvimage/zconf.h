/* zconf.h: the configuration of the zlib 1.2.3 interface as this library provides it. */

#ifndef ZCONF_H
#define ZCONF_H

#include <sys/types.h> /* off_t */

#if !defined(STDC) && (defined(__STDC__) || defined(__cplusplus))
#define STDC
#endif

/* Prototypes are always available; OF() stays for programs written for older compilers. */
#ifndef OF
#define OF(args) args
#endif

#ifndef MAX_MEM_LEVEL
#define MAX_MEM_LEVEL 9
#endif
#ifndef MAX_WBITS
#define MAX_WBITS 15 /* 32K window */
#endif

/* The entry points are part of the library's public boundary. */
#ifndef ZEXTERN
#define ZEXTERN extern __attribute__((visibility("default")))
#endif
#ifndef ZEXPORT
#define ZEXPORT
#endif
#ifndef ZEXPORTVA
#define ZEXPORTVA
#endif
#ifndef FAR
#define FAR
#endif

typedef unsigned char Byte;
typedef unsigned int uInt;
typedef unsigned long uLong;

typedef Byte FAR Bytef;
typedef char FAR charf;
typedef int FAR intf;
typedef uInt FAR uIntf;
typedef uLong FAR uLongf;

typedef void const* voidpc;
typedef void FAR* voidpf;
typedef void* voidp;

#ifndef z_off_t
#define z_off_t off_t
#endif

#ifndef SEEK_SET
#define SEEK_SET 0
#define SEEK_CUR 1
#define SEEK_END 2
#endif

#endif /* ZCONF_H */
