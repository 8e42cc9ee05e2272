#include <zowidgets/colour/HSColourWheel.h>
#include <zowidgets/host/Canvas.h>
#include <zowidgets/host/CanvasRenderer.h>
#include <zowidgets/host/UifStd.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace {

constexpr double kPi = 3.141592653589793;
// Hue 0 sits this many degrees anticlockwise of the top of the disc.
constexpr double kHueRotation = 14.0;
// The picture's saturation runs from 0.2 at the centre to 1 at the rim.
constexpr double kPictureSaturationScale = 0.8;
constexpr double kPictureSaturationFloor = 0.2;
constexpr double kRingShade = 0.7;

long long computations = 0;

// The angle of a point from the vertical axis, in degrees, within its
// quadrant. The picture and convertXYtoHS share it so that they agree to the
// last bit.
double quadrantAngle(double absX, double absY) { return std::atan(absX / absY) * 180.0 / kPi; }

// convertDisplayToHueAngle for display angles in 0..360, without fmod: the
// sum is below 720, so one subtraction is what fmod computes, exactly.
double hueOfDisplayAngle(double angle) {
  double const turned = angle + kHueRotation;
  return 360.0 - (turned >= 360.0 ? turned - 360.0 : turned);
}

std::uint32_t channelByte(double channel) {
  if (channel < 0.0)
    return 0;
  if (channel > 1.0)
    return 255;
  return static_cast<std::uint32_t>(channel * 255.0);
}

std::uint32_t opaquePixel(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
  return 0xFF000000u | (red << 16) | (green << 8) | blue;
}

// One ring of the picture: a softened saturation at the picture's
// brightness, and the bytes of its largest and smallest channels, which do
// not depend on hue.
struct PictureRing {
  PictureRing(double saturation, double value)
      : saturation(saturation), value(value), top(channelByte(value)), bottom(channelByte(value * (1.0 - saturation))) {
  }

  // HSVToRGB's arithmetic step for step, packed into a pixel, for hues in
  // (0, 360] as the picture has them: there fmod is the identity (360 wraps
  // to 0) and floor a truncation, so every channel is the host's to the last
  // bit, without a call, a library fmod and the hue-free channels per pixel.
  // The tests hold the picture to HSVToRGB pixel by pixel.
  std::uint32_t pixel(double hue) const {
    double const wrapped = hue == 360.0 ? 0.0 : hue;
    double const position = wrapped / 60.0;
    double const sextant = static_cast<double>(static_cast<int>(position));
    double const fraction = position - sextant;
    auto falling = [&] { return channelByte(value * (1.0 - saturation * fraction)); };
    auto rising = [&] { return channelByte(value * (1.0 - saturation * (1.0 - fraction))); };
    switch (static_cast<int>(sextant) % 6) {
    case 0:
      return opaquePixel(top, rising(), bottom);
    case 1:
      return opaquePixel(falling(), top, bottom);
    case 2:
      return opaquePixel(bottom, top, rising());
    case 3:
      return opaquePixel(bottom, falling(), top);
    case 4:
      return opaquePixel(rising(), bottom, top);
    default:
      return opaquePixel(top, bottom, falling());
    }
  }

  double saturation;
  double value;
  std::uint32_t top;
  std::uint32_t bottom;
};

Colour shadedBy(Colour const& colour, double factor) {
  Colour shaded(colour.red() * factor, colour.green() * factor, colour.blue() * factor);
  shaded.setAlpha(colour.alpha());
  return shaded;
}

// Draws only what reaches the clip, and records what it drew.
template <class Description>
void renderClipped(CanvasRenderer& renderer, Description const& description, Zo::Box<double> const& localBox) {
  XY<int> const origin = renderer.origin();
  Zo::Box<int> const box(
      static_cast<int>(std::floor(localBox.x0)) + origin.x, static_cast<int>(std::floor(localBox.y0)) + origin.y,
      static_cast<int>(std::ceil(localBox.x1)) + origin.x, static_cast<int>(std::ceil(localBox.y1)) + origin.y);
  Zo::Box<int> const clipped = box.intersect(renderer.clipBox());
  if (!renderer.isAcceptingDrawing() || clipped.empty())
    return;
  renderer.renderPrimitive(description);
  renderer.addModifiedArea(clipped);
}

} // namespace

