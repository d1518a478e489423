// qvil scale: resizes an RGBA image (8 or 16 bits a channel) to a new size, by one of the
// interpolation modes of QVILResize (in strips when the option word asks for them and the mode
// has an engine that takes them), or by the square-pixel resize with any filter and edge flag.

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "command.h"
#include "image_io.h"
#include "qvimage/QVILResize.h"
#include "qvimage/ippcore.h"
#include "qvimage/ippi.h"
#include "synthetic.h"

namespace {

// One row a public interpolation mode: the name on the command line, the mode value and what it
// does.
struct ScaleMode {
  const char* name;
  int32_t mode;
  const char* summary;
};

const ScaleMode kModes[] = {
    {"nearest", QVILResizeNearestNeighbor, "the pixel under each centre"},
    {"linear", QVILResizeLinear,
     "two taps a direction in f32, in strips\n      (a source under 2 x 2: the fixed-point linear filter)"},
    {"cubic", QVILResizeCubic, "cubic through four points, 4 taps a direction"},
    {"super", QVILResizeSuper, "the mean of the area each pixel covers (reductions only)"},
    {"lanczos", QVILResizeLanczos, "Lanczos of 3 lobes, six taps a direction, in strips (a source from 6 x 6)"},
    {"lanczos5", QVILResizeLanczos5, "Lanczos of 5 lobes, stretched on reduction, edges extended"},
    {"lanczos3", QVILResizeLanczos3, "Lanczos of 3 lobes, stretched on reduction, edges extended"},
    {"none", QVILResizeQualityNone, "drawing quality none: nearest"},
    {"low", QVILResizeQualityLow, "drawing quality low: linear"},
    {"medium", QVILResizeQualityMedium, "drawing quality medium: linear stretched on reduction"},
    {"high", QVILResizeQualityHigh, "drawing quality high: Lanczos 3 stretched on reduction"},
};

template <typename Row, size_t n>
std::string namesOf(const Row (&rows)[n]) {
  std::string names;
  for (const Row& row : rows) {
    if (!names.empty()) names += '|';
    names += row.name;
  }
  return names;
}

template <typename Row, size_t n>
const Row& rowNamed(const Row (&rows)[n], const char* option, const std::string& name) {
  for (const Row& row : rows)
    if (name == row.name) return row;
  throw qvil::UsageError(std::string(option) + " must be one of " + namesOf(rows) + ", not '" + name + "'");
}

// The filters and edge flags of the square-pixel resize, for --filter and --edge.
struct Word {
  const char* name;
  uint32_t value;
};

const Word kFilters[] = {{"nn", IPPI_INTER_NN},           {"linear", IPPI_INTER_LINEAR},  {"cubic", IPPI_INTER_CUBIC},
                         {"bspline", IPPI_INTER_BSPLINE}, {"catmullrom", IPPI_INTER_CR},  {"b05c03", IPPI_INTER_B05C03},
                         {"super", IPPI_INTER_SUPER},     {"lanczos", IPPI_INTER_LANCZOS}};
const Word kEdges[] = {{"none", 0},
                       {"smooth", static_cast<uint32_t>(IPPI_SMOOTH_EDGE)},
                       {"subpixel", IPPI_SUBPIXEL_EDGE},
                       {"antialias", IPPI_ANTIALIASING}};

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

// Through the public operation, with the mode's value.
void scaleImage(const std::string& input, const std::string& output, const ScaleMode& mode, const Size* size,
                double factor, uint32_t options) {
  qvil::Image source = qvil::readImage(input, 4, true);
  const Size target = size != nullptr ? *size : scaledSize(source.width, source.height, factor);
  qvil::Image destination(target.width, target.height, 4, source.bitsPerChannel);
  vImage_Buffer from = source.buffer();
  vImage_Buffer to = destination.buffer();
  if (!QVILResize::sharedInstance()->imageLibScaleRGBA(&from, &to, mode.mode, options,
                                                       static_cast<uint64_t>(source.bitsPerChannel)))
    throw qvil::RunError(std::string("the ") + mode.name + " scale was refused (a source under 6 x 6 pixels?)");
  qvil::writeImage(output, destination);
}

// Through the square-pixel primitive, whole images, factors destination / source.
void resizeSquarePixel(const std::string& input, const std::string& output, uint32_t interpolation, const Size* size,
                       double factor) {
  qvil::Image source = qvil::readImage(input, 4, true);
  const Size target = size != nullptr ? *size : scaledSize(source.width, source.height, factor);
  qvil::Image destination(target.width, target.height, 4, source.bitsPerChannel);
  const IppiRect srcRoi{0, 0, source.width, source.height}, dstRoi{0, 0, target.width, target.height};
  int bytes = 0;
  IppStatus status = ippiResizeGetBufSize(srcRoi, dstRoi, 4, interpolation, &bytes);
  if (status < 0) throw qvil::RunError(std::string("the size query refused: ") + ippGetStatusString(status));
  std::vector<Ipp8u> scratch(static_cast<size_t>(bytes));
  const double xf = static_cast<double>(target.width) / source.width;
  const double yf = static_cast<double>(target.height) / source.height;
  const int srcStep = static_cast<int>(source.rowBytes()), dstStep = static_cast<int>(destination.rowBytes());
  if (source.bitsPerChannel == 16)
    status =
        ippiResizeSqrPixel_16u_C4R(reinterpret_cast<const Ipp16u*>(source.pixels.data()), {source.width, source.height},
                                   srcStep, srcRoi, reinterpret_cast<Ipp16u*>(destination.pixels.data()), dstStep,
                                   dstRoi, xf, yf, 0, 0, interpolation, scratch.data());
  else
    status = ippiResizeSqrPixel_8u_C4R(source.pixels.data(), {source.width, source.height}, srcStep, srcRoi,
                                       destination.pixels.data(), dstStep, dstRoi, xf, yf, 0, 0, interpolation,
                                       scratch.data());
  if (status < 0) throw qvil::RunError(std::string("the resize refused: ") + ippGetStatusString(status));
  if (status > 0) fprintf(stderr, "qvil scale: %s\n", ippGetStatusString(status));
  qvil::writeImage(output, destination);
}

int runScale(const qvil::Arguments& arguments) {
  arguments.expectPositional(2);
  arguments.allowOnly({"size", "factor", "mode", "threads", "filter", "edge"});
  const std::string sizeText = arguments.text("size", ""), factorText = arguments.text("factor", "");
  if (sizeText.empty() == factorText.empty()) throw qvil::UsageError("give either --size WxH or --factor F");
  Size size{0, 0};
  if (!sizeText.empty()) size = parseSize(sizeText);
  const Size* sizeGiven = sizeText.empty() ? nullptr : &size;
  const double factor = sizeText.empty() ? arguments.real("factor", 0) : 0;
  const std::string filter = arguments.text("filter", "");
  if (!filter.empty()) {
    const uint32_t word =
        rowNamed(kFilters, "--filter", filter).value | rowNamed(kEdges, "--edge", arguments.text("edge", "none")).value;
    resizeSquarePixel(arguments.positional()[0], arguments.positional()[1], word, sizeGiven, factor);
    return 0;
  }
  if (!arguments.text("edge", "").empty()) throw qvil::UsageError("--edge goes with --filter");
  const ScaleMode& mode = rowNamed(kModes, "--mode", arguments.text("mode", "linear"));
  const auto options = static_cast<uint32_t>(arguments.integer("threads", 0, 0, 0xFFFFFFFFLL));
  scaleImage(arguments.positional()[0], arguments.positional()[1], mode, sizeGiven, factor, options);
  return 0;
}

std::string usage() {
  std::string text =
      "scale INPUT OUTPUT (--size WIDTHxHEIGHT | --factor F) [--mode MODE] [--threads WORD]\n"
      "   or: qvil scale INPUT OUTPUT (--size WIDTHxHEIGHT | --factor F) --filter FILTER [--edge EDGE]\n"
      "  The depth of the input (8 or 16 bits a channel) is kept; write 16 bits as .pam.\n"
      "  --factor multiplies both sides and rounds. WORD: the multithread option word: mode in\n"
      "  bits 0-15 (0 calling thread, 2 physical processors, other values logical processors),\n"
      "  strip limit in bits 16-31 (0 none). MODE (default linear):";
  for (const ScaleMode& mode : kModes) text += std::string("\n    ") + mode.name + ": " + mode.summary;
  text += "\n  --filter runs the square-pixel resize itself with FILTER\n    (" + namesOf(kFilters) +
          ")\n  and at most one EDGE flag (" + namesOf(kEdges) +
          ");\n  antialias stretches the kernel on reduction. Equal sizes copy in every MODE, not with --filter.";
  return text;
}

const std::string kUsage = usage();

const qvil::CommandRegistration registration(
    {"scale", "Resize an RGBA image (8 or 16 bits) to a new size", kUsage.c_str(), {}, runScale});

void demoScale(const qvil::DemoContext& context) {
  const std::string input = context.directory + "/scale-source.png";
  qvil::writeImage(input, qvil::gradientImage(480, 320));
  const Size reduced{160, 107}, enlarged{1200, 800};
  const ScaleMode& lanczos = rowNamed(kModes, "--mode", "lanczos");
  scaleImage(input, context.directory + "/scale-reduced-lanczos.png", lanczos, &reduced, 0, 1);
  scaleImage(input, context.directory + "/scale-reduced-linear.png", rowNamed(kModes, "--mode", "linear"), &reduced, 0,
             1);
  scaleImage(input, context.directory + "/scale-enlarged-lanczos.png", lanczos, &enlarged, 0, 1);
  printf(
      "scaled scale-source.png (480x320) to 160x107 (scale-reduced-lanczos.png, scale-reduced-linear.png) and\n"
      "to 1200x800 (scale-enlarged-lanczos.png), in strips over the logical processors\n");
}

const qvil::DemoRegistration demo({52, "scale down and up", demoScale});

}  // namespace
