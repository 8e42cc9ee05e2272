#include <zowidgets/containers/WizardStagePanel.h>

#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/values/ImageView.h>

WizardStagePanel::WizardStagePanel(InitArgs const& args) : StandardPanel(args), data_(args.data) {
  if (args.imageName.empty())
    return;
  int const side = 3 * UifStd::getRowHeight();
  ImageView::InitArgs view(XY<int>(side, side));
  view.image = loadIcon(args.imageName, side / UifStd::getScale());
  view.scaling = ImageView::kFit;
  image_ = createWidget<ImageView>(view, BottomLeft(0, 0));
}

Zo::Box<int> WizardStagePanel::getUserArea() const {
  Zo::Box<int> area = StandardPanel::getUserArea();
  if (image_)
    area.x0 += image_->width() + getDefaultBorder().left();
  return area;
}
