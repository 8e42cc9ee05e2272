#pragma once

struct SDL_Window;

// The X window behind a window of the window library, or 0 when it is not on
// X. Apart because the X headers clash with the toolkit's own names.
unsigned long nativeX11Window(SDL_Window* window);
// Destroys a window of the window library whose X window another program
// has already destroyed.
void destroyWindowGoneFromX(SDL_Window* window);
