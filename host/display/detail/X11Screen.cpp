#include <zowidgets/host/display/detail/X11Screen.h>

#include <zowidgets/host/toolkit/CursorCodes.h>

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/cursorfont.h>
#include <X11/extensions/XInput2.h>
#include <X11/extensions/XShm.h>
#include <sys/ipc.h>
#include <sys/shm.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <map>
#include <set>

namespace {

constexpr double kReferenceDpi = 96.0;

unsigned fontCursorShape(int cursorId) {
  switch (cursorId) {
  case kCursorHand:
    return XC_hand2;
  case kCursorGrab:
    return XC_fleur;
  case kCursorResizeHorizontal:
    return XC_sb_h_double_arrow;
  case kCursorResizeVertical:
    return XC_sb_v_double_arrow;
  case kCursorCapture:
    return XC_crosshair;
  case kCursorResizeBackslash:
    return XC_top_left_corner;
  case kCursorResizeSlash:
    return XC_top_right_corner;
  default:
    return XC_left_ptr;
  }
}

int maskShift(unsigned long mask) {
  int shift = 0;
  while (mask && !(mask & 1)) {
    mask >>= 1;
    ++shift;
  }
  return shift;
}

// Copies an XImage of the root's visual into opaque 0xFFRRGGBB pixels.
void copyPixels(XImage* image, Zo::Image::Surface& out, int dx, int dy) {
  int const redShift = maskShift(image->red_mask);
  int const greenShift = maskShift(image->green_mask);
  int const blueShift = maskShift(image->blue_mask);
  bool const direct = image->bits_per_pixel == 32 && image->red_mask == 0xff0000 && image->green_mask == 0xff00 &&
                      image->blue_mask == 0xff &&
                      image->byte_order == (std::endian::native == std::endian::little ? LSBFirst : MSBFirst);
  for (int y = 0; y < image->height; ++y) {
    auto* row = reinterpret_cast<std::uint32_t*>(out.data() + (y + dy) * out.stride()) + dx;
    if (direct) {
      auto const* source = reinterpret_cast<std::uint32_t const*>(image->data + y * image->bytes_per_line);
      for (int x = 0; x < image->width; ++x)
        row[x] = 0xff000000u | (source[x] & 0xffffffu);
      continue;
    }
    for (int x = 0; x < image->width; ++x) {
      unsigned long const value = XGetPixel(image, x, y);
      auto channel = [value](unsigned long mask, int shift) {
        unsigned long const top = mask >> shift;
        return top ? static_cast<std::uint32_t>(((value & mask) >> shift) * 255 / top) : 0u;
      };
      row[x] = 0xff000000u | channel(image->red_mask, redShift) << 16 | channel(image->green_mask, greenShift) << 8 |
               channel(image->blue_mask, blueShift);
    }
  }
}

// Our windows belong to the window library's own connection and can be gone
// by the time a request on this one about them (a cursor, a class) arrives,
// or destroyed by another program under the window library's feet: a
// request about a window that is gone fails, on either connection, and is
// passed over. Every other error goes to the handler that was in place,
// whose default ends the program.
Display* ourConnection = nullptr;
XErrorHandler previousErrorHandler = nullptr;
std::set<unsigned long>& watchedWindows() {
  static std::set<unsigned long> windows;
  return windows;
}

int ignoreVanishedWindows(Display* display, XErrorEvent* error) {
  bool const gone = error->error_code == BadWindow || error->error_code == BadDrawable;
  if (gone && (display == ourConnection || watchedWindows().count(error->resourceid)))
    return 0;
  return previousErrorHandler ? previousErrorHandler(display, error) : 0;
}

} // namespace

struct X11Screen::State {
  Display* display = nullptr;
  bool sharedMemory = false;
  std::map<int, Cursor> cursors;
  int inputOpcode = -1;    // the input extension's, when it has raw events
  unsigned heldBefore = 0; // without raw events: the buttons held when last asked
};

namespace {

// Raw button events come from the root window whichever window the pointer
// is on, and whatever grabs the press: the opcode to know them by, or -1.
int selectRawButtons(Display* display) {
  int opcode = -1, firstEvent = 0, firstError = 0;
  if (!XQueryExtension(display, "XInputExtension", &opcode, &firstEvent, &firstError))
    return -1;
  int major = 2, minor = 0;
  if (XIQueryVersion(display, &major, &minor) != Success)
    return -1;
  unsigned char bits[XIMaskLen(XI_LASTEVENT)] = {};
  XISetMask(bits, XI_RawButtonPress);
  XISetMask(bits, XI_RawButtonRelease);
  XIEventMask mask{XIAllMasterDevices, static_cast<int>(sizeof bits), bits};
  if (XISelectEvents(display, DefaultRootWindow(display), &mask, 1) != Success)
    return -1;
  XFlush(display);
  return opcode;
}

} // namespace

