#pragma once
#include <zowidgets/host/base/Value.h>
