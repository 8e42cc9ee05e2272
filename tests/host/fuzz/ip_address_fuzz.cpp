// libFuzzer target for IPAddress::fromString, and for the paste of arbitrary
// text into a real address entry on the headless screen.
//
// Every input is read as an address twice, as UTF-8 and as raw wide
// characters. What parses must hold parts and a port in range, come only from
// digits, dots and a colon inside blanks, and print to a text that reads back
// to the same address.
//
// The same UTF-8 text then goes on the clipboard and is pasted with Ctrl-V
// into one box of an entry with a port (the first byte picks which). Every box
// must then hold digits only, within its size limit. Text with a "." either
// parsed, and the boxes show that address, or did not, and nothing changed;
// text without one changed at most the box that had the focus.

#include <zowidgets/host/base/IPAddress.h>
#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/host/headless/HeadlessInput.h>
#include <zowidgets/host/headless/HeadlessScreen.h>
#include <zowidgets/host/shell/OS.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/textentry/CustomTextBox.h>
#include <zowidgets/textentry/IPAddressEntryBox.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace {

using WString = LightweightString<wchar_t>;

void check(bool condition) {
  if (!condition)
    std::abort();
}

bool isBlank(wchar_t c) { return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n' || c == L'\f' || c == L'\v'; }

void checkParse(WString const& text) {
  std::optional<IPAddress> const address = IPAddress::fromString(text);
  if (!address)
    return;
  for (int part = 0; part < 4; ++part)
    check(address->getPart(part) >= 0 && address->getPart(part) <= 255);
  check(address->getPort() <= 65535 && (address->hasPort() || address->getPort() == 0));
  std::wstring const inside(text.view());
  std::size_t const first = inside.find_first_not_of(L" \t\r\n\f\v");
  std::size_t const last = inside.find_last_not_of(L" \t\r\n\f\v");
  for (std::size_t i = first; i <= last; ++i)
    check((inside[i] >= L'0' && inside[i] <= L'9') || inside[i] == L'.' || inside[i] == L':');
  check(first == 0 || isBlank(inside[first - 1]));
  std::optional<IPAddress> const again = IPAddress::fromString(address->toString());
  check(again && *again == *address && again->toString() == address->toString());
}

// One window with an address entry that has a port, kept for the whole run.
struct Fixture {
  StandardPanel* window = nullptr;
  IPAddressEntryBox* entry = nullptr;
};

Fixture& fixture() {
  static Fixture made = [] {
    useHeadlessScreen();
    Fixture f;
    int const row = UifStd::getRowHeight();
    StandardPanel::InitArgs args(XY<int>(IPAddressEntryBox::calcWidth(true) + 2 * row, 2 * row));
    args.screenPosition = XY<int>(100, 100);
    f.window = new StandardPanel(args);
    f.entry = f.window->createWidget<IPAddressEntryBox>(IPAddressEntryBox::InitArgs(true), Glob::UserTopLeft(0, 0));
    GlobManager::realize(f.window);
    return f;
  }();
  return made;
}

std::vector<std::wstring> boxTexts(IPAddressEntryBox const& entry) {
  std::vector<std::wstring> texts;
  for (CustomTextBox const* box : entry.getBoxes())
    texts.push_back(box->getString().str());
  return texts;
}

std::vector<std::wstring> textsOf(IPAddress const& address) {
  std::vector<std::wstring> texts;
  for (int part = 0; part < 4; ++part)
    texts.push_back(std::to_wstring(address.getPart(part)));
  texts.push_back(address.hasPort() ? std::to_wstring(address.getPort()) : std::wstring());
  return texts;
}

void checkPaste(std::size_t boxIndex, WString const& clipboard) {
  Fixture& f = fixture();
  IPAddress const before({10, 20, 30, 40}, 5060);
  f.entry->setURI(before);
  CustomTextBox* box = f.entry->getBoxes()[boxIndex];
  HeadlessInput::clickOn(*box);
  OS().setClipboardText(clipboard);
  HeadlessInput::key('v', kKeyCtrl);
  MessageLoop::runPending();

  std::vector<std::wstring> const after = boxTexts(*f.entry);
  for (std::size_t index = 0; index < after.size(); ++index) {
    check(after[index].size() <= (index < 4 ? 3u : 5u));
    check(after[index].find_first_not_of(L"0123456789") == std::wstring::npos);
  }
  std::vector<std::wstring> const old = textsOf(before);
  if (clipboard.find(L'.') != WString::npos) {
    std::optional<IPAddress> const pasted = IPAddress::fromString(clipboard);
    check(after == (pasted ? textsOf(*pasted) : old));
    return;
  }
  for (std::size_t index = 0; index < after.size(); ++index)
    check(index == boxIndex || after[index] == old[index]);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  std::string_view const bytes(reinterpret_cast<char const*>(data), size);
  WString const text = WString::fromUTF8(bytes);
  checkParse(text);

  std::wstring wide(size / sizeof(wchar_t), L'\0');
  std::memcpy(wide.data(), data, wide.size() * sizeof(wchar_t));
  checkParse(WString(wide));

  if (size > 0)
    checkPaste(data[0] % 5, WString::fromUTF8(bytes.substr(1)));
  return 0;
}
