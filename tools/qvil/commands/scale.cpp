// qvil scale: resizes an RGBA image (8 or 16 bits a channel) to a new size, by one of the
// interpolation modes of QVILResize, in strips when the option word asks for them.

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>

#include "command.h"
#include "image_io.h"
#include "qvimage/QVILResize.h"
#include "synthetic.h"

namespace {

using ScaleOperation = bool (*)(const vImage_Buffer* source, const vImage_Buffer* destination, uint32_t options,
                                uint64_t bitsPerChannel);

// One row a mode: the name on the command line, what it does, and the operation it runs.
struct ScaleMode {
  const char* name;
  const char* summary;
  const char* refusal;  // why the operation may answer false
  ScaleOperation scale;
};

const ScaleMode kModes[] = {
    {"linear", "two taps a direction, in f32", "a source under 2 x 2 pixels",
     [](const vImage_Buffer* s, const vImage_Buffer* d, uint32_t options, uint64_t bits) {
       return QVILResize::sharedInstance()->imageLibScaleLinearRGBA(s, d, options, bits);
     }},
    {"lanczos", "Lanczos of 3 lobes, six taps a direction, in f32", "a source under 6 x 6 pixels",
     [](const vImage_Buffer* s, const vImage_Buffer* d, uint32_t options, uint64_t bits) {
       return QVILResize::sharedInstance()->imageLibScaleLanczosRGBA(s, d, options, bits);
     }},
};

std::string modeNames() {
  std::string names;
  for (const ScaleMode& mode : kModes) names += (names.empty() ? "" : "|") + std::string(mode.name);
  return names;
}

const ScaleMode& modeNamed(const std::string& name) {
  for (const ScaleMode& mode : kModes)
    if (name == mode.name) return mode;
  throw qvil::UsageError("--mode must be one of " + modeNames() + ", not '" + name + "'");
}

constexpr long long kLargestSide = 65535;

struct Size {
  int width, height;
};

// "WIDTHxHEIGHT", each a whole number from 1.
Size parseSize(const std::string& text) {
  const size_t cross = text.find('x');
  if (cross == std::string::npos)
    throw qvil::UsageError("--size must be WIDTHxHEIGHT, such as 640x480, not '" + text + "'");
  return {static_cast<int>(qvil::parseInteger("the width of --size", text.substr(0, cross), 1, kLargestSide)),
          static_cast<int>(qvil::parseInteger("the height of --size", text.substr(cross + 1), 1, kLargestSide))};
}

// Each side times the factor, rounded, and at least 1.
Size scaledSize(int width, int height, double factor) {
  if (!(factor > 0) || !std::isfinite(factor)) throw qvil::UsageError("--factor must be a number above 0");
  const double w = std::max(1.0, std::round(width * factor)), h = std::max(1.0, std::round(height * factor));
  if (w > kLargestSide || h > kLargestSide)
    throw qvil::UsageError("--factor makes a side larger than " + std::to_string(kLargestSide) + " pixels");
  return {static_cast<int>(w), static_cast<int>(h)};
}

void scaleImage(const std::string& input, const std::string& output, const ScaleMode& mode, const Size* size,
                double factor, uint32_t options) {
  qvil::Image source = qvil::readImage(input, 4, true);
  const Size target = size != nullptr ? *size : scaledSize(source.width, source.height, factor);
  qvil::Image destination(target.width, target.height, 4, source.bitsPerChannel);
  vImage_Buffer from = source.buffer();
  vImage_Buffer to = destination.buffer();
  if (!mode.scale(&from, &to, options, static_cast<uint64_t>(source.bitsPerChannel)))
    throw qvil::RunError(std::string("the ") + mode.name + " scale was refused (" + mode.refusal + "?)");
  qvil::writeImage(output, destination);
}

int runScale(const qvil::Arguments& arguments) {
  arguments.expectPositional(2);
  arguments.allowOnly({"size", "factor", "mode", "threads"});
  const std::string sizeText = arguments.text("size", ""), factorText = arguments.text("factor", "");
  if (sizeText.empty() == factorText.empty()) throw qvil::UsageError("give either --size WxH or --factor F");
  const ScaleMode& mode = modeNamed(arguments.text("mode", "linear"));
  const auto options = static_cast<uint32_t>(arguments.integer("threads", 0, 0, 0xFFFFFFFFLL));
  if (!sizeText.empty()) {
    const Size size = parseSize(sizeText);
    scaleImage(arguments.positional()[0], arguments.positional()[1], mode, &size, 0, options);
  } else {
    scaleImage(arguments.positional()[0], arguments.positional()[1], mode, nullptr, arguments.real("factor", 0),
               options);
  }
  return 0;
}

std::string usage() {
  std::string text =
      "scale INPUT OUTPUT (--size WIDTHxHEIGHT | --factor F) [--mode MODE] [--threads WORD]\n"
      "  The depth of the input (8 or 16 bits a channel) is kept; write 16 bits as .pam.\n"
      "  --factor multiplies both sides and rounds. WORD: the multithread option word: mode in\n"
      "  bits 0-15 (0 calling thread, 2 physical processors, other values logical processors),\n"
      "  strip limit in bits 16-31 (0 none). MODE (default linear):";
  for (const ScaleMode& mode : kModes) text += std::string("\n    ") + mode.name + ": " + mode.summary;
  return text;
}

const std::string kUsage = usage();

const qvil::CommandRegistration registration(
    {"scale", "Resize an RGBA image (8 or 16 bits) to a new size", kUsage.c_str(), {}, runScale});

void demoScale(const qvil::DemoContext& context) {
  const std::string input = context.directory + "/scale-source.png";
  qvil::writeImage(input, qvil::gradientImage(480, 320));
  const Size reduced{160, 107}, enlarged{1200, 800};
  scaleImage(input, context.directory + "/scale-reduced-lanczos.png", modeNamed("lanczos"), &reduced, 0, 1);
  scaleImage(input, context.directory + "/scale-reduced-linear.png", modeNamed("linear"), &reduced, 0, 1);
  scaleImage(input, context.directory + "/scale-enlarged-lanczos.png", modeNamed("lanczos"), &enlarged, 0, 1);
  printf(
      "scaled scale-source.png (480x320) to 160x107 (scale-reduced-lanczos.png, scale-reduced-linear.png) and\n"
      "to 1200x800 (scale-enlarged-lanczos.png), in strips over the logical processors\n");
}

const qvil::DemoRegistration demo({52, "scale down and up", demoScale});

}  // namespace
