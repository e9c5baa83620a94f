#include "work/program_window.h"

#include <gmock/gmock.h>

#include "location/lost_file_window.h"
#include "support/program_bench.h"
#include "work/arrange.h"
#include "work/program_window.h"

namespace ordelan::test {
namespace {

constexpr ui::Size kLayout{100, 80};

ui::Rect in_window(unsigned edges, ui::Size window) {
  return work::anchored({"control", -1, 10, 20, 30, 40, edges}, kLayout, window);
}

TEST(Anchors, a_control_keeps_its_distance_to_the_edges_that_it_names) {
  const ui::Size larger{150, 90};
  EXPECT_EQ(in_window(skin::kTopLeft, larger), (ui::Rect{10, 20, 30, 40}));
  EXPECT_EQ(in_window(skin::kTopRight, larger), (ui::Rect{60, 20, 30, 40}));
  EXPECT_EQ(in_window(skin::kBottomLeft, larger), (ui::Rect{10, 30, 30, 40}));
  EXPECT_EQ(in_window(skin::kBottomRight, larger), (ui::Rect{60, 30, 30, 40}));
  EXPECT_EQ(in_window(skin::kAcross, larger), (ui::Rect{10, 20, 80, 40}));
  EXPECT_EQ(in_window(skin::kAllEdges, larger), (ui::Rect{10, 20, 80, 50}));
}

TEST(Anchors, a_control_that_names_neither_of_two_edges_stays_in_the_middle_between_them) {
  EXPECT_EQ(in_window(skin::kBottom, {150, 90}), (ui::Rect{35, 30, 30, 40}));
  EXPECT_EQ(in_window(skin::kRight, {150, 90}), (ui::Rect{60, 25, 30, 40}));
  EXPECT_EQ(in_window(skin::kBottom, {80, 80}), (ui::Rect{0, 20, 30, 40}));
}

TEST(Anchors, in_the_size_of_the_layout_every_control_stands_where_that_says) {
  for (unsigned edges = 0; edges < 16; ++edges) {
    EXPECT_EQ(in_window(edges, kLayout), (ui::Rect{10, 20, 30, 40})) << edges;
  }
}

TEST(Anchors, no_control_becomes_smaller_than_nothing) {
  EXPECT_EQ(in_window(skin::kAllEdges, {20, 10}), (ui::Rect{10, 20, 0, 0}));
}

struct ResizableWindow : ::testing::Test, ProgramBench {
  location::Perdidos& report() { return *windows.touch<location::Perdidos>(); }
};

TEST_F(ResizableWindow, its_controls_follow_the_size_that_the_user_gives_it) {
  start();
  location::Perdidos& window = report();
  const ui::Size was = window.size();
  const ui::Rect list = window.ListPerdidos.bounds();
  const ui::Rect close = window.cmdSalir.bounds();
  window.resized_to({was.width + 100, was.height + 50});
  EXPECT_EQ(window.ListPerdidos.bounds(),
            (ui::Rect{list.left, list.top, list.width + 100, list.height + 50}));
  EXPECT_EQ(window.cmdSalir.bounds(),
            (ui::Rect{close.left + 100, close.top + 50, close.width, close.height}));
  window.resized_to(was);
  EXPECT_EQ(window.ListPerdidos.bounds(), list);
}

TEST_F(ResizableWindow, in_its_smallest_size_no_control_covers_another) {
  start();
  location::Perdidos& window = report();
  window.resized_to(window.smallest_size());
  const auto& controls = window.controls();
  for (std::size_t i = 0; i < controls.size(); ++i) {
    const ui::Rect& a = controls[i]->bounds();
    EXPECT_LE(a.left + a.width, window.size().width) << controls[i]->name();
    EXPECT_LE(a.top + a.height, window.size().height) << controls[i]->name();
    EXPECT_GE(a.left, 0) << controls[i]->name();
    for (std::size_t j = 0; j < i; ++j) {
      const ui::Rect& b = controls[j]->bounds();
      const bool apart = a.left + a.width <= b.left || b.left + b.width <= a.left ||
                         a.top + a.height <= b.top || b.top + b.height <= a.top;
      EXPECT_TRUE(apart) << controls[i]->name() << " " << controls[j]->name();
    }
  }
}

TEST_F(ResizableWindow, is_as_large_as_it_was_left_and_where_it_was_left) {
  start();
  report().resized_to({900, 500});
  report().set_position({33, 44});
  report().Salir_Click();
  ASSERT_EQ(windows.find<location::Perdidos>(), nullptr);
  EXPECT_EQ(report().size(), (ui::Size{900, 500}));
  EXPECT_EQ(report().position(), (ui::Point{33, 44}));
  EXPECT_EQ(report().ListPerdidos.bounds().width, 900 - 32);
}

TEST_F(ResizableWindow, a_stored_size_that_no_window_can_have_is_brought_into_the_limits) {
  disk.write("Config.ini", "[Settings]\r\nPerdidos_Width=-5\r\nPerdidos_Height=1e300\r\n");
  start();
  EXPECT_EQ(report().size().width, report().smallest_size().width);
  EXPECT_LE(report().size().height, 16384);
}

TEST_F(ResizableWindow, others_keep_the_size_of_their_layout_and_store_none) {
  disk.write("Config.ini", "[Settings]\r\nMe_Width=2000\r\nMe_Height=2000\r\n");
  start();
  EXPECT_EQ(form.size(), (ui::Size{1100, 728}));
  form.Salir_Click();
  EXPECT_EQ(settings.number("Me_Width", 0), 2000) << "not written";
}

// A window of a test's own kind, with two controls in an order that is not that of its layout.
constexpr skin::Place kPlaces[] = {{"Second", -1, 5, 6, 70, 20}, {"First", -1, 5, 36, 70, 20}};
constexpr skin::Layout kSmall{120, 90, kPlaces};

struct OneOfAKind final : work::ProgramWindow {
  OneOfAKind(const work::Context& context, const work::WindowKind& kind)
      : ProgramWindow(context, kind), First(*this, "First"), Second(*this, "Second") {
    set_up();
  }
  void Form_Load() override {
    place_at_load = position();
    shown_at_load = visible();
  }