Zo::Image::Surface HSColourWheel::lastWheelImage_;
NormalisedRGB HSColourWheel::lastBgColour_;

HSColourWheel::HSColourWheel(InitArgs const& args)
    : ColourDataValWidget(args), border_(static_cast<unsigned short>(UifStd::getWidgetGap())), hitRight_(args.size.x),
      hitTop_(args.size.y) {
  computeGeometry();
}

HSColourWheel::HSColourWheel(Canvas* canvas, unsigned short size, double value, unsigned short border)
    : ColourDataValWidget(GlobCreationInfo(size, size).setPalette(UifStd::getColourScheme())), displayValue_(value),
      value_(value), border_(border), hitRight_(size), hitTop_(size) {
  computeGeometry();
  if (canvas && canvas->root())
    canvas->root()->addWidget(this);
}

void HSColourWheel::computeGeometry() {
  radius_ = width() / 2 - static_cast<int>(border_);
  centre_ = XY<double>(border_ + radius_, border_ + radius_);
}

// --- Geometry ---------------------------------------------------------------

double HSColourWheel::convertHueToDisplayAngle(double hue) { return std::fmod(360.0 - hue - kHueRotation, 360.0); }

double HSColourWheel::convertDisplayToHueAngle(double angle) { return 360.0 - std::fmod(angle + kHueRotation, 360.0); }

int HSColourWheel::convertHStoXY(double hue, double saturation, double& x, double& y) const {
  if (!(hue >= 0.0 && hue <= 360.0) || !(saturation >= 0.0 && saturation <= 1.0))
    return -1;
  double const distance = saturation * radius_;
  double const angle = convertHueToDisplayAngle(hue) * kPi / 180.0;
  x = std::sin(angle) * distance;
  y = std::cos(angle) * distance;
  return 0;
}

int HSColourWheel::convertXYtoHS(double x, double y, double& hue, double& saturation) const {
  double const distance = std::sqrt(x * x + y * y);
  if (static_cast<int>(distance) >= static_cast<int>(radius_))
    return -1;
  saturation = distance / radius_;
  double displayAngle;
  if (x > 0.0) {
    displayAngle = y > 0.0 ? quadrantAngle(x, y) : y < 0.0 ? 180.0 - quadrantAngle(x, -y) : 90.0;
  } else if (x < 0.0) {
    displayAngle = y > 0.0 ? 360.0 - quadrantAngle(-x, y) : y < 0.0 ? 180.0 + quadrantAngle(-x, -y) : 270.0;
  } else {
    displayAngle = y > 0.0 ? 0.0 : 180.0;
  }
  hue = convertDisplayToHueAngle(displayAngle);
  return 0;
}

void HSColourWheel::snapPoint(double& x, double& y) const {
  if (std::sqrt(x * x + y * y) <= radius_ || (x == 0.0 && y == 0.0))
    return;
  double const angle = std::atan(std::fabs(x) / std::fabs(y));
  x = std::copysign(std::sin(angle) * radius_, x);
  y = std::copysign(std::cos(angle) * radius_, y);
}

bool HSColourWheel::validColourPoint(double x, double y) const { return std::sqrt(x * x + y * y) <= radius_; }

bool HSColourWheel::pointOfInterest(double x, double y) const {
  return x >= -radius_ && x <= radius_ && y >= -radius_ && y <= radius_;
}

int HSColourWheel::setCursor(double x, double y) {
  double hue = 0.0;
  double saturation = 0.0;
  if ((x == cursor_.x && y == cursor_.y) || !pointOfInterest(x, y) || convertXYtoHS(x, y, hue, saturation) != 0)
    return -1;
  // The canvas may paint at each invalidation: the old place only once the
  // cursor has left it.
  Zo::Box<int> const before = cursorPaintBox();
  cursor_ = XY<double>(x, y);
  invalidate(before);
  invalidate(cursorPaintBox());
  return 0;
}

