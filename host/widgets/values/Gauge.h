#pragma once

#include <zowidgets/host/base/UIString.h>
#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/drawing/Fonts.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/toolkit/Glob.h>
#include <zowidgets/host/widgets/values/RangeModel.h>

// A horizontal bar that shows how far something has got: a fraction from 0
// (empty) to 1 (full), filled from the left, with an optional label drawn
// over it. It takes no input.
//
// The setters only store, so that a caller can change the fraction, the label
// and the colours and show them in one paint with display(); each takes
// kRedrawNow to show its change at once instead.
class ZO_API Gauge : public Glob {
public:
  // How a gauge looks: colours from its own choices or its palette, sizes
  // and the label's font from UifStd and its height.
  struct Look {
    Colour background;
    Colour bar;
    Colour text;      // over the background
    Colour textOnBar; // over the filled part: the text colour, or the palette's window when that reads better
    double radius;
    int textIndent; // between the label and the ends of the gauge
    Glib::FontDesc font;
    // Invalid colours take the palette's: the accent for the bar, the child
    // window for the background, the text colour for the label.
    static Look make(Palette const& palette, int height, bool active, Colour const& bar, Colour const& background,
                     Colour const& text);
  };

  struct InitArgs : GlobCreationInfo {
    using GlobCreationInfo::GlobCreationInfo;
    InitArgs() = default;
    InitArgs(GlobCreationInfo const& info) : GlobCreationInfo(info) {}
    double measure = 0.0;
    Colour barColour = Colour::invalid();
    Colour backgroundColour = Colour::invalid();
    Colour textColour = Colour::invalid();
    UIString label;
  };

  explicit Gauge(InitArgs const& args);
  char const* idstring() const override { return "Gauge"; }

  // The fraction shown, clamped to 0..1; anything but a number shows empty.
  void setMeasure(double fraction, eRedrawFlag redraw = kNoRedraw);
  double getMeasure() const noexcept { return measure_.value(); }

  void setCols(Colour const& bar, Colour const& background, eRedrawFlag redraw = kNoRedraw);
  Colour getBarColour() const;
  Colour getBackgroundColour() const;

  // Text drawn over the bar.
  void setLabel(UIString const& label, eRedrawFlag redraw = kNoRedraw);
  UIString const& getLabel() const noexcept { return label_; }
  void setTextColour(Colour const& colour, eRedrawFlag redraw = kNoRedraw);
  Colour getTextColour() const;

  // True when showing `fraction` would draw the gauge exactly as it is drawn
  // now: a caller told of progress many times a second skips the repaints
  // that would change nothing.
  virtual bool isShowingValue(double fraction) const;
  // The width of the filled part for a fraction, and for the one shown.
  int filledWidthFor(double fraction) const;
  int filledWidth() const { return filledWidthFor(getMeasure()); }

  // Repaints the whole gauge: at once, or when held redraws are released.
  void display() { invalidate(); }

  Look look() const;

protected:
  void draw(CanvasRenderer& renderer) override;
  // The label over the bar, centred; gauges that say more draw it their way.
  virtual void drawLabel(CanvasRenderer& renderer, Look const& look);
  // Text in the look's two colours: over the filled part in one, over the
  // rest in the other, split where the bar ends.
  void drawText(CanvasRenderer& renderer, Look const& look, Glib::TextDescription text) const;

private:
  void repaintIf(eRedrawFlag redraw);

  RangeModel measure_;
  Colour bar_;
  Colour background_;
  Colour text_;
  UIString label_;
};
