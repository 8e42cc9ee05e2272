#pragma once
#include <zowidgets/host/drawing/detail/Mask.h>
