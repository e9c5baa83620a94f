#include "work/window_directory.h"

#include <gmock/gmock.h>

#include "headless/headless_backend.h"
#include "support/fake_services.h"
#include "ui/button.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A window that writes down its life, with a button that does what the test wants.
struct Diary : ui::Window {
  Diary(ui::Backend& used, std::vector<std::string>& diary)
      : ui::Window(used, "Diary"), button(*this, "button"), log(diary) {
    log.emplace_back("made");
    on_load = [this] { log.emplace_back("loaded"); };
  }
  ~Diary() override { log.emplace_back("freed"); }

  ui::Button button;
  std::vector<std::string>& log;
};

struct ZoomDiary final : Diary {
  static constexpr const char* kName = "Zoom";
  using Diary::Diary;
};
struct SecondDiary final : Diary {
  static constexpr const char* kName = "Second";
  using Diary::Diary;
};

// A window that a test gives its handlers.
struct Plain final : ui::Window {
  static constexpr const char* kName = "Plain";
  explicit Plain(ui::Backend& used) : ui::Window(used, kName) {}
};

struct WindowDirectoryTest : ::testing::Test {
  WindowDirectoryTest() {
    windows.add<ZoomDiary>([this] { return std::make_unique<ZoomDiary>(backend, log); });
  }

  HandClock clock;
  headless::HeadlessBackend backend{clock};
  std::vector<std::string> log;
  work::WindowDirectory windows;
};

TEST_F(WindowDirectoryTest, a_window_is_made_and_loaded_at_its_first_touch) {
  EXPECT_EQ(windows.find("Zoom"), nullptr);
  EXPECT_THAT(log, IsEmpty());
  ui::Window* made = windows.touch("Zoom");
  ASSERT_NE(made, nullptr);
  EXPECT_TRUE(made->loaded());
  EXPECT_FALSE(made->visible());
  EXPECT_EQ(windows.touch("Zoom"), made);
  EXPECT_EQ(windows.find("Zoom"), made);
  EXPECT_THAT(log, ElementsAre("made", "loaded"));
}

TEST_F(WindowDirectoryTest, an_unknown_name_gives_no_window) {
  EXPECT_EQ(windows.touch("Unknown"), nullptr);
  EXPECT_EQ(windows.find("Unknown"), nullptr);
  EXPECT_FALSE(windows.visible("Unknown"));
  windows.hide("Unknown");
  windows.close("Unknown");
}

TEST_F(WindowDirectoryTest, asking_whether_a_window_shows_does_not_make_it) {
  EXPECT_FALSE(windows.visible("Zoom"));
  EXPECT_THAT(log, IsEmpty());
  windows.touch("Zoom")->show();
  EXPECT_TRUE(windows.visible("Zoom"));
}

TEST_F(WindowDirectoryTest, a_hidden_window_keeps_its_state) {
  ui::Window* made = windows.touch("Zoom");
  made->show();
  made->set_title("state");
  windows.hide("Zoom");
  EXPECT_FALSE(windows.visible("Zoom"));
  ASSERT_EQ(windows.touch("Zoom"), made);
  EXPECT_EQ(made->title(), "state");
}

TEST_F(WindowDirectoryTest, the_touch_after_a_close_makes_a_new_window) {
  ui::Window* first = windows.touch("Zoom");
  first->set_title("state");
  windows.close("Zoom");
  EXPECT_EQ(windows.find("Zoom"), nullptr);
  EXPECT_FALSE(first->loaded()) << "it is off the screen, and still in memory";
  ui::Window* second = windows.touch("Zoom");
  EXPECT_NE(second, first);
  EXPECT_EQ(second->title(), "");
  EXPECT_THAT(log, ElementsAre("made", "loaded", "made", "loaded"));
}

TEST_F(WindowDirectoryTest, a_closed_window_is_freed_later) {
  windows.touch("Zoom");
  windows.free_closed();
  EXPECT_THAT(log, ElementsAre("made", "loaded")) << "an open one is not";
  windows.close("Zoom");
  windows.close("Zoom");
  EXPECT_THAT(log, ElementsAre("made", "loaded"));
  windows.free_closed();
  EXPECT_THAT(log, ElementsAre("made", "loaded", "freed"));
}

