#pragma once
#include <zowidgets/values/binding/Widget.h>
