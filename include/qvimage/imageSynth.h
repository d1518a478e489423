#ifndef QVIMAGE_IMAGESYNTH_H
#define QVIMAGE_IMAGESYNTH_H

/* Texture synthesis: fills the masked pixels of an image with texture matched from its unmasked
   pixels. Plain C records and C-linkage functions; the units beneath imageSynth are exported too,
   so that a client can drive the engine or its orders directly. */

#include <stddef.h>
#include <stdint.h>

#include "ippdefs.h"

/* An image or a mask: data is the first byte of the top row. Caller-owned, never freed here. */
typedef struct {
  unsigned char* data;
  uint32_t width;
  uint32_t height;
  uint64_t rowBytes;
} _ImageBuffer;

/* The knobs of a run; setDefaultParams gives the defaults noted here. */
typedef struct {
  int32_t wrapHorizontally; /* 0: neighbourhoods wrap around the left and right edges */
  int32_t wrapVertically;   /* 0: neighbourhoods wrap around the top and bottom edges */
  int32_t targetOrder;      /* 1: visiting order 0 to 8 (read as unsigned); 0 also drops the context */
  double mapWeight;         /* 0.5: weight of map pixelel differences (used in single precision) */
  double sensitivity;       /* 0.117: width of the logarithmic colour metric (single precision) */
  uint32_t neighbourLimit;  /* 30: the most neighbours one match compares; at most 64 */
  uint32_t probeLimit;      /* 200: random corpus points tried per target point and pass */
} ImageSynthParametersStruct;

/* Pixel layouts of the image buffer. */
enum { ImageFormatRGB = 0, ImageFormatRGBA = 1, ImageFormatGray = 2, ImageFormatGrayAlpha = 3 };

/* Result codes of imageSynth and engine. */
enum {
  SynthOK = 0,                /* finished, or cancelled */
  SynthBadFormat = 1,         /* the format is not 0 to 3 */
  SynthSizeMismatch = 2,      /* image and mask differ in width or height */
  SynthTooManyNeighbours = 3, /* neighbourLimit above 64 */
  SynthBadOrder = 4,          /* targetOrder above 8 */
  SynthNoTargetPoints = 5,    /* the mask is 0 everywhere */
  SynthNoCorpusPoints = 6     /* no pixel qualifies as a corpus point */
};

/* A map pixel holds at most this many pixelels, the mask pixelel included. */
#define MAX_IMAGE_SYNTH_BPP 8

/* Where each kind of pixelel stands inside a map pixel. Pixelel 0 is always the mask. */
typedef struct {
  uint8_t colorEnd;   /* colours are pixelels 1 to colorEnd - 1 */
  uint8_t alphaIndex; /* the alpha pixelel; not written when neither alpha flag is set */
  uint8_t mapStart;   /* first map pixelel */
  uint8_t mapEnd;     /* first pixelel past the map pixelels */
  uint8_t colorCount;
  uint8_t mapCount;
  uint8_t total_bpp;      /* pixelels per map pixel, mask included */
  int32_t targetHasAlpha; /* alpha decides whether a target-side pixel carries a value */
  int32_t corpusHasAlpha; /* alpha decides whether a corpus-side pixel is usable */
} ImageFormatIndices;

/* A fixed-capacity array of fixed-size elements; storage is zero-filled and never grows. */
typedef struct {
  unsigned char* data;
  uint32_t len;
  uint32_t capacity;
  uint32_t elementSize;
} SArray;

/* A row-major grid without padding over an SArray: element (x, y) starts at byte
   (y * width + x) * depth. The array's len stays 0. */
typedef struct {
  uint32_t width;
  uint32_t height;
  uint32_t depth;
  SArray* data;
} Map;

typedef struct {
  int32_t x;
  int32_t y;
} Point;

/* A point with its distance ratio toward the rim of its region, for the inward orders. */
typedef struct {
  int32_t x;
  int32_t y;
  float ratio;
} SortPoint;

/* The progress callback: percent first, then the caller's context. */
typedef void (*ImageSynthProgressCallback)(int32_t percent, void* contextInfo);

/* Element comparators for s_array_sort: -1 or +1, never 0. */
typedef int (*SComparator)(const void* a, const void* b);

