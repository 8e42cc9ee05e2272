#include <zowidgets/host/display/DisplayScreen.h>
#include <zowidgets/host/display/detail/NativeWindow.h>
#include <zowidgets/host/display/detail/X11Screen.h>
#include <zowidgets/host/events/Event.h>
#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/InputRouter.h>

#include <SDL.h>

#include <cctype>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {

// The running program's file name, as window managers name its windows.
std::string const& programName() {
  static std::string const name = [] {
    std::error_code failed;
    std::string const file = std::filesystem::read_symlink("/proc/self/exe", failed).filename().string();
    return file.empty() ? std::string("zowidgets") : file;
  }();
  return name;
}

// How long the combined loop waits for queued work before looking at the
// windows again.
constexpr std::chrono::milliseconds kPumpInterval(10);

int modifierBits(Uint16 state) {
  int bits = 0;
  if (state & KMOD_SHIFT)
    bits |= kKeyShift;
  if (state & KMOD_CTRL)
    bits |= kKeyCtrl;
  if (state & KMOD_ALT)
    bits |= kKeyAlt;
  if (state & KMOD_GUI)
    bits |= kKeyCmd;
  return bits;
}

// Our key code for a key, or 0 for keys the toolkit has no code for (the
// modifiers themselves among them).
int keyCode(SDL_Keycode sym) {
  switch (sym) {
  case SDLK_BACKSPACE:
    return kKeyBackspace;
  case SDLK_TAB:
    return kKeyTab;
  case SDLK_RETURN:
  case SDLK_KP_ENTER:
    return kKeyReturn;
  case SDLK_ESCAPE:
    return kKeyEscape;
  case SDLK_DELETE:
    return kKeyDelete;
  case SDLK_INSERT:
    return kKeyInsert;
  case SDLK_HOME:
    return kKeyHome;
  case SDLK_END:
    return kKeyEnd;
  case SDLK_PAGEUP:
    return kKeyPageUp;
  case SDLK_PAGEDOWN:
    return kKeyPageDown;
  case SDLK_LEFT:
    return kKeyLeft;
  case SDLK_RIGHT:
    return kKeyRight;
  case SDLK_UP:
    return kKeyUp;
  case SDLK_DOWN:
    return kKeyDown;
  default:
    break;
  }
  if (sym >= SDLK_F1 && sym <= SDLK_F10)
    return kKeyF1 + (sym - SDLK_F1);
  // Printable keys: the window library's codes are their unshifted character.
  if (sym >= ' ' && sym < 0x7f)
    return sym;
  return 0;
}

int mouseButton(Uint8 button) {
  switch (button) {
  case SDL_BUTTON_LEFT:
    return kMouseLeft;
  case SDL_BUTTON_RIGHT:
    return kMouseRight;
  case SDL_BUTTON_MIDDLE:
    return kMouseMiddle;
  default:
    return 0;
  }
}

} // namespace

struct DisplayScreen::State {
  std::unique_ptr<X11Screen> x11;
  // The window shown for each canvas, and whether it is a popup (never
  // worked in, whatever is pressed there).
  struct Shown {
    SDL_Window* window = nullptr;
    bool popup = false;
    bool goneFromX = false; // destroyed by another program
  };
  std::map<Canvas*, Shown> windows;
  // Our windows in the order the user last worked in them, the latest last:
  // each took the keyboard or a press of a button. (With the keyboard
  // following the pointer, X tells no window that it has it.)
  std::vector<Canvas*> workOrder;
  int cursor = 0;
  bool quit = false;

