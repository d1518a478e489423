// qvil warp: maps a grey (8-bit planar) image through an affine matrix.

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>

#include "command.h"
#include "image_io.h"
#include "qvimage/QVILResize.h"
#include "synthetic.h"
#include "warp_options.h"

namespace {

constexpr double kLargestSide = 32768;

// The output reaches from (0, 0) to the farthest mapped corner of the source.
void mappedSize(const std::vector<double>& m, int width, int height, int* outWidth, int* outHeight) {
  double farX = 0, farY = 0;
  for (double x : {0.0, width - 1.0})
    for (double y : {0.0, height - 1.0}) {
      farX = std::max(farX, m[0] * x + m[1] * y + m[2]);
      farY = std::max(farY, m[3] * x + m[4] * y + m[5]);
    }
  if (!(farX < kLargestSide && farY < kLargestSide)) throw qvil::RunError("the warped picture would be too large");
  *outWidth = static_cast<int>(std::floor(farX)) + 1;
  *outHeight = static_cast<int>(std::floor(farY)) + 1;
}

void warpImage(const std::string& input, const std::string& output, const std::vector<double>& m, int32_t mode) {
  qvil::Image source = qvil::readImage(input, 1);
  int width = 0, height = 0;
  mappedSize(m, source.width, source.height, &width, &height);
  qvil::Image destination(width, height, 1, 8);
  vImage_Buffer from = source.buffer(), to = destination.buffer();
  // The record pairs a with x, b with y's x term, c with x's y term.
  const vImage_AffineTransform transform{static_cast<float>(m[0]), static_cast<float>(m[3]), static_cast<float>(m[1]),
                                         static_cast<float>(m[4]), static_cast<float>(m[2]), static_cast<float>(m[5])};
  QVILResize::sharedInstance()->imageLibAffineWarpIntelPlanar8(&from, &to, mode, transform);
  qvil::writeImage(output, destination);
}

int runWarp(const qvil::Arguments& arguments) {
  arguments.expectPositional(2);
  arguments.allowOnly({"matrix", "mode"});
  if (arguments.text("matrix", "").empty()) throw qvil::UsageError("--matrix a,b,c,d,e,f is required");
  warpImage(arguments.positional()[0], arguments.positional()[1],
            qvil::parseNumberList("--matrix", arguments.text("matrix", ""), 6),
            qvil::parseWarpMode(arguments.text("mode", "linear"), true));
  return 0;
}

const qvil::CommandRegistration registration(
    {"warp",
     "Warp a grey image through an affine matrix",
     "warp INPUT OUTPUT --matrix a,b,c,d,e,f [--mode nearest|linear|cubic]\n"
     "  Source pixel (x, y) lands at (a x + b y + c, d x + e y + f). The output reaches from (0, 0)\n"
     "  to the farthest landing corner; pixels nothing lands on stay black, and slanted edges are\n"
     "  smoothed. A singular matrix leaves the output black (the operation reports no error).",
     {},
     runWarp});

void demoWarp(const qvil::DemoContext& context) {
  const std::string input = context.directory + "/warp-source.png";
  qvil::writeImage(input, qvil::mazeImage(240, 160));
  warpImage(input, context.directory + "/warp-shear.png", {1, 0.35, 4, 0.1, 0.9, 20}, 1);
  printf("sheared warp-source.png into warp-shear.png\n");
}

const qvil::DemoRegistration demo({53, "affine warp of a grey image", demoWarp});

}  // namespace
