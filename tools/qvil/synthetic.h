#ifndef QVIL_SYNTHETIC_H
#define QVIL_SYNTHETIC_H

// Images that the demo makes itself.

#include "image_io.h"

namespace qvil {

// An RGBA picture: colour gradients with rings and opaque alpha.
Image gradientImage(int width, int height);
// A grey image of flat regions separated by dark walls, for flood fills.
Image mazeImage(int width, int height);

}  // namespace qvil

#endif
