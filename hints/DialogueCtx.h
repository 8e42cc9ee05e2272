#pragma once

#include <zowidgets/host/base/NullType.h>
#include <zowidgets/host/widgets/panels/Message.h>

#include <memory>
#include <vector>

// A modal question: a Warn whose buttons each run their callback, then the
// dialogue goes. T is a context the dialogue owns while it is up;
// Loki::NullType for none.
template <class T> class ZO_API DialogueCtx : public Warn {
public:
  // Screen coordinates meaning "where the host puts dialogues": the middle
  // of the screen.
  static constexpr unsigned short kDefaultPosition = 0xFFFF;

  // Opens the dialogue. callbacks[i] belongs to buttons[i]; a missing one
  // only closes it. An empty title reads "Please confirm".
  static DialogueCtx* make(UIString const& title, UIString const& message, std::vector<UIString> const& buttons,
                           std::vector<Callback> const& callbacks, unsigned short x = kDefaultPosition,
                           unsigned short y = kDefaultPosition, std::unique_ptr<T> context = {});

  T* getContext() const noexcept { return context_.get(); }

  // Its size for this message and these buttons: the text wrapped at 18
  // rows' height or the button row's width, whichever is wider, an indent
  // each side, and below it a row and a widget gap above and below.
  static XY<int> calcDialogueSize(UIString const& message, std::vector<UIString> const& buttons);

private:
  DialogueCtx(Warn::InitArgs const& args, std::unique_ptr<T> context) : Warn(args), context_(std::move(context)) {}

  std::unique_ptr<T> context_;
};

extern template class DialogueCtx<Loki::NullType>;