  // Runs `show`, a call of the window library that may give a window the
  // keyboard (without a window manager it gives it to every window it shows
  // or raises); for a popup the keyboard then goes back to whoever had it.
  template <class Show> void leavingTheKeyboard(bool popup, Show show) const {
    X11Screen::KeyboardHolder const keyboard = popup ? x11->keyboardHolder() : X11Screen::KeyboardHolder{};
    show();
    if (popup && x11->keyboardHolder() != keyboard)
      x11->giveKeyboardTo(keyboard);
  }
  void workedIn(Canvas* canvas) {
    if (auto found = windows.find(canvas); found == windows.end() || found->second.popup)
      return;
    std::erase(workOrder, canvas);
    workOrder.push_back(canvas);
  }
  // The desktop gave a window the keyboard (a window manager, a task bar,
  // xdotool windowactivate): the keys go to that window's widgets, not to
  // those of the window the user worked in before. The keyboard X gives a
  // window because we showed or raised it comes back as the same event, a
  // moment later and before the user does anything more: that echo changes
  // nothing.
  void activated(Canvas* canvas) {
    workedIn(canvas);
    if (keyboardAskedFor.erase(canvas) == 0)
      InputRouter::windowActivated(canvas->root());
  }
  // A press in a window gives it X's keyboard, as a window manager does on
  // a click: without one the keyboard stays with the window shown last, and
  // a popup opened from the pressed window would hand the keyboard back
  // there, whose activation then closes the popup at once.
  void keyboardToPressed(Canvas& canvas) {
    auto found = windows.find(&canvas);
    if (found == windows.end() || found->second.popup)
      return;
    unsigned long const native = nativeX11Window(found->second.window);
    if (x11->keyboardHolder().window == native)
      return;
    askedKeyboardFor(&canvas);
    x11->giveKeyboardToWindow(native);
  }
  // We showed or raised a window, or gave it the keyboard back: X's report
  // that it has the keyboard is to come. Until the user presses a button or
  // a key, which come after any echo of what we did before.
  void askedKeyboardFor(Canvas* canvas) { keyboardAskedFor.insert(canvas); }
  std::set<Canvas*> keyboardAskedFor;
  bool keyboardLeft = false; // a window of ours lost the keyboard this pump
  Canvas* canvasOfWindow(Uint32 windowId) const {
    SDL_Window* window = SDL_GetWindowFromID(windowId);
    for (auto const& [canvas, shown] : windows)
      if (shown.window == window)
        return canvas;
    return nullptr;
  }
  // A window's corner on the other screen: X's top-left from our bottom-left
  // and back, for a window `height` high.
  XY<int> otherCorner(XY<int> corner, int height) const { return XY<int>(corner.x, x11->size().y - corner.y - height); }
  // X's top-down window position for a canvas.
  XY<int> windowPosition(Canvas const& canvas) const { return otherCorner(canvas.getPosition(), canvas.getSize().y); }
  // Where a window's event happened, on our bottom-up screen. X reports it
  // relative to where the window was, which lags behind our moves of it while
  // a title bar is dragged: with a button held, the pointer itself is asked.
  XY<int> eventPoint(Canvas const& canvas, int x, int y) const {
    if (InputRouter::buttonsHeld())
      return pointer();
    return XY<int>(canvas.getPosition().x + x, canvas.getPosition().y + canvas.getSize().y - 1 - y);
  }
  // Where the pointer is now, on our bottom-up screen.
  XY<int> pointer() const { return bottomUp(x11->pointer()); }
  // A point of X's top-down screen on ours.
  XY<int> bottomUp(XY<int> x) const { return XY<int>(x.x, x11->size().y - 1 - x.y); }
  // Presses on the desktop or on another program's window are reported to
  // that window alone. While a menu or a drop-down is open, such a press
  // reaches the router as a press where the pointer is, which closes the
  // popup as a press on another of our windows does (and does nothing else);
  // its release follows. Told by X of every press, however short.
  void noticePressesOutside(std::vector<X11Screen::ButtonChange> const& changes, XY<int> at, int modifiers) {
    for (X11Screen::ButtonChange const& change : changes) {
      int const button = change.button == 1 ? kMouseLeft : change.button == 2 ? kMouseMiddle : kMouseRight;
      if (change.down) {
        if ((pressedOutside & button) || SDL_GetMouseFocus() || !aMenuIsOpen())
          continue;
        pressedOutside |= button;
        InputRouter::mouseButton(at, button, true, modifiers, 1);
      } else if (pressedOutside & button) {
        pressedOutside &= ~button;
        InputRouter::mouseButton(at, button, false, modifiers, 1);
      }
    }
  }
  bool aMenuIsOpen() const {
    for (auto const& [canvas, shown] : windows)
      if (shown.popup && canvas->root() && canvas->root()->windowKind() == Glob::eWindowKind::kPopupMenu)
        return true;
    return false;
  }
  int pressedOutside = 0; // the buttons held outside our windows, as told

