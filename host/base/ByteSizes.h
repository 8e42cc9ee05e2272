#pragma once

#include <zowidgets/host/base/LightweightString.h>

#include <cstdint>

// A count of bytes as a person reads it, in steps of 1024: "512 bytes",
// "1.5 KB", "20.0 MB", "1.82 TB". Whole bytes never carry decimals; larger
// units carry `decimals` digits after the point (0 to 3).
ZO_API LightweightString<wchar_t> bytesAsString(std::uint64_t bytes, int decimals = 1);
