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