  // The window library reports nothing outside our windows, nor a move that
  // leaves the pointer where it was in a window that moved with it (a title
  // bar drag): the router is told of any move it missed.
  void followPointer(int modifiers) const { followPointerTo(pointer(), modifiers); }
  void followPointerTo(XY<int> at, int modifiers) const {
    XY<int> const known = InputRouter::mousePosition();
    if (at.x != known.x || at.y != known.y)
      InputRouter::mouseMoved(at, modifiers);
  }
  // A window moved by something else (a window manager placing, decorating
  // or dragging it; another program): the canvas is put where X says, so
  // the pointer finds the widgets where they show. Reports of our own moves
  // while a title bar is dragged lag behind the drag, and are left alone.
  void followWindow(Canvas& canvas, XY<int> xPosition, int modifiers) const {
    if (InputRouter::buttonsHeld())
      return;
    XY<int> const at = otherCorner(xPosition, canvas.getSize().y);
    if (at == canvas.getPosition())
      return;
    canvas.movedOnScreen(at);
    // The pointer stays, the widgets under it changed.
    InputRouter::mouseMoved(pointer(), modifiers);
  }
  // A window resized by something else (a window manager tiling it, another
  // program): the canvas and its root take the size, the top-left corner
  // staying where X has it. Left alone while a button is held, as moves are.
  void followSize(Canvas& canvas, SDL_Window* window, XY<int> size, int modifiers) const {
    if (InputRouter::buttonsHeld() || size == canvas.getSize())
      return;
    XY<int> topLeft;
    SDL_GetWindowPosition(window, &topLeft.x, &topLeft.y);
    canvas.resizedOnScreen(otherCorner(topLeft, size.y), size);
    InputRouter::mouseMoved(pointer(), modifiers);
  }
  // A window another program destroyed is closed as its close box would.
  void closeDestroyedWindows() {
    for (unsigned long const destroyed : x11->takeDestroyedWindows())
      for (auto& [canvas, shown] : windows)
        if (nativeX11Window(shown.window) == destroyed && canvas->root()) {
          shown.goneFromX = true;
          GlobManager::requestDeletion(canvas->root());
        }
  }
  void showCursor(SDL_Window* window) const {
    if (unsigned long const native = nativeX11Window(window))
      x11->setCursor(native, cursor);
  }
  // Windows without a title of their own (menus, tips) carry the program's
  // name, so that no window on the desktop is nameless.
  void showTitle(Canvas const& canvas, SDL_Window* window) const {
    LightweightString<wchar_t> const title = canvas.title();
    SDL_SetWindowTitle(window, title.empty() ? programName().c_str() : title.toUTF8().c_str());
  }
  void showClass(SDL_Window* window) const {
    if (unsigned long const native = nativeX11Window(window)) {
      std::string className = programName();
      className[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(className[0])));
      x11->setWindowClass(native, programName(), className);
    }
  }
};

std::unique_ptr<DisplayScreen> DisplayScreen::open() {
  auto x11 = X11Screen::open();
  if (!x11)
    return nullptr;
  // The program keeps its own signal handling, and a click that activates a
  // window is a click like any other.
  SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
  SDL_SetHint(SDL_HINT_MOUSE_FOCUS_CLICKTHROUGH, "1");
  SDL_SetHint(SDL_HINT_VIDEODRIVER, "x11");
  // We paint through the window surface only. With acceleration on, the
  // first surface paint makes the X window afresh, and X calls made on the
  // window before that (its cursor, from our own connection) then meet a
  // window that is gone.
  SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
  if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0)
    return nullptr;
  SDL_StartTextInput();
  auto state = std::make_unique<State>();
  state->x11 = std::move(x11);
  return std::unique_ptr<DisplayScreen>(new DisplayScreen(std::move(state)));
}

