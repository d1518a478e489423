// qvil mirror: turns an RGBA image (8 or 16 bits a channel) over a horizontal axis, a vertical
// axis or both.

#include <cstdio>
#include <string>

#include "command.h"
#include "image_io.h"
#include "qvimage/QVILResize.h"
#include "synthetic.h"

namespace {

// "horizontal", "vertical", "both", or the axis number 0, 1, 2.
int32_t parseAxis(const std::string& text) {
  if (text == "horizontal" || text == "flip") return MirrorAxisHorizontal;
  if (text == "vertical" || text == "flop") return MirrorAxisVertical;
  if (text == "both") return MirrorAxisBoth;
  return static_cast<int32_t>(qvil::parseInteger("--axis", text, 0, 2));
}

void mirrorImage(const std::string& input, const std::string& output, int32_t axis) {
  qvil::Image source = qvil::readImage(input, 4, true);
  qvil::Image destination(source.width, source.height, 4, source.bitsPerChannel);
  vImage_Buffer from = source.buffer();
  vImage_Buffer to = destination.buffer();
  const auto bits = static_cast<uint64_t>(source.bitsPerChannel);
  if (!QVILResize::sharedInstance()->imageLibMirrorRGBA(&from, &to, bits, axis))
    throw qvil::RunError(
        "the mirror was refused (an image one pixel high cannot be flipped, one pixel wide "
        "cannot be flopped)");
  qvil::writeImage(output, destination);
}

int runMirror(const qvil::Arguments& arguments) {
  arguments.expectPositional(2);
  arguments.allowOnly({"axis"});
  mirrorImage(arguments.positional()[0], arguments.positional()[1], parseAxis(arguments.text("axis", "horizontal")));
  return 0;
}

const qvil::CommandRegistration registration(
    {"mirror",
     "Mirror an RGBA image (8 or 16 bits) top to bottom, left to right or both",
     "mirror INPUT OUTPUT [--axis horizontal|vertical|both|0|1|2]\n"
     "  horizontal (0, default): the top row becomes the bottom row; vertical (1): the left column\n"
     "  becomes the right column; both (2): a turn of 180 degrees. A 16-bit input keeps its depth\n"
     "  (write it as .pam).",
     {},
     runMirror});

void demoMirror(const qvil::DemoContext& context) {
  const std::string input = context.directory + "/mirror-source.png";
  qvil::writeImage(input, qvil::gradientImage(320, 200));
  const char* names[] = {"mirror-horizontal.png", "mirror-vertical.png", "mirror-both.png"};
  for (int32_t axis = 0; axis < 3; ++axis) mirrorImage(input, context.directory + "/" + names[axis], axis);
  printf("mirrored mirror-source.png over each axis: %s, %s, %s\n", names[0], names[1], names[2]);
}

const qvil::DemoRegistration demo({50, "mirror over each axis", demoMirror});

}  // namespace
