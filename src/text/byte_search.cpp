#include "text/byte_search.h"

#include <bit>

#if defined(__SSE2__) || defined(_M_X64)
#define ORDELAN_SSE2 1
#include <emmintrin.h>
#endif

namespace ordelan::text {
namespace {

#ifdef ORDELAN_SSE2
constexpr std::ptrdiff_t kStep = 16;

__m128i load(const std::uint8_t* at) {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
}

__m128i all(std::uint8_t byte) {
  return _mm_set1_epi8(static_cast<char>(byte));
}

unsigned bits(__m128i mask) {
  return static_cast<unsigned>(_mm_movemask_epi8(mask));
}

// Runs `vector` (16 places at once, a bit for each hit) while whole steps are left, then `scalar`
// place by place.
template <class Vector, class Scalar>
const std::uint8_t* search(const std::uint8_t* from, const std::uint8_t* end, Vector vector,
                           Scalar scalar) {
  for (; end - from >= kStep; from += kStep) {
    if (const unsigned hits = vector(from)) return from + std::countr_zero(hits);
  }
  while (from != end && !scalar(from)) ++from;
  return from;
}
#else
template <class Scalar>
const std::uint8_t* search(const std::uint8_t* from, const std::uint8_t* end, Scalar scalar) {
  while (from != end && !scalar(from)) ++from;
  return from;
}
#endif

}  // namespace

const std::uint8_t* find_byte(const std::uint8_t* from, const std::uint8_t* end,
                              std::uint8_t byte) {
  const auto scalar = [=](const std::uint8_t* p) { return *p == byte; };
#ifdef ORDELAN_SSE2
  const __m128i wanted = all(byte);
  return search(
      from, end, [=](const std::uint8_t* p) { return bits(_mm_cmpeq_epi8(load(p), wanted)); },
      scalar);
#else
  return search(from, end, scalar);
#endif
}

const std::uint8_t* find_either(const std::uint8_t* from, const std::uint8_t* end,
                                std::uint8_t byte, std::uint8_t other) {
  const auto scalar = [=](const std::uint8_t* p) { return *p == byte || *p == other; };
#ifdef ORDELAN_SSE2
  const __m128i wanted = all(byte);
  const __m128i wanted_too = all(other);
  return search(
      from, end,
      [=](const std::uint8_t* p) {
        const __m128i here = load(p);
        return bits(_mm_or_si128(_mm_cmpeq_epi8(here, wanted), _mm_cmpeq_epi8(here, wanted_too)));
      },
      scalar);
#else
  return search(from, end, scalar);
#endif
}

const std::uint8_t* find_pair(const std::uint8_t* from, const std::uint8_t* end, std::uint8_t first,
                              std::uint8_t second, std::uint8_t third) {
  const auto scalar = [=](const std::uint8_t* p) {
    return p[0] == first && (p[1] == second || p[1] == third);
  };
#ifdef ORDELAN_SSE2
  const __m128i lead = all(first);
  const __m128i follow = all(second);
  const __m128i follow_too = all(third);
  return search(
      from, end,
      [=](const std::uint8_t* p) {
        const unsigned leads = bits(_mm_cmpeq_epi8(load(p), lead));
        if (leads == 0) return 0u;
        const __m128i next = load(p + 1);
        return leads &
               bits(_mm_or_si128(_mm_cmpeq_epi8(next, follow), _mm_cmpeq_epi8(next, follow_too)));
      },
      scalar);
#else
  return search(from, end, scalar);
#endif
}

}  // namespace ordelan::text
