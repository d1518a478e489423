#ifndef QV_TESTS_WARP_WARP_IMAGES_H
#define QV_TESTS_WARP_WARP_IMAGES_H

// Moving the reference's packed images into padded, misaligned test images with canaries, and
// back; and the matrices and sizes the warp tests walk through.

#include <string>
#include <vector>

#include "support/images.h"
#include "warp/warp_reference.h"

namespace warptest {

qvtest::TestImage toTestImage(const Image& image, int padding, int offset);
Image fromTestImage(const qvtest::TestImage& image, Kind kind);

struct NamedAffine {
  std::string name;
  Affine coeffs;
};

// Identity, translations, rotations by many angles about the picture's middle, shears,
// scalings, mirrors, and a nearly singular map, for a source of the given size landing in a
// destination of about the same size.
std::vector<NamedAffine> affineMatrices(int width, int height);

// The interpolation words of the affine family: each filter with and without smooth edges.
std::vector<int> affineWords();

std::string describe(IppiRect r);

}  // namespace warptest

#endif
