#include <zowidgets/containers/PageIndexTestPanel.h>

#include <zowidgets/host/shell/Command.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/text/NumericTextBox.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

namespace {

// A test panel has no place in the menus: it carries no label, description
// or key.
CommandRegistrar const registration(
    PageIndexTestPanel::kCommand,
    [](Cmd::Context const& context) { GlobManager::placeBeside(PageIndexTestPanel::open(), context.origin); },
    UIString(), UIString(), kCmdScopeApplication, MapItem{});

constexpr unsigned kStandardWidgets = StandardPanel::kTitle | StandardPanel::kPoot;

int legendWidth() { return 4 * UifStd::getRowHeight(); }

int userWidth() {
  return PageIndexWidget::calcWidthInternal(PageIndexTestPanel::kInitialPages - PageIndexTestPanel::kMaxButtons,
                                            PageIndexTestPanel::kMaxButtons);
}

} // namespace

PageIndexTestPanel::PageIndexTestPanel(InitArgs const& args) : StandardPanel(args) {
  int const row = UifStd::getRowHeight();
  int const gap = UifStd::getWidgetGap();
  int const width = getUserArea().width();
  TextLabel::InitArgs legend(XY<int>(legendWidth(), row));
  legend.text = UIString(L"Pages");
  auto* legendLabel = createWidget<TextLabel>(legend, UserTopLeft(0, 0));
  NumericTextBox::InitArgs box(XY<int>(width - legendWidth() - gap, row));
  pageCount_ = createWidget<NumericTextBox>(box, RightOf(gap, legendLabel));
  pageCount_->setValueRange(0, std::numeric_limits<unsigned short>::max());
  pageCount_->setString(LightweightString<wchar_t>(std::to_wstring(kInitialPages)));
  pageCount_->addListener(Broadcaster<TextBoxEvent>::makeCallback(this, &PageIndexTestPanel::handlePageCountEdit));

  PageIndexWidget::InitArgs index(
      Broadcaster<PageIndexWidgetEvent>::makeCallback(this, &PageIndexTestPanel::handlePageChosen), 0, kInitialPages,
      kMaxButtons, XY<int>(width, row));
  pageIndex_ = createWidget<PageIndexWidget>(index, Below(UifStd::getRowGap(), legendLabel));
  pageIndex_->setEmptyLabel(UIString(L"No pages"));
  TextLabel::InitArgs chosen(XY<int>(width, row));
  chosen.alignment = Glib::eTextAlignment::Centre;
  chosen_ = createWidget<TextLabel>(chosen, Below(UifStd::getRowGap(), pageIndex_));
  showChosen();
  tabOrder().addTabStop(*pageCount_, 0);
  tabOrder().addTabStops(*pageIndex_, 1);
}

PageIndexTestPanel* PageIndexTestPanel::open(XY<int> screenPosition) {
  int const rows = 3 * UifStd::getRowHeight() + 2 * UifStd::getRowGap();
  InitArgs args(calcPanelSize(XY<int>(userWidth(), rows), kStandardWidgets, getDefaultBorder()));
  args.screenPosition = screenPosition;
  args.standardWidgets = kStandardWidgets;
  args.title = UIString(L"PageIndexWidget Test");
  Drawable::Suspender holdRedraws;
  auto* panel = new PageIndexTestPanel(args);
  GlobManager::realize(panel);
  return panel;
}

int PageIndexTestPanel::handlePageCountEdit(TextBoxEvent const&) {
  double const typed = pageCount_->getValue();
  auto const count = static_cast<unsigned short>(
      std::clamp(std::floor(typed), 0.0, double(std::numeric_limits<unsigned short>::max())));
  pageIndex_->setPages(pageIndex_->getCurrentPage(), count);
  showChosen();
  return 0;
}

int PageIndexTestPanel::handlePageChosen(PageIndexWidgetEvent const&) {
  showChosen();
  return 0;
}

void PageIndexTestPanel::showChosen() {
  unsigned short const count = pageIndex_->getPageCount();
  std::wstring const text =
      count == 0 ? std::wstring()
                 : L"Page " + std::to_wstring(pageIndex_->getCurrentPage() + 1) + L" of " + std::to_wstring(count);
  chosen_->setString(UIString(LightweightString<wchar_t>(text)));
}
