#include <zowidgets/builder/detail/Rules.h>
