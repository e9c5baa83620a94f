#include "win32/paint/window_shape.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "win32/paint/picture_store.h"

namespace ordelan::test {
namespace {

using win32::AplicarForma;
using win32::CrearRegion;
using win32::ExisteFuncion;
using win32::ShapeRoad;

constexpr ui::Color kMask = ui::rgb(0xFF, 0x00, 0xFF);
constexpr std::uint32_t kHole = 0xFFFF00FF;

struct RegionGone {
  void operator()(HRGN region) const { DeleteObject(region); }
};
using Region = std::unique_ptr<std::remove_pointer_t<HRGN>, RegionGone>;

ui::Pixels plain(int width, int height, std::uint32_t pixel) {
  return {width, height,
          std::vector<std::uint32_t>(static_cast<std::size_t>(width * height), pixel)};
}

std::uint32_t& at(ui::Pixels& picture, int x, int y) {
  return picture.argb.at(static_cast<std::size_t>(y * picture.width + x));
}

Region region_of(const ui::Pixels& picture) {
  Region region(CrearRegion(picture, kMask));
  EXPECT_NE(region, nullptr);
  return region;
}

// The region put together from one rectangle for each run of each row.
Region region_by_runs(const ui::Pixels& picture) {
  Region whole(CreateRectRgn(0, 0, 0, 0));
  const auto kept = [&](int x, int y) {
    return (picture.argb[static_cast<std::size_t>(y * picture.width + x)] | 0xFF000000) != kHole;
  };
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      if (!kept(x, y)) continue;
      const int start = x;
      while (x < picture.width && kept(x, y)) ++x;
      const Region run(CreateRectRgn(start, y, x, y + 1));
      CombineRgn(whole.get(), whole.get(), run.get(), RGN_OR);
    }
  }
  return whole;
}

TEST(Region, a_picture_of_the_mask_alone_is_empty) {
  RECT box{};
  EXPECT_EQ(GetRgnBox(region_of(plain(30, 20, kHole)).get(), &box), NULLREGION);
  EXPECT_EQ(GetRgnBox(region_of({}).get(), &box), NULLREGION);
}

TEST(Region, a_picture_without_mask_is_all_there) {
  RECT box{};
  EXPECT_EQ(GetRgnBox(region_of(plain(30, 20, 0xFF102030)).get(), &box), SIMPLEREGION);
  EXPECT_EQ(box.right, 30);
  EXPECT_EQ(box.bottom, 20);
}

TEST(Region, a_pixel_one_step_from_the_mask_is_kept) {
  for (const std::uint32_t near_mask : {0xFFFE00FFu, 0xFFFF01FFu, 0xFFFF00FEu}) {
    ui::Pixels picture = plain(9, 7, kHole);
    at(picture, 4, 3) = near_mask;
    RECT box{};
    EXPECT_EQ(GetRgnBox(region_of(picture).get(), &box), SIMPLEREGION);
    const RECT wanted{4, 3, 5, 4};
    EXPECT_TRUE(EqualRect(&box, &wanted)) << std::hex << near_mask;
  }
}

TEST(Region, opacity_does_not_make_the_mask_another_colour) {
  RECT box{};
  EXPECT_EQ(GetRgnBox(region_of(plain(3, 3, 0x80FF00FF)).get(), &box), NULLREGION);
  EXPECT_EQ(GetRgnBox(region_of(plain(3, 3, 0x00000000)).get(), &box), SIMPLEREGION);
}

TEST(Region, the_mask_may_be_any_colour) {
  ui::Pixels picture = plain(3, 1, 0xFF102030);
  at(picture, 1, 0) = 0xFF302010;
  const Region region(CrearRegion(picture, ui::rgb(0x10, 0x20, 0x30)));
  RECT box{};
  GetRgnBox(region.get(), &box);
  EXPECT_EQ(box.left, 1);
  EXPECT_EQ(box.right, 2);
}