Zo::Box<double> HSColourWheel::getAreaForCrosshair() const {
  double const gap = UifStd::getWidgetGap();
  XY<double> const at = cursor_ + centre_;
  return Zo::Box<double>(at.x - gap, at.y - gap, at.x + gap, at.y + gap);
}

Zo::Box<int> HSColourWheel::cursorPaintBox() const {
  // The circle's line reaches half its width beyond its box.
  Zo::Box<double> const area = getAreaForCrosshair();
  int const reach = UifStd::getIndentWidth();
  return Zo::Box<int>(static_cast<int>(std::floor(area.x0)) - reach, static_cast<int>(std::floor(area.y0)) - reach,
                      static_cast<int>(std::ceil(area.x1)) + reach, static_cast<int>(std::ceil(area.y1)) + reach);
}

// --- Values -----------------------------------------------------------------

double HSColourWheel::currentAlpha() { return getDataValue().getAlpha(); }

void HSColourWheel::setFromXY(double x, double y, DataChangeType type) {
  snapPoint(x, y);
  // A motion of less than a pixel emits nothing.
  if (type != kGestureStart && static_cast<int>(x) == static_cast<int>(cursor_.x) &&
      static_cast<int>(y) == static_cast<int>(cursor_.y))
    return;
  double hue = 0.0;
  double saturation = 0.0;
  if (convertXYtoHS(x, y, hue, saturation) != 0)
    return;
  setFromColour(UIColourToDataColour(ColourData(hue, saturation, value_, ColourSpace::HSV, currentAlpha())), type);
}

void HSColourWheel::setFromColour(ColourData const& colour, DataChangeType type) {
  if (getDataAdaptor())
    requestSetNewDataValue(colour, type);
  else
    invalidate(cursorPaintBox());
}

// setCursor invalidates only around the old and new cursor; the canvas paints
// that at once, or once when held redraws are released.
void HSColourWheel::setNewWidgetValue(ColourData& value, eRedrawFlag) {
  ColourData const shown = UIColourFromDataColour(value);
  double x = 0.0;
  double y = 0.0;
  if (convertHStoXY(shown.getHue(), shown.getSaturation(), x, y) == 0)
    setCursor(x, y);
  // The picture keeps the brightness it was made with.
  value_ = shown.getValue();
}

ColourData HSColourWheel::getWidgetValue() {
  double hue = 0.0;
  double saturation = 0.0;
  convertXYtoHS(cursor_.x, cursor_.y, hue, saturation);
  return UIColourFromDataColour(ColourData(hue, saturation, value_, ColourSpace::HSV, currentAlpha()));
}

// --- Widget -----------------------------------------------------------------

Colour HSColourWheel::getCol() const { return getPalette().window(); }

void HSColourWheel::setCol(Colour const& colour) {
  Palette palette = getPalette();
  palette.setWindow(colour);
  setPalette(palette);
}

void HSColourWheel::setPalette(Palette const& palette) {
  image_ = Zo::Image::Surface();
  ColourDataValWidget::setPalette(palette);
}

void HSColourWheel::resize(double width, double height) {
  if (width == 0.0 && height == 0.0)
    return;
  // Held, so that the repaint comes once the geometry is new.
  Drawable::Suspender holdRedraws;
  ColourData const saved = getWidgetValue();
  ColourDataValWidget::resize(width, height);
  computeGeometry();
  image_ = Zo::Image::Surface();
  double x = 0.0;
  double y = 0.0;
  if (convertHStoXY(saved.getHue(), saved.getSaturation(), x, y) == 0)
    setCursor(x, y);
}

void HSColourWheel::setActive(bool active, eRedrawFlag redraw) {
  if (!active)
    dragging_ = false; // a drag does not outlive the widget's use
  ColourDataValWidget::setActive(active, redraw);
}

