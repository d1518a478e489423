// qvil rotate: turns an RGBA image (8 or 16 bits a channel) by any angle, into a picture as large
// as the turned picture's bounding box.

#include <cmath>
#include <cstdio>
#include <string>

#include "command.h"
#include "image_io.h"
#include "qvimage/QVILResize.h"
#include "qvimage/ippi.h"
#include "synthetic.h"
#include "warp_options.h"

namespace {

// Each 8-bit channel s becomes s * 257.
qvil::Image widened(const qvil::Image& image) {
  qvil::Image wide(image.width, image.height, 4, 16);
  for (size_t i = 0; i < image.pixels.size(); ++i) {
    const uint16_t v = static_cast<uint16_t>(image.pixels[i] * 257);
    wide.pixels[2 * i] = static_cast<uint8_t>(v);
    wide.pixels[2 * i + 1] = static_cast<uint8_t>(v >> 8);
  }
  return wide;
}

// The turned picture's bounding box, in whole pixels from its least corner.
void turnedSize(int width, int height, float angle, int* turnedWidth, int* turnedHeight) {
  double bound[2][2];
  if (ippiGetRotateBound({0, 0, width, height}, bound, angle, 0, 0) != ippStsNoErr)
    throw qvil::RunError("the image is empty");
  *turnedWidth = static_cast<int>(std::floor(bound[1][0] - bound[0][0])) + 1;
  *turnedHeight = static_cast<int>(std::floor(bound[1][1] - bound[0][1])) + 1;
}

void rotateImage(const std::string& input, const std::string& output, float angle, int32_t mode, int bits) {
  qvil::Image source = qvil::readImage(input, 4, bits == 16);
  if (bits == 16 && source.bitsPerChannel == 8) source = widened(source);
  int width = 0, height = 0;
  turnedSize(source.width, source.height, angle, &width, &height);
  qvil::Image destination(width, height, 4, bits);  // transparent where nothing lands
  vImage_Buffer from = source.buffer(), to = destination.buffer();
  if (!QVILResize::sharedInstance()->imageLibRotateRGBA(&from, &to, mode, angle, static_cast<uint64_t>(bits)))
    throw qvil::RunError("the rotation was refused (see the log line above)");
  qvil::writeImage(output, destination);
}

int runRotate(const qvil::Arguments& arguments) {
  arguments.expectPositional(2);
  arguments.allowOnly({"angle", "mode", "bits"});
  if (arguments.text("angle", "").empty()) throw qvil::UsageError("--angle DEGREES is required");
  const long long bits = arguments.integer("bits", 8, 8, 16);
  if (bits != 8 && bits != 16) throw qvil::UsageError("--bits must be 8 or 16");
  rotateImage(arguments.positional()[0], arguments.positional()[1], static_cast<float>(arguments.real("angle", 0)),
              qvil::parseWarpMode(arguments.text("mode", "linear"), true), static_cast<int>(bits));
  return 0;
}

const qvil::CommandRegistration registration(
    {"rotate",
     "Turn an RGBA image (8 or 16 bits) by any angle",
     "rotate INPUT OUTPUT --angle DEGREES [--mode nearest|linear|cubic] [--bits 8|16]\n"
     "  A positive angle turns the picture anticlockwise. The output is as large as the turned\n"
     "  picture's bounding box; what lies outside the picture stays transparent, and its edges\n"
     "  are smoothed. Turns of 90, 180 and 270 degrees copy pixels exactly. --bits 16 works on\n"
     "  16 bits a channel (an 8-bit input is widened); 16-bit results are written as .pam.",
     {},
     runRotate});

void demoRotate(const qvil::DemoContext& context) {
  const std::string input = context.directory + "/rotate-source.png";
  qvil::writeImage(input, qvil::gradientImage(320, 200));
  rotateImage(input, context.directory + "/rotate-30-linear.png", 30, 1, 8);
  rotateImage(input, context.directory + "/rotate-30-cubic.png", 30, 2, 8);
  rotateImage(input, context.directory + "/rotate-90.png", 90, 1, 8);
  printf(
      "turned rotate-source.png by 30 degrees (rotate-30-linear.png, rotate-30-cubic.png) and by a quarter "
      "(rotate-90.png)\n");
}

const qvil::DemoRegistration demo({52, "rotation by 30 degrees and by a quarter turn", demoRotate});

}  // namespace