std::unique_ptr<X11Screen> X11Screen::open() {
  Display* display = XOpenDisplay(nullptr);
  if (!display)
    return nullptr;
  ourConnection = display;
  if (XErrorHandler const previous = XSetErrorHandler(&ignoreVanishedWindows); previous != &ignoreVanishedWindows)
    previousErrorHandler = previous;
  // The window library marks a borderless window for window managers only
  // when this atom already exists, which it does once a manager runs: made
  // here, our windows stay undecorated under a manager started after them.
  XInternAtom(display, "_MOTIF_WM_HINTS", False);
  auto state = std::make_unique<State>();
  state->display = display;
  state->sharedMemory = XShmQueryExtension(display) == True;
  state->inputOpcode = selectRawButtons(display);
  return std::unique_ptr<X11Screen>(new X11Screen(std::move(state)));
}

X11Screen::X11Screen(std::unique_ptr<State> state) : state_(std::move(state)) {}

X11Screen::~X11Screen() {
  for (auto const& [id, cursor] : state_->cursors)
    XFreeCursor(state_->display, cursor);
  XCloseDisplay(state_->display);
  if (ourConnection == state_->display)
    ourConnection = nullptr;
}

XY<int> X11Screen::size() const {
  int const screen = DefaultScreen(state_->display);
  return XY<int>(DisplayWidth(state_->display, screen), DisplayHeight(state_->display, screen));
}

double X11Screen::scale() const {
  if (char const* forced = std::getenv("ZOWIDGETS_SCALE")) {
    double const value = std::atof(forced);
    if (value > 0)
      return value;
  }
  int const screen = DefaultScreen(state_->display);
  int const millimetres = DisplayWidthMM(state_->display, screen);
  if (millimetres <= 0)
    return 1.0;
  double const dpi = DisplayWidth(state_->display, screen) * 25.4 / millimetres;
  return std::max(1.0, std::round(dpi / kReferenceDpi * 2.0) / 2.0);
}

Zo::Image::Surface X11Screen::grab(Zo::Box<int> const& area) const {
  Zo::Image::Surface out(area.width(), area.height());
  if (out.empty())
    return out;
  for (int y = 0; y < out.height(); ++y) {
    auto* row = reinterpret_cast<std::uint32_t*>(out.data() + y * out.stride());
    std::fill(row, row + out.width(), 0xff000000u);
  }
  // X refuses to read outside the root, so only the part on the screen.
  XY<int> const screenSize = size();
  int const x0 = std::max(area.x0, 0), y0 = std::max(area.y0, 0);
  int const x1 = std::min(area.x1, screenSize.x), y1 = std::min(area.y1, screenSize.y);
  if (x0 >= x1 || y0 >= y1)
    return out;
  Display* display = state_->display;
  Window const root = DefaultRootWindow(display);
  unsigned const width = x1 - x0, height = y1 - y0;
  if (state_->sharedMemory) {
    XShmSegmentInfo segment{};
    int const screen = DefaultScreen(display);
    XImage* image = XShmCreateImage(display, DefaultVisual(display, screen), DefaultDepth(display, screen), ZPixmap,
                                    nullptr, &segment, width, height);
    if (image) {
      segment.shmid =
          shmget(IPC_PRIVATE, static_cast<std::size_t>(image->bytes_per_line) * image->height, IPC_CREAT | 0600);
      bool read = false;
      if (segment.shmid >= 0) {
        segment.shmaddr = image->data = static_cast<char*>(shmat(segment.shmid, nullptr, 0));
        segment.readOnly = False;
        if (segment.shmaddr != reinterpret_cast<char*>(-1) && XShmAttach(display, &segment)) {
          read = XShmGetImage(display, root, image, x0, y0, AllPlanes) == True;
          if (read)
            copyPixels(image, out, x0 - area.x0, y0 - area.y0);
          XShmDetach(display, &segment);
          XSync(display, False);
        }
        if (segment.shmaddr != reinterpret_cast<char*>(-1))
          shmdt(segment.shmaddr);
        shmctl(segment.shmid, IPC_RMID, nullptr);
      }
      image->data = nullptr;
      XDestroyImage(image);
      if (read)
        return out;
    }
  }
  if (XImage* image = XGetImage(display, root, x0, y0, width, height, AllPlanes, ZPixmap)) {
    copyPixels(image, out, x0 - area.x0, y0 - area.y0);
    XDestroyImage(image);
  }
  return out;
}