int HSColourWheel::contextCursor(XY<int> point) const {
  if (!isActive())
    return kPlainCursorCode;
  Zo::Box<double> const area = getAreaForCrosshair();
  bool const over = point.x >= area.x0 && point.x <= area.x1 && point.y >= area.y0 && point.y <= area.y1;
  return over ? kGrabCursorCode : kPlainCursorCode;
}

// --- Mouse ------------------------------------------------------------------

int HSColourWheel::react(Event const& event) {
  if (event.isMouse())
    return handleMouseEvent(event) ? 1 : 0;
  return ColourDataValWidget::react(event);
}

bool HSColourWheel::handleMouseEvent(Event const& event) {
  XY<double> point = cursor_ + centre_;
  if (handleMouseCursorEvent(event, point.x, point.y)) {
    point -= centre_;
    if (mouse_down_event(event))
      grabOffset_ = XY<int>(static_cast<int>(point.x - cursor_.x), static_cast<int>(point.y - cursor_.y));
    // The cursor follows the mouse's motion, not the mouse itself.
    point -= XY<double>(grabOffset_.x, grabOffset_.y);
    setFromXY(point.x, point.y, mouse_down_event(event) ? kGestureStart : kGestureContinue);
    return true;
  }
  if (mouse_down_event(event) && mouse_left_event(event)) {
    ColourData const grey(0.0, 0.0, value_, ColourSpace::HSV, currentAlpha());
    setFromColour(UIColourToDataColour(grey), kResetByClick);
  }
  return false;
}

bool HSColourWheel::handleMouseCursorEvent(Event const& event, double& x, double& y) {
  if (!isActive())
    return false;
  int const mouseX = mouse_get_current_x(event);
  int const mouseY = mouse_get_current_y(event);
  bool const leftOrRight = mouse_left_event(event) || mouse_right_event(event);
  auto grab = [&] {
    x = mouseX;
    y = mouseY;
    dragging_ = true;
    return true;
  };
  if (mouse_down_event(event) && leftOrRight) {
    double const reach = 1 + UifStd::getWidgetGap();
    if (x >= 0.0 && y >= 0.0 && mouseX >= x - reach && mouseX <= x + reach && mouseY >= y - reach &&
        mouseY <= y + reach)
      return grab();
    // A chord anywhere on the widget picks the cursor up.
    if (mouse_right_event(event) && mouse_chord_event(event) && mouseX >= hitLeft_ && mouseX <= hitRight_ &&
        mouseY >= hitBottom_ && mouseY <= hitTop_)
      return grab();
  }
  if (mouse_move_event(event) && leftOrRight && dragging_) {
    x = mouseX;
    y = mouseY;
    return true;
  }
  if (mouse_up_event(event) && leftOrRight && dragging_)
    dragging_ = false;
  return false;
}

// --- Picture ----------------------------------------------------------------

long long HSColourWheel::wheelImageComputations() noexcept { return computations; }

