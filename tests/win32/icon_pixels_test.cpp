#include "win32/ports/icon_pixels.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <string>

namespace ordelan::test {
namespace {

// The resource of an icon of 32 by 32 pixels whose left half lets the ground through and whose
// right half is of the palette's last colour. With 32 bits a pixel it has an alpha, or only the
// mask.
std::string icon_resource(unsigned bits, bool with_alpha = true) {
  constexpr unsigned kSide = 32;
  const unsigned colours = bits == 32 ? 0 : 1u << bits;
  std::string bytes;
  const auto put = [&bytes](unsigned value, unsigned size) {
    for (; size > 0; --size, value >>= 8) bytes += static_cast<char>(value & 0xFF);
  };
  put(40, 4);  // its header, as high as picture and mask together
  put(kSide, 4);
  put(2 * kSide, 4);
  put(1, 2);
  put(bits, 2);
  for (int i = 0; i < 6; ++i) put(0, 4);
  const unsigned last = bits == 1 ? 0xFFFFFF : 0xFF0000;
  for (unsigned colour = 0; colour < colours; ++colour) {
    put(colour + 1 == colours ? last : 0, 4);
  }
  for (unsigned row = 0; row < kSide; ++row) {
    for (unsigned bit = 0; bit < kSide * bits; bit += 8) {
      const bool right = bit >= kSide * bits / 2;
      const bool alpha = with_alpha && bits == 32 && bit % 32 == 24;
      const bool red = bits < 32 || bit % 32 == 16 || alpha;
      put(right && red ? 0xFF : 0, 1);
    }
  }
  for (unsigned row = 0; row < kSide; ++row) put(0x0000FFFF, 4);
  return bytes;
}

std::optional<system::Pixels> picture_of(std::string resource) {
  const HICON icon =
      CreateIconFromResourceEx(reinterpret_cast<BYTE*>(resource.data()),
                               static_cast<DWORD>(resource.size()), TRUE, 0x00030000, 0, 0, 0);
  EXPECT_NE(icon, nullptr);
  auto picture = win32::pixels_of(icon);
  DestroyIcon(icon);
  return picture;
}

void expect_halves(const std::optional<system::Pixels>& picture, std::uint32_t right) {
  ASSERT_TRUE(picture);
  ASSERT_EQ(picture->width, 32);
  ASSERT_EQ(picture->height, 32);
  ASSERT_EQ(picture->argb.size(), 32u * 32u);
  for (std::size_t row = 0; row < 32; ++row) {
    for (std::size_t column = 0; column < 32; ++column) {
      const std::uint32_t pixel = picture->argb[row * 32 + column];
      if (column < 16) {
        ASSERT_EQ(pixel >> 24, 0u) << row << ", " << column;
      } else {
        ASSERT_EQ(pixel, right) << row << ", " << column;
      }
    }
  }
}

TEST(IconPixels, the_mask_is_the_alpha_of_an_icon_with_a_palette) {
  expect_halves(picture_of(icon_resource(4)), 0xFFFF0000u);
  expect_halves(picture_of(icon_resource(8)), 0xFFFF0000u);
}

TEST(IconPixels, an_icon_in_black_and_white_has_the_alpha_of_its_mask) {
  expect_halves(picture_of(icon_resource(1)), 0xFFFFFFFFu);
}

TEST(IconPixels, an_icon_with_an_alpha_keeps_it) {
  expect_halves(picture_of(icon_resource(32)), 0xFFFF0000u);
}

TEST(IconPixels, full_colours_without_an_alpha_take_it_from_the_mask) {
  expect_halves(picture_of(icon_resource(32, false)), 0xFFFF0000u);
}

TEST(IconPixels, rows_come_from_the_top) {
  // All black but for one pixel in the first row.
  BYTE opaque[32 * 4] = {};
  BYTE picture[32 * 4] = {};
  picture[0] = 0x80;
  const HICON icon = CreateIcon(GetModuleHandleW(nullptr), 32, 32, 1, 1, opaque, picture);
  ASSERT_NE(icon, nullptr);
  const auto pixels = win32::pixels_of(icon);
  DestroyIcon(icon);
  ASSERT_TRUE(pixels);
  EXPECT_EQ(pixels->argb.front(), 0xFFFFFFFFu);
  EXPECT_EQ(pixels->argb[1], 0xFF000000u);
  EXPECT_EQ(pixels->argb.back(), 0xFF000000u);
}

TEST(IconPixels, what_is_no_icon_has_no_picture) {
  EXPECT_FALSE(win32::pixels_of(nullptr));
}

}  // namespace
}  // namespace ordelan::test