XY<int> X11Screen::pointer() const { return pointerState().at; }

X11Screen::PointerState X11Screen::pointerState() const {
  Window root = 0, child = 0;
  int rootX = 0, rootY = 0, windowX = 0, windowY = 0;
  unsigned mask = 0;
  XQueryPointer(state_->display, DefaultRootWindow(state_->display), &root, &child, &rootX, &rootY, &windowX, &windowY,
                &mask);
  PointerState pointer;
  pointer.at = XY<int>(rootX, rootY);
  pointer.left = (mask & Button1Mask) != 0;
  pointer.middle = (mask & Button2Mask) != 0;
  pointer.right = (mask & Button3Mask) != 0;
  return pointer;
}

std::vector<X11Screen::ButtonChange> X11Screen::takeButtonChanges() {
  std::vector<ButtonChange> changes;
  if (state_->inputOpcode < 0) {
    PointerState const now = pointerState();
    unsigned const held = (now.left ? 1u : 0u) | (now.middle ? 2u : 0u) | (now.right ? 4u : 0u);
    for (int button = 1; button <= 3; ++button) {
      unsigned const bit = 1u << (button - 1);
      if ((held ^ state_->heldBefore) & bit)
        changes.push_back(ButtonChange{button, (held & bit) != 0});
    }
    state_->heldBefore = held;
    return changes;
  }
  XEvent event;
  while (XCheckTypedEvent(state_->display, GenericEvent, &event)) {
    XGenericEventCookie& cookie = event.xcookie;
    if (cookie.extension != state_->inputOpcode || !XGetEventData(state_->display, &cookie))
      continue;
    auto const* raw = static_cast<XIRawEvent const*>(cookie.data);
    // Buttons 4 to 7 are the wheel's.
    if ((cookie.evtype == XI_RawButtonPress || cookie.evtype == XI_RawButtonRelease) && raw->detail >= 1 &&
        raw->detail <= 3)
      changes.push_back(ButtonChange{raw->detail, cookie.evtype == XI_RawButtonPress});
    XFreeEventData(state_->display, &cookie);
  }
  return changes;
}

void X11Screen::setWindowClass(unsigned long window, std::string const& name, std::string const& className) {
  XClassHint hint;
  hint.res_name = const_cast<char*>(name.c_str());
  hint.res_class = const_cast<char*>(className.c_str());
  XSetClassHint(state_->display, window, &hint);
  XFlush(state_->display);
}

void X11Screen::watchWindow(unsigned long window) {
  if (window == 0)
    return;
  watchedWindows().insert(window);
  XSelectInput(state_->display, window, StructureNotifyMask);
  XFlush(state_->display);
}

std::vector<unsigned long> X11Screen::takeDestroyedWindows() {
  std::vector<unsigned long> destroyed;
  XEvent event;
  while (XCheckMaskEvent(state_->display, StructureNotifyMask, &event))
    if (event.type == DestroyNotify)
      destroyed.push_back(event.xdestroywindow.window);
  return destroyed;
}

void X11Screen::raise(unsigned long window) {
  if (window == 0)
    return;
  XRaiseWindow(state_->display, window);
  XFlush(state_->display);
}

X11Screen::KeyboardHolder X11Screen::keyboardHolder() const {
  Window window = None;
  int revertTo = RevertToNone;
  XGetInputFocus(state_->display, &window, &revertTo);
  return KeyboardHolder{window, revertTo};
}

void X11Screen::giveKeyboardTo(KeyboardHolder const& holder) {
  XSetInputFocus(state_->display, holder.window, holder.revertTo, CurrentTime);
  XFlush(state_->display);
}

void X11Screen::giveKeyboardToWindow(unsigned long window) { giveKeyboardTo(KeyboardHolder{window, RevertToParent}); }

void X11Screen::setCursor(unsigned long window, int cursorId) {
  auto found = state_->cursors.find(cursorId);
  if (found == state_->cursors.end())
    found = state_->cursors.emplace(cursorId, XCreateFontCursor(state_->display, fontCursorShape(cursorId))).first;
  XDefineCursor(state_->display, window, found->second);
  XFlush(state_->display);
}
