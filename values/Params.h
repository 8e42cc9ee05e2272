#pragma once

// Every kind of parameter.
#include <zowidgets/values/ActionParam.h>
#include <zowidgets/values/ChoiceParam.h>
#include <zowidgets/values/ColourParam.h>
#include <zowidgets/values/GroupParam.h>
#include <zowidgets/values/NumericParams.h>
#include <zowidgets/values/TextParams.h>
