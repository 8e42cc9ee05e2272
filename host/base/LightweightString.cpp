#include <zowidgets/host/base/LightweightString.h>

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool isScalarValue(char32_t c) { return c < 0xD800 || (c > 0xDFFF && c <= 0x10FFFF); }

void appendUTF8(std::string& out, char32_t c) {
  if (!isScalarValue(c))
    c = kReplacement;
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += static_cast<char>(0xC0 | (c >> 6));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    out += static_cast<char>(0xE0 | (c >> 12));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (c >> 18));
    out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  }
}

// Decodes one code point at `i`, advancing it; malformed input (bad lead
// byte, truncation, overlong form, surrogate, out of range) gives U+FFFD and
// skips the longest prefix that could have started a valid sequence.
char32_t decodeUTF8(std::string_view in, std::size_t& i) {
  auto byte = [&](std::size_t k) { return static_cast<unsigned char>(in[k]); };
  unsigned char lead = byte(i++);
  if (lead < 0x80)
    return lead;
  int extra;
  char32_t c;
  char32_t minimum;
  if ((lead & 0xE0) == 0xC0) {
    extra = 1, c = lead & 0x1F, minimum = 0x80;
  } else if ((lead & 0xF0) == 0xE0) {
    extra = 2, c = lead & 0x0F, minimum = 0x800;
  } else if ((lead & 0xF8) == 0xF0) {
    extra = 3, c = lead & 0x07, minimum = 0x10000;
  } else {
    return kReplacement;
  }
  for (int k = 0; k < extra; ++k) {
    if (i >= in.size() || (byte(i) & 0xC0) != 0x80)
      return kReplacement;
    c = (c << 6) | (byte(i++) & 0x3F);
  }
  if (c < minimum || !isScalarValue(c))
    return kReplacement;
  return c;
}

std::string encodeUTF8(std::wstring_view text) {
  std::string out;
  out.reserve(text.size());
  for (wchar_t c : text)
    appendUTF8(out, static_cast<char32_t>(c));
  return out;
}

} // namespace

template <class T> LightweightString<T>::LightweightString(T const* text) {
  if (text)
    writable() = text;
}

template <class T> LightweightString<T>::LightweightString(T const* text, size_type length) {
  if (text)
    writable().assign(text, length);
}

template <class T> LightweightString<T>::LightweightString(view_type text) { writable().assign(text); }

template <class T> LightweightString<T>::LightweightString(std::basic_string<T> const& text) { writable() = text; }

template <class T> LightweightString<T>::LightweightString(size_type count, T fill) { writable().assign(count, fill); }

template <class T> T const* LightweightString<T>::c_str() const noexcept {
  static constexpr T empty[1] = {T()};
  return impl_ ? impl_->text.c_str() : empty;
}

template <class T> int LightweightString<T>::compare(view_type other) const noexcept {
  int r = view().compare(other);
  return r < 0 ? -1 : (r > 0 ? 1 : 0);
}

template <class T> std::basic_string<T>& LightweightString<T>::writable() {
  if (!impl_) {
    impl_ = Zo::Ptr<Impl>(new Impl);
  } else if (impl_.useCount() > 1) {
    Zo::Ptr<Impl> copy(new Impl);
    copy->text = impl_->text;
    impl_ = copy;
  }
  return impl_->text;
}

template <class T> LightweightString<T>& LightweightString<T>::resizeFor(size_type wanted) {
  writable().reserve(wanted);
  return *this;
}

template <class T> LightweightString<T>& LightweightString<T>::resize(size_type length, T fill) {
  writable().resize(length, fill);
  return *this;
}

template <class T> LightweightString<T>& LightweightString<T>::append(view_type text) {
  if (text.empty() && impl_)
    return *this;
  // Appending a view of our own text must survive the copy-on-write.
  std::basic_string<T> held(text);
  writable().append(held);
  return *this;
}

template <class T> void LightweightString<T>::clear() { impl_.reset(); }

template <class T>
LightweightString<T>& LightweightString<T>::substitute(view_type placeholder, view_type replacement) {
  if (placeholder.empty() || find(placeholder) == npos)
    return *this;
  std::basic_string<T> result;
  view_type rest = view();
  for (size_type at; (at = rest.find(placeholder)) != npos; rest.remove_prefix(at + placeholder.size())) {
    result.append(rest.substr(0, at));
    result.append(replacement);
  }
  result.append(rest);
  writable() = std::move(result);
  return *this;
}

template <class T> LightweightString<T> LightweightString<T>::substr(size_type from, size_type count) const {
  view_type v = view();
  if (from > v.size())
    return LightweightString();
  return LightweightString(v.substr(from, count));
}

template <> LightweightString<char> LightweightString<char>::toUTF8() const { return *this; }

template <> LightweightString<char> LightweightString<wchar_t>::toUTF8() const {
  return LightweightString<char>(encodeUTF8(view()));
}

template <> LightweightString<char> LightweightString<char>::fromUTF8(std::string_view utf8) {
  return LightweightString<char>(utf8);
}

template <> LightweightString<wchar_t> LightweightString<wchar_t>::fromUTF8(std::string_view utf8) {
  std::wstring out;
  out.reserve(utf8.size());
  for (std::size_t i = 0; i < utf8.size();)
    out += static_cast<wchar_t>(decodeUTF8(utf8, i));
  return LightweightString<wchar_t>(out);
}

template class LightweightString<char>;
template class LightweightString<wchar_t>;

LightweightString<wchar_t> toWide(std::string_view utf8) { return LightweightString<wchar_t>::fromUTF8(utf8); }

std::string toNarrow(LightweightString<wchar_t> const& text) { return encodeUTF8(text.view()); }