TEST(Region, is_the_same_as_one_rectangle_for_each_run) {
  std::mt19937 random(20261121);
  for (const unsigned holes : {1u, 4u, 7u}) {
    for (int repeat = 0; repeat < 20; ++repeat) {
      ui::Pixels picture = plain(1 + static_cast<int>(random() % 40), 25, 0xFF000000);
      for (int y = 0; y < picture.height; ++y) {
        // Some rows are like the one above, and some are empty.
        const unsigned kind = random() % 4;
        for (int x = 0; x < picture.width; ++x) {
          const bool hole = kind == 0 || random() % 8 < holes;
          at(picture, x, y) = kind == 1 && y > 0 ? at(picture, x, y - 1)
                              : hole             ? kHole
                                                 : 0xFF00FF00;
        }
      }
      EXPECT_TRUE(EqualRgn(region_of(picture).get(), region_by_runs(picture).get()));
    }
  }
}

TEST(Region, of_a_windows_ground_lacks_the_corners_alone) {
  win32::PictureStore store(GetModuleHandleW(nullptr));
  const ui::Pixels ground = store.pixels("fondo_principal", 96);
  ASSERT_FALSE(ground.argb.empty());
  const Region region = region_of(ground);
  EXPECT_TRUE(EqualRgn(region.get(), region_by_runs(ground).get()));
  EXPECT_FALSE(PtInRegion(region.get(), 0, 0));
  EXPECT_FALSE(PtInRegion(region.get(), 1099, 727));
  EXPECT_TRUE(PtInRegion(region.get(), 0, 20));
  EXPECT_TRUE(PtInRegion(region.get(), 1099, 360));
  EXPECT_TRUE(PtInRegion(region.get(), 10, 10));
}

TEST(Functions, of_the_system_are_found_by_library_and_name) {
  EXPECT_TRUE(ExisteFuncion("user32", "SetLayeredWindowAttributes"));
  EXPECT_TRUE(ExisteFuncion("user32.dll", "SetWindowRgn"));
  EXPECT_FALSE(ExisteFuncion("user32", "setlayeredwindowattributes"));
  EXPECT_FALSE(ExisteFuncion("user32", "NoExiste"));
  EXPECT_FALSE(ExisteFuncion("gdi32", "SetLayeredWindowAttributes"));
  EXPECT_FALSE(ExisteFuncion("no_existe", "SetLayeredWindowAttributes"));
}

