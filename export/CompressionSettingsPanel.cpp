#include <zowidgets/export/CompressionSettingsPanel.h>

#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/popups/Tooltip.h>

namespace {

Border settingsBorder() { return Border(0, Border().calcMarginSize(2), 15); }

} // namespace

CompressionSettingsPanel::InitArgs::InitArgs(GenericParam::ParamList params, configb* state)
    : params(std::move(params)), state(state) {
  setBorder(settingsBorder());
  XY<int> const rows(UifStd::getRowHeight() * 14, UIBuilder::calcHeight(this->params, 0));
  size = StandardPanel::calcPanelSize(rows, 0, border);
}

CompressionSettingsPanel::CompressionSettingsPanel(InitArgs const& args) : StandardPanel(args), state_(args.state) {
  setBorder(settingsBorder());
  setResizable(false);
  builtParams_ = UIBuilder::build(args.params, this, 0);
  if (state_)
    builtParams_->restoreState(*state_);
}

CompressionSettingsButton::CompressionSettingsButton(InitArgs const& args)
    : DropDownButton2<CompressionSettingsPanel>(args) {
  setDropDownArgs(args.dropDownArgs);
  setDropDownAlignment(kAlignEnd, kRelativeBelow);
  setStyle(0);
  setIconName("ParamView.png");
  setContextString(TooltipDetails(UIString(L"Compression settings")));
}
