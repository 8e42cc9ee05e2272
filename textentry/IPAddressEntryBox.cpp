#include <zowidgets/textentry/IPAddressEntryBox.h>

#include <zowidgets/host/base/NumberText.h>
#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/shell/OS.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/textentry/CustomTextBox.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr std::size_t kPartCount = 4;
constexpr std::size_t kPartDigits = 3;
constexpr std::size_t kPortDigits = 5;
constexpr wchar_t const* kPartSample = L"999";
constexpr wchar_t const* kPortSample = L"12345";

StandardPanel::InitArgs panelArgs(IPAddressEntryBox::InitArgs const& args) {
  StandardPanel::InitArgs sized = args;
  sized.size.x = IPAddressEntryBox::calcWidth(args.showPort);
  if (sized.size.y <= 0)
    sized.size.y = UifStd::getRowHeight();
  // The boxes fill the panel's height: no border.
  sized.setBorder(Border());
  return sized;
}

} // namespace

IPAddressEntryBox::InitArgs::InitArgs(bool showPort, LightweightString<wchar_t> const& uri, int height)
    : StandardPanel::InitArgs(XY<int>(calcWidth(showPort), height)), showPort(showPort), uri(uri) {}

IPAddressEntryBox::IPAddressEntryBox(InitArgs const& args) : StandardPanel(panelArgs(args)) {
  for (std::size_t part = 0; part < kPartCount; ++part)
    addBox(calcBoxWidth(kPartSample), kPartDigits);
  if (args.showPort)
    addBox(calcBoxWidth(kPortSample), kPortDigits);
  if (!args.uri.empty())
    setURI(args.uri);
}

CustomTextBox* IPAddressEntryBox::addBox(int width, std::size_t sizeLimit) {
  // The first box keeps a widget gap from the panel's edge, the rest follow
  // a gap apart: the dots and the colon are painted in those gaps.
  WidgetPosition const where =
      boxes_.empty() ? Glob::BottomLeft(UifStd::getWidgetGap(), 0) : Glob::RightOf(gap(), boxes_.back());
  auto* box = createWidget<CustomTextBox>(CustomTextBox::InitArgs(GlobCreationInfo(XY<int>(width, height()))), where);
  box->setCharacters(L"0123456789", TextBoxBase::kOnlyAllowed);
  box->requestCallback(kReturnPressedMsg, this, TextBoxEvent::kReturnPressed);
  box->setAlignment(Glib::eTextAlignment::Centre);
  box->setEditable(true);
  box->setSizeLimit(sizeLimit);
  box->setHighlightAllowed(false);
  boxes_.push_back(box);
  return box;
}

int IPAddressEntryBox::gap() { return UifStd::getIndentWidth(); }

int IPAddressEntryBox::calcBoxWidth(LightweightString<wchar_t> const& sample) {
  // A text box keeps a widget gap clear on either side of its text, and
  // scrolls its text when the caret, after the last character, would not fit.
  int const caret = std::max(1, static_cast<int>(std::lround(UifStd::getScale())));
  return UifStd::measure(UIString(sample)).x + 2 * UifStd::getWidgetGap() + caret;
}

int IPAddressEntryBox::calcWidth(bool withPort) {
  int const parts = static_cast<int>(kPartCount);
  int width = 2 * UifStd::getWidgetGap() + parts * calcBoxWidth(kPartSample) + (parts - 1) * gap();
  if (withPort)
    width += gap() + calcBoxWidth(kPortSample);
  return width;
}

void IPAddressEntryBox::setURI(IPAddress const& address) {
  for (std::size_t part = 0; part < kPartCount; ++part)
    boxes_[part]->setString(Zo::WStringFromInteger(address.getPart(static_cast<int>(part)) & 255));
  if (hasPort())
    boxes_.back()->setString(address.hasPort() ? Zo::WStringFromInteger(address.getPort())
                                               : LightweightString<wchar_t>());
}

bool IPAddressEntryBox::setURI(LightweightString<wchar_t> const& text) {
  std::optional<IPAddress> const address = IPAddress::fromString(text);
  if (!address)
    return false;
  setURI(*address);
  return true;
}