// A window that shows a picture and counts the clicks on it.
class PictureWindow {
 public:
  PictureWindow(RECT area, DWORD style, ui::Pixels picture) : picture_(std::move(picture)) {
    WNDCLASSW kind{};
    kind.lpfnWndProc = procedure;
    kind.hInstance = GetModuleHandleW(nullptr);
    kind.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    kind.lpszClassName = L"Ordelan.PictureWindow";
    RegisterClassW(&kind);  // the second one finds it there
    AdjustWindowRectEx(&area, style, FALSE, WS_EX_TOPMOST);
    handle_ = CreateWindowExW(WS_EX_TOPMOST, kind.lpszClassName, L"", style, area.left, area.top,
                              area.right - area.left, area.bottom - area.top, nullptr, nullptr,
                              kind.hInstance, nullptr);
    SetWindowLongPtrW(handle_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  }
  ~PictureWindow() { DestroyWindow(handle_); }
  PictureWindow(const PictureWindow&) = delete;
  PictureWindow& operator=(const PictureWindow&) = delete;

  HWND handle() const { return handle_; }
  const ui::Pixels& picture() const { return picture_; }
  int clicks() const { return clicks_; }
  void show() const {
    ShowWindow(handle_, SW_SHOWNOACTIVATE);
    SetWindowPos(handle_, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    UpdateWindow(handle_);
  }

 private:
  static LRESULT CALLBACK procedure(HWND handle, UINT message, WPARAM w, LPARAM l) noexcept {
    auto* const self = reinterpret_cast<PictureWindow*>(GetWindowLongPtrW(handle, GWLP_USERDATA));
    if (self && message == WM_LBUTTONDOWN) ++self->clicks_;
    if (self && message == WM_ERASEBKGND) {
      self->paint(reinterpret_cast<HDC>(w));
      return 1;
    }
    return DefWindowProcW(handle, message, w, l);
  }

  void paint(HDC context) const {
    BITMAPINFO format{};
    format.bmiHeader = {
        sizeof format.bmiHeader, picture_.width, -picture_.height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    SetDIBitsToDevice(
        context, 0, 0, static_cast<DWORD>(picture_.width), static_cast<DWORD>(picture_.height), 0,
        0, 0, static_cast<UINT>(picture_.height), picture_.argb.data(), &format, DIB_RGB_COLORS);
  }

  ui::Pixels picture_;
  HWND handle_ = nullptr;
  int clicks_ = 0;
};

bool run_until(const std::function<bool()>& reached) {
  const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  while (!reached()) {
    if (std::chrono::steady_clock::now() > until) return false;
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    Sleep(5);
  }
  return true;
}

COLORREF on_screen(POINT place) {
  const HDC screen = GetDC(nullptr);
  const COLORREF color = GetPixel(screen, place.x, place.y);
  ReleaseDC(nullptr, screen);
  return color;
}

// A click as it comes from the mouse. Under Wine only the screen below has the keyed holes, and
// the click has to come from there.
void click_by_hand(POINT place) {
  constexpr wchar_t kHand[] = L"Z:\\usr\\bin\\xdotool";
  if (GetFileAttributesW(kHand) == INVALID_FILE_ATTRIBUTES) {
    SetCursorPos(place.x, place.y);
    INPUT events[2] = {};
    events[0].type = events[1].type = INPUT_MOUSE;
    events[0].mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
    events[1].mi.dwFlags = MOUSEEVENTF_LEFTUP;
    ASSERT_EQ(SendInput(2, events, sizeof events[0]), 2u);
    return;
  }
  // It waits for the pointer to move, and would wait long where that has arrived already.
  std::wstring command = std::wstring(kHand) + L" mousemove 0 0 mousemove --sync " +
                         std::to_wstring(place.x) + L" " + std::to_wstring(place.y) + L" click 1";
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION process{};
  ASSERT_TRUE(CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                             &start, &process));
  WaitForSingleObject(process.hProcess, 10000);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
}

constexpr std::uint32_t kIsland = 0xFFFE00FF;  // one step from the mask
constexpr COLORREF kIslandShown = RGB(0xFE, 0x00, 0xFF);
constexpr COLORREF kBehindShown = RGB(0, 160, 80);

ui::Pixels half_masked() {
  ui::Pixels picture = plain(80, 60, kHole);
  for (int y = 0; y < 60; ++y) {
    for (int x = 0; x < 40; ++x) at(picture, x, y) = kIsland;
  }
  return picture;
}

class Shaped : public testing::TestWithParam<ShapeRoad> {
 protected:
  // Shows a window of this style before another one, and waits until the screen has both.
  void show(DWORD style) {
    front = std::make_unique<PictureWindow>(RECT{300, 200, 380, 260}, style, half_masked());
    behind.show();
    ASSERT_TRUE(AplicarForma(front->handle(), front->picture(), kMask, GetParam()));
    front->show();
    island = {20, 30};
    hole = {60, 30};
    ClientToScreen(front->handle(), &island);
    ClientToScreen(front->handle(), &hole);
    EXPECT_TRUE(run_until([&] { return on_screen(island) == kIslandShown; }));
    EXPECT_TRUE(run_until([&] { return on_screen(hole) == kBehindShown; }));
  }

  PictureWindow behind{{250, 150, 430, 310}, WS_POPUP, plain(180, 160, 0xFF00A050)};
  std::unique_ptr<PictureWindow> front;
  POINT island{};
  POINT hole{};
};

TEST_P(Shaped, holes_show_what_is_behind_and_take_no_clicks) {
  show(WS_POPUP);
  click_by_hand(island);
  EXPECT_TRUE(run_until([&] { return front->clicks() == 1; }));
  EXPECT_EQ(behind.clicks(), 0);
  click_by_hand(hole);
  EXPECT_TRUE(run_until([&] { return behind.clicks() == 1; }));
  EXPECT_EQ(front->clicks(), 1);
}

TEST_P(Shaped, the_shape_begins_inside_the_windows_borders) {
  show(WS_POPUP | WS_BORDER | WS_CAPTION);
  POINT edge{39, 59};
  ClientToScreen(front->handle(), &edge);
  EXPECT_EQ(on_screen(edge), kIslandShown);
  EXPECT_EQ(on_screen({edge.x + 1, edge.y}), kBehindShown);
}

TEST_P(Shaped, the_end_of_the_shape_is_a_rectangle_again) {
  show(WS_POPUP);
  win32::end_shape(front->handle());
  EXPECT_FALSE(GetWindowLongPtrW(front->handle(), GWL_EXSTYLE) & WS_EX_LAYERED);
  const Region region(CreateRectRgn(0, 0, 0, 0));
  EXPECT_EQ(GetWindowRgn(front->handle(), region.get()), ERROR);
  EXPECT_TRUE(run_until([&] { return on_screen(hole) == RGB(0xFF, 0x00, 0xFF); }));
  click_by_hand({hole.x + 7, hole.y + 9});
  EXPECT_TRUE(run_until([&] { return front->clicks() == 1; }));
  EXPECT_EQ(behind.clicks(), 0);
}

TEST_P(Shaped, what_is_no_window_takes_no_shape) {
  EXPECT_FALSE(AplicarForma(nullptr, half_masked(), kMask, GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Roads, Shaped, testing::Values(ShapeRoad::keyed, ShapeRoad::region),
                         [](const auto& road) {
                           return road.param == ShapeRoad::keyed ? "keyed" : "region";
                         });

TEST(ShapeRoads, the_keyed_one_is_taken_where_the_system_has_it) {
  EXPECT_EQ(win32::best_road(), ShapeRoad::keyed);
  const PictureWindow window({300, 200, 380, 260}, WS_POPUP, half_masked());
  ASSERT_TRUE(AplicarForma(window.handle(), window.picture(), kMask));
  EXPECT_TRUE(GetWindowLongPtrW(window.handle(), GWL_EXSTYLE) & WS_EX_LAYERED);
  COLORREF keyed = 0;
  DWORD flags = 0;
  ASSERT_TRUE(GetLayeredWindowAttributes(window.handle(), &keyed, nullptr, &flags));
  EXPECT_EQ(keyed, RGB(0xFF, 0x00, 0xFF));
  EXPECT_EQ(flags, DWORD{LWA_COLORKEY});
}

TEST(ShapeRoads, the_other_one_is_taken_where_the_system_has_no_layers) {
  const auto wanted = [](const char* library, const char* name) {
    return std::string(library) == "user32" && std::string(name) == "SetLayeredWindowAttributes";
  };
  EXPECT_EQ(win32::best_road([](const char*, const char*) { return false; }), ShapeRoad::region);
  EXPECT_EQ(win32::best_road(wanted), ShapeRoad::keyed);
  EXPECT_EQ(win32::best_road([](const char* library, const char* name) {
              return std::string(library) != "user32" ||
                     std::string(name) != "SetLayeredWindowAttributes";
            }),
            ShapeRoad::region);
}

TEST(ShapeRoads, without_a_picture_the_other_one_leaves_a_rectangle) {
  const PictureWindow window({300, 200, 380, 260}, WS_POPUP, half_masked());
  EXPECT_FALSE(AplicarForma(window.handle(), {}, kMask, ShapeRoad::region));
  const Region region(CreateRectRgn(0, 0, 0, 0));
  EXPECT_EQ(GetWindowRgn(window.handle(), region.get()), ERROR);
  EXPECT_TRUE(AplicarForma(window.handle(), plain(3, 3, kHole), kMask, ShapeRoad::region))
      << "a picture of the mask alone is one all the same";
  EXPECT_EQ(GetWindowRgn(window.handle(), region.get()), NULLREGION);
}

TEST(ShapeRoads, the_other_one_leaves_the_window_its_own_kind) {
  const PictureWindow window({300, 200, 380, 260}, WS_POPUP, half_masked());
  ASSERT_TRUE(AplicarForma(window.handle(), window.picture(), kMask, ShapeRoad::region));
  EXPECT_FALSE(GetWindowLongPtrW(window.handle(), GWL_EXSTYLE) & WS_EX_LAYERED);
  const Region region(CreateRectRgn(0, 0, 0, 0));
  EXPECT_NE(GetWindowRgn(window.handle(), region.get()), ERROR);
  EXPECT_TRUE(PtInRegion(region.get(), 39, 59));
  EXPECT_FALSE(PtInRegion(region.get(), 40, 59));
}

}  // namespace
}  // namespace ordelan::test
