#pragma once
#include <zowidgets/host/toolkit/High.h>