DisplayScreen::DisplayScreen(std::unique_ptr<State> state) : state_(std::move(state)) {}

DisplayScreen::~DisplayScreen() {
  for (auto const& [canvas, shown] : state_->windows)
    SDL_DestroyWindow(shown.window);
  SDL_QuitSubSystem(SDL_INIT_VIDEO);
}

XY<int> DisplayScreen::screenSize() const { return state_->x11->size(); }

double DisplayScreen::screenScale() const { return state_->x11->scale(); }

void DisplayScreen::canvasMapped(Canvas& canvas) {
  if (state_->windows.count(&canvas))
    return;
  XY<int> const at = state_->windowPosition(canvas);
  Glob::eWindowKind const kind = canvas.root() ? canvas.root()->windowKind() : Glob::eWindowKind::kPanel;
  Uint32 flags = SDL_WINDOW_BORDERLESS | SDL_WINDOW_SHOWN;
  if (kind == Glob::eWindowKind::kPopupMenu)
    flags |= SDL_WINDOW_POPUP_MENU | SDL_WINDOW_SKIP_TASKBAR;
  else if (kind == Glob::eWindowKind::kTip)
    flags |= SDL_WINDOW_TOOLTIP | SDL_WINDOW_SKIP_TASKBAR;
  bool const popup = canvas.root() && canvas.root()->isPopupWindow();
  SDL_Window* window = nullptr;
  state_->leavingTheKeyboard(
      popup, [&] { window = SDL_CreateWindow("", at.x, at.y, canvas.getSize().x, canvas.getSize().y, flags); });
  if (!window)
    return;
  state_->windows[&canvas] = State::Shown{window, popup};
  if (!popup)
    state_->askedKeyboardFor(&canvas);
  state_->x11->watchWindow(nativeX11Window(window));
  state_->showTitle(canvas, window);
  state_->showClass(window);
  state_->showCursor(window);
  canvasPainted(canvas, Zo::Box<int>(0, 0, canvas.getSize().x, canvas.getSize().y));
}

void DisplayScreen::canvasUnmapped(Canvas& canvas) {
  auto found = state_->windows.find(&canvas);
  if (found == state_->windows.end())
    return;
  std::vector<Canvas*>& order = state_->workOrder;
  bool const workedInLast = !order.empty() && order.back() == &canvas;
  std::erase(order, &canvas);
  if (found->second.goneFromX)
    destroyWindowGoneFromX(found->second.window);
  else
    SDL_DestroyWindow(found->second.window);
  state_->windows.erase(found);
  state_->keyboardAskedFor.erase(&canvas);
  // X gives the keyboard of a window that goes to no one, or to whatever a
  // window manager picks: it goes back to the window the user worked in
  // before, as a menu chosen from gives the keys back to its panel.
  if (workedInLast && !order.empty())
    if (auto previous = state_->windows.find(order.back()); previous != state_->windows.end()) {
      state_->askedKeyboardFor(order.back());
      SDL_SetWindowInputFocus(previous->second.window);
    }
}

void DisplayScreen::canvasMoved(Canvas& canvas) {
  auto found = state_->windows.find(&canvas);
  if (found == state_->windows.end())
    return;
  XY<int> const at = state_->windowPosition(canvas);
  SDL_SetWindowPosition(found->second.window, at.x, at.y);
}

void DisplayScreen::canvasResized(Canvas& canvas) {
  auto found = state_->windows.find(&canvas);
  if (found == state_->windows.end())
    return;
  SDL_SetWindowSize(found->second.window, canvas.getSize().x, canvas.getSize().y);
  // The bottom edge stays put on our screen, so the top moves on X's.
  canvasMoved(canvas);
  canvasPainted(canvas, Zo::Box<int>(0, 0, canvas.getSize().x, canvas.getSize().y));
}

