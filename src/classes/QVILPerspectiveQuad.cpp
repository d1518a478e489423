// The text of a perspective quad.

#include "platform/text.h"
#include "qvimage/QVILTypes.h"

std::string NSStringFromQVILPerspectiveQuad(QVILPerspectiveQuad quad) {
  using qv::platform::stringFromPoint;
  return "{tl: " + stringFromPoint(quad.topLeft) + "; tr: " + stringFromPoint(quad.topRight) +
         "; br: " + stringFromPoint(quad.bottomRight) + "; bl: " + stringFromPoint(quad.bottomLeft) + "}";
}
