#pragma once

#include <cstddef>
#include <limits>
#include <type_traits>
#include <typeinfo>
#include <unordered_map>

namespace Zo {

// dynamic_cast for hot paths over a hierarchy with virtual bases, where the
// runtime compares type names level by level (hundreds of instructions a
// cast; the panel builder casts every parameter several times). Where a
// base lies within a complete object depends only on the complete object's
// type, so the answer found once for a type is kept, per thread, and later
// casts of an object of that type are a lookup and an addition.
//
// Only for objects whose construction has finished and whose destruction
// has not begun (during either, the type an object shows is not its own).
template <class To, class From> To* cachedDynamicCast(From* from) {
  static_assert(std::is_polymorphic_v<From> && std::is_class_v<To>);
  if (!from)
    return nullptr;
  constexpr std::ptrdiff_t kNotABase = std::numeric_limits<std::ptrdiff_t>::min();
  thread_local std::unordered_map<std::type_info const*, std::ptrdiff_t> offsetByType;
  auto* const whole = static_cast<char const*>(dynamic_cast<void const*>(from));
  auto const [found, isNew] = offsetByType.try_emplace(&typeid(*from), kNotABase);
  if (isNew) {
    To* const cast = dynamic_cast<To*>(from);
    if (cast)
      found->second = reinterpret_cast<char const*>(cast) - whole;
    return cast;
  }
  if (found->second == kNotABase)
    return nullptr;
  return reinterpret_cast<To*>(const_cast<char*>(whole) + found->second);
}

} // namespace Zo
