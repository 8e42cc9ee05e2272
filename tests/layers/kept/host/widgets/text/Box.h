#pragma once
#include <zowidgets/host/widgets/popups/Menu.h>
