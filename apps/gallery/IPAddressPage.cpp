// Address entry: four octet boxes with painted dots, and the same with a port.
#include "PageLayout.h"

#include <zowidgets/host/widgets/text/TextLabel.h>
#include <zowidgets/textentry/IPAddressEntryBox.h>

#include <algorithm>
#include <vector>

namespace {

LightweightString<wchar_t> resultText(LightweightString<wchar_t> const& address) {
  return LightweightString<wchar_t>(L"Return gives: ") + address;
}

// Holds the page's rows, each a legend, an entry and a label that shows what
// the entry holds once Return is pressed in it.
class AddressRows : public WidgetHost {
public:
  AddressRows(XY<int> size, int legendWidth) : WidgetHost(frameless(size)), legendWidth_(legendWidth) {}
  char const* idstring() const override { return "AddressRows"; }

  void addRow(UIString const& legend, bool showPort, LightweightString<wchar_t> const& uri) {
    PageMetrics const m = PageMetrics::current();
    int const top = static_cast<int>(rows_.size()) * 2 * (m.row + m.rowGap);
    TextLabel::InitArgs legendArgs(XY<int>(legendWidth_, m.row));
    legendArgs.text = legend;
    auto* title = createWidget<TextLabel>(legendArgs, Glob::UserTopLeft(0, top));
    auto* entry =
        createWidget<IPAddressEntryBox>(IPAddressEntryBox::InitArgs(showPort, uri), Glob::RightOf(m.gap, title));
    TextLabel::InitArgs resultArgs(XY<int>(width() - legendWidth_ - m.gap, m.row));
    auto* result = createWidget<TextLabel>(resultArgs, Glob::UserTopLeft(legendWidth_ + m.gap, top + m.row + m.rowGap));
    rows_.push_back(Row{entry, result});
    show(rows_.back());
  }

  int handleMessageEvent(LightweightString<char> const& message, Glob* sender) override {
    if (message != IPAddressEntryBox::kReturnPressedMsg)
      return 0;
    for (Row const& row : rows_)
      if (row.entry == sender) {
        show(row);
        return 1;
      }
    return 0;
  }

private:
  struct Row {
    IPAddressEntryBox* entry;
    TextLabel* result;
  };

  static StandardPanel::InitArgs frameless(XY<int> size) {
    StandardPanel::InitArgs args(size);
    args.setBorder(Border());
    return args;
  }

  static void show(Row const& row) { row.result->setString(UIString(resultText(row.entry->getURI()))); }

  int legendWidth_;
  std::vector<Row> rows_;
};

Glob* buildIPAddressPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  int const legendWidth = TextLabel::calcWidth(UIString(L"Stream (with port)"));
  // Wide enough for the longest address the result line can show.
  int const resultWidth = TextLabel::calcWidth(UIString(resultText(L"255.255.255.255:65535")));
  int const width = legendWidth + m.gap + std::max(IPAddressEntryBox::calcWidth(true), resultWidth);
  int const height = 4 * m.row + 3 * m.rowGap;
  StandardPanel* panel = openPageWindow(context, XY<int>(width + 2 * m.gap, height + 2 * m.gap), L"IP address entry");
  auto* rows = new AddressRows(XY<int>(width, height), legendWidth);
  panel->addChild(rows, Glob::UserTopLeft(m.gap, m.gap));
  rows->addRow(UIString(L"Camera"), false, L"192.168.0.20");
  rows->addRow(UIString(L"Stream (with port)"), true, L"10.0.0.7:554");
  return panel;
}

PageRegistrar const ipAddressPage{"ipaddress", "IP address entry",
                                  "An address box without a port and one with a port. Type with or without dots: a "
                                  "box moves on at a dot or after its third digit, Backspace at a box's start moves "
                                  "back, and Ctrl-V with an address on the clipboard fills every box. Return shows "
                                  "what the entry holds under it",
                                  buildIPAddressPage};

} // namespace
