// The demo's contact sheet of the scale modes: one picture with fine detail, reduced to a third
// and enlarged three times in every interpolation mode, one column a mode, side by side.

#include <cstdio>
#include <cstring>
#include <string>

#include "command.h"
#include "image_io.h"
#include "qvimage/QVILResize.h"
#include "synthetic.h"

namespace {

constexpr int kSide = 96;            // the source
constexpr int kReduced = kSide / 3;  // shown at its own size under the enlargement
constexpr int kEnlarged = kSide * 3;
constexpr int kGap = 8;

const char* const kModeNames[] = {"nearest",  "linear", "cubic", "super",  "lanczos", "lanczos5",
                                  "lanczos3", "none",   "low",   "medium", "high"};

// The gradient picture with a band of one-pixel stripes and a fine checkerboard, where aliasing
// and ringing show.
qvil::Image detailedSource() {
  qvil::Image image = qvil::gradientImage(kSide, kSide);
  for (int y = 0; y < kSide; ++y)
    for (int x = 0; x < kSide; ++x) {
      uint8_t* p = &image.pixels[(static_cast<size_t>(y) * kSide + x) * 4];
      const bool stripes = y >= kSide / 3 && y < kSide / 2 && x % 2 == 0;
      const bool checks = y >= 2 * kSide / 3 && x >= kSide / 2 && (x + y) % 2 == 0;
      if (stripes || checks) p[0] = p[1] = p[2] = 0;
    }
  return image;
}

void paste(qvil::Image& sheet, const qvil::Image& tile, int left, int top) {
  for (int y = 0; y < tile.height; ++y)
    std::memcpy(&sheet.pixels[(static_cast<size_t>(top + y) * sheet.width + left) * 4],
                &tile.pixels[static_cast<size_t>(y) * tile.width * 4], static_cast<size_t>(tile.width) * 4);
}

qvil::Image scaled(const qvil::Image& source, int side, int32_t mode) {
  qvil::Image from = source;
  qvil::Image to(side, side, 4, 8);
  vImage_Buffer a = from.buffer(), b = to.buffer();
  QVILResize::sharedInstance()->imageLibScaleRGBA(&a, &b, mode, 0, 8);
  return to;
}

void demoScaleSheet(const qvil::DemoContext& context) {
  const qvil::Image source = detailedSource();
  qvil::writeImage(context.directory + "/scale-modes-source.png", source);
  const int columns = 11;
  qvil::Image sheet(columns * (kEnlarged + kGap) + kGap, kEnlarged + kReduced + 3 * kGap, 4, 8);
  for (size_t i = 0; i < sheet.pixels.size(); ++i) sheet.pixels[i] = 255;
  for (int32_t mode = 0; mode < columns; ++mode) {
    const int left = kGap + mode * (kEnlarged + kGap);
    if (mode != QVILResizeSuper) paste(sheet, scaled(source, kEnlarged, mode), left, kGap);  // super only reduces
    paste(sheet, scaled(source, kReduced, mode), left, kEnlarged + 2 * kGap);
  }
  qvil::writeImage(context.directory + "/scale-modes.png", sheet);
  std::string order;
  for (const char* name : kModeNames) {
    if (!order.empty()) order += ", ";
    order += name;
  }
  printf(
      "scale-modes.png: scale-modes-source.png (%dx%d) enlarged to %dx%d (top) and reduced to %dx%d (below),\n"
      "one column a mode, left to right: %s (super reduces only)\n",
      kSide, kSide, kEnlarged, kEnlarged, kReduced, kReduced, order.c_str());
}

const qvil::DemoRegistration demo({53, "every scale mode on one contact sheet", demoScaleSheet});

}  // namespace
