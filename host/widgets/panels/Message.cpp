#include <zowidgets/host/widgets/panels/Message.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>

#include <algorithm>

namespace {

// The spacing of messages: a widget gap round the text and between the
// buttons, which are a row high.
struct MessageLook {
  int side;
  int gap;
  int buttonHeight;
  int minButtonWidth;

  static MessageLook current() {
    return MessageLook{UifStd::getWidgetGap(), UifStd::getWidgetGap(), Button::calcHeight(),
                       3 * UifStd::getRowHeight()};
  }
};

} // namespace

// --- Message -------------------------------------------------------------------

Message::InitArgs::InitArgs(UIString text, UIString title)
    : MessageBase::InitArgs(Message::calcSize(Message::analyse(text))), text(std::move(text)) {
  this->title = std::move(title);
}

Message::Analysis Message::analyse(UIString const& text, int maxWidth, Glib::FontDesc const& font) {
  return MessageText::analyse(text, maxWidth, font);
}

unsigned Message::standardWidgets() { return StandardPanel::kTitle | StandardPanel::kPoot; }

XY<int> Message::calcSize(Analysis const& text, int footerHeight, int footerWidth) {
  MessageLook const look = MessageLook::current();
  XY<int> user(std::max(text.size.x, footerWidth) + 2 * look.side, text.size.y + 2 * look.gap);
  if (footerHeight > 0)
    user.y += footerHeight + look.gap;
  return calcPanelSize(user, standardWidgets(), getDefaultBorder());
}

Message::Message(InitArgs const& args) : MessageBase(args), text_(analyse(args.text)) {
  addStandardWidgets(standardWidgets());
}

Zo::Box<int> Message::getTextArea() const {
  MessageLook const look = MessageLook::current();
  Zo::Box<int> const user = getUserArea();
  int const footer = footerRowHeight() > 0 ? footerRowHeight() + look.gap : 0;
  return Zo::Box<int>(user.x0 + look.side, std::min(user.y0 + footer + look.gap, user.y1), user.x1 - look.side,
                      std::max(user.y1 - look.gap, user.y0));
}

void Message::close() {
  if (Canvas* own = canvas(); own && own->root() == this)
    own->unmap();
  GlobManager::requestDeletion(this);
}

int Message::handleKeyboardEvent(int key) {
  int const bare = key & ~kKeyModifierMask;
  if (bare == kKeyReturn || bare == kKeyEscape) {
    close();
    return 1;
  }
  return MessageBase::handleKeyboardEvent(key);
}

void Message::draw(CanvasRenderer& renderer) {
  MessageBase::draw(renderer);
  renderer.renderPrimitive(text_.describe(getTextArea(), getPalette().text()));
}

// --- Warn ----------------------------------------------------------------------

Warn::InitArgs::InitArgs(UIString text, std::vector<UIString> buttons, std::vector<Callback> callbacks, UIString title)
    : Message::InitArgs(GlobCreationInfo(Warn::calcSize(Message::analyse(text), buttons))), buttons(std::move(buttons)),
      callbacks(std::move(callbacks)) {
  this->text = std::move(text);
  this->title = std::move(title);
}

int Warn::calcButtonWidth(std::vector<UIString> const& buttons) {
  int widest = MessageLook::current().minButtonWidth;
  for (UIString const& label : buttons)
    widest = std::max(widest, Button::calcWidth(label));
  return widest;
}

int Warn::calcButtonRowWidth(std::vector<UIString> const& buttons) {
  int const count = static_cast<int>(buttons.size());
  if (count == 0)
    return 0;
  return count * calcButtonWidth(buttons) + (count - 1) * MessageLook::current().gap;
}

XY<int> Warn::calcSize(Analysis const& text, std::vector<UIString> const& buttons) {
  return Message::calcSize(text, buttons.empty() ? 0 : MessageLook::current().buttonHeight,
                           calcButtonRowWidth(buttons));
}

Warn::Warn(InitArgs const& args) : Message(args), callbacks_(args.callbacks) {
  MessageLook const look = MessageLook::current();
  int const buttonWidth = calcButtonWidth(args.buttons);
  int const count = static_cast<int>(args.buttons.size());
  buttons_.resize(args.buttons.size());
  // From the right: the last button at the bottom-right corner, each one
  // before it to the left of the next.
  for (int index = count - 1; index >= 0; --index) {
    PushButton::InitArgs button(args.buttons[static_cast<std::size_t>(index)], XY<int>(buttonWidth, look.buttonHeight));
    WidgetPosition const where =
        index == count - 1 ? UserBottomRight(look.side, look.gap) : LeftOf(look.gap, buttons_[index + 1]);
    Button* made = createWidget<PushButton>(button, where);
    made->setCallback(
        Broadcaster<ButtonEvent>::makeCallback([this, index](ButtonEvent const& event) { answer(index, event); }));
    buttons_[static_cast<std::size_t>(index)] = made;
  }
  for (Button* button : buttons_)
    tabOrder().addTabStop(*button, 0);
  if (!buttons_.empty())
    buttons_.front()->claimKbdFocus();
  if (args.modal)
    GlobManager::addModalGlob(this);
}

int Warn::footerRowHeight() const { return buttons_.empty() ? 0 : MessageLook::current().buttonHeight; }

Button* Warn::getButton(int index) const {
  return index >= 0 && index < getNumButtons() ? buttons_[static_cast<std::size_t>(index)] : nullptr;
}

void Warn::answer(int index, ButtonEvent const& event) {
  if (closed_)
    return;
  closed_ = true;
  answer_ = index;
  if (index < static_cast<int>(callbacks_.size()))
    if (Callback const& callback = callbacks_[static_cast<std::size_t>(index)]; callback.callback)
      callback.callback->execute(event);
  close();
}

void Warn::handlePoot() {
  closed_ = true;
  close();
}

int Warn::handleKeyboardEvent(int key) {
  int const bare = key & ~kKeyModifierMask;
  if (bare == kKeyEscape) {
    handlePoot();
    return 1;
  }
  if (bare == kKeyReturn) {
    if (!buttons_.empty())
      buttons_.front()->press();
    return 1;
  }
  return Message::handleKeyboardEvent(key);
}

// --- Making them -----------------------------------------------------------------

Warn* make_warn(UIString const& text, std::vector<UIString> const& buttons,
                std::vector<Warn::Callback> const& callbacks, UIString const& title, XY<int> screenPosition) {
  Warn::InitArgs args(text, buttons, callbacks, title);
  args.screenPosition = screenPosition;
  args.modal = true;
  Drawable::Suspender holdRedraws;
  auto* warn = new Warn(args);
  GlobManager::realize(warn);
  return warn;
}

Warn* makeMessage(UIString const& text, UIString const& title, XY<int> screenPosition) {
  Warn::InitArgs args(text, {UIString(L"OK")}, {}, title);
  args.screenPosition = screenPosition;
  // Over a modal window, which refuses input to any other, the message
  // stacks on it: else its OK and Escape would reach the window behind.
  args.modal = GlobManager::currentModal() != nullptr;
  Drawable::Suspender holdRedraws;
  auto* message = new Warn(args);
  GlobManager::realize(message);
  return message;
}
