#include <zowidgets/colour/EyeDropperImageButton.h>

namespace {

ImageButton::InitArgs withImage(ImageButton::InitArgs args) {
  if (!args.imageFile.empty()) {
    Zo::Image::Surface image = Zo::Image::Surface::loadPNG(args.imageFile);
    if (!image.empty())
      args.icon = image;
  }
  return args;
}

} // namespace

ImageButton::ImageButton(InitArgs const& args) : Button(withImage(args)) {}
