// qvil swap: reverses the four channels of every pixel (ARGB to BGRA), in place.

#include <cstdio>

#include "command.h"
#include "image_io.h"
#include "qvimage/QVILConversion.h"
#include "synthetic.h"

namespace {

void swapImage(const std::string& input, const std::string& output) {
  qvil::Image image = qvil::readImage(input, 4);
  const vImage_Buffer buffer = image.buffer();
  if (!QVILConversion::sharedInstance()->imageLibConvertARGBtoBGRA8888(&buffer))
    throw qvil::RunError("the channel reorder was refused");
  qvil::writeImage(output, image);
}

int runSwap(const qvil::Arguments& arguments) {
  arguments.expectPositional(2);
  arguments.allowOnly({});
  swapImage(arguments.positional()[0], arguments.positional()[1]);
  return 0;
}

const qvil::CommandRegistration registration(
    {"swap",
     "Reverse the channel order of each pixel of an RGBA image (ARGB to BGRA)",
     "swap INPUT OUTPUT\n"
     "  The image is read as 8-bit RGBA; byte c of each pixel becomes byte 3 - c, alpha included.",
     {},
     runSwap});

void demoSwap(const qvil::DemoContext& context) {
  const std::string input = context.directory + "/swap-input.png";
  qvil::writeImage(input, qvil::gradientImage(320, 240));
  swapImage(input, context.directory + "/swap.png");
  printf("reversed the channels of swap-input.png into swap.png\n");
}

const qvil::DemoRegistration demo({21, "channel reverse", demoSwap});

}  // namespace
