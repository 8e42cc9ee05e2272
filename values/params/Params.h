#pragma once

// Every kind of parameter.
#include <zowidgets/values/params/ActionParam.h>
#include <zowidgets/values/params/ChoiceParam.h>
#include <zowidgets/values/params/ColourParam.h>
#include <zowidgets/values/params/GroupParam.h>
#include <zowidgets/values/params/NumericParams.h>
#include <zowidgets/values/params/TextParams.h>
