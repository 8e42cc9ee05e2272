#include <zowidgets/hints/DialogueCtx.h>

#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/ScreenRefresh.h>
#include <zowidgets/host/toolkit/StateSaver.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>

namespace {

constexpr ResId kConfirmTitleId = 11846;

} // namespace

template <class T>
XY<int> DialogueCtx<T>::calcDialogueSize(UIString const& message, std::vector<UIString> const& buttons) {
  int const row = UifStd::getRowHeight();
  int const gap = UifStd::getWidgetGap();
  Analysis const text = Message::analyse(message, std::max(18 * row, Warn::calcButtonRowWidth(buttons)));
  XY<int> const user(text.size.x + 2 * UifStd::getIndentWidth(), text.size.y + row + 2 * gap);
  XY<int> const outer = calcPanelSize(user, Message::standardWidgets(), getDefaultBorder());
  // The host's message also keeps a gap between text and buttons: never
  // smaller than it needs, so no line of the text is cut.
  XY<int> const needed = Warn::calcSize(text, buttons);
  return XY<int>(std::max(outer.x, needed.x), std::max(outer.y, needed.y));
}

template <class T> DialogueCtx<T>* DialogueCtx<T>::make(UIString const& title, UIString const& message,
                                                        std::vector<UIString> const& buttons,
                                                        std::vector<Callback> const& callbacks, unsigned short x,
                                                        unsigned short y, std::unique_ptr<T> context) {
  Warn::InitArgs args(message, buttons, callbacks, title.empty() ? UIString(kConfirmTitleId) : title);
  args.size = calcDialogueSize(message, buttons);
  if (x != kDefaultPosition || y != kDefaultPosition)
    args.screenPosition = XY<int>(x, y);
  args.modal = true;
  Glib::StateSaver savedState;
  // The dialogue reaches the screen in one piece, with its shadow.
  ScreenRefreshHold holdScreen;
  Drawable::Suspender holdRedraws;
  auto* dialogue = new DialogueCtx(args, std::move(context));
  GlobManager::realize(dialogue);
  dialogue->addShadow();
  dialogue->reshapeAndDraw();
  return dialogue;
}

template class DialogueCtx<Loki::NullType>;
