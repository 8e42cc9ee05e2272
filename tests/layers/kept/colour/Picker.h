#pragma once
#include <zowidgets/host/widgets/text/Box.h>
