#pragma once

// The pointer shapes a widget may ask for through contextCursor() or
// glib_setCursor(). Each backend shows the nearest shape it has; 0 leaves the
// window's own arrow.
enum eCursorCode : int {
  kCursorDefault = 0,
  kCursorResizeBackslash = 7, // a corner to drag along the top-left to bottom-right diagonal
  kCursorResizeSlash = 10,    // a corner to drag along the bottom-left to top-right diagonal
  kCursorArrow = 16,
  kCursorHand = 20,             // something to click
  kCursorGrab = 21,             // something to drag
  kCursorResizeHorizontal = 22, // an edge to drag left or right
  kCursorResizeVertical = 23,   // an edge to drag up or down
  kCursorCapture = 26,          // picking a point anywhere on the screen
};
