#include "image_io.h"

#include <stb/stb_image.h>
#include <stb/stb_image_write.h>

#include <cstdio>
#include <cstring>
#include <memory>

#include "command.h"

namespace qvil {
namespace {

bool endsWith(const std::string& text, const std::string& suffix) {
  return text.size() >= suffix.size() && text.compare(text.size() - suffix.size(), suffix.size(), suffix) == 0;
}

struct FileCloser {
  void operator()(FILE* file) const { fclose(file); }
};
using File = std::unique_ptr<FILE, FileCloser>;

File openFile(const std::string& path, const char* mode) {
  File file(fopen(path.c_str(), mode));
  if (!file) throw RunError("cannot open '" + path + "': " + std::strerror(errno));
  return file;
}

// PAM: a text header (WIDTH, HEIGHT, DEPTH, MAXVAL, TUPLTYPE), then big-endian samples.
void writePam(const std::string& path, const Image& image) {
  File file = openFile(path, "wb");
  const int maxValue = image.bitsPerChannel == 16 ? 65535 : 255;
  fprintf(file.get(), "P7\nWIDTH %d\nHEIGHT %d\nDEPTH %d\nMAXVAL %d\nTUPLTYPE %s\nENDHDR\n", image.width, image.height,
          image.channels, maxValue, image.channels == 4 ? "RGB_ALPHA" : "GRAYSCALE");
  std::vector<uint8_t> samples(image.pixels);
  if (image.bitsPerChannel == 16)
    for (size_t i = 0; i + 1 < samples.size(); i += 2) std::swap(samples[i], samples[i + 1]);
  if (fwrite(samples.data(), 1, samples.size(), file.get()) != samples.size())
    throw RunError("cannot write '" + path + "'");
}

bool readPamHeaderWord(FILE* file, std::string* word) {
  word->clear();
  int c = fgetc(file);
  while (c == ' ' || c == '\n' || c == '\r' || c == '\t') c = fgetc(file);
  while (c != EOF && c != ' ' && c != '\n' && c != '\r' && c != '\t') {
    word->push_back(static_cast<char>(c));
    c = fgetc(file);
  }
  return !word->empty();
}

Image readPam(const std::string& path) {
  File file = openFile(path, "rb");
  std::string word;
  if (!readPamHeaderWord(file.get(), &word) || word != "P7") throw RunError("'" + path + "' is not a PAM file");
  long width = 0, height = 0, depth = 0, maxValue = 0;
  while (readPamHeaderWord(file.get(), &word) && word != "ENDHDR") {
    std::string value;
    if (!readPamHeaderWord(file.get(), &value)) break;
    if (word == "WIDTH") width = std::strtol(value.c_str(), nullptr, 10);
    if (word == "HEIGHT") height = std::strtol(value.c_str(), nullptr, 10);
    if (word == "DEPTH") depth = std::strtol(value.c_str(), nullptr, 10);
    if (word == "MAXVAL") maxValue = std::strtol(value.c_str(), nullptr, 10);
  }
  if (word != "ENDHDR" || width < 1 || height < 1 || width > 65536 || height > 65536 || (depth != 1 && depth != 4) ||
      (maxValue != 255 && maxValue != 65535))
    throw RunError("'" + path + "' has a PAM header this tool does not read");
  Image image(static_cast<int>(width), static_cast<int>(height), static_cast<int>(depth), maxValue == 65535 ? 16 : 8);
  if (fread(image.pixels.data(), 1, image.pixels.size(), file.get()) != image.pixels.size())
    throw RunError("'" + path + "' is truncated");
  if (image.bitsPerChannel == 16)
    for (size_t i = 0; i + 1 < image.pixels.size(); i += 2) std::swap(image.pixels[i], image.pixels[i + 1]);
  return image;
}

Image readPng(const std::string& path, int channels, bool keepSixteenBits) {
  int width = 0, height = 0, fileChannels = 0;
  const bool sixteen = keepSixteenBits && stbi_is_16_bit(path.c_str());
  void* loaded = sixteen ? static_cast<void*>(stbi_load_16(path.c_str(), &width, &height, &fileChannels, channels))
                         : static_cast<void*>(stbi_load(path.c_str(), &width, &height, &fileChannels, channels));
  if (loaded == nullptr) throw RunError("cannot read image '" + path + "': " + stbi_failure_reason());
  Image image(width, height, channels, sixteen ? 16 : 8);
  std::memcpy(image.pixels.data(), loaded, image.pixels.size());
  stbi_image_free(loaded);
  return image;
}

// Grey from RGBA by the mean of the colours, or RGBA from grey with opaque alpha.
Image withChannels(const Image& image, int channels) {
  if (image.channels == channels) return image;
  if (image.bitsPerChannel != 8) throw RunError("channel conversion of 16-bit images is not supported");
  Image out(image.width, image.height, channels, 8);
  const size_t count = static_cast<size_t>(image.width) * image.height;
  for (size_t i = 0; i < count; ++i) {
    if (channels == 1) {
      const uint8_t* p = &image.pixels[4 * i];
      out.pixels[i] = static_cast<uint8_t>((p[0] + p[1] + p[2]) / 3);
    } else {
      std::memset(&out.pixels[4 * i], image.pixels[i], 3);
      out.pixels[4 * i + 3] = 255;
    }
  }
  return out;
}

}  // namespace

Image::Image(int w, int h, int c, int bits)
    : width(w), height(h), channels(c), bitsPerChannel(bits), pixels(static_cast<size_t>(w) * h * c * (bits / 8)) {}

vImage_Buffer Image::buffer() {
  return {pixels.data(), static_cast<size_t>(height), static_cast<size_t>(width), rowBytes()};
}

Image readImage(const std::string& path, int channels, bool keepSixteenBits) {
  if (endsWith(path, ".pam")) {
    Image image = readPam(path);
    if (image.bitsPerChannel == 16 && !keepSixteenBits)
      throw RunError("'" + path + "' is 16-bit; this command takes 8-bit images");
    return withChannels(image, channels);
  }
  return readPng(path, channels, keepSixteenBits);
}

void writeImage(const std::string& path, const Image& image) {
  if (endsWith(path, ".pam")) return writePam(path, image);
  if (!endsWith(path, ".png")) throw RunError("'" + path + "': output files end in .png or .pam");
  if (image.bitsPerChannel != 8) throw RunError("'" + path + "': 16-bit images are written as .pam");
  if (!stbi_write_png(path.c_str(), image.width, image.height, image.channels, image.pixels.data(),
                      static_cast<int>(image.rowBytes())))
    throw RunError("cannot write '" + path + "'");
}

}  // namespace qvil
