#include <zowidgets/containers/FactoryGlobWrapperPanel.h>

#include <zowidgets/containers/FactoryGlobWrapper.h>
#include <zowidgets/containers/detail/FillAround.h>
#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>

FactoryGlobWrapperPanel::FactoryGlobWrapperPanel(InitArgs const& args) : StandardPanel(args) {
  setTitle(args.title, UifStd::getTitleFont(), kNoRedraw);
  Zo::Box<int> const area = getUserArea();
  GlobCreationInfo widget(area.getDimensions());
  widget.className = args.typeName;
  widget.config = args.widgetConfig;
  wrapper_ = createWidget<FactoryGlobWrapper>(FactoryGlobWrapper::InitArgs(widget), UserTopLeft(0, 0));
  setMinSize(calcPanelSize(wrapper_->getMinSize(), getStandardWidgets(), getBorder()));
}

void FactoryGlobWrapperPanel::resize(double width, double height) {
  StandardPanel::resize(width, height);
  if (wrapper_)
    wrapper_->setDimensions(getUserArea().getDimensions());
}

void FactoryGlobWrapperPanel::drawBackground(CanvasRenderer& renderer) {
  Palette const& palette = getPalette();
  Zo::Box<int> const user = getUserArea();
  fillAround(renderer, Zo::Box<int>(0, 0, width(), height()), user, palette.window());
  drawTitleAndFooterBands(renderer);
  Zo::Box<int> const wrapper(wrapper_->getX(), wrapper_->getY(), wrapper_->getX() + wrapper_->width(),
                             wrapper_->getY() + wrapper_->height());
  fillAround(renderer, user, wrapper, palette.window());
}
