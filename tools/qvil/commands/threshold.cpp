// qvil threshold: grey values strictly above a threshold become a new value.

#include <cstdio>

#include "command.h"
#include "image_io.h"
#include "qvimage/QVILConversion.h"
#include "synthetic.h"

namespace {

void thresholdImage(const std::string& input, const std::string& output, uint8_t threshold, uint8_t value) {
  qvil::Image image = qvil::readImage(input, 1);
  vImage_Buffer buffer = image.buffer();
  QVILConversion::sharedInstance()->imageLibThresholdGreaterPlanar(&buffer, threshold, value);
  qvil::writeImage(output, image);
}

int runThreshold(const qvil::Arguments& arguments) {
  arguments.expectPositional(2);
  arguments.allowOnly({"threshold", "value"});
  const long long threshold = arguments.integer("threshold", -1, 0, 255);
  if (threshold < 0) throw qvil::UsageError("--threshold is required");
  const long long value = arguments.integer("value", 255, 0, 255);
  thresholdImage(arguments.positional()[0], arguments.positional()[1], static_cast<uint8_t>(threshold),
                 static_cast<uint8_t>(value));
  return 0;
}

const qvil::CommandRegistration registration(
    {"threshold",
     "Replace grey values above a threshold",
     "threshold --threshold T [--value V] INPUT OUTPUT\n"
     "  Values strictly greater than T (0-255) become V (0-255, default 255); the input is read as grey.",
     {},
     runThreshold});

void demoThreshold(const qvil::DemoContext& context) {
  const std::string input = context.directory + "/arith-gradient.png";
  qvil::writeImage(input, qvil::gradientImage(320, 240));
  thresholdImage(input, context.directory + "/threshold.png", 128, 0);
  printf("set the grey values above 128 of arith-gradient.png to 0 in threshold.png\n");
}

const qvil::DemoRegistration demo({33, "threshold", demoThreshold});

}  // namespace
