#include <SDL2/SDL.h>
#include <X11/Xlib.h>
#include <zowidgets/host/headless/Screen.h>
