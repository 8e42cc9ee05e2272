#include <zowidgets/host/drawing/PictureProportions.h>

namespace Zo {

double getAspectRatio(Image::AspectRatio aspect) noexcept {
  if (aspect.width <= 0 || aspect.height <= 0)
    aspect = Image::kAspect16x9;
  return double(aspect.width) / double(aspect.height);
}

} // namespace Zo
