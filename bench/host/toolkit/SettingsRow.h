#pragma once

#include "SettingsPanelLook.h"

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/toolkit/Glob.h>

// One row of the benchmark's settings panel, drawn as a settings row draws
// itself: label, slider track and knob, value box with its number.
class SettingsRow : public Glob {
public:
  SettingsRow(int row, Palette const& palette)
      : Glob(GlobCreationInfo(XY<int>(SettingsPanelLook::kRowWidth, SettingsPanelLook::rowHeight()))),
        label_(SettingsPanelLook::label(row)), valueText_(SettingsPanelLook::valueText(row)),
        knob_(Glib::toDoubleBox(SettingsPanelLook::knobBox(row))), font_(UifStd::getFont()), colours_(palette) {
    // Its background fills the row with the opaque window colour.
    setPaintsOpaquely(true);
  }

  // Shows another number in the value box (not repainted until asked).
  void setValueText(LightweightString<wchar_t> const& text) { valueText_ = text; }

protected:
  void draw(CanvasRenderer& renderer) override {
    using namespace SettingsPanelLook;
    renderer.renderPrimitive(Glib::TextDescription(label_, Glib::toDoubleBox(labelBox()), font_, colours_.label));
    renderer.renderPrimitive(Glib::RectDescription(trackBox(), colours_.track));
    renderer.renderPrimitive(Glib::RoundedRectDescription(knob_, kKnobRadius, colours_.knob));
    Glib::RectDescription box(valueBox(), colours_.valueFill);
    box.outline = colours_.valueOutline;
    renderer.renderPrimitive(box);
    renderer.renderPrimitive(Glib::TextDescription(valueText_, Glib::toDoubleBox(valueBox()), font_, colours_.valueText,
                                                   Glib::eTextAlignment::Centre));
  }

private:
  LightweightString<wchar_t> label_;
  LightweightString<wchar_t> valueText_;
  Zo::Box<double> knob_;
  Glib::FontDesc font_;
  SettingsPanelLook::RowColours colours_;
};
