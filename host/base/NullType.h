#pragma once

#include <zowidgets/host/base/Export.h>

// The type that stands for "no type" where a template wants one, such as a
// dialogue that carries no context of its own.
namespace Loki {
class ZO_API NullType {};
} // namespace Loki
