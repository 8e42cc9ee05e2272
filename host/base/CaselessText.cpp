#include <zowidgets/host/base/CaselessText.h>

#include <cwctype>

bool sameIgnoringCase(std::wstring_view a, std::wstring_view b) {
  if (a.size() != b.size())
    return false;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (std::towlower(static_cast<wint_t>(a[i])) != std::towlower(static_cast<wint_t>(b[i])))
      return false;
  return true;
}
