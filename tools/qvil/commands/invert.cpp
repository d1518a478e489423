// qvil invert: replaces each grey value v by 255 - v.

#include <cstdio>

#include "command.h"
#include "image_io.h"
#include "qvimage/QVILConversion.h"
#include "synthetic.h"

namespace {

void invertImage(const std::string& input, const std::string& output) {
  qvil::Image image = qvil::readImage(input, 1);
  vImage_Buffer buffer = image.buffer();
  QVILConversion::sharedInstance()->imageLibInvertBuffer(&buffer);
  qvil::writeImage(output, image);
}

int runInvert(const qvil::Arguments& arguments) {
  arguments.expectPositional(2);
  arguments.allowOnly({});
  invertImage(arguments.positional()[0], arguments.positional()[1]);
  return 0;
}

const qvil::CommandRegistration registration({"invert",
                                              "Invert a grey image (255 - value)",
                                              "invert INPUT OUTPUT\n"
                                              "  The input is read as grey (the mean of its colours).",
                                              {},
                                              runInvert});

void demoInvert(const qvil::DemoContext& context) {
  const std::string input = context.directory + "/arith-gradient.png";
  qvil::writeImage(input, qvil::gradientImage(320, 240));
  invertImage(input, context.directory + "/invert.png");
  printf("inverted the grey of arith-gradient.png into invert.png\n");
}

const qvil::DemoRegistration demo({31, "grey inversion", demoInvert});

}  // namespace