TEST_F(WindowDirectoryTest, a_window_may_close_itself_inside_one_of_its_own_handlers) {
  auto* made = windows.touch<ZoomDiary>();
  ASSERT_NE(made, nullptr);
  made->button.on_click = [this, made] {
    windows.close("Zoom");
    made->set_title("the handler goes on");
    made->log.emplace_back(made->title());
  };
  made->button.on_click();
  EXPECT_THAT(log, ElementsAre("made", "loaded", "the handler goes on"));
  EXPECT_EQ(windows.find("Zoom"), nullptr);
  windows.free_closed();
  EXPECT_EQ(log.back(), "freed");
}

TEST_F(WindowDirectoryTest, a_window_that_closes_itself_while_it_loads_is_not_given) {
  windows.add<Plain>([this] {
    auto window = std::make_unique<Plain>(backend);
    window->on_load = [this] { windows.close<Plain>(); };
    return window;
  });
  EXPECT_EQ(windows.touch<Plain>(), nullptr);
  EXPECT_EQ(windows.find<Plain>(), nullptr);
}

TEST_F(WindowDirectoryTest, a_window_that_asks_for_itself_while_it_loads_gets_itself) {
  ui::Window* seen = nullptr;
  windows.add<Plain>([this, &seen] {
    auto window = std::make_unique<Plain>(backend);
    window->on_load = [this, &seen] { seen = windows.touch<Plain>(); };
    return window;
  });
  ui::Window* made = windows.touch<Plain>();
  EXPECT_NE(made, nullptr);
  EXPECT_EQ(seen, made);
}

TEST_F(WindowDirectoryTest, what_is_left_goes_with_the_directory) {
  {
    work::WindowDirectory other;
    other.add<ZoomDiary>([this] { return std::make_unique<ZoomDiary>(backend, log); });
    other.add<SecondDiary>([this] { return std::make_unique<SecondDiary>(backend, log); });
    other.touch<ZoomDiary>();
    other.touch<SecondDiary>();
    other.close<ZoomDiary>();
    log.clear();
  }
  EXPECT_THAT(log, ElementsAre("freed", "freed"));
}

TEST_F(WindowDirectoryTest, a_window_may_refuse_to_be_closed) {
  bool refuses = true;
  windows.add<Plain>([this, &refuses] {
    auto window = std::make_unique<Plain>(backend);
    window->on_query_unload = [&refuses] { return !refuses; };
    return window;
  });
  const ui::Window* const made = windows.touch<Plain>();
  windows.close<Plain>();
  EXPECT_EQ(windows.find<Plain>(), made);
  EXPECT_TRUE(made->loaded());
  refuses = false;
  windows.close<Plain>();
  EXPECT_EQ(windows.find<Plain>(), nullptr);
}

TEST_F(WindowDirectoryTest, at_the_end_all_windows_go_whether_they_refuse_or_not) {
  windows.add<Plain>([this] {
    auto window = std::make_unique<Plain>(backend);
    window->on_query_unload = [] { return false; };
    return window;
  });
  windows.touch<ZoomDiary>();
  windows.touch<Plain>();
  windows.close_all();
  EXPECT_EQ(windows.find<ZoomDiary>(), nullptr);
  EXPECT_EQ(windows.find<Plain>(), nullptr);
}

TEST_F(WindowDirectoryTest, a_window_is_given_as_its_own_class) {
  EXPECT_EQ(windows.find<ZoomDiary>(), nullptr) << "finding makes none";
  ZoomDiary* const made = windows.touch<ZoomDiary>();
  ASSERT_NE(made, nullptr);
  EXPECT_EQ(made, windows.find("Zoom"));
  EXPECT_EQ(windows.find<ZoomDiary>(), made);
  made->show();
  windows.hide<ZoomDiary>();
  EXPECT_FALSE(made->visible());
  windows.close<ZoomDiary>();
  EXPECT_EQ(windows.find<ZoomDiary>(), nullptr);
  EXPECT_EQ(windows.touch<SecondDiary>(), nullptr) << "no maker was added";
}

}  // namespace
}  // namespace ordelan::test
