#include <zowidgets/host/display/detail/NativeWindow.h>

#include <SDL.h>
#include <SDL_syswm.h>

unsigned long nativeX11Window(SDL_Window* window) {
  SDL_SysWMinfo info;
  SDL_VERSION(&info.version);
  if (SDL_GetWindowWMInfo(window, &info) && info.subsystem == SDL_SYSWM_X11)
    return info.info.x11.window;
  return 0;
}

void destroyWindowGoneFromX(SDL_Window* window) {
  SDL_SysWMinfo info;
  SDL_VERSION(&info.version);
  // The library hides a window before destroying it, and on X waits for the
  // server to report it unmapped, which it never will for a window already
  // gone (nor may it be asked whether the window is mapped: a window gone
  // has no answer). The report is put in its queue, so the wait ends at once;
  // a report not waited for is passed over as about no window of its own.
  if (SDL_GetWindowWMInfo(window, &info) && info.subsystem == SDL_SYSWM_X11) {
    XEvent unmapped{};
    unmapped.xunmap.type = UnmapNotify;
    unmapped.xunmap.display = info.info.x11.display;
    unmapped.xunmap.event = info.info.x11.window;
    unmapped.xunmap.window = info.info.x11.window;
    XPutBackEvent(info.info.x11.display, &unmapped);
  }
  SDL_DestroyWindow(window);
}
