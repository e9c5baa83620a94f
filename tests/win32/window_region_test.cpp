#include "win32/window_region.h"

#include <gtest/gtest.h>

#include <vector>

namespace ordelan::test {
namespace {

constexpr COLORREF kMask = RGB(255, 0, 0);
constexpr std::uint32_t kHole = 0xFFFF0000;
constexpr std::uint32_t kNear = 0xFFFF0001;

// What GetRgnBox says of the region, which goes.
int kind_of(HRGN region, RECT& box) {
  const int kind = GetRgnBox(region, &box);
  DeleteObject(region);
  return kind;
}

TEST(WindowRegion, a_picture_of_the_mask_colour_alone_gives_an_empty_region) {
  RECT box{};
  EXPECT_EQ(kind_of(win32::CrearRegion({2, 2, std::vector<std::uint32_t>(4, kHole)}, kMask), box),
            NULLREGION);
}

TEST(WindowRegion, the_region_holds_the_pixels_of_other_colours) {
  const ui::Pixels picture{3, 2, {kHole, kNear, kNear, kNear, kHole, kHole}};
  const HRGN region = win32::CrearRegion(picture, kMask);
  for (int y = 0; y < 2; ++y) {
    for (int x = 0; x < 3; ++x) {
      const bool kept = picture.argb[static_cast<std::size_t>(y * 3 + x)] != kHole;
      EXPECT_EQ(PtInRegion(region, x, y) != FALSE, kept) << x << ", " << y;
    }
  }
  RECT box{};
  kind_of(region, box);
  EXPECT_EQ(box.right, 3);
  EXPECT_EQ(box.bottom, 2);
}

TEST(WindowRegion, a_function_is_there_where_its_library_has_it) {
  EXPECT_TRUE(win32::ExisteFuncion(L"user32", "SetLayeredWindowAttributes"));
  EXPECT_FALSE(win32::ExisteFuncion(L"user32", "SetNothingAttributes"));
  EXPECT_FALSE(win32::ExisteFuncion(L"no such library", "SetLayeredWindowAttributes"));
  EXPECT_TRUE(win32::ExisteFuncion(L"winmm", "timeGetTime")) << "also one that is not loaded yet";
}

}  // namespace
}  // namespace ordelan::test
