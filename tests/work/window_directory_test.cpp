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

struct WindowDirectoryTest : ::testing::Test {
  WindowDirectoryTest() {
    windows.add("Zoom", [this] { return std::make_unique<Diary>(backend, log); });
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

TEST_F(WindowDirectoryTest, a_name_that_nobody_knows_gives_no_window) {
  EXPECT_EQ(windows.touch("Nobody"), nullptr);
  EXPECT_EQ(windows.find("Nobody"), nullptr);
  EXPECT_FALSE(windows.visible("Nobody"));
  windows.hide("Nobody");
  windows.close("Nobody");
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

TEST_F(WindowDirectoryTest, the_touch_behind_a_close_makes_a_new_window) {
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

TEST_F(WindowDirectoryTest, a_closed_window_is_freed_when_it_is_buried) {
  windows.touch("Zoom");
  windows.bury();
  EXPECT_THAT(log, ElementsAre("made", "loaded")) << "an open one is not";
  windows.close("Zoom");
  windows.close("Zoom");
  EXPECT_THAT(log, ElementsAre("made", "loaded"));
  windows.bury();
  EXPECT_THAT(log, ElementsAre("made", "loaded", "freed"));
}

TEST_F(WindowDirectoryTest, a_window_may_close_itself_inside_one_of_its_own_handlers) {
  auto* made = dynamic_cast<Diary*>(windows.touch("Zoom"));
  ASSERT_NE(made, nullptr);
  made->button.on_click = [this, made] {
    windows.close("Zoom");
    made->set_title("the handler goes on");
    made->log.emplace_back(made->title());
  };
  made->button.on_click();
  EXPECT_THAT(log, ElementsAre("made", "loaded", "the handler goes on"));
  EXPECT_EQ(windows.find("Zoom"), nullptr);
  windows.bury();
  EXPECT_EQ(log.back(), "freed");
}

TEST_F(WindowDirectoryTest, a_window_that_closes_itself_while_it_loads_is_not_given) {
  windows.add("Shy", [this] {
    auto window = std::make_unique<ui::Window>(backend, "Shy");
    window->on_load = [this] { windows.close("Shy"); };
    return window;
  });
  EXPECT_EQ(windows.touch("Shy"), nullptr);
  EXPECT_EQ(windows.find("Shy"), nullptr);
}

TEST_F(WindowDirectoryTest, a_window_that_asks_for_itself_while_it_loads_gets_itself) {
  ui::Window* seen = nullptr;
  windows.add("Vain", [this, &seen] {
    auto window = std::make_unique<ui::Window>(backend, "Vain");
    window->on_load = [this, &seen] { seen = windows.touch("Vain"); };
    return window;
  });
  ui::Window* made = windows.touch("Vain");
  EXPECT_NE(made, nullptr);
  EXPECT_EQ(seen, made);
}

TEST_F(WindowDirectoryTest, what_is_left_goes_with_the_directory) {
  {
    work::WindowDirectory other;
    other.add("a", [this] { return std::make_unique<Diary>(backend, log); });
    other.add("b", [this] { return std::make_unique<Diary>(backend, log); });
    other.touch("a");
    other.touch("b");
    other.close("a");
    log.clear();
  }
  EXPECT_THAT(log, ElementsAre("freed", "freed"));
}

TEST_F(WindowDirectoryTest, a_window_may_refuse_to_be_closed) {
  bool refuses = true;
  windows.add("Stubborn", [this, &refuses] {
    auto window = std::make_unique<ui::Window>(backend, "Stubborn");
    window->on_query_unload = [&refuses] { return !refuses; };
    return window;
  });
  const ui::Window* const made = windows.touch("Stubborn");
  windows.close("Stubborn");
  EXPECT_EQ(windows.find("Stubborn"), made);
  EXPECT_TRUE(made->loaded());
  refuses = false;
  windows.close("Stubborn");
  EXPECT_EQ(windows.find("Stubborn"), nullptr);
}

TEST_F(WindowDirectoryTest, at_the_end_all_windows_go_whether_they_refuse_or_not) {
  windows.add("a", [this] { return std::make_unique<Diary>(backend, log); });
  windows.add("Stubborn", [this] {
    auto window = std::make_unique<ui::Window>(backend, "Stubborn");
    window->on_query_unload = [] { return false; };
    return window;
  });
  windows.touch("a");
  windows.touch("Stubborn");
  windows.close_all();
  EXPECT_EQ(windows.find("a"), nullptr);
  EXPECT_EQ(windows.find("Stubborn"), nullptr);
}

struct Drawer {
  int things = 3;
};
struct Desktop final : ui::Window, Drawer {
  explicit Desktop(ui::Backend& backend) : ui::Window(backend, "Desktop") {}
};

TEST_F(WindowDirectoryTest, a_window_is_given_as_the_piece_that_it_has) {
  windows.add("Desktop", [this] { return std::make_unique<Desktop>(backend); });
  windows.add("Plain", [this] { return std::make_unique<ui::Window>(backend, "Plain"); });
  EXPECT_EQ(windows.find_as<Drawer>("Desktop"), nullptr) << "not there yet";
  ASSERT_NE(windows.touch_as<Drawer>("Desktop"), nullptr);
  EXPECT_EQ(windows.find_as<Drawer>("Desktop")->things, 3);
  EXPECT_EQ(windows.touch_as<Drawer>("Plain"), nullptr);
  EXPECT_EQ(windows.touch_as<Drawer>("Nobody"), nullptr);
}

}  // namespace
}  // namespace ordelan::test
