#include <zowidgets/host/drawing/detail/Mask.h>
