// qvil copy: copies an RGBA image through the strip decomposition.

#include <cstdio>

#include "command.h"
#include "image_io.h"
#include "qvimage/QVILConversion.h"
#include "synthetic.h"

namespace {

void copyImage(const std::string& input, const std::string& output, uint32_t options) {
  qvil::Image source = qvil::readImage(input, 4, true);
  qvil::Image destination(source.width, source.height, 4, source.bitsPerChannel);
  vImage_Buffer from = source.buffer();
  vImage_Buffer to = destination.buffer();
  if (!QVILConversion::sharedInstance()->imageLibCopyRGBA(&from, &to, options, source.bitsPerChannel))
    throw qvil::RunError("the copy was refused");
  qvil::writeImage(output, destination);
}

int runCopy(const qvil::Arguments& arguments) {
  arguments.expectPositional(2);
  arguments.allowOnly({"threads"});
  const auto options = static_cast<uint32_t>(arguments.integer("threads", 0, 0, 0xFFFFFFFFLL));
  copyImage(arguments.positional()[0], arguments.positional()[1], options);
  return 0;
}

const qvil::CommandRegistration registration(
    {"copy",
     "Copy an RGBA image (8 or 16 bits), in strips on several processors",
     "copy INPUT OUTPUT [--threads WORD]\n"
     "  WORD: the multithread option word: mode in bits 0-15 (0 calling thread, 2 physical\n"
     "  processors, other values logical processors), strip limit in bits 16-31 (0 none)",
     {},
     runCopy});

void demoCopy(const qvil::DemoContext& context) {
  const std::string input = context.directory + "/gradient.png";
  qvil::writeImage(input, qvil::gradientImage(640, 480));
  copyImage(input, context.directory + "/copy.png", 1);
  printf("copied gradient.png to copy.png in strips over the logical processors\n");
}

const qvil::DemoRegistration demo({10, "copy in strips", demoCopy});

}  // namespace
