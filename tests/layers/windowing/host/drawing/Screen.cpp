#include <SDL2/SDL.h>
