#pragma once

#include <zowidgets/builder/TitledGlob.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>
#include <zowidgets/host/widgets/values/Slider.h>

class NumericTextBox;

// The row of a numeric parameter: a titled slider and, beside it, a numeric
// box. A change of the row's width goes to the slider alone, so the box keeps
// its size.
class ZO_API SliderParamHost : public WidgetHost {
public:
  struct InitArgs : WidgetHost::InitArgs {
    InitArgs() = default;
    InitArgs(UIString legend, XY<int> size, int sliderWidth, Slider::InitArgs const& slider)
        : WidgetHost::InitArgs(GlobCreationInfo(size)), legend(std::move(legend)), sliderWidth(sliderWidth),
          slider(slider) {}
    UIString legend;
    int sliderWidth = 0;
    Slider::InitArgs slider;
  };

  explicit SliderParamHost(InitArgs const& args);
  char const* idstring() const override { return "SliderParamHost"; }

  TitledGlob<Slider>* getTitledSlider() const noexcept { return titledSlider_; }
  Slider* getSlider() const noexcept { return titledSlider_->getChild(); }
  // The numeric box, or null for a row without one.
  NumericTextBox* getTextBox() const;

  void setActive(bool active, eRedrawFlag redraw) override;
  void resize(double width, double height) override;

protected:
  // The panel behind shows through: a row draws only its widgets.
  void drawBackground(CanvasRenderer&) override {}

private:
  TitledGlob<Slider>* titledSlider_ = nullptr;
};
