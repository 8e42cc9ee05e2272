#pragma once

#include <zowidgets/host/shell/MediaSource.h>

// The media services on the system's codec libraries: the file types are
// real containers (QuickTime, MP4, MXF, Matroska, AVI), their formats the
// encoders each container accepts, and an encoder's options its own.
// Null when the host was built without the libraries.
ZO_API Zo::Ptr<iMediaSource> makeLibavMediaSource();

// Writes `seconds` of a moving test pattern to `path` as `fileType`, with the
// encoder, raster, rate and option values of `info` (a file type and format
// of the source above). Returns empty on success, else what went wrong.
ZO_API LightweightString<wchar_t> writeTestPattern(LightweightString<wchar_t> const& path,
                                                   LightweightString<char> const& fileType,
                                                   VideoCompressionInfo const& info, double seconds);
