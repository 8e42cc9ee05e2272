#include <zowidgets/host/base/Value.h>
#include <zowidgets/host/drawing/detail/Mask.h>
#include "Box.h"
