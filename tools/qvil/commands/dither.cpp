// qvil dither: reduces an RGBA image to a few levels per channel, with a dither.

#include <cstdio>
#include <map>
#include <string>

#include "command.h"
#include "image_io.h"
#include "qvimage/QVILConversion.h"
#include "synthetic.h"

namespace {

// Names of the public reduceType values.
const std::map<std::string, int32_t>& reduceTypes() {
  static const std::map<std::string, int32_t> types{
      {"none", 0}, {"stucki", 1}, {"floyd-steinberg", 2}, {"jjn", 3}, {"bayer", 4}};
  return types;
}

qvil::Image dither(qvil::Image image, int32_t levels, int32_t reduceType, int32_t noise) {
  vImage_Buffer buffer = image.buffer();
  if (!QVILConversion::sharedInstance()->imageLibReduceBits(&buffer, noise, levels, reduceType))
    throw qvil::RunError("the reduction was refused");
  return image;
}

int runDither(const qvil::Arguments& arguments) {
  arguments.expectPositional(2);
  arguments.allowOnly({"levels", "type", "noise"});
  const auto levels = static_cast<int32_t>(arguments.integer("levels", 4, 2, 256));
  const auto noise = static_cast<int32_t>(arguments.integer("noise", 0, 0, 100));
  const std::string typeName = arguments.text("type", "floyd-steinberg");
  const auto type = reduceTypes().find(typeName);
  if (type == reduceTypes().end())
    throw qvil::UsageError("unknown --type '" + typeName + "': none, stucki, floyd-steinberg, jjn or bayer");
  qvil::writeImage(arguments.positional()[1],
                   dither(qvil::readImage(arguments.positional()[0], 4), levels, type->second, noise));
  return 0;
}

const qvil::CommandRegistration registration(
    {"dither",
     "Reduce an RGBA image to a few levels per channel, with dithering",
     "dither INPUT OUTPUT [--levels 2-256] [--type NAME] [--noise 0-100]\n"
     "  NAME: none, stucki, floyd-steinberg (default), jjn or bayer. Every channel, alpha included,\n"
     "  is reduced; noise (percent of a level) randomises the thresholds, the same way every run",
     {},
     runDither});

void demoDither(const qvil::DemoContext& context) {
  const qvil::Image gradient = qvil::gradientImage(640, 480);
  for (const auto& [name, type] : reduceTypes()) {
    qvil::writeImage(context.directory + "/dither_" + name + ".png", dither(gradient, 3, type, 0));
  }
  qvil::writeImage(context.directory + "/dither_bayer_noise.png", dither(gradient, 3, 4, 40));
  printf("reduced the gradient to 3 levels with every dither: dither_<type>.png\n");
}

const qvil::DemoRegistration demo({42, "bit reduction and dithering", demoDither});

}  // namespace
