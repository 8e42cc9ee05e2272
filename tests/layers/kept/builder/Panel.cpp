#include <zowidgets/builder/detail/Rules.h>
#include <zowidgets/colour/Picker.h>
#include <zowidgets/zowidgets.h>
#include <string>
