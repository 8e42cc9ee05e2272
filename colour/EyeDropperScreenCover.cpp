#include <zowidgets/colour/EyeDropperScreenCover.h>
#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/shell/MediaServices.h>
#include <zowidgets/host/shell/OS.h>
#include <zowidgets/host/shell/ScreenBackend.h>
#include <zowidgets/host/toolkit/GlobManager.h>

namespace {

GlobCreationInfo wholeScreen() {
  GlobCreationInfo info(screenBackend().screenSize());
  info.screenPosition = XY<int>(0, 0);
  return info;
}

Zo::Image::Surface screenPicture(XY<int> size) {
  Zo::Ptr<iHostImage> const image = OS().media().getHostImage(Zo::Box<int>(0, 0, size.x, size.y));
  return image ? image->pixels() : Zo::Image::Surface();
}

} // namespace

EyeDropperScreenCover::EyeDropperScreenCover(int cursorId)
    : Glob(wholeScreen()), picture_(screenPicture(getSize())), cursorId_(cursorId) {
  GlobManager::realize(this);
}

void EyeDropperScreenCover::drawBackground(CanvasRenderer& renderer) {
  renderer.renderPrimitive(Glib::ImageDescription(picture_, XY<double>(0.0, 0.0)));
}
