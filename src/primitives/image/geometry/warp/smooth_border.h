#ifndef QV_PRIMITIVES_IMAGE_GEOMETRY_WARP_SMOOTH_BORDER_H
#define QV_PRIMITIVES_IMAGE_GEOMETRY_WARP_SMOOTH_BORDER_H

#include "primitives/common/tier.h"

namespace QV_TIER {

// Blends the pixels along a warped quad's slanted edges into what lay beneath. The quad is
// clipped to the destination rectangle from first to last; each clipped edge that is neither
// horizontal nor vertical is walked by rows (steep edges) or by columns, and at each step the
// pixel just outside the edge becomes itself times its distance to the edge plus the warped
// pixel just inside times the other distance, in double precision, rounded. winding is the
// quad's orientation (true when its corners turn with positive cross products). dst is the
// image's first pixel; coordinates are absolute. Interleaved layouts of every depth; AC4 leaves
// the fourth channel alone.
void ownpi_SmoothBorder(Ipp8u* dst, int dstStep, int type, const double quad[4][2], IppiPoint first, IppiPoint last,
                        bool winding);

}  // namespace QV_TIER

#endif
