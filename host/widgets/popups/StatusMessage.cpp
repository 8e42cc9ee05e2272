#include <zowidgets/host/widgets/popups/StatusMessage.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>

#include <algorithm>

namespace {

// The look of status messages: a window a touch towards the accent colour,
// and an OK button of the standard height with room for its label.
struct StatusMessageLook {
  Colour window;
  int buttonHeight;
  int buttonWidth;

  static StatusMessageLook current() {
    Palette const popup = makePopupPalette(UifStd::getColourScheme());
    return StatusMessageLook{Colour::mix(popup.window(), popup.selection(), 0.85), Button::calcHeight(),
                             std::max(Button::calcWidth(UIString(L"OK")), 3 * UifStd::getRowHeight())};
  }
};

} // namespace

StatusMessage::InitArgs::InitArgs(UIString text, eWidgetRelativity side, unsigned flags)
    : TipWindowBase::InitArgs(calcSize(text, side, flags)), text(std::move(text)), flags(flags) {
  relativity = side;
}

XY<int> StatusMessage::standardSpacing() { return XY<int>(UifStd::getWidgetGap(), UifStd::getWidgetGap()); }

Colour StatusMessage::getBaseColour() { return StatusMessageLook::current().window; }

XY<int> StatusMessage::okButtonSize() {
  StatusMessageLook const look = StatusMessageLook::current();
  return XY<int>(look.buttonWidth, look.buttonHeight);
}

XY<int> StatusMessage::calcSize(UIString const& text, eWidgetRelativity relativity, unsigned flags) {
  return calcSize(text, relativity, flags, standardSpacing());
}

XY<int> StatusMessage::calcSize(UIString const& text, eWidgetRelativity relativity, unsigned flags, XY<int> spacing) {
  StatusMessageLook const look = StatusMessageLook::current();
  XY<int> const laidOut = MessageText::analyse(text).size;
  XY<int> inner(laidOut.x + 2 * spacing.x, laidOut.y + 2 * spacing.y);
  if (flags & kOkButton) {
    inner.x = std::max(inner.x, look.buttonWidth + 2 * spacing.x);
    inner.y += look.buttonHeight + spacing.y;
  }
  return calcSizeFor(inner, relativity, getDefaultBorder());
}

StatusMessage::StatusMessage(InitArgs const& args)
    : TipWindowBase(args), message_(MessageText::analyse(args.text)), spacing_(args.spacing),
      hasFooter_((args.flags & kOkButton) != 0) {
  if (!args.palette)
    setPalette(makeWindowPalette(makePopupPalette(UifStd::getColourScheme()), getBaseColour()));
  if (hasFooter_) {
    StatusMessageLook const look = StatusMessageLook::current();
    PushButton::InitArgs ok(UIString(L"OK"), XY<int>(look.buttonWidth, look.buttonHeight));
    ok.setParent(this);
    okButton_ = static_cast<Button*>(addChild(new PushButton(ok), MarginBottomLeft(0, 0)));
    okButton_->setCallback(Broadcaster<ButtonEvent>::makeCallback([this](ButtonEvent const&) { handleOkPressed(); }));
  }
}

void StatusMessage::handleOkPressed() { close(); }

void StatusMessage::close() {
  if (Canvas* own = canvas(); own && own->root() == this)
    own->unmap();
  GlobManager::requestDeletion(this);
}

int StatusMessage::footerHeight() const {
  return hasFooter_ ? StatusMessageLook::current().buttonHeight + spacing_.y : 0;
}

Zo::Box<int> StatusMessage::getUserArea() const {
  Zo::Box<int> const inside = TipWindowBase::getUserArea();
  return Zo::Box<int>(inside.x0, std::min(inside.y0 + footerHeight(), inside.y1), inside.x1, inside.y1);
}

Zo::Box<int> StatusMessage::getMarginArea() const {
  if (!hasFooter_)
    return {};
  Zo::Box<int> const inside = TipWindowBase::getUserArea();
  return Zo::Box<int>(inside.x0 + spacing_.x, inside.y0 + spacing_.y, inside.x1 - spacing_.x,
                      std::min(inside.y0 + footerHeight(), inside.y1));
}

int StatusMessage::react(Event const& event) {
  // A press on the message gives it the keyboard: Return then presses OK.
  // Until then keys stay with the window the user works in.
  if (event.type == Event::kMouseDown && okButton_ && !okButton_->hasKbdFocus())
    okButton_->claimKbdFocus();
  if (event.type == Event::kKeyDown) {
    int const key = event.key & ~kKeyModifierMask;
    if (key == kKeyEscape) {
      close();
      return 1;
    }
    if (key == kKeyReturn && okButton_) {
      okButton_->press();
      return 1;
    }
  }
  return TipWindowBase::react(event);
}

void StatusMessage::draw(CanvasRenderer& renderer) {
  Zo::Box<int> const user = getUserArea();
  Zo::Box<int> const textArea(user.x0 + spacing_.x, user.y0 + spacing_.y, user.x1 - spacing_.x, user.y1 - spacing_.y);
  renderer.renderPrimitive(message_.describe(textArea, getPalette().text()));
}
