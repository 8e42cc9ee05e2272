#include <zowidgets/colour/HSColourWheel.h>
#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>
#include <array>
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
// quadrant.
double quadrantAngle(double absX, double absY) { return std::atan(absX / absY) * 180.0 / kPi; }

std::uint32_t channelByte(double channel) {
  return static_cast<std::uint32_t>(static_cast<int>(std::min(std::max(channel, 0.0), 1.0) * 255.0));
}

std::uint32_t opaquePixel(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
  return 0xFF000000u | (red << 16) | (green << 8) | blue;
}

// The picture counts hues in sextants, the sixths of the hue circle that the
// HSV conversion works in, so a hue needs a multiply instead of a division.
constexpr double kSextantsPerRadian = 3.0 / kPi;
constexpr double kQuarterTurnInSextants = 1.5;
// The hues at the top (display angle 0) and the bottom (180) of the disc.
constexpr double kTopHue = 6.0 - kHueRotation / 60.0;
constexpr double kBottomHue = 3.0 - kHueRotation / 60.0;

// Where each sextant puts the brightness, the smallest channel and the
// channel that changes with hue, as shifts into 0xAARRGGBB.
constexpr std::array<unsigned, 6> kLargestShift{16, 8, 8, 0, 0, 16};
constexpr std::array<unsigned, 6> kSmallestShift{0, 0, 16, 16, 8, 8};
constexpr std::array<unsigned, 6> kChangingShift{8, 16, 0, 8, 16, 0};

// HSVToRGB packed into a pixel, for hues in [0, 6) sextants, without a call
// or a switch, and with the hue-free smallest channel worked out once per
// ring. Its hues differ from the host's by rounding alone, which can move a
// channel across a byte boundary: one step at most.
class PicturePixel {
public:
  explicit PicturePixel(double value) : value_(value) {
    std::uint32_t const largest = channelByte(value);
    for (std::size_t sextant = 0; sextant < kLargestShift.size(); ++sextant)
      largestBits_[sextant] = 0xFF000000u | largest << kLargestShift[sextant];
  }

  std::uint32_t operator()(double hue, double saturation, std::uint32_t smallest) const {
    auto const sextant = static_cast<std::size_t>(static_cast<int>(hue));
    double const fraction = hue - static_cast<double>(sextant);
    // The changing channel falls through odd sextants and rises through even.
    double const dip = (sextant & 1u) != 0 ? fraction : 1.0 - fraction;
    std::uint32_t const changing = channelByte(value_ * (1.0 - saturation * dip));
    return largestBits_[sextant] | smallest << kSmallestShift[sextant] | changing << kChangingShift[sextant];
  }

private:
  double value_;
  std::array<std::uint32_t, 6> largestBits_{};
};

// atan(x / y) for 0 <= x <= y, in sextants: the nearest of the angles
// atan(i / 16), and a short series for the small angle left over, whose
// tangent is below 1/32 and whose first omitted term below 1e-17.
class OctantArctangent {
public:
  OctantArctangent() {
    for (std::size_t i = 0; i < anchors_.size(); ++i)
      anchors_[i] = std::atan(static_cast<double>(i) / kSteps) * kSextantsPerRadian;
  }

  double operator()(double x, double y, double inverseY) const {
    auto const nearest = static_cast<std::size_t>(static_cast<int>(x * inverseY * kSteps + 0.5));
    double const anchor = static_cast<double>(nearest) / kSteps;
    double const rest = (x - anchor * y) / (y + anchor * x);
    double const rest2 = rest * rest;
    double const series =
        rest * (1.0 + rest2 * (-1.0 / 3.0 + rest2 * (1.0 / 5.0 + rest2 * (-1.0 / 7.0 + rest2 * (1.0 / 9.0)))));
    return anchors_[nearest] + series * kSextantsPerRadian;
  }

private:
  static constexpr double kSteps = 16.0;
  std::array<double, 17> anchors_{};
};

// Angles from the vertical axis, in sextants, of the pixels of a quadrant,
// whose centres lie at x, y = 0.5, 1.5, ... Mirrored in the diagonal, the
// angle at (x, y) is a quarter turn less the one at (y, x), so atan is needed
// only where x <= y: taken from the rim inwards, each row finds its other
// angles left by the rows further out.
class QuadrantAngles {
public:
  explicit QuadrantAngles(int radius)
      : radius_(static_cast<std::size_t>(radius)), mirrored_(radius_ * (radius_ + 1) / 2) {}

  // The angles of row `row`'s first `count` pixels, nearest the axis first.
  void fillRow(int row, int count, double* angles) {
    double const absY = row + 0.5;
    double const inverseY = 1.0 / absY;
    int const direct = std::min(row + 1, count);
    for (int column = 0; column < direct; ++column) {
      angles[column] = arctangent_(column + 0.5, absY, inverseY);
      if (column < row)
        mirrored_[slot(column, row)] = angles[column];
    }
    for (int column = row + 1; column < count; ++column)
      angles[column] = kQuarterTurnInSextants - mirrored_[slot(row, column)];
  }

private:
  // Where row `far`'s angle at column `near` waits for row `near`.
  std::size_t slot(int near, int far) const {
    auto const n = static_cast<std::size_t>(near);
    return n * (2 * radius_ - n + 1) / 2 + static_cast<std::size_t>(far - near - 1);
  }

  OctantArctangent arctangent_;
  std::size_t radius_;
  std::vector<double> mirrored_;
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

StandardPanel::InitArgs frameless(StandardPanel::InitArgs args) {
  if (!args.hasBorder)
    args.setBorder(Border());
  return args;
}

} // namespace

Zo::Image::Surface HSColourWheel::lastWheelImage_;
NormalisedRGB HSColourWheel::lastBgColour_;

