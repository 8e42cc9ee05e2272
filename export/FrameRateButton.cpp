#include <zowidgets/export/FrameRateButton.h>

namespace {

std::vector<Zo::FrameRate> everyRate() {
  std::vector<Zo::FrameRate> rates;
  Zo::getFrameRates(Zo::FrameRateGroups::kAll, rates);
  return rates;
}

} // namespace

TitleMenuButton::InitArgs FrameRateButton::titled(GlobCreationInfo const& info) {
  TitleMenuButton::InitArgs args;
  static_cast<GlobCreationInfo&>(args) = info;
  args.title = UIString(L"Frame rate");
  args.selected = -1;
  return args;
}

FrameRateButton::FrameRateButton(unsigned short width, unsigned short height)
    : FrameRateButton(InitArgs(everyRate(), XY<int>(width, height))) {}

FrameRateButton::FrameRateButton(InitArgs const& args) : TitleMenuButton(titled(args)) { init(args.rates); }

void FrameRateButton::init(std::vector<Zo::FrameRate> const& rates) {
  std::vector<MenuItem> items;
  for (Zo::FrameRate const& rate : rates)
    items.emplace_back(UIString(Zo::getDisplayString(rate)));
  setStrings(items, 0);
}

Zo::FrameRate FrameRateButton::getSelectedFrameRate() const {
  return Zo::getFrameRateFromDisplayString(getBtn().getSelectedItemNameW());
}

void FrameRateButton::setFrameRate(Zo::FrameRate rate) {
  LightweightString<wchar_t> const text = Zo::getDisplayString(rate);
  std::vector<MenuItem> const& items = getBtn().getMenu().items();
  for (std::size_t row = 0; row < items.size(); ++row)
    if (items[row].text.getString() == text) {
      setSelectedItem(static_cast<int>(row));
      return;
    }
}
