// qvil set: writes an image of one colour, filled by the constant-fill operations.

#include <cstdio>
#include <sstream>
#include <string>
#include <vector>

#include "command.h"
#include "image_io.h"
#include "qvimage/QVILConversion.h"

namespace {

// "R,G,B,A" for four channels or "V" for one; each a whole number from 0 to 255.
std::vector<uint8_t> parseValue(const std::string& text) {
  std::vector<uint8_t> value;
  std::stringstream parts(text);
  std::string part;
  while (std::getline(parts, part, ','))
    value.push_back(static_cast<uint8_t>(qvil::parseInteger("--value", part, 0, 255)));
  if (value.size() != 1 && value.size() != 4)
    throw qvil::UsageError("--value takes one number (grey) or four (R,G,B,A), not '" + text + "'");
  return value;
}

void writeFilled(const std::string& output, int width, int height, const std::vector<uint8_t>& value) {
  const int channels = static_cast<int>(value.size());
  qvil::Image image(width, height, channels, 8);
  vImage_Buffer buffer = image.buffer();
  QVILConversion* conversion = QVILConversion::sharedInstance();
  const bool done = channels == 1 ? conversion->imageLibSetPlanar8(&buffer, value[0])
                                  : conversion->imageLibSetRGBA8888(&buffer, value.data());
  if (!done) throw qvil::RunError("the fill was refused");
  qvil::writeImage(output, image);
}

int runSet(const qvil::Arguments& arguments) {
  arguments.expectPositional(1);
  arguments.allowOnly({"width", "height", "value"});
  const auto width = static_cast<int>(arguments.integer("width", 256, 1, 65535));
  const auto height = static_cast<int>(arguments.integer("height", 256, 1, 65535));
  writeFilled(arguments.positional()[0], width, height, parseValue(arguments.text("value", "0,0,0,255")));
  return 0;
}

const qvil::CommandRegistration registration(
    {"set",
     "Write an image of one colour (grey or RGBA)",
     "set OUTPUT [--width W] [--height H] [--value R,G,B,A | --value V]\n"
     "  Defaults: 256 x 256, opaque black. One value makes a grey image, four an RGBA one.",
     {},
     runSet});

void demoSet(const qvil::DemoContext& context) {
  writeFilled(context.directory + "/set.png", 200, 100, {0x20, 0x60, 0xC0, 0xFF});
  printf("filled set.png with one colour\n");
}

const qvil::DemoRegistration demo({22, "constant fill", demoSet});

}  // namespace