QV_BEGIN_C

/* The entry. parameters may be null (defaults); callback and cancelFlag must be valid. Any
   non-zero result, and a cancelled run, leave the image untouched. */
QV_API int32_t imageSynth(_ImageBuffer* image, _ImageBuffer* mask, int32_t imageFormat,
                          ImageSynthParametersStruct* parameters, void* callback, void* contextInfo,
                          int32_t* cancelFlag);

/* Parameters and formats. */
QV_API void setDefaultParams(ImageSynthParametersStruct* parameters);
QV_API uint32_t countPixelelsPerPixelForFormat(int32_t format);
QV_API int32_t prepareImageFormatIndicesFromFormatType(ImageFormatIndices* indices, int32_t format);
QV_API void prepareImageFormatIndices(ImageFormatIndices* indices, uint32_t colorCount, uint32_t mapCount,
                                      int32_t targetHasAlpha, int32_t corpusHasAlpha, int32_t isMapUsed);
QV_API void prepareDefaultFormatIndices(ImageFormatIndices* indices);
QV_API void adaptSimpleAPI(const _ImageBuffer* image, const _ImageBuffer* mask, Map* target, Map* corpus,
                           uint32_t pixelels);
QV_API void adaptImageAndMask(const _ImageBuffer* image, const _ImageBuffer* mask, Map* map, Map* maskMap,
                              uint32_t pixelels);

/* The matching engine and its setup. */
QV_API int32_t engine(const ImageFormatIndices* indices, Map* target, const Map* corpus, void* callback,
                      void* contextInfo, int32_t* cancelFlag, ImageSynthParametersStruct parameters);
QV_API void quantizeMetricFuncs(uint16_t* colorDiff, uint32_t* mapDiff, float sensitivity, float mapWeight);
QV_API void prepareSortedOffsets(const Map* target, const Map* corpus, SArray** sortedOffsets);
QV_API void prepareCorpusPoints(const ImageFormatIndices* indices, const Map* corpus, SArray** result);

/* Visiting orders of the target points. */
QV_API int32_t orderTargetPoints(const ImageSynthParametersStruct* parameters, SArray* points, void* random);
QV_API void orderTargetPointsRandomBrushfire(SComparator comparator, SArray* points, void* random);
QV_API void orderTargetPointsRandomDirectional(SComparator comparator, SArray* points, void* random);
QV_API SArray* targetPointsToSortArray(const SArray* points);

/* Comparators of Point (Cartesian, Horizontal, Vertical) and SortPoint (Inward) elements. */
QV_API int lessCartesian(const void* a, const void* b);
QV_API int moreCartesian(const void* a, const void* b);
QV_API int lessHorizontal(const void* a, const void* b);
QV_API int moreHorizontal(const void* a, const void* b);
QV_API int lessVertical(const void* a, const void* b);
QV_API int moreVertical(const void* a, const void* b);
QV_API int lessInward(const void* a, const void* b);
QV_API int moreInward(const void* a, const void* b);

/* Arrays and random numbers over the C library. */
QV_API SArray* s_array_sized_new(int32_t zeroTerminated, int32_t clear, uint32_t elementSize, uint32_t reservedCount);
QV_API SArray* s_array_append_vals(SArray* array, const void* value, uint32_t count);
QV_API void s_array_sort(SArray* array, SComparator comparator);
QV_API void s_array_free(SArray* array, int32_t freeSegment);
QV_API void* s_rand_new_with_seed(uint32_t seed);
QV_API uint32_t s_rand_int_range(void* random, uint32_t low, uint32_t high);

/* Maps. */
QV_API void new_bytemap(Map* map, uint32_t width, uint32_t height);
QV_API void new_intmap(Map* map, uint32_t width, uint32_t height);
QV_API void new_coordmap(Map* map, uint32_t width, uint32_t height);
QV_API void new_pixmap(Map* map, uint32_t width, uint32_t height, uint32_t depth);
QV_API void free_map(Map* map);
QV_API void set_bytemap(Map* map, uint8_t value);
QV_API void invert_bytemap(Map* map);
QV_API void interleave_mask(Map* pixmap, const Map* mask);

QV_END_C

#endif