void DisplayScreen::canvasRaised(Canvas& canvas) {
  auto found = state_->windows.find(&canvas);
  if (found != state_->windows.end()) {
    if (!found->second.popup)
      state_->askedKeyboardFor(&canvas);
    state_->leavingTheKeyboard(found->second.popup, [&] { SDL_RaiseWindow(found->second.window); });
  }
}

void DisplayScreen::canvasKeptInFront(Canvas& canvas) {
  // Raised by X itself: the window library would also ask a window manager
  // to make it the active window, keyboard and all.
  if (auto found = state_->windows.find(&canvas); found != state_->windows.end())
    state_->x11->raise(nativeX11Window(found->second.window));
}

void DisplayScreen::canvasRetitled(Canvas& canvas) {
  auto found = state_->windows.find(&canvas);
  if (found != state_->windows.end())
    state_->showTitle(canvas, found->second.window);
}

// A window's kind is fixed when it is made (a popup is not managed by a
// window manager, a panel is): it is made again as the new kind, in place.
void DisplayScreen::canvasKindChanged(Canvas& canvas) {
  if (!state_->windows.count(&canvas))
    return;
  canvasUnmapped(canvas);
  canvasMapped(canvas);
}

void DisplayScreen::canvasPainted(Canvas& canvas, Zo::Box<int> const& damage) {
  auto found = state_->windows.find(&canvas);
  Zo::Image::Surface const& pixels = canvas.surface();
  if (found == state_->windows.end() || pixels.empty())
    return;
  SDL_Surface* target = SDL_GetWindowSurface(found->second.window);
  if (!target)
    return;
  // The canvas's words are 0xAARRGGBB in native order: the window library's
  // ARGB8888. Windows are opaque, so the pixels are copied, not blended.
  SDL_Surface* source =
      SDL_CreateRGBSurfaceWithFormatFrom(const_cast<std::uint8_t*>(pixels.data()), pixels.width(), pixels.height(), 32,
                                         pixels.stride(), SDL_PIXELFORMAT_ARGB8888);
  if (!source)
    return;
  SDL_SetSurfaceBlendMode(source, SDL_BLENDMODE_NONE);
  int const height = canvas.getSize().y;
  SDL_Rect rows{damage.x0, height - damage.y1, damage.width(), damage.height()};
  SDL_Rect placed = rows;
  SDL_BlitSurface(source, &rows, target, &placed);
  SDL_FreeSurface(source);
  SDL_UpdateWindowSurfaceRects(found->second.window, &rows, 1);
}

void DisplayScreen::cursorChanged(int cursorId) {
  if (cursorId == state_->cursor)
    return;
  state_->cursor = cursorId;
  for (auto const& [canvas, shown] : state_->windows)
    state_->showCursor(shown.window);
}

Zo::Image::Surface DisplayScreen::grab(Zo::Box<int> const& area) {
  int const screenHeight = screenSize().y;
  return state_->x11->grab(Zo::Box<int>(area.x0, screenHeight - area.y1, area.x1, screenHeight - area.y0));
}

