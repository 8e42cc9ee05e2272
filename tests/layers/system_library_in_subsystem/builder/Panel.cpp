#include <cairo.h>