Zo::Image::Surface HSColourWheel::computeWheelImage(NormalisedRGB const& background) const {
  ++computations;
  int const r = static_cast<int>(radius_);
  int const size = 2 * r + 1;
  if (size <= 0)
    return {};
  Zo::Image::Surface image(size, size);
  std::uint32_t const backgroundPixel =
      opaquePixel(channelByte(background.r), channelByte(background.g), channelByte(background.b));

  // Pixel centres lie on half-integers, so the columns x and -1 - x, and the
  // rows y and 1 - y, mirror each other: the distance and the quadrant angle
  // are worked out once for each |x| and |y| from 0.5 to r + 0.5, and give
  // four pixels, one in each quadrant. Each half row is then filled in order,
  // its hues changing smoothly, which keeps the conversion's branches
  // predictable.
  std::vector<PictureRing> rings;
  std::vector<double> angle;
  rings.reserve(static_cast<std::size_t>(r) + 1);
  angle.reserve(static_cast<std::size_t>(r) + 1);
  auto rowPixels = [&](int row) {
    return reinterpret_cast<std::uint32_t*>(image.data() + static_cast<std::ptrdiff_t>(row) * image.stride());
  };
  // Columns r + k (step 1) or r - 1 - k (step -1), display angle base + sign * t.
  auto fillHalfRow = [&](std::uint32_t* pixels, int step, double base, double sign) {
    int const inside = static_cast<int>(rings.size());
    int const first = step > 0 ? r : r - 1;
    for (int k = 0; k < inside; ++k)
      pixels[first + step * k] =
          rings[static_cast<std::size_t>(k)].pixel(hueOfDisplayAngle(base + sign * angle[static_cast<std::size_t>(k)]));
    std::fill(step > 0 ? pixels + r + inside : pixels, step > 0 ? pixels + size : pixels + r - inside, backgroundPixel);
  };
  for (int j = 0; j <= r; ++j) {
    double const absY = j + 0.5;
    rings.clear();
    angle.clear();
    for (int k = 0; k <= r; ++k) {
      double const absX = k + 0.5;
      double const distance = std::sqrt(absX * absX + absY * absY);
      if (static_cast<int>(distance) >= r)
        break; // the distance only grows along the row
      rings.emplace_back(distance / radius_ * kPictureSaturationScale + kPictureSaturationFloor, displayValue_);
      angle.push_back(quadrantAngle(absX, absY));
    }
    std::uint32_t* const upper = rowPixels(r - j);
    fillHalfRow(upper, 1, 0.0, 1.0);
    fillHalfRow(upper, -1, 360.0, -1.0);
    if (r + 1 + j < size) {
      std::uint32_t* const lower = rowPixels(r + 1 + j);
      fillHalfRow(lower, 1, 180.0, -1.0);
      fillHalfRow(lower, -1, 180.0, 1.0);
    }
  }
  return image;
}

Zo::Image::Surface const& HSColourWheel::obtainWheelImage(NormalisedRGB const& background) {
  if (!image_.empty() && imageBackground_ == background)
    return image_;
  int const size = 2 * static_cast<int>(radius_) + 1;
  if (!lastWheelImage_.empty() && lastWheelImage_.width() == size && lastBgColour_ == background) {
    image_ = lastWheelImage_;
  } else {
    lastBgColour_ = background;
    image_ = computeWheelImage(background);
    lastWheelImage_ = image_;
  }
  imageBackground_ = background;
  return image_;
}

void HSColourWheel::drawBackground(CanvasRenderer& renderer) {
  Colour const background = getCol();
  Zo::Box<double> const face(0.0, 0.0, width(), height());
  renderClipped(renderer, Glib::RectDescription(face, background), face);

  Zo::Image::Surface const& image = obtainWheelImage(fromColour(background));
  if (!image.empty()) {
    Zo::Box<double> const imageBox(border_, border_, border_ + image.width(), border_ + image.height());
    renderClipped(renderer, Glib::ImageDescription(image, imageBox), imageBox);
  }

  double const indent = UifStd::getIndentWidth();
  double const ringRadius = radius_ + indent;
  double const ringOuter = ringRadius + indent;
  renderClipped(
      renderer, Glib::EllipseDescription::ring(centre_, ringRadius, 2 * indent, shadedBy(background, kRingShade)),
      Zo::Box<double>(centre_.x - ringOuter, centre_.y - ringOuter, centre_.x + ringOuter, centre_.y + ringOuter));
  drawCursor(renderer);
}

void HSColourWheel::drawCursor(CanvasRenderer& renderer) {
  snapPoint(cursor_.x, cursor_.y);
  Zo::Box<double> const area = getAreaForCrosshair();
  Colour black(0.0, 0.0, 0.0);
  black.setAlpha(1.0);
  // One pixel wide at scale 1, thickening with the interface.
  double const lineWidth = UifStd::getIndentWidth() / 2.0;
  double const overhang = lineWidth / 2.0;
  Zo::Box<double> const reach(area.x0 - overhang, area.y0 - overhang, area.x1 + overhang, area.y1 + overhang);
  renderClipped(renderer, Glib::EllipseDescription::inBox(area, lineWidth, black), reach);
}
