#pragma once

#include <zowidgets/host/drawing/Colour.h>

// The colours every module draws with. Each is a file-level constant: every
// source file that includes this header has its own copies, made by that
// file's static initialiser when the module loads, ahead of anything the file
// declares after the include (its command registrars, say).
namespace StandardColours {

const Colour kBlack(0.0, 0.0, 0.0);
const Colour kWhite(1.0, 1.0, 1.0);
const Colour kBlue(0.18, 0.48, 0.92);

} // namespace StandardColours
