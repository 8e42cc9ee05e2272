#include <zowidgets/textentry/DropDownSearchPanel.h>

#include <zowidgets/host/base/AttribValuePair.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/popups/DropDownHostBase.h>
#include <zowidgets/host/widgets/text/TextBox.h>

namespace {

// Wide enough for a few words and the search button.
int defaultPanelWidth() { return UifStd::getRowHeight() * 12; }

Border panelBorder() { return Border(UifStd::getWidgetGap()); }

} // namespace

DropDownSearchPanel::InitArgs::InitArgs() : InitArgs(nullptr, false) {}

DropDownSearchPanel::InitArgs::InitArgs(Glob* target, bool allowRepeatedSearch, int width)
    : target(target), allowRepeatedSearch(allowRepeatedSearch) {
  Border const border = panelBorder();
  int const userWidth = width > 0 ? width : defaultPanelWidth();
  size = calcPanelSize(XY<int>(userWidth, UifStd::getRowHeight()), 0, border);
  setBorder(border);
}

DropDownSearchPanel::DropDownSearchPanel(InitArgs const& args)
    : StandardPanel(args), target_(args.target), allowRepeatedSearch_(args.allowRepeatedSearch) {
  TextSearchWidget::InitArgs searchArgs(XY<int>(getUserArea().width(), UifStd::getRowHeight()));
  search_ = createWidget<TextSearchWidget>(searchArgs, Glob::UserBottomLeft(0, 0));
  search_->getTextBox()->claimKbdFocus();
}

int DropDownSearchPanel::handleMessageEvent(LightweightString<char> const& message, Glob* sender) {
  if (message != LightweightString<char>(TextSearchWidget::kStartSearchMsg))
    return StandardPanel::handleMessageEvent(message, sender);
  Zo::AttribValuePair const request(TextSearchWidget::kStartSearchMsg, search_->getString().toUTF8());
  Glob::sendMsg(target_, request.asString('='), this);
  if (allowRepeatedSearch_)
    return 1;
  // The window goes with the panel, so that the drop-down closes.
  if (auto* host = dynamic_cast<DropDownHostBase*>(getRootParent()))
    host->close();
  else
    GlobManager::requestDeletion(this);
  return 1;
}

DropDownSearchPanelButton::InitArgs::InitArgs(int side, Glob* target)
    : DropDownButton2<DropDownSearchPanel>::InitArgs(UIString(), XY<int>(side + getRevealIndicatorWidth(), side),
                                                     DropDownSearchPanel::InitArgs(target, false)) {}

DropDownSearchPanelButton::DropDownSearchPanelButton(InitArgs const& args)
    : DropDownButton2<DropDownSearchPanel>(args) {
  setIconName("magnify.png", kNoRedraw);
  setDropDownAlignment(kAlignEnd, kRelativeBelow);
  setStyle(kStyleFlat, kNoRedraw);
}

void DropDownSearchPanelButton::setAllowRepeatedSearch(bool allow) {
  allowRepeatedSearch_ = allow;
  DropDownSearchPanel::InitArgs panelArgs = getDropDownArgs();
  panelArgs.allowRepeatedSearch = allow;
  setDropDownArgs(panelArgs);
}
