#include <zowidgets/host/display/detail/DisplayShell.h>

#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/host/widgets/panels/Message.h>

#include <SDL.h>

namespace {

// A link or document that nothing opened: the user is told, not left
// waiting for a browser that never comes.
void tellOpenFailed(LightweightString<wchar_t> const& target) {
  defer([target] {
    makeMessage(UIString(L"Nothing on this computer could open " + target.str() + L"."), UIString(L"Could not open"));
  });
}

class DisplayShell : public Zo::iShellBackend {
public:
  LightweightString<wchar_t> clipboardText() override {
    char* text = SDL_GetClipboardText();
    LightweightString<wchar_t> result = toWide(text ? text : "");
    SDL_free(text);
    return result;
  }
  void setClipboardText(LightweightString<wchar_t> const& text) override {
    SDL_SetClipboardText(toNarrow(text).c_str());
  }
  bool perform(Zo::ShellRequest const& request) override { return opener_->perform(request); }

private:
  std::shared_ptr<Zo::iShellBackend> opener_ = Zo::makeXdgShell("xdg-open", &tellOpenFailed);
};

} // namespace

std::shared_ptr<Zo::iShellBackend> Zo::makeDisplayShell() { return std::make_shared<DisplayShell>(); }
