#include "warp/warp_images.h"

#include <cmath>
#include <cstring>
#include <sstream>

namespace warptest {

qvtest::TestImage toTestImage(const Image& image, int padding, int offset) {
  qvtest::TestImage out(image.width, image.height, pixelBytesOf(image.kind), padding, offset);
  for (int y = 0; y < image.height; ++y) std::memcpy(out.row(y), image.pixel(0, y), static_cast<size_t>(image.step()));
  return out;
}

Image fromTestImage(const qvtest::TestImage& image, Kind kind) {
  Image out(kind, image.width(), image.height());
  for (int y = 0; y < image.height(); ++y) std::memcpy(out.pixel(0, y), image.row(y), static_cast<size_t>(out.step()));
  return out;
}

namespace {

// A rotation by degrees about (cx, cy), moved by (tx, ty).
Affine turnedAbout(double degrees, double cx, double cy, double tx, double ty) {
  const double radians = degrees * 3.141592653589793 / 180;
  const double c = std::cos(radians), s = std::sin(radians);
  return {{{c, s, cx - c * cx - s * cy + tx}, {-s, c, cy + s * cx - c * cy + ty}}};
}

}  // namespace

std::vector<NamedAffine> affineMatrices(int width, int height) {
  const double cx = (width - 1) / 2.0, cy = (height - 1) / 2.0;
  std::vector<NamedAffine> out = {
      {"identity", {{{1, 0, 0}, {0, 1, 0}}}},
      {"translation 3,2", {{{1, 0, 3}, {0, 1, 2}}}},
      {"translation -2,5", {{{1, 0, -2}, {0, 1, 5}}}},
      {"translation 0.5,0.25", {{{1, 0, 0.5}, {0, 1, 0.25}}}},
      {"translation -1.7,2.3", {{{1, 0, -1.7}, {0, 1, 2.3}}}},
      {"shear x", {{{1, 0.4, 1}, {0, 1, 0}}}},
      {"shear y", {{{1, 0, 0}, {-0.3, 1, 3.5}}}},
      {"scale 2", {{{2, 0, 0}, {0, 2, 0}}}},
      {"scale 0.5", {{{0.5, 0, 1}, {0, 0.5, 2}}}},
      {"scale 1.7 x 0.6", {{{1.7, 0, 0.3}, {0, 0.6, 1.1}}}},
      {"mirror x", {{{-1, 0, width + 1.5}, {0, 1, 0}}}},
      {"mirror both", {{{-1, 0, width - 1.0}, {0, -1, height - 1.0}}}},
      {"general", {{{0.9, -0.35, 4.2}, {0.27, 1.1, -1.3}}}},
      {"nearly singular", {{{1, 1, 2}, {1, 1 + 2e-9, 0.5}}}},
  };
  for (double degrees : {3.0, 17.5, 30.0, 45.0, 61.0, 89.9, 90.0, 123.0, 180.0, 200.25, 270.0, 333.0})
    out.push_back({"rotation " + std::to_string(degrees), turnedAbout(degrees, cx, cy, 2, 1)});
  return out;
}

std::vector<int> affineWords() {
  std::vector<int> words;
  for (int filter : {IPPI_INTER_NN, IPPI_INTER_LINEAR, IPPI_INTER_CUBIC, IPPI_INTER_CR}) {
    words.push_back(filter);
    words.push_back(filter | IPPI_SMOOTH_EDGE);
  }
  return words;
}

std::string describe(IppiRect r) {
  std::ostringstream text;
  text << "(" << r.x << "," << r.y << " " << r.width << "x" << r.height << ")";
  return text.str();
}

}  // namespace warptest
