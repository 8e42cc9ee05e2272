#include <zowidgets/textentry/MultiLineTextBoxPanel.h>

#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/popups/Tooltip.h>
#include <zowidgets/host/widgets/text/MultiLineTextBox.h>
#include <zowidgets/values/notify/Callback.h>
#include <zowidgets/values/notify/UIThreadCallbackDupe.h>

#include <string_view>
#include <vector>

namespace {

constexpr ResId kTypeHere = 11872;
constexpr ResId kOK = 10006;
constexpr unsigned kSmilingFace = 0x1F600;

} // namespace

MultiLineTextBoxPanel::InitArgs::InitArgs(XY<int> size, LightweightString<wchar_t> const& text,
                                          Broadcaster<MultiLineTextBoxPanelEvent>::Callback callback)
    : StandardPanel::InitArgs(GlobCreationInfo(size)), text(text), callback(std::move(callback)) {
  setBorder(MultiLineTextBoxPanel::border());
}

Border MultiLineTextBoxPanel::border() {
  Border edge(0, 0, 15);
  int const margin = UifStd::getWidgetGap();
  edge.setMargins(margin, margin, margin, margin);
  return edge;
}

LightweightString<wchar_t> MultiLineTextBoxPanel::getDisplayString(LightweightString<wchar_t> const& text) {
  std::wstring_view const all = text.view();
  if (all.find(L'\n') == std::wstring_view::npos)
    return text;
  std::size_t start = 0;
  while (start < all.size()) {
    std::size_t const end = std::min(all.find(L'\n', start), all.size());
    if (end > start)
      return LightweightString<wchar_t>(std::wstring(all.substr(start, end - start)) + L"...");
    start = end + 1;
  }
  return text;
}

MultiLineTextBoxPanel::MultiLineTextBoxPanel(InitArgs const& args) : StandardPanel(args) {
  Drawable::Suspender const oneRepaint;
  addListener(args.callback);
  setDoItLabel(UIString(kOK));
  addStandardWidgets(kDoIt);
  setContextString(TooltipDetails(UIString(kTypeHere)));

  Zo::Box<int> const user = getUserArea();
  int const gap = UifStd::getWidgetGap();
  int const side = UifStd::getRowHeight();
  // The smiley and the drop-down's arrow.
  UIString const smiley(Emoji::asWString(kSmilingFace));
  XY<int> const buttonSize(Button::calcWidth(smiley) + Button::getRevealIndicatorWidth(), side);
  MultiLineTextBox::InitArgs boxArgs(
      GlobCreationInfo(XY<int>(std::max(user.width() - gap - buttonSize.x, side), user.height())));
  boxArgs.ghostLabel = UIString(kTypeHere);
  textBox_ = createWidget<MultiLineTextBox>(boxArgs, Glob::UserTopLeft(0, 0));
  textBox_->setString(args.text);
  textBox_->addListener(Broadcaster<TextBoxEvent>::makeCallback(this, &MultiLineTextBoxPanel::handleTextEntered));

  EmojiPanel::InitArgs pickerArgs;
  pickerArgs.callback = Broadcaster<EmojiPanelEvent>::Callback{
      UIThreadCallbackDupe<EmojiPanelEvent>::guarded(
          Zo::Ptr<iCallbackBase<int, EmojiPanelEvent>>(new MethodCallback<MultiLineTextBoxPanel, EmojiPanelEvent>(
              this, &MultiLineTextBoxPanel::handleEmojiEvent)),
          this),
      0};
  DropDownButton2<EmojiPanel>::InitArgs buttonArgs(smiley, buttonSize, pickerArgs);
  emojiButton_ = createWidget<DropDownButton2<EmojiPanel>>(buttonArgs, Glob::RightOf(gap, textBox_, kAlignStart));
  emojiButton_->setDropDownAlignment(kAlignStart, kRelativeBelow);
  textBox_->claimKbdFocus();
}

void MultiLineTextBoxPanel::insert(EmojiPanelEvent const& event) {
  textBox_->insertAtCaret(event.character.text.view());
  // Typing goes on in the box, with the picker still open for more.
  textBox_->claimKbdFocus();
  textBox_->invalidate();
}

int MultiLineTextBoxPanel::handleEmojiEvent(EmojiPanelEvent const& event) {
  insert(event);
  return 0;
}

int MultiLineTextBoxPanel::handleTextEntered(TextBoxEvent const& event) {
  if (event.kind == TextBoxEvent::kReturnPressed)
    enterText();
  return 0;
}

void MultiLineTextBoxPanel::handleDoIt() { enterText(); }

void MultiLineTextBoxPanel::enterText() {
  // Once only: the panel is on its way out.
  if (entered_)
    return;
  entered_ = true;
  broadcast(MultiLineTextBoxPanelEvent{textBox_->getString()});
  GlobManager::requestDeletion(this);
}
