#include <zowidgets/containers/FactoryGlobWrapper.h>

#include <zowidgets/containers/detail/FillAround.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/GlobManager.h>

namespace {

// The wrapper is only a frame for its widget: no border unless one is asked.
StandardPanel::InitArgs withPlainBorder(FactoryGlobWrapper::InitArgs const& args) {
  StandardPanel::InitArgs plain(args);
  if (!plain.hasBorder)
    plain.setBorder(Border());
  return plain;
}

} // namespace

FactoryGlobWrapper::FactoryGlobWrapper(InitArgs const& args) : StandardPanel(withPlainBorder(args)) {
  Drawable::Suspender holdRedraws;
  GlobCreationInfo info(args.widget);
  info.size = XY<int>(0, 0);
  info.setParent(this);
  wrapped_ = GlobManager::createGlob(info);
  if (!wrapped_)
    return;
  addChild(wrapped_, Centre(0, 0));
  identity_ = LightweightString<char>(std::string("FactoryGlobWrapper:") + wrapped_->idstring());
  wrapped_->setResizable(false);
  if (args.widget.size != XY<int>(0, 0))
    wrapped_->setDimensions(args.widget.size);
  else
    setDimensions(wrapped_->getSize());
}

XY<int> FactoryGlobWrapper::getMinSize() const { return wrapped_ ? wrapped_->getMinSize() : XY<int>(0, 0); }

std::vector<MenuItem> FactoryGlobWrapper::getMenuItems(Event const* event) {
  if (auto* menus = dynamic_cast<MenuGlob*>(wrapped_))
    return menus->getMenuItems(event);
  return {};
}

void FactoryGlobWrapper::resize(double width, double height) {
  StandardPanel::resize(width, height);
  if (wrapped_)
    wrapped_->resize(width, height);
}

void FactoryGlobWrapper::setVisible(bool visible) {
  StandardPanel::setVisible(visible);
  if (wrapped_)
    wrapped_->setVisible(visible);
}

void FactoryGlobWrapper::drawBackground(CanvasRenderer& renderer) {
  if (!wrapped_) {
    StandardPanel::drawBackground(renderer);
    return;
  }
  Zo::Box<int> const own(0, 0, width(), height());
  Zo::Box<int> const widget(wrapped_->getX(), wrapped_->getY(), wrapped_->getX() + wrapped_->width(),
                            wrapped_->getY() + wrapped_->height());
  fillAround(renderer, own, widget, getPalette().window());
}
