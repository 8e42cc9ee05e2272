#pragma once

#include <zowidgets/host/base/LightweightString.h>

#include <cstddef>

// File names made from text a user typed or a program chose. The rules keep a
// name usable on Linux and also on the Windows file systems a media file is
// often copied to, so a name that passes here can travel.
namespace Zo::FilespecUtils {

// A file name's longest form, in bytes of UTF-8.
inline constexpr std::size_t kMaxNameBytes = 255;

// The characters no file name may hold: / \ : * ? " < > | and the control
// characters U+0001 to U+001F, in that order. (NUL is refused as well but not
// listed, as it cannot sit inside a C string.) A name box refuses these.
ZO_API LightweightString<wchar_t> getIllegalNameCharacters();

// True for the characters above, for NUL, and for values that are not Unicode
// scalar values (surrogates, beyond U+10FFFF, negative).
ZO_API bool isIllegalNameCharacter(wchar_t c) noexcept;

// A usable file name made from any text:
// - white space at both ends is dropped, and so are dots at the end;
// - each illegal character becomes `replacement` ('_' when `replacement` is
//   itself illegal, a space or a dot, which would not survive the trimming);
// - a reserved device name (CON, PRN, AUX, NUL, COM1 to COM9, LPT1 to LPT9, in
//   any case, alone or before a dot) gets `replacement` after it: "con.txt"
//   becomes "con_.txt";
// - the name is cut to kMaxNameBytes on a character boundary;
// - a name left empty is `replacement` alone.
// Leading dots stay: ".bashrc" is a good (hidden) file name.
ZO_API LightweightString<wchar_t> makeValidFileName(LightweightString<wchar_t> const& text, wchar_t replacement = L'_');

// True when makeValidFileName would give `name` back unchanged.
ZO_API bool isValidFileName(LightweightString<wchar_t> const& name);

// `folder` joined with a valid file name made from `name` and `extension`
// ("txt" and ".txt" alike; empty for none). The extension is always added,
// even when the name already ends with it, and it survives whole when a long
// name is cut. With `makeUnique`, the first of "name.ext", "name (2).ext",
// "name (3).ext", ... that names no existing file is chosen; without it an
// existing file's path is given, for the caller to replace.
ZO_API LightweightString<wchar_t> makeValidFilespec(LightweightString<wchar_t> const& folder,
                                                    LightweightString<wchar_t> const& name,
                                                    LightweightString<wchar_t> const& extension, bool makeUnique,
                                                    wchar_t replacement = L'_');

} // namespace Zo::FilespecUtils

// True when the file name at the end of `path` is a valid one
// (Zo::FilespecUtils::isValidFileName); the folders before it are not judged.
ZO_API bool fileNameValid(LightweightString<wchar_t> const& path);
