#include <zowidgets/forms/FoPath.h>

fo_path::fo_path(unsigned short width, unsigned short height, int index, LightweightString<wchar_t> const& prompt, int,
                 double fraction)
    : fo_entry(width, height, kFormPath, index, prompt, kMaxPathChars, fraction) {}

int fo_path::m_collect_entry() {
  fo_entry::m_collect_entry();
  int const result = m_validate_entry(entry);
  if (result != 0) {
    entry = lastGoodPath;
    m_reset_entry();
  }
  lastGoodPath = entry;
  return result;
}

int fo_path::m_validate_entry(LightweightString<wchar_t>) { return 0; }

void fo_path::m_set_entry(LightweightString<wchar_t> const& text) {
  entry = text;
  m_reset_entry();
}