LightweightString<wchar_t> IPAddressEntryBox::getURI() const {
  LightweightString<wchar_t> uri;
  for (std::size_t part = 0; part < kPartCount; ++part) {
    if (part > 0)
      uri += LightweightString<wchar_t>(L".");
    uri += boxes_[part]->getString();
  }
  if (hasPort())
    uri += LightweightString<wchar_t>(L":") + boxes_.back()->getString();
  return uri;
}

void IPAddressEntryBox::setActive(bool active, eRedrawFlag redraw) {
  for (CustomTextBox* box : boxes_)
    box->setActive(active, redraw);
  Glob::setActive(active, redraw);
}

void IPAddressEntryBox::setPalette(Palette const& palette) { StandardPanel::setPalette(palette); }

void IPAddressEntryBox::getTabOrderables(std::vector<TabOrderable*>& list) {
  list.insert(list.end(), boxes_.begin(), boxes_.end());
}

int IPAddressEntryBox::indexOf(Glob const* box) const {
  auto const found = std::find(boxes_.begin(), boxes_.end(), box);
  return found == boxes_.end() ? -1 : static_cast<int>(found - boxes_.begin());
}

void IPAddressEntryBox::moveTo(std::size_t index, bool atEnd, bool separatorPending) {
  CustomTextBox* box = boxes_[index];
  if (!box->claimKbdFocus())
    return;
  box->setCursorPosition(atEnd ? box->editor().size() : 0);
  box->setSeparatorPending(separatorPending);
}

int IPAddressEntryBox::handleMessageEvent(LightweightString<char> const& message, Glob* sender) {
  if (message == CustomTextBox::kNextMsg) {
    int const from = indexOf(sender);
    if (from >= 0 && from + 1 < static_cast<int>(boxes_.size())) {
      // From a full box the user may still type the "." that ends it.
      TextEditCore const& left = boxes_[static_cast<std::size_t>(from)]->editor();
      moveTo(static_cast<std::size_t>(from + 1), false, left.size() >= left.sizeLimit());
    }
    return 1;
  }
  if (message == CustomTextBox::kPrevMsg) {
    if (int const from = indexOf(sender); from > 0)
      moveTo(static_cast<std::size_t>(from - 1), true, false);
    return 1;
  }
  if (message == kTabNextMsg) {
    TabOrderManager::incrementTabStop();
    return 1;
  }
  if (message == kTabPrevMsg) {
    TabOrderManager::decrementTabStop();
    return 1;
  }
  if (message == CustomTextBox::kPasteMsg) {
    pasteAddress();
    return 1;
  }
  // Return in a box: the owner hears it from the panel.
  if (message == kReturnPressedMsg && indexOf(sender) >= 0)
    return sendMsg(kReturnPressedMsg);
  return 0;
}

void IPAddressEntryBox::pasteAddress() {
  // Text that is not an address is dropped without a word: a paste is not
  // worth a message, and the boxes keep what they had.
  if (setURI(OS().clipboardText()))
    invalidate();
}

void IPAddressEntryBox::drawBackground(CanvasRenderer& renderer) {
  StandardPanel::drawBackground(renderer);
  Palette const& palette = getPalette();
  Colour const colour = isActive() ? palette.text() : palette.text(-10);
  int const side = gap();
  // The dots sit on the digits' baseline, found as the boxes find it.
  Glib::TextDescription digits(LightweightString<wchar_t>(kPartSample), Zo::Box<double>(0, 0, width(), height()),
                               UifStd::getFont(), colour);
  int const baseline = static_cast<int>(std::lround(digits.baselineStart().y));
  // Each square is drawn only where it meets the clip, and recorded there.
  auto square = [&](int x, int y) {
    Zo::Box<int> const box(x, y, x + side, y + side);
    Zo::Box<int> const clipped = box.translated(renderer.origin()).intersect(renderer.clipBox());
    if (clipped.empty())
      return;
    renderer.renderPrimitive(Glib::RectDescription(box, colour));
    renderer.addModifiedArea(clipped);
  };
  for (std::size_t part = 0; part + 1 < kPartCount; ++part)
    square(boxes_[part]->getX() + boxes_[part]->width(), baseline);
  if (hasPort()) {
    // The colon: one square each side of the row's middle line.
    Glob const* fourth = boxes_[kPartCount - 1];
    int const x = fourth->getX() + fourth->width();
    int const middle = height() / 2;
    square(x, middle + side / 2);
    square(x, middle - side / 2 - side);
  }
}
