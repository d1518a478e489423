#ifndef QVIMAGE_QVILTYPES_H
#define QVIMAGE_QVILTYPES_H

/* Plain records of the public operations. */

#include "ippdefs.h"

typedef double CGFloat;

typedef struct {
  CGFloat x;
  CGFloat y;
} CGPoint;

typedef struct {
  CGFloat width;
  CGFloat height;
} CGSize;

typedef struct {
  CGPoint origin;
  CGSize size;
} CGRect;

/* An image: data is the first byte of the top row, rowBytes the distance between row starts.
   Primitives receive the low 32 bits of width, height and rowBytes, without a range test. */
typedef struct {
  void* data;
  size_t height;
  size_t width;
  size_t rowBytes;
} vImage_Buffer;

typedef struct {
  float a, b, c, d;
  float tx, ty;
} vImage_AffineTransform;

/* A quad for the perspective warp: four corners in record order (top left, top right, bottom
   left, bottom right). Operations that walk its outline take them as top left, top right,
   bottom right, bottom left. */
typedef struct {
  CGPoint topLeft;
  CGPoint topRight;
  CGPoint bottomLeft;
  CGPoint bottomRight;
} QVILPerspectiveQuad;

QV_BEGIN_C

/* Where the library's log lines go. The default handler writes each line to standard error,
   prefixed with the date, time, program name and process id. A handler receives the message
   alone, without the prefix. Passing null restores the default. */
typedef void (*QVILLogHandler)(const char* line);
QV_API void QVILSetLogHandler(QVILLogHandler handler);

/* What a failed assertion of the library calls. The default handler prints the description on
   standard error and aborts. Passing null restores the default. */
typedef void (*QVILAssertionHandler)(const char* description);
QV_API void QVILSetAssertionHandler(QVILAssertionHandler handler);

QV_END_C

#ifdef __cplusplus
#include <string>

/* "{tl: {x, y}; tr: {x, y}; br: {x, y}; bl: {x, y}}": the corners around the outline, bottom
   right before bottom left, each in the shortest decimal form. */
QV_API std::string NSStringFromQVILPerspectiveQuad(QVILPerspectiveQuad quad);
#endif

#endif
