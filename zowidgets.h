#pragma once
// Every public header of zowidgets and its host toolkit.
#include <zowidgets/host/CriticalSection.h>
#include <zowidgets/host/EnableDisable.h>
#include <zowidgets/host/Event.h>
#include <zowidgets/host/EventHandler.h>
#include <zowidgets/host/ExecutableAction.h>
#include <zowidgets/host/Export.h>
#include <zowidgets/host/IdStamp.h>
#include <zowidgets/host/LightweightString.h>
#include <zowidgets/host/MessageQueue.h>
#include <zowidgets/host/Ptr.h>