HSColourWheel::HSColourWheel(InitArgs const& args)
    : StandardPanel(frameless(args)), border_(static_cast<unsigned short>(UifStd::getWidgetGap())),
      hitRight_(args.size.x), hitTop_(args.size.y) {
  computeGeometry();
}

HSColourWheel::HSColourWheel(Canvas* canvas, unsigned short size, double value, unsigned short border)
    : StandardPanel(frameless(GlobCreationInfo(size, size).setPalette(UifStd::getColourScheme()))),
      displayValue_(value), value_(value), border_(border), hitRight_(size), hitTop_(size) {
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
  if (convertHStoXY(shown.getHue(), shown.getSaturation(), x, y) == 0) {
    // A full saturation lies on the rim, whose last whole pixel the cursor
    // refuses: it stands just inside instead, rather than staying where it
    // was (every pure hue typed in the boxes left it behind).
    double const distance = std::sqrt(x * x + y * y);
    double const inside = std::floor(radius_) - 0.5;
    if (distance > inside && inside > 0.0) {
      x *= inside / distance;
      y *= inside / distance;
    }
    setCursor(x, y);
  }
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
  StandardPanel::setPalette(palette);
}

void HSColourWheel::resize(double width, double height) {
  if (width == 0.0 && height == 0.0)
    return;
  // Held, so that the repaint comes once the geometry is new.
  Drawable::Suspender holdRedraws;
  ColourData const saved = getWidgetValue();
  StandardPanel::resize(width, height);
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
  StandardPanel::setActive(active, redraw);
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
    return handleMouseEvent(event);
  return StandardPanel::react(event);
}

int HSColourWheel::handleMouseEvent(Event const& event) {
  XY<double> point = cursor_ + centre_;
  if (handleMouseCursorEvent(event, point.x, point.y)) {
    point -= centre_;
    if (mouse_down_event(event))
      grabOffset_ = XY<int>(static_cast<int>(point.x - cursor_.x), static_cast<int>(point.y - cursor_.y));
    // The cursor follows the mouse's motion, not the mouse itself.
    point -= XY<double>(grabOffset_.x, grabOffset_.y);
    // Picking up the cursor ends anything the parent was carrying.
    if (justGrabbed_)
      if (Glob* owner = parent())
        owner->drop(0);
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
  justGrabbed_ = false;
  int const mouseX = mouse_get_current_x(event);
  int const mouseY = mouse_get_current_y(event);
  bool const leftOrRight = mouse_left_event(event) || mouse_right_event(event);
  auto grab = [&] {
    x = mouseX;
    y = mouseY;
    dragging_ = true;
    justGrabbed_ = true;
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
  PicturePixel const pixel(displayValue_);
  QuadrantAngles angles(r);
  double const inverseRadius = 1.0 / radius_;

  // Pixel centres lie on half-integers, so the columns r + k and r - 1 - k,
  // and the rows r - j and r + 1 + j, mirror each other: each distance and
  // angle, worked out once for |x| = k + 0.5 and |y| = j + 0.5, gives four
  // pixels, one in each quadrant, and every row is filled in order.
  auto const quadrantSide = static_cast<std::size_t>(r) + 1;
  std::vector<double> saturation(quadrantSide);
  std::vector<std::uint32_t> smallest(quadrantSide);
  std::vector<double> angle(quadrantSide);
  auto rowPixels = [&](int row) {
    return reinterpret_cast<std::uint32_t*>(image.data() + static_cast<std::ptrdiff_t>(row) * image.stride());
  };
  int inside = 0; // only grows as the rows near the middle
  for (int j = r; j >= 0; --j) {
    double const absY = j + 0.5;
    auto distanceAt = [&](int k) {
      double const absX = k + 0.5;
      return std::sqrt(absX * absX + absY * absY);
    };
    while (inside <= r && static_cast<int>(distanceAt(inside)) < r)
      ++inside;
    for (std::size_t k = 0; k < static_cast<std::size_t>(inside); ++k) {
      saturation[k] =
          distanceAt(static_cast<int>(k)) * inverseRadius * kPictureSaturationScale + kPictureSaturationFloor;
      smallest[k] = channelByte(displayValue_ * (1.0 - saturation[k]));
    }
    angles.fillRow(j, inside, angle.data());

    // Display angles t (upper right), 360 - t (upper left), 180 - t (lower
    // right) and 180 + t (lower left), as hues.
    std::uint32_t* const upper = rowPixels(r - j);
    std::fill(upper, upper + r - inside, backgroundPixel);
    std::fill(upper + r + inside, upper + size, backgroundPixel);
    for (std::size_t k = 0; k < static_cast<std::size_t>(inside); ++k) {
      double const wrapping = kTopHue + angle[k];
      upper[static_cast<std::size_t>(r) + k] = pixel(kTopHue - angle[k], saturation[k], smallest[k]);
      upper[static_cast<std::size_t>(r) - 1 - k] =
          pixel(wrapping >= 6.0 ? wrapping - 6.0 : wrapping, saturation[k], smallest[k]);
    }
    if (j == r)
      continue; // row 0's mirror would lie below the picture
    std::uint32_t* const lower = rowPixels(r + 1 + j);
    std::fill(lower, lower + r - inside, backgroundPixel);
    std::fill(lower + r + inside, lower + size, backgroundPixel);
    for (std::size_t k = 0; k < static_cast<std::size_t>(inside); ++k) {
      lower[static_cast<std::size_t>(r) + k] = pixel(kBottomHue + angle[k], saturation[k], smallest[k]);
      lower[static_cast<std::size_t>(r) - 1 - k] = pixel(kBottomHue - angle[k], saturation[k], smallest[k]);
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