bool DisplayScreen::pumpEvents() {
  SDL_Event event;
  while (SDL_PollEvent(&event)) {
    int const modifiers = modifierBits(SDL_GetModState());
    switch (event.type) {
    case SDL_QUIT:
      state_->quit = true;
      break;
    case SDL_MOUSEMOTION:
      if (Canvas* canvas = state_->canvasOfWindow(event.motion.windowID))
        InputRouter::mouseMoved(state_->eventPoint(*canvas, event.motion.x, event.motion.y), modifiers);
      break;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP: {
      Canvas* canvas = state_->canvasOfWindow(event.button.windowID);
      int const button = mouseButton(event.button.button);
      if (!canvas || !button)
        break;
      bool const pressed = event.type == SDL_MOUSEBUTTONDOWN;
      // A release comes where the pointer was last seen moving.
      if (pressed) {
        state_->workedIn(canvas);
        state_->keyboardAskedFor.clear();
        state_->keyboardToPressed(*canvas);
      } else
        state_->followPointer(modifiers);
      InputRouter::mouseButton(state_->eventPoint(*canvas, event.button.x, event.button.y), button, pressed, modifiers,
                               event.button.clicks);
      // A drag of the title bar ended where X put the window last.
      if (auto shown = state_->windows.find(canvas); !pressed && shown != state_->windows.end()) {
        XY<int> at;
        SDL_GetWindowPosition(shown->second.window, &at.x, &at.y);
        state_->followWindow(*canvas, at, modifiers);
      }
      break;
    }
    case SDL_MOUSEWHEEL: {
      int const flip = event.wheel.direction == SDL_MOUSEWHEEL_FLIPPED ? -1 : 1;
      int const steps = flip * event.wheel.y;
      int const across = flip * event.wheel.x;
      if (steps != 0 || across != 0)
        state_->followPointer(modifiers);
      if (steps != 0)
        InputRouter::mouseWheel(InputRouter::mousePosition(), steps, modifiers);
      // The horizontal axis (a tilting wheel, a touchpad) goes on as the
      // desktop's sideways gesture, Shift with the wheel, turned towards the
      // user for the right: widgets have one sideways wheel to handle.
      if (across != 0)
        InputRouter::mouseWheel(InputRouter::mousePosition(), -across, modifiers | kKeyShift);
      break;
    }
    case SDL_KEYDOWN:
    case SDL_KEYUP:
      if (int const code = keyCode(event.key.keysym.sym)) {
        // The modifiers as they were with this key, not after the whole batch.
        int const held = modifierBits(event.key.keysym.mod);
        if (event.type == SDL_KEYDOWN) {
          state_->keyboardAskedFor.clear();
          InputRouter::keyPressed(code, held);
        } else
          InputRouter::keyReleased(code, held);
      }
      break;
    case SDL_TEXTINPUT:
      InputRouter::textTyped(event.text.text);
      break;
    case SDL_WINDOWEVENT:
      if (Canvas* canvas = state_->canvasOfWindow(event.window.windowID)) {
        if (event.window.event == SDL_WINDOWEVENT_EXPOSED)
          canvasPainted(*canvas, Zo::Box<int>(0, 0, canvas->getSize().x, canvas->getSize().y));
        else if (event.window.event == SDL_WINDOWEVENT_CLOSE)
          GlobManager::requestDeletion(canvas->root());
        else if (event.window.event == SDL_WINDOWEVENT_FOCUS_GAINED)
          state_->activated(canvas);
        else if (event.window.event == SDL_WINDOWEVENT_FOCUS_LOST)
          state_->keyboardLeft = true;
        else if (event.window.event == SDL_WINDOWEVENT_MOVED)
          state_->followWindow(*canvas, XY<int>(event.window.data1, event.window.data2), modifiers);
        else if (event.window.event == SDL_WINDOWEVENT_SIZE_CHANGED)
          state_->followSize(*canvas, SDL_GetWindowFromID(event.window.windowID),
                             XY<int>(event.window.data1, event.window.data2), modifiers);
      }
      break;
    default:
      break;
    }
  }
  state_->closeDestroyedWindows();
  // Another program's window has the keyboard now: our popups close.
  if (std::exchange(state_->keyboardLeft, false) && !SDL_GetKeyboardFocus())
    InputRouter::applicationDeactivated();
  Canvas::paintAllPending();
  // One look at the pointer a pump, for the moves and the presses the window
  // library does not report.
  int const modifiers = modifierBits(SDL_GetModState());
  XY<int> const at = state_->bottomUp(state_->x11->pointer());
  state_->followPointerTo(at, modifiers);
  state_->noticePressesOutside(state_->x11->takeButtonChanges(), at, modifiers);
  return !state_->quit;
}

bool DisplayScreen::runUntil(std::function<bool()> const& done, std::chrono::milliseconds timeout) {
  auto const deadline = std::chrono::steady_clock::now() + timeout;
  while (pumpEvents()) {
    if (MessageLoop::runUntil(done, kPumpInterval))
      return true;
    if (std::chrono::steady_clock::now() >= deadline)
      return false;
  }
  return done();
}

DisplayScreen* displayScreen() { return dynamic_cast<DisplayScreen*>(&screenBackend()); }
