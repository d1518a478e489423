#ifndef QVIMAGE_IPPI_INTERPOLATION_H
#define QVIMAGE_IPPI_INTERPOLATION_H

/* The interpolation word of the resampling primitives: a 32-bit value whose low bits name the
   filter and whose top bits are flags. Each primitive says which filters it accepts. */

/* clang-format off */
enum {
  IPPI_INTER_NN = 1,      /* nearest neighbour */
  IPPI_INTER_LINEAR = 2,  /* linear */
  IPPI_INTER_CUBIC = 4,   /* cubic */
  IPPI_INTER_BSPLINE = 5, /* cubic B-spline */
  IPPI_INTER_CR = 6,      /* Catmull-Rom */
  IPPI_INTER_B05C03 = 7,  /* cubic with B 0.5, C 0.3 */
  IPPI_INTER_SUPER = 8,   /* supersampling */
  IPPI_INTER_LANCZOS = 16 /* Lanczos */
};
/* clang-format on */

/* Flags in the top bits of the word. IPPI_SMOOTH_EDGE blends the outline of the written area
   (a warped quad, or the rows and columns just outside a resized rectangle) with what lay there;
   IPPI_SUBPIXEL_EDGE writes coverage-weighted rows and columns just outside a resized rectangle;
   IPPI_ANTIALIASING stretches a resize kernel by the reduction factor. */
#define IPPI_SMOOTH_EDGE ((int)0x80000000u)
#define IPPI_SUBPIXEL_EDGE (1 << 30)
#define IPPI_ANTIALIASING (1 << 29)

#endif
