// qvil perspective: maps an RGBA image onto a quad and prints where the result lies.

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "command.h"
#include "image_io.h"
#include "qvimage/QVILResize.h"
#include "synthetic.h"
#include "warp_options.h"

namespace {

void warpOntoQuad(const std::string& input, const std::string& output, const std::vector<double>& corners,
                  int32_t mode) {
  qvil::Image source = qvil::readImage(input, 4);
  const QVILPerspectiveQuad quad{
      {corners[0], corners[1]}, {corners[2], corners[3]}, {corners[4], corners[5]}, {corners[6], corners[7]}};
  vImage_Buffer from = source.buffer(), to{};
  CGRect bounds{};
  if (!QVILResize::sharedInstance()->imageLibPerspectiveWarpRGBA8888(&from, &to, &quad, mode, &bounds))
    throw qvil::RunError("the perspective warp was refused (a crossed, flat or non-convex quad, or see the log)");
  // The operation hands over a block of the plain heap, rows of to.rowBytes bytes.
  qvil::Image result(static_cast<int>(to.width), static_cast<int>(to.height), 4, 8);
  for (size_t y = 0; y < to.height; ++y)
    std::memcpy(result.pixels.data() + y * result.rowBytes(), static_cast<const uint8_t*>(to.data) + y * to.rowBytes,
                result.rowBytes());
  std::free(to.data);
  qvil::writeImage(output, result);
  printf("quad %s\nbounds: x %g, y %g, width %g, height %g\n", NSStringFromQVILPerspectiveQuad(quad).c_str(),
         bounds.origin.x, bounds.origin.y, bounds.size.width, bounds.size.height);
}

int runPerspective(const qvil::Arguments& arguments) {
  arguments.expectPositional(2);
  arguments.allowOnly({"quad", "mode"});
  if (arguments.text("quad", "").empty()) throw qvil::UsageError("--quad x0,y0,x1,y1,x2,y2,x3,y3 is required");
  warpOntoQuad(arguments.positional()[0], arguments.positional()[1],
               qvil::parseNumberList("--quad", arguments.text("quad", ""), 8),
               qvil::parseWarpMode(arguments.text("mode", "linear"), false));
  return 0;
}

const qvil::CommandRegistration registration(
    {"perspective",
     "Map an RGBA image onto a quad (perspective) and print its bounds",
     "perspective INPUT OUTPUT --quad x0,y0,x1,y1,x2,y2,x3,y3 [--mode linear|cubic]\n"
     "  The corners are top left, top right, bottom left, bottom right, in the quad's own\n"
     "  coordinates (they may be negative). The output is the part of the result inside the quad's\n"
     "  bounding box; the printed bounds say where that box lies.",
     {},
     runPerspective});

void demoPerspective(const qvil::DemoContext& context) {
  const std::string input = context.directory + "/perspective-source.png";
  qvil::writeImage(input, qvil::gradientImage(320, 200));
  warpOntoQuad(input, context.directory + "/perspective-tilt.png", {40, 20, 290, 0, 0, 210, 330, 240}, 1);
  printf("tilted perspective-source.png into perspective-tilt.png\n");
}

const qvil::DemoRegistration demo({54, "perspective tilt onto a quad", demoPerspective});

}  // namespace
