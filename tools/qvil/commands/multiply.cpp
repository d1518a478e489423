// qvil multiply: scales each channel of an RGBA image by value / 255.

#include <cstdio>
#include <sstream>

#include "command.h"
#include "image_io.h"
#include "qvimage/QVILConversion.h"
#include "synthetic.h"

namespace {

struct ChannelValues {
  uint8_t value[4];
};

// "V" for all four channels, or "R,G,B,A".
ChannelValues parseValues(const std::string& text) {
  std::vector<std::string> parts;
  std::stringstream stream(text);
  for (std::string part; std::getline(stream, part, ',');) parts.push_back(part);
  if (parts.size() != 1 && parts.size() != 4) throw qvil::UsageError("--value takes one value or four: R,G,B,A");
  ChannelValues values{};
  for (int c = 0; c < 4; ++c)
    values.value[c] = static_cast<uint8_t>(qvil::parseInteger("--value", parts[parts.size() == 1 ? 0 : c], 0, 255));
  return values;
}

void multiplyImage(const std::string& input, const std::string& output, const ChannelValues& values) {
  qvil::Image image = qvil::readImage(input, 4);
  vImage_Buffer buffer = image.buffer();
  QVILConversion::sharedInstance()->imageLibMultiplyRGBA8888(&buffer, values.value);
  qvil::writeImage(output, image);
}

int runMultiply(const qvil::Arguments& arguments) {
  arguments.expectPositional(2);
  arguments.allowOnly({"value"});
  const std::string text = arguments.text("value", "");
  if (text.empty()) throw qvil::UsageError("--value is required");
  multiplyImage(arguments.positional()[0], arguments.positional()[1], parseValues(text));
  return 0;
}

const qvil::CommandRegistration registration(
    {"multiply",
     "Multiply the channels of an RGBA image by values out of 255",
     "multiply --value R,G,B,A INPUT OUTPUT\n"
     "       qvil multiply --value V INPUT OUTPUT\n"
     "  Each channel c becomes c * value / 255 (255 keeps it, 0 clears it); alpha included.",
     {},
     runMultiply});

void demoMultiply(const qvil::DemoContext& context) {
  const std::string input = context.directory + "/arith-gradient.png";
  qvil::writeImage(input, qvil::gradientImage(320, 240));
  multiplyImage(input, context.directory + "/multiply.png", ChannelValues{{255, 128, 64, 255}});
  printf("multiplied arith-gradient.png by 255,128,64,255 into multiply.png\n");
}

const qvil::DemoRegistration demo({32, "channel multiplication", demoMultiply});

}  // namespace
