// Check boxes and the places of windows, from one run of the program to the next.
#include "work/stored_state.h"

#include <gtest/gtest.h>

#include <string>

#include "settings/settings.h"
#include "support/reader_bench.h"
#include "ui/check_box.h"

namespace ordelan::test {
namespace {

constexpr const char* kStoredFile = "C:\\Config.ini";

struct StoredState : ::testing::Test, ReaderBench {
  settings::Settings store{files, regional, kStoredFile};
  ui::CheckBox box{window, "box"};
};

TEST_F(StoredState, a_box_is_kept_under_its_caption) {
  box.set_caption("Borrar lista 4 \"Archivos no utilizados\"");
  box.set_checked(true);
  work::write_box(store, box);
  EXPECT_EQ(files.contents[kStoredFile],
            "[Settings]\r\nBorrar lista 4 \"Archivos no utilizados\"=1\r\n");
  box.set_checked(false);
  work::read_box(store, box);
  EXPECT_TRUE(box.checked());
}

TEST_F(StoredState, a_box_without_a_key_stays_as_designed) {
  box.set_caption("Auto Play");
  for (const bool designed : {false, true}) {
    box.set_checked(designed);
    work::read_box(store, box);
    EXPECT_EQ(box.checked(), designed);
  }
}

TEST_F(StoredState, values_that_no_box_has_leave_it_as_designed) {
  box.set_caption("Auto Play");
  for (const char* value : {"2", "-1", "0,5", "10", "abc", "", "True", "1x"}) {
    files.contents[kStoredFile] = std::string("[Settings]\r\nAuto Play=") + value + "\r\n";
    for (const bool designed : {false, true}) {
      box.set_checked(designed);
      work::read_box(store, box);
      EXPECT_EQ(box.checked(), designed) << value;
    }
  }
  for (const bool stored : {false, true}) {
    files.contents[kStoredFile] =
        std::string("[Settings]\r\nAuto Play=") + (stored ? "1" : "0") + "\r\n";
    box.set_checked(!stored);
    work::read_box(store, box);
    EXPECT_EQ(box.checked(), stored);
  }
}

TEST_F(StoredState, a_caption_with_blanks_at_its_end_is_a_key_as_it_stands) {
  box.set_caption("Unidad: ");
  for (const bool ticked : {true, false, true}) {
    box.set_checked(ticked);
    work::write_box(store, box);
    EXPECT_EQ(files.contents[kStoredFile],
              std::string("[Settings]\r\nUnidad: =") + (ticked ? "1" : "0") + "\r\n");
    box.set_checked(!ticked);
    work::read_box(store, box);
    EXPECT_EQ(box.checked(), ticked);
  }
}

TEST_F(StoredState, a_volume_label_with_an_equals_sign_keeps_to_its_one_line) {
  box.set_caption("Unidad: D:\\a=b");
  for (const bool ticked : {true, false, true}) {
    box.set_checked(ticked);
    work::write_box(store, box);
    EXPECT_EQ(files.contents[kStoredFile],
              std::string("[Settings]\r\nUnidad: D:\\a=b=") + (ticked ? "1" : "0") + "\r\n");
    box.set_checked(!ticked);
    work::read_box(store, box);
    EXPECT_EQ(box.checked(), ticked);
  }
}

TEST_F(StoredState, a_window_is_placed_where_it_was) {
  window.set_position({120, 45});
  work::write_place(store, window, "Me");
  window.set_position({0, 0});
  work::read_place(store, window, "Me", {1, 1});
  EXPECT_EQ(window.position(), (ui::Point{120, 45}));
  work::read_place(store, window, "Zoom", {7, 8});
  EXPECT_EQ(window.position(), (ui::Point{7, 8}));
}

TEST_F(StoredState, places_beyond_all_measure_do_no_harm) {
  files.contents[kStoredFile] = "[Settings]\r\nMe_Left=1e300\r\nMe_Top=-99999999999999\r\n";
  work::read_place(store, window, "Me", {0, 0});
  EXPECT_EQ(window.position(), (ui::Point{1'000'000, -1'000'000}));
}

TEST_F(StoredState, a_size_is_kept_within_the_smallest_and_what_any_screen_has) {
  window.set_resizable({300, 200});
  window.set_size({640, 480});
  work::write_size(store, window, "Me");
  EXPECT_EQ(files.contents[kStoredFile], "[Settings]\r\nMe_Width=640\r\nMe_Height=480\r\n");
  window.set_size({310, 210});
  work::read_size(store, window, "Me");
  EXPECT_EQ(window.size(), (ui::Size{640, 480}));
  work::read_size(store, window, "Zoom");
  EXPECT_EQ(window.size(), (ui::Size{640, 480})) << "its own, where none is stored";
  files.contents[kStoredFile] = "[Settings]\r\nMe_Width=299\r\nMe_Height=16385\r\n";
  work::read_size(store, window, "Me");
  EXPECT_EQ(window.size(), (ui::Size{300, 16384}));
}

TEST_F(StoredState, settings_that_are_read_only_are_read_and_never_written) {
  files.contents[kStoredFile] = "[Settings]\r\nAuto Play=1\r\nMe_Left=7\r\n";
  const auto before = files.contents;
  store.set_read_only();
  box.set_caption("Auto Play");
  work::write_box(store, box);
  work::write_place(store, window, "Me");
  EXPECT_EQ(files.contents, before);
  work::read_box(store, box);
  EXPECT_TRUE(box.checked());
  work::read_place(store, window, "Me", {1, 2});
  EXPECT_EQ(window.position(), (ui::Point{7, 2}));
}

TEST_F(StoredState, without_a_file_everything_stays_as_designed_and_reading_makes_none) {
  window.set_position({5, 6});
  work::read_place(store, window, "Me", {0, 0});
  EXPECT_EQ(window.position(), (ui::Point{0, 0}));
  for (const bool designed : {false, true}) {
    box.set_checked(designed);
    work::read_box(store, box);
    EXPECT_EQ(box.checked(), designed);
  }
  EXPECT_TRUE(files.contents.empty());
}

}  // namespace
}  // namespace ordelan::test
