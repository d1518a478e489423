// qvil convert: widens an RGBA image to 16 bits a channel, or narrows one to 8.

#include <cstdio>

#include "command.h"
#include "image_io.h"
#include "qvimage/QVILConversion.h"
#include "synthetic.h"

namespace {

qvil::Image toSixteenBits(qvil::Image& source) {
  qvil::Image result(source.width, source.height, 4, 16);
  vImage_Buffer from = source.buffer();
  vImage_Buffer to = result.buffer();
  if (!QVILConversion::sharedInstance()->imageLibConvert8888Uto16U(&from, &to))
    throw qvil::RunError("the conversion to 16 bits failed");
  return result;
}

qvil::Image toEightBits(qvil::Image& source) {
  qvil::Image result(source.width, source.height, 4, 8);
  vImage_Buffer from = source.buffer();
  vImage_Buffer to = result.buffer();
  if (!QVILConversion::sharedInstance()->imageLibConvert16Uto8888U(&from, &to))
    throw qvil::RunError("the conversion to 8 bits failed");
  return result;
}

void convertImage(const std::string& input, const std::string& output, int bits) {
  qvil::Image source = qvil::readImage(input, 4, bits == 8);
  if (source.bitsPerChannel == bits)
    throw qvil::RunError("'" + input + "' already has " + std::to_string(bits) + " bits a channel");
  qvil::writeImage(output, bits == 16 ? toSixteenBits(source) : toEightBits(source));
}

int runConvert(const qvil::Arguments& arguments) {
  arguments.expectPositional(2);
  arguments.allowOnly({"bits"});
  const long long bits = arguments.integer("bits", 0, 0, 16);
  if (bits != 8 && bits != 16) throw qvil::UsageError("--bits 8 or --bits 16 is required");
  convertImage(arguments.positional()[0], arguments.positional()[1], static_cast<int>(bits));
  return 0;
}

const qvil::CommandRegistration registration({"convert",
                                              "Convert an RGBA image between 8 and 16 bits a channel",
                                              "convert --bits 16 INPUT.png OUTPUT.pam\n"
                                              "       qvil convert --bits 8 INPUT.png|INPUT.pam OUTPUT.png\n"
                                              "  Up: each channel s becomes s * 257. Down: the fast division by 257.\n"
                                              "  16-bit results are written as .pam.",
                                              {},
                                              runConvert});

void demoConvert(const qvil::DemoContext& context) {
  const std::string input = context.directory + "/convert-source.png";
  const std::string wide = context.directory + "/convert-16.pam";
  const std::string back = context.directory + "/convert-back.png";
  qvil::writeImage(input, qvil::gradientImage(320, 240));
  convertImage(input, wide, 16);
  convertImage(wide, back, 8);
  const bool same = qvil::readImage(input, 4).pixels == qvil::readImage(back, 4).pixels;
  printf("widened to convert-16.pam and narrowed back to convert-back.png: %s\n",
         same ? "every value returned unchanged" : "VALUES CHANGED");
  if (!same) throw qvil::RunError("8 to 16 to 8 bits did not return every value");
}

const qvil::DemoRegistration demo({30, "depth conversion 8 -> 16 -> 8 bits", demoConvert});

}  // namespace
