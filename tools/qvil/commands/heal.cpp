// qvil heal: fills the masked pixels of an image with texture synthesised from its other pixels,
// with a progress bar; Ctrl-C cancels the run and leaves the output unwritten.

#include <cmath>
#include <csignal>
#include <cstdio>
#include <string>

#include "command.h"
#include "image_io.h"
#include "qvimage/QVILResynthesize.h"
#include "qvimage/imageSynth.h"

namespace {

// Raised by SIGINT; the engine reads it once every 4096 visits.
volatile sig_atomic_t cancelRequested = 0;

void onInterrupt(int) { cancelRequested = 1; }

int32_t* cancelFlag() { return const_cast<int32_t*>(reinterpret_cast<volatile int32_t*>(&cancelRequested)); }

// The engine's percentage is not clamped: small selections start above 100.
void drawProgress(int32_t percent, void* context) {
  if (context == nullptr) return;
  const int shown = percent > 100 ? 100 : percent;
  const int filled = shown * 40 / 100;
  fprintf(stderr, "\r[%.*s%*s] %3d%%", filled, "########################################", 40 - filled, "", shown);
  fflush(stderr);
}

const char* resultText(int32_t result) {
  switch (result) {
    case SynthBadFormat:
      return "the image format is not one of rgb, rgba, gray";
    case SynthSizeMismatch:
      return "image and mask differ in size";
    case SynthTooManyNeighbours:
      return "--neighbours is above 64";
    case SynthBadOrder:
      return "--order is above 8";
    case SynthNoTargetPoints:
      return "the mask selects no pixel";
    case SynthNoCorpusPoints:
      return "no pixel is left to copy from";
    default:
      return "unknown result";
  }
}

struct HealOptions {
  std::string format = "rgba";
  ImageSynthParametersStruct parameters{};
  bool showProgress = true;
};

// Packs the first n channels of every RGBA pixel (n = 3 for rgb) or keeps the image (rgba, gray).
std::vector<uint8_t> packed(const qvil::Image& image, int n) {
  if (n == image.channels) return image.pixels;
  std::vector<uint8_t> bytes(static_cast<size_t>(image.width) * image.height * n);
  for (size_t i = 0; i < static_cast<size_t>(image.width) * image.height; ++i)
    for (int k = 0; k < n; ++k) bytes[i * n + k] = image.pixels[i * image.channels + k];
  return bytes;
}

void unpack(const std::vector<uint8_t>& bytes, int n, qvil::Image& image) {
  if (n == image.channels) {
    image.pixels = bytes;
    return;
  }
  for (size_t i = 0; i < static_cast<size_t>(image.width) * image.height; ++i)
    for (int k = 0; k < n; ++k) image.pixels[i * image.channels + k] = bytes[i * n + k];
}

// Heals image in place; false when the run was cancelled (the image is then unchanged).
bool healImage(qvil::Image& image, qvil::Image& mask, HealOptions options) {
  const int format = options.format == "rgb"    ? ImageFormatRGB
                     : options.format == "gray" ? ImageFormatGray
                                                : ImageFormatRGBA;
  const int n = static_cast<int>(countPixelelsPerPixelForFormat(format));
  std::vector<uint8_t> bytes = packed(image, n);
  _ImageBuffer pixels{bytes.data(), static_cast<uint32_t>(image.width), static_cast<uint32_t>(image.height),
                      static_cast<uint64_t>(image.width) * n};
  _ImageBuffer maskBuffer{mask.pixels.data(), static_cast<uint32_t>(mask.width), static_cast<uint32_t>(mask.height),
                          static_cast<uint64_t>(mask.width)};
  void* callback = reinterpret_cast<void*>(&drawProgress);
  void* context = options.showProgress ? &options : nullptr;
  cancelRequested = 0;
  void (*previous)(int) = signal(SIGINT, onInterrupt);
  const int32_t result =
      format == ImageFormatRGBA
          ? QVILResynthesize::imageSynth(&pixels, &maskBuffer, format, &options.parameters, callback, context,
                                         cancelFlag())
          : imageSynth(&pixels, &maskBuffer, format, &options.parameters, callback, context, cancelFlag());
  signal(SIGINT, previous);
  if (options.showProgress) fprintf(stderr, "\n");
  if (result != SynthOK) throw qvil::RunError(std::string("synthesis refused: ") + resultText(result));
  if (cancelRequested != 0) return false;
  unpack(bytes, n, image);
  return true;
}

HealOptions optionsOf(const qvil::Arguments& arguments) {
  HealOptions options;
  setDefaultParams(&options.parameters);
  ImageSynthParametersStruct& p = options.parameters;
  options.format = arguments.text("format", "rgba");
  if (options.format != "rgba" && options.format != "rgb" && options.format != "gray")
    throw qvil::UsageError("--format must be rgba, rgb or gray");
  p.wrapHorizontally = arguments.flag("wrap-horizontally") ? 1 : 0;
  p.wrapVertically = arguments.flag("wrap-vertically") ? 1 : 0;
  p.targetOrder = static_cast<int32_t>(arguments.integer("order", p.targetOrder, 0, 8));
  p.mapWeight = arguments.real("map-weight", p.mapWeight);
  p.sensitivity = arguments.real("sensitivity", p.sensitivity);
  if (!(p.sensitivity > 0.0)) throw qvil::UsageError("--sensitivity must be above 0");
  p.neighbourLimit = static_cast<uint32_t>(arguments.integer("neighbours", p.neighbourLimit, 0, 64));
  p.probeLimit = static_cast<uint32_t>(arguments.integer("probes", p.probeLimit, 0, 0xFFFFFFFFLL));
  options.showProgress = !arguments.flag("quiet");
  return options;
}

int runHeal(const qvil::Arguments& arguments) {
  arguments.expectPositional(3);
  arguments.allowOnly({"format", "order", "map-weight", "sensitivity", "neighbours", "probes"});
  const HealOptions options = optionsOf(arguments);
  qvil::Image image = qvil::readImage(arguments.positional()[0], options.format == "gray" ? 1 : 4);
  qvil::Image mask = qvil::readImage(arguments.positional()[1], 1);
  if (!healImage(image, mask, options)) {
    fprintf(stderr, "cancelled: %s not written\n", arguments.positional()[2].c_str());
    return 130;
  }
  qvil::writeImage(arguments.positional()[2], image);
  return 0;
}

const qvil::CommandRegistration registration(
    {"heal",
     "Fill the masked pixels of an image with texture taken from the rest of it",
     "heal IMAGE MASK OUTPUT [options]\n"
     "  MASK: a grey image of the same size; 0 keeps a pixel, anything else fills it\n"
     "  --format rgba|rgb|gray   pixels to synthesise (rgba: alpha 0 pixels are neither copied nor\n"
     "                           compared; default rgba)\n"
     "  --order N                visiting order 0-8 (default 1: random; 2 rim inward, 5 centre outward,\n"
     "                           3/4 from the left and right / top and bottom ends, 6/7 from the centre\n"
     "                           lines; 0: random without the pixels around the hole as context)\n"
     "  --neighbours N           pixels compared per match, 0-64 (default 30)\n"
     "  --probes N               random candidates per pixel and pass (default 200)\n"
     "  --sensitivity X          width of the colour metric (default 0.117)\n"
     "  --map-weight X           weight of map pixelels (default 0.5; none in these formats)\n"
     "  --wrap-horizontally, --wrap-vertically   neighbourhoods wrap around the image edges\n"
     "  --quiet                  no progress bar\n"
     "  Ctrl-C cancels: the output is then not written",
     {"wrap-horizontally", "wrap-vertically", "quiet"},
     runHeal});

// A woven texture with a hole in the middle, for the demo.
void makeDemoInput(qvil::Image& image, qvil::Image& mask) {
  for (int y = 0; y < image.height; ++y)
    for (int x = 0; x < image.width; ++x) {
      uint8_t* p = &image.pixels[(static_cast<size_t>(y) * image.width + x) * 4];
      const double weave = std::sin(x * 0.6) * std::cos(y * 0.45);
      p[0] = static_cast<uint8_t>(130 + 80 * weave);
      p[1] = static_cast<uint8_t>(((x / 6 + y / 6) % 2) * 90 + 70);
      p[2] = static_cast<uint8_t>(120 + 60 * std::sin((x + y) * 0.3));
      p[3] = 255;
      const bool hole = x >= 64 && x < 96 && y >= 48 && y < 72;
      mask.pixels[static_cast<size_t>(y) * mask.width + x] = hole ? 255 : 0;
      if (hole) p[0] = p[1] = p[2] = 0;
    }
}

void demoHeal(const qvil::DemoContext& context) {
  qvil::Image image(160, 120, 4, 8);
  qvil::Image mask(160, 120, 1, 8);
  makeDemoInput(image, mask);
  qvil::writeImage(context.directory + "/heal-input.png", image);
  qvil::writeImage(context.directory + "/heal-mask.png", mask);
  HealOptions options;
  setDefaultParams(&options.parameters);
  options.showProgress = false;
  healImage(image, mask, options);
  qvil::writeImage(context.directory + "/heal-output.png", image);
  printf("healed a 32 x 24 hole of heal-input.png (mask heal-mask.png) into heal-output.png\n");
}

const qvil::DemoRegistration demo({60, "heal a hole with synthesised texture", demoHeal});

}  // namespace
