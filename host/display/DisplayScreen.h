#pragma once

#include <zowidgets/host/shell/ScreenBackend.h>

#include <chrono>
#include <functional>
#include <memory>

class X11Screen;

// Real windows on an X display: each mapped canvas is a borderless window of
// its own at the canvas's place, showing the canvas's pixels; the windows'
// input goes through InputRouter like every backend's.
class ZO_API DisplayScreen : public iScreenBackend {
public:
  // Null when the display cannot be opened.
  static std::unique_ptr<DisplayScreen> open();
  ~DisplayScreen() override;

  XY<int> screenSize() const override;
  double screenScale() const override;
  void canvasMapped(Canvas& canvas) override;
  void canvasUnmapped(Canvas& canvas) override;
  void canvasMoved(Canvas& canvas) override;
  void canvasResized(Canvas& canvas) override;
  void canvasRaised(Canvas& canvas) override;
  void canvasKeptInFront(Canvas& canvas) override;
  void canvasRetitled(Canvas& canvas) override;
  void canvasKindChanged(Canvas& canvas) override;
  void canvasPainted(Canvas& canvas, Zo::Box<int> const& damage) override;
  void cursorChanged(int cursorId) override;
  Zo::Image::Surface grab(Zo::Box<int> const& area) override;

  // Turns the windows' pending events into input, paints what is damaged,
  // and reports pointer moves outside our windows. Returns false once the
  // session asked the program to quit.
  bool pumpEvents();
  // Pumps window events and the message loop together until `done` says so,
  // the session asks to quit, or `timeout` passes. Returns `done`'s answer.
  bool runUntil(std::function<bool()> const& done, std::chrono::milliseconds timeout);

private:
  struct State;
  explicit DisplayScreen(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

// The display screen in use, or null when another backend is.
ZO_API DisplayScreen* displayScreen();