  ui::Button First;
  ui::Button Second;
  ui::Point place_at_load;
  bool shown_at_load = false;
};

struct WindowKinds : ::testing::Test, ProgramBench {
  WindowKinds() { start(); }

  OneOfAKind& made(const work::WindowKind& kind) {
    made_last.reset();
    made_last = std::make_unique<OneOfAKind>(context, kind);
    return *made_last;
  }
  std::string file(const std::string& below) {
    const auto opened = disk.files().open(disk.path(below));
    if (!opened) return "";
    std::string bytes(static_cast<std::size_t>(opened->size()), '\0');
    opened->read(0, {reinterpret_cast<std::uint8_t*>(bytes.data()), bytes.size()});
    return bytes;
  }
  // What the configuration file holds of the window's place and size.
  std::vector<double> stored() const {
    std::vector<double> all;
    for (const char* key : {"Uno_Left", "Uno_Top", "Uno_Width", "Uno_Height"}) {
      all.push_back(settings.number(key, -1));
    }
    return all;
  }

  work::Context context{backend,  platform,   work,       windows,
                        settings, form.lists, form.strip, form.clocks};
  std::unique_ptr<OneOfAKind> made_last;
};

TEST_F(WindowKinds, every_window_is_borderless_and_dragged_by_its_background) {
  for (const bool minimizable : {false, true}) {
    const OneOfAKind& window =
        made({.name = "Uno", .title = "El título", .layout = kSmall, .minimizable = minimizable});
    EXPECT_EQ(window.name(), "Uno");
    EXPECT_EQ(window.title(), "El título");
    EXPECT_TRUE(window.borderless());
    EXPECT_TRUE(window.drag_by_background());
    EXPECT_EQ(window.minimizable(), minimizable);
    EXPECT_FALSE(window.resizable());
    EXPECT_EQ(window.size(), (ui::Size{120, 90}));
  }
}

TEST_F(WindowKinds, the_controls_stand_in_the_places_and_the_order_of_the_layout) {
  const OneOfAKind& window = made({.name = "Uno", .title = "", .layout = kSmall});
  EXPECT_EQ(window.First.bounds(), (ui::Rect{5, 36, 70, 20}));
  EXPECT_EQ(window.Second.bounds(), (ui::Rect{5, 6, 70, 20}));
  EXPECT_THAT(window.controls(), ::testing::ElementsAre(&window.Second, &window.First));
}

TEST_F(WindowKinds, is_placed_before_its_content_is_loaded_and_shown_after_it) {
  for (const bool flag : {false, true}) {
    OneOfAKind& window = made({.name = "Uno",
                               .title = "",
                               .layout = kSmall,
                               .place = {40, 50},
                               .topmost = flag,
                               .shown = flag});
    EXPECT_EQ(window.position(), (ui::Point{40, 50}));
    window.set_position({1, 2});
    window.load();
    EXPECT_EQ(window.place_at_load, (ui::Point{40, 50})) << "not where it stood before";
    EXPECT_FALSE(window.shown_at_load);
    EXPECT_EQ(window.visible(), flag);
    EXPECT_EQ(window.topmost(), flag);
  }
}

TEST_F(WindowKinds, a_place_without_a_key_is_neither_stored_nor_read) {
  const std::string before = file("Config.ini");
  OneOfAKind& window =
      made({.name = "Uno", .title = "", .layout = kSmall, .resizable = true, .smallest = {10, 10}});
  window.load();
  window.store_place();
  window.read_place();
  EXPECT_EQ(file("Config.ini"), before);
}

TEST_F(WindowKinds, the_place_is_stored_when_its_kind_says_so) {
  struct {
    bool after_drag;
    bool at_unload;
    bool resizable;
  } const kinds[] = {{false, false, false}, {true, false, false}, {false, true, true}};
  for (const auto& kind : kinds) {
    disk.write("Config.ini", "[Settings]\r\n");
    OneOfAKind& window = made({.name = "Uno",
                               .title = "",
                               .layout = kSmall,
                               .place_key = "Uno",
                               .stores_after_drag = kind.after_drag,
                               .stores_at_unload = kind.at_unload,
                               .resizable = kind.resizable,
                               .smallest = {10, 10}});
    window.load();
    window.set_position({70, 80});
    const std::vector<double> nothing{-1, -1, -1, -1};
    if (window.on_drag_end) window.on_drag_end();
    EXPECT_EQ(stored(), kind.after_drag ? (std::vector<double>{70, 80, -1, -1}) : nothing);
    disk.write("Config.ini", "[Settings]\r\n");
    window.unload();
    EXPECT_EQ(stored(), kind.at_unload ? (std::vector<double>{70, 80, 120, 90}) : nothing);
  }
}

TEST_F(WindowKinds, a_window_that_cannot_be_resized_reads_no_size) {
  disk.write("Config.ini",
             "[Settings]\r\nUno_Left=7\r\nUno_Top=8\r\nUno_Width=500\r\nUno_Height=400\r\n");
  for (const bool resizable : {false, true}) {
    OneOfAKind& window = made({.name = "Uno",
                               .title = "",
                               .layout = kSmall,
                               .place_key = "Uno",
                               .resizable = resizable,
                               .smallest = {10, 10}});
    EXPECT_EQ(window.resizable(), resizable);
    window.load();
    EXPECT_EQ(window.place_at_load, (ui::Point{7, 8}));
    EXPECT_EQ(window.size(), resizable ? (ui::Size{500, 400}) : (ui::Size{120, 90}));
  }
}

TEST_F(WindowKinds, the_title_buttons_say_what_they_do) {
  struct Titled final : work::ProgramWindow {
    explicit Titled(const work::Context& context)
        : ProgramWindow(context, {.name = "Uno", .title = "", .layout = kSmall}),
          Small(*this, "Small"),
          Close(*this, "Close") {
      make_minimize_button(Small);
      make_close_button(Close);
      set_up();
    }
    ui::Button Small;
    ui::Button Close;
  } window(context);
  EXPECT_EQ(window.Small.description(), "Minimizar");
  EXPECT_EQ(window.Small.tip(), "Minimizar a barra de tareas");
  EXPECT_EQ(window.Close.description(), "Cerrar");
  EXPECT_EQ(window.Close.tip(), "Cerrar esta ventana");
  window.Small.on_click();
  EXPECT_TRUE(window.minimized());
}

}  // namespace
}  // namespace ordelan::test
