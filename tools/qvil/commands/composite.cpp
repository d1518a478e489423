// qvil composite: composes one RGBA image over another (premultiplied "over").

#include <cstdio>

#include "command.h"
#include "image_io.h"
#include "qvimage/QVILConversion.h"
#include "synthetic.h"

namespace {

// Files hold straight alpha; the operation takes premultiplied pixels.
void premultiply(qvil::Image& image) {
  for (size_t i = 0; i + 3 < image.pixels.size(); i += 4) {
    const int alpha = image.pixels[i + 3];
    for (int c = 0; c < 3; ++c) image.pixels[i + c] = static_cast<uint8_t>((image.pixels[i + c] * alpha + 127) / 255);
  }
}

void unpremultiply(qvil::Image& image) {
  for (size_t i = 0; i + 3 < image.pixels.size(); i += 4) {
    const int alpha = image.pixels[i + 3];
    if (alpha == 0) continue;
    for (int c = 0; c < 3; ++c) {
      const int straight = (image.pixels[i + c] * 255 + alpha / 2) / alpha;
      image.pixels[i + c] = static_cast<uint8_t>(straight > 255 ? 255 : straight);
    }
  }
}

// top over bottom; the result has the size of bottom, with top at its top left corner.
qvil::Image composite(qvil::Image top, qvil::Image bottom) {
  if (top.width > bottom.width || top.height > bottom.height)
    throw qvil::RunError("the image on top must not be larger than the one below");
  premultiply(top);
  premultiply(bottom);
  vImage_Buffer source = top.buffer();
  qvil::Image result = bottom;
  vImage_Buffer dest = result.buffer();
  if (!QVILConversion::sharedInstance()->imageLibCompositeOverPremultipliedRGBASource(&source, &dest))
    throw qvil::RunError("the composition was refused");
  unpremultiply(result);
  return result;
}

int runComposite(const qvil::Arguments& arguments) {
  arguments.expectPositional(3);
  arguments.allowOnly({});
  const auto& files = arguments.positional();
  qvil::writeImage(files[2], composite(qvil::readImage(files[0], 4), qvil::readImage(files[1], 4)));
  return 0;
}

const qvil::CommandRegistration registration(
    {"composite",
     "Compose an RGBA image over another (alpha \"over\")",
     "composite TOP BOTTOM OUTPUT\n"
     "  TOP is placed at the top left corner of BOTTOM and must not be larger; 8-bit images with\n"
     "  straight alpha, premultiplied for the composition and written back straight",
     {},
     runComposite});

// A half-transparent copy of the gradient, turned upside down, over the gradient.
void demoComposite(const qvil::DemoContext& context) {
  qvil::Image bottom = qvil::gradientImage(640, 480);
  qvil::Image top(320, 240, 4, 8);
  for (int y = 0; y < 240; ++y) {
    for (int x = 0; x < 320; ++x) {
      const uint8_t* from = &bottom.pixels[4 * ((479 - 2 * y) * 640 + 2 * x)];
      uint8_t* to = &top.pixels[4 * (y * 320 + x)];
      for (int c = 0; c < 3; ++c) to[c] = from[c];
      to[3] = static_cast<uint8_t>(x * 255 / 319);
    }
  }
  qvil::writeImage(context.directory + "/composite_top.png", top);
  qvil::writeImage(context.directory + "/composite.png", composite(top, bottom));
  printf("composed composite_top.png over the gradient into composite.png\n");
}

const qvil::DemoRegistration demo({40, "alpha composition", demoComposite});

}  // namespace
