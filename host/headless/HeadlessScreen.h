#pragma once

#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/shell/ScreenBackend.h>

#include <string>

class Glob;

// A virtual screen in memory: the default backend, and the one every widget
// test runs on. Windows are composited in z-order over a desktop colour when
// the screen is read, so reading is always up to date and deterministic.
class ZO_API HeadlessScreen : public iScreenBackend {
public:
  static constexpr int kDefaultWidth = 1920;
  static constexpr int kDefaultHeight = 1080;

  explicit HeadlessScreen(XY<int> size = XY<int>(kDefaultWidth, kDefaultHeight), double scale = 1.0);

  XY<int> screenSize() const override { return size_; }
  double screenScale() const override { return scale_; }
  void canvasPainted(Canvas&, Zo::Box<int> const&) override { ++paints_; }
  void cursorChanged(int cursorId) override { cursor_ = cursorId; }
  void canvasRetitled(Canvas&) override { ++retitles_; }
  Zo::Image::Surface grab(Zo::Box<int> const& area) override;

  Zo::Image::Surface screenshot() { return grab(Zo::Box<int>(0, 0, size_.x, size_.y)); }
  bool saveScreenshot(std::string const& path) { return screenshot().savePNG(path); }
  // One window's own pixels, as painted.
  static Zo::Image::Surface windowShot(Glob const& root);
  static bool saveWindowShot(Glob const& root, std::string const& path);

  void setDesktopColour(Colour const& colour) { desktop_ = colour; }
  int cursor() const noexcept { return cursor_; }
  int paintsShown() const noexcept { return paints_; }
  // How often a shown window's title changed.
  int titleChangesShown() const noexcept { return retitles_; }

private:
  XY<int> size_;
  double scale_;
  Colour desktop_{0.2, 0.22, 0.25};
  int cursor_ = 0;
  int paints_ = 0;
  int retitles_ = 0;
};

// The headless screen in use, making and installing one (default size) if
// another backend is in place.
ZO_API HeadlessScreen& headlessScreen();
// Replaces the backend with a fresh headless screen of this size and scale.
ZO_API HeadlessScreen& useHeadlessScreen(XY<int> size = XY<int>(HeadlessScreen::kDefaultWidth,
                                                                HeadlessScreen::kDefaultHeight),
                                         double scale = 1.0);
