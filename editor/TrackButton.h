#pragma once

#include <zowidgets/host/base/UIString.h>
#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/drawing/Fonts.h>
#include <zowidgets/host/widgets/buttons/Button.h>

#include <vector>

class Canvas;

// The label button at the head of a timeline track. It shows one
// line of name per channel of the track, latches when selected, glows when
// selected and the glow is on, and is a handle by which the user resizes the
// track vertically: with resizing allowed, a press within the edge grab size
// (GlobTheme::edgeGrabSize) of its lower or upper edge drags that edge
// instead of clicking, and each move tells the parent the height asked for as
// a ResizeParams message. The button does not resize itself: its owner, the
// application's track header, acts on the message. With the keyboard, Space
// or Return latches it, and Shift+Down or Shift+Up asks for a row's half more
// or less height.
class ZO_API TrackButton : public Button {
public:
  // Sent to the parent when both mouse buttons are pressed together on a
  // button taller than the edge grab size.
  static constexpr char const* SoloSelectChanMsg = "SoloSelectChanMsg";

  // A resize request, travelling as a message string "TrackBtnResize A B".
  // This library gives the fields these meanings (the numbers are otherwise
  // the application's): `delta`, the change of height asked for since the
  // drag began (positive: taller), and `startHeight`, the button's height
  // when the drag began; the height wanted is their sum.
  struct ZO_API ResizeParams {
    ResizeParams() = default;
    ResizeParams(int delta, int startHeight) : delta(delta), startHeight(startHeight) {}
    // Both fields stay 0 unless the string begins with "TrackBtnResize" and
    // both numbers convert.
    explicit ResizeParams(LightweightString<char> const& text);
    LightweightString<char> asString() const;
    int requestedHeight() const noexcept { return startHeight + delta; }
    friend bool operator==(ResizeParams const&, ResizeParams const&) = default;

    int delta = 0;
    int startHeight = 0;
  };

  struct InitArgs : Button::InitArgs {
    InitArgs() = default;
    InitArgs(std::vector<UIString> names, XY<int> size) : Button::InitArgs(UIString(), size), names(std::move(names)) {}
    InitArgs(UIString name, XY<int> size) : Button::InitArgs(UIString(), size), names{std::move(name)} {}
    std::vector<UIString> names; // the track's name, one entry per line
  };

  explicit TrackButton(InitArgs const& args);
  // The canvas is the parent's; these constructors take it for the callers
  // that still pass one.
  TrackButton(unsigned short width, unsigned short height, Canvas* canvas = nullptr);
  TrackButton(LightweightString<wchar_t> const& name, unsigned short width, unsigned short height,
              Canvas* canvas = nullptr);
  char const* idstring() const override { return "TrackButton"; }

  void setTrackName(std::vector<UIString> const& names);
  void setTrackName(UIString const& name);
  std::vector<UIString> const& getTrackNames() const noexcept { return names_; }
  // The label text, its resource id resolved once.
  LightweightString<wchar_t> getDisplayString(unsigned short maxWidth = 0, Glib::FontDesc const& font = {}) const;

  void setResizeAllowed(bool allowed) { resizeAllowed_ = allowed; }
  bool isResizeAllowed() const noexcept { return resizeAllowed_; }
  // Also switches the glow on.
  void setGlowColour(Colour const& colour);
  Colour const& getGlowColour() const noexcept { return glowColour_; }
  bool isGlowEnabled() const noexcept { return glowEnabled_; }
  void setSelectedTextColour(Colour const& colour);
  void setSelected(bool selected, eRedrawFlag redraw = kRedrawNow);
  bool isSelected() const;

  int calcLineHeight() const;
  // The label font, no larger than a line.
  Glib::FontDesc getFont() const;
  Colour textColour() const;
  // The face colour: the latched colour when selected.
  Colour getBackCol() const;
  static Colour const& defaultGlowColour();
  // The latched face colour set at construction.
  static Colour latchedBackColour() { return Colour(0.3, 0.36, 0.4); }

  int react(Event const& event) override;
  virtual void handleMouseContainment(bool inside);
  int contextCursor(XY<int> point) const override;
  bool isMouseInside() const noexcept { return mouseInside_; }
  bool isDraggingEdge() const noexcept { return dragEdge_; }

  // A parent that handles the pointer's shape over its track buttons itself
  // (while it drags a divider between tracks, say) derives from this.
  class ZO_API CursorOwner {
  public:
    virtual ~CursorOwner() = default;
    virtual bool takesOverCursor() const = 0;
  };

protected:
  void drawBackground(CanvasRenderer& renderer) override;
  void draw(CanvasRenderer& renderer) override;
  void drawText(CanvasRenderer& renderer);

private:
  void init();
  bool nearResizeEdge(XY<int> point) const;
  void sendResize(int delta);
  LightweightString<wchar_t> fittedLabel(LightweightString<wchar_t> const& text) const;

  std::vector<UIString> names_;
  Colour glowColour_;
  bool resizeAllowed_ = false;
  bool glowEnabled_ = false;
  Colour selectedTextColour_;
  bool mouseInside_ = false;
  bool dragEdge_ = false;
  bool dragUpperEdge_ = false;
  int dragStartScreenY_ = 0;
  int dragStartHeight_ = 0;
  int lastSentDelta_ = 0;
};
