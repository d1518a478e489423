// qvil fill: flood-fills the four-connected region around a seed of a grey image, or of one
// channel of a colour image, within a fixed range of the seed's value.

#include <cstdio>
#include <sstream>
#include <string>
#include <vector>

#include "command.h"
#include "image_io.h"
#include "qvimage/QVILComputerVision.h"
#include "synthetic.h"

namespace {

struct FillRequest {
  int seedX = 0, seedY = 0;
  uint8_t value = 0, minDelta = 0, maxDelta = 0;
  int channel = -1;  // -1: the image is read as grey
};

// "X,Y": two whole numbers.
void parseSeed(const std::string& text, FillRequest& request) {
  const size_t comma = text.find(',');
  if (comma == std::string::npos) throw qvil::UsageError("--seed takes X,Y, not '" + text + "'");
  request.seedX = static_cast<int>(qvil::parseInteger("--seed X", text.substr(0, comma), 0, 65535));
  request.seedY = static_cast<int>(qvil::parseInteger("--seed Y", text.substr(comma + 1), 0, 65535));
}

void checkSeedInside(int width, int height, const FillRequest& request) {
  if (request.seedX >= width || request.seedY >= height)
    throw qvil::UsageError("--seed " + std::to_string(request.seedX) + "," + std::to_string(request.seedY) +
                           " lies outside the " + std::to_string(width) + " x " + std::to_string(height) + " image");
}

// Fills one plane in place and answers the bounding box of the region.
CGRect fillPlane(std::vector<uint8_t>& plane, int width, int height, const FillRequest& request) {
  QVILComputerVision* vision = QVILComputerVision::sharedInstance();
  int32_t scratchBytes = 0;
  vision->floodFillGetSize_Grad({static_cast<double>(width), static_cast<double>(height)}, &scratchBytes);
  std::vector<uint8_t> scratch(static_cast<size_t>(scratchBytes));
  vImage_Buffer buffer{plane.data(), static_cast<size_t>(height), static_cast<size_t>(width),
                       static_cast<size_t>(width)};
  CGRect box{};
  const CGPoint seed{static_cast<double>(request.seedX), static_cast<double>(request.seedY)};
  if (!vision->floodFillRange4ConPlanar(&buffer, seed, request.value, request.minDelta, request.maxDelta, &box,
                                        scratch.data()))
    throw qvil::RunError("the fill was refused");
  return box;
}

// Runs the fill on the grey image or on the chosen channel of the RGBA image, and writes it.
void fillImage(const std::string& input, const std::string& output, const FillRequest& request) {
  const int channels = request.channel < 0 ? 1 : 4;
  qvil::Image image = qvil::readImage(input, channels);
  checkSeedInside(image.width, image.height, request);
  const size_t pixels = static_cast<size_t>(image.width) * image.height;
  std::vector<uint8_t> plane(pixels);
  for (size_t i = 0; i < pixels; ++i) plane[i] = image.pixels[i * channels + (channels == 1 ? 0 : request.channel)];
  const uint8_t seedValue = plane[static_cast<size_t>(request.seedY) * image.width + request.seedX];
  const CGRect box = fillPlane(plane, image.width, image.height, request);
  for (size_t i = 0; i < pixels; ++i) image.pixels[i * channels + (channels == 1 ? 0 : request.channel)] = plane[i];
  qvil::writeImage(output, image);
  if (seedValue == request.value)
    printf("the seed already holds %d: nothing to fill\n", request.value);
  else
    printf("filled the region within %g, %g, %g x %g\n", box.origin.x, box.origin.y, box.size.width, box.size.height);
}

int runFill(const qvil::Arguments& arguments) {
  arguments.expectPositional(2);
  arguments.allowOnly({"seed", "value", "min-delta", "max-delta", "channel"});
  FillRequest request;
  if (arguments.text("seed", "").empty()) throw qvil::UsageError("--seed X,Y is required");
  parseSeed(arguments.text("seed", ""), request);
  request.value = static_cast<uint8_t>(arguments.integer("value", 0, 0, 255));
  request.minDelta = static_cast<uint8_t>(arguments.integer("min-delta", 0, 0, 255));
  request.maxDelta = static_cast<uint8_t>(arguments.integer("max-delta", 0, 0, 255));
  request.channel = static_cast<int>(arguments.integer("channel", -1, 0, 3));
  fillImage(arguments.positional()[0], arguments.positional()[1], request);
  return 0;
}

const qvil::CommandRegistration registration(
    {"fill",
     "Flood-fill the region around a seed of a grey image, or of one channel of a colour image",
     "fill INPUT OUTPUT --seed X,Y [--value V] [--min-delta D] [--max-delta D] [--channel C]\n"
     "  Repaints with V (default 0) the four-connected region around the seed whose values lie\n"
     "  within [seed - D(min), seed + D(max)] (deltas default 0). Without --channel the image is\n"
     "  read as grey; with --channel 0..3 the fill runs on that channel of the RGBA image.",
     {},
     runFill});

void demoFill(const qvil::DemoContext& context) {
  const std::string input = context.directory + "/maze.png";
  qvil::writeImage(input, qvil::mazeImage(320, 240));
  FillRequest request;
  request.seedX = 40;  // in a corridor between the walls
  request.seedY = 24;
  request.value = 90;
  request.minDelta = 60;
  request.maxDelta = 55;
  fillImage(input, context.directory + "/maze-filled.png", request);
  request.channel = 1;
  const std::string colour = context.directory + "/fill-source.png";
  qvil::writeImage(colour, qvil::gradientImage(320, 200));
  request.seedX = 160;
  request.seedY = 100;
  request.value = 0;
  request.minDelta = 20;
  request.maxDelta = 20;
  fillImage(colour, context.directory + "/fill-channel.png", request);
}

const qvil::DemoRegistration demo({51, "flood fill of a maze and of one channel", demoFill});

}  // namespace
