// Bins that are no help and room for the copies: what is worked out, shown and asked.
#include "removal/run_totals.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>

#include "support/memory_files.h"
#include "support/removal_bench.h"

namespace ordelan::test {
namespace {

using removal::DriveWithoutBin;
using removal::RunSizes;
using removal::RunTotals;
using system::Answer;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

using Rows = std::vector<std::string>;

// Files of given sizes on drives, each of which is a volume, or one that others are too.
struct Volumes : NoFiles {
  std::map<std::string, std::uint64_t, std::less<>> sizes;
  std::map<char, std::uint64_t> volumes;
  int looks = 0;

  std::optional<system::FileInfo> info(std::string_view path) override {
    ++looks;
    const auto found = sizes.find(path);
    if (found == sizes.end()) return std::nullopt;
    system::FileInfo info;
    info.size = found->second;
    return info;
  }
  std::optional<system::FileIdentity> identity(std::string_view path) override {
    const auto found = volumes.find(path[0]);
    if (found == volumes.end()) return std::nullopt;
    return system::FileIdentity{found->second, 1, 0};
  }
};

struct RunTotalsTest : ::testing::Test, Computer {
  RunTotalsTest() {
    files.volumes = {{'D', 1}, {'E', 2}, {'S', 1}};
    files.sizes = {{"D:\\a.wav", 100}, {"D:\\b.wav", 40}, {"E:\\c.wav", 300}, {"E:\\d.wav", 7}};
    for (const auto& [path, size] : files.sizes) rows.push_back(path);
  }
  RunTotals totals(bool to_bin, const std::string& backup = "", const Rows& kept = {}) {
    return RunSizes(work, machine)
        .totals(
            rows,
            [&](std::size_t i) {
              return std::find(kept.begin(), kept.end(), rows[i]) == kept.end();
            },
            to_bin, backup);
  }
  // The rows as a decode has listed them.
  void list() {
    work.FilasVistas = std::make_shared<const Rows>(rows);
    for (const std::string& row : rows) work.VistosBorrar.push_back({files.sizes.at(row), 1});
  }

  Volumes files;
  work::WorkInHand work;
  system::Platform machine{files, dialogs, backend, clock, regional, drives, shell, media};
  Rows rows;
};

TEST_F(RunTotalsTest, what_is_ticked_goes_and_all_is_copied) {
  const RunTotals all = totals(true, "", {"D:\\a.wav"});
  EXPECT_EQ(all.ticked, 347u);
  EXPECT_EQ(all.copied, 447u);
  EXPECT_THAT(all.no_bin, IsEmpty());
}

TEST_F(RunTotalsTest, sizes_are_those_of_the_listing_and_others_are_asked_of_the_disk) {
  list();
  files.sizes["D:\\a.wav"] = 5000;
  files.sizes["D:\\otro.wav"] = 3;
  rows.erase(rows.begin() + 1);
  rows.push_back("D:\\otro.wav");
  EXPECT_EQ(totals(true).ticked, 100u + 300 + 7 + 3);
  EXPECT_EQ(files.looks, 1);
}

TEST_F(RunTotalsTest, rows_in_any_order_have_their_own_sizes) {
  rows.clear();
  for (int i = 0; i < 100; ++i) {
    rows.push_back("D:\\" + std::to_string(i) + ".wav");
    files.sizes[rows.back()] = static_cast<std::uint64_t>(i);
  }
  list();
  files.sizes.clear();
  for (const Rows& some : {Rows{"D:\\99.wav", "D:\\3.wav", "D:\\50.wav"},
                           Rows{"D:\\50.wav", "D:\\99.wav", "D:\\3.wav"}}) {
    rows = some;
    EXPECT_EQ(totals(true).ticked, 99u + 3 + 50);
  }
  EXPECT_EQ(files.looks, 0);
}

TEST_F(RunTotalsTest, files_that_are_missing_take_nothing_and_need_no_bin) {
  shell.without_bin = {"D:\\"};
  list();
  work.VistosBorrar[0].size = work::Visto::kMissing;
  rows.emplace_back("D:\\nunca.wav");
  const RunTotals all = totals(true);
  EXPECT_EQ(all.copied, 347u);
  EXPECT_THAT(all.no_bin, ElementsAre(DriveWithoutBin{"D:\\", 1, 0}));
}

TEST_F(RunTotalsTest, drives_without_a_bin_are_counted_each_by_itself) {
  shell.without_bin = {"D:\\", "E:\\"};
  EXPECT_THAT(totals(true).no_bin,
              ElementsAre(DriveWithoutBin{"D:\\", 2, 0}, DriveWithoutBin{"E:\\", 2, 0}));
  EXPECT_THAT(totals(true, "", {"D:\\a.wav", "D:\\b.wav", "E:\\c.wav"}).no_bin,
              ElementsAre(DriveWithoutBin{"E:\\", 1, 0}))
      << "rows that stay are not concerned";
  EXPECT_THAT(totals(false).no_bin, IsEmpty());
}

TEST_F(RunTotalsTest, rows_of_drives_may_alternate) {
  shell.without_bin = {"E:\\"};
  rows = {"D:\\a.wav", "E:\\c.wav", "D:\\b.wav", "E:\\d.wav"};
  EXPECT_THAT(totals(true).no_bin, ElementsAre(DriveWithoutBin{"E:\\", 2, 0}));
}

TEST_F(RunTotalsTest, a_file_as_large_as_the_bin_goes_there_and_a_larger_one_does_not) {
  shell.largest_in_bin = 100;
  EXPECT_THAT(totals(true).no_bin, ElementsAre(DriveWithoutBin{"E:\\", 0, 1}));
  shell.largest_in_bin = 99;
  EXPECT_THAT(totals(true).no_bin,
              ElementsAre(DriveWithoutBin{"D:\\", 0, 1}, DriveWithoutBin{"E:\\", 0, 1}));
}

TEST_F(RunTotalsTest, what_goes_for_good_makes_room_on_the_volume_of_the_copies) {
  // 100, then 40, then 300, then 7 bytes.
  EXPECT_EQ(totals(true, "D:\\Copias").room, 447u) << "the bin is on the drive too";
  EXPECT_EQ(totals(false, "D:\\Copias").room, 307u);
  EXPECT_EQ(totals(false, "E:\\Copias").room, 440u);
  EXPECT_EQ(totals(false, "S:\\Copias").room, 307u) << "a substituted drive is the same volume";
  EXPECT_EQ(totals(false, "X:\\Copias").room, 447u) << "nothing is known of the drive";
  EXPECT_EQ(totals(false, "D:\\Copias", {"D:\\a.wav"}).room, 407u) << "a row that stays is copied";
}

TEST_F(RunTotalsTest, a_drive_is_described_in_one_sentence_for_each_reason) {
  EXPECT_EQ(removal::sentence({"E:\\", 1, 0}),
            "En E: no hay papelera: 1 archivo se borraría para siempre");
  EXPECT_EQ(removal::sentence({"E:\\", 3, 0}),
            "En E: no hay papelera: 3 archivos se borrarían para siempre");
  EXPECT_EQ(removal::sentence({"E:\\", 0, 2}),
            "En E: la papelera es pequeña: 2 archivos se borrarían para siempre");
  EXPECT_EQ(removal::sentence({"\\\\servidor\\audio\\", 2, 0}),
            "En \\\\servidor\\audio no hay papelera: 2 archivos se borrarían para siempre");
}

TEST_F(RunTotalsTest, the_line_about_the_room_says_what_is_known) {
  RunTotals some;
  some.copied = 3072;
  some.room = 2048;
  EXPECT_EQ(removal::room_line(machine, some, ""), "Copia: 3,00 KB");
  EXPECT_EQ(removal::room_line(machine, some, "E:\\Copias"), "Copia: 3,00 KB")
      << "nothing is known of the drive";
  drives.add("E:\\").space = {4096, 2048};
  EXPECT_EQ(removal::room_line(machine, some, "E:\\Copias"),
            "Copia: 3,00 KB     Libre en E:\\: 2,00 KB");
  drives.add("E:\\").space = {4096, 2047};
  EXPECT_THAT(removal::room_line(machine, some, "E:\\Copias"), HasSubstr("     No cabe"));
}

// --- runs

struct Bins : ::testing::Test, RemovalBench {
  // Each unused file has 18 bytes.
  void open_unused() {
    open_studio({"Mix\\a.wav", "Mix\\b.wav"});
    review().CheckBorrarPapelera.set_checked(true);
  }
  std::string root() const { return disk.path("").substr(0, 3); }
  void without_bin() { shell.without_bin.insert(root()); }
  std::string label() {
    review().show_totals();
    return review().LabelPapelera.visible() ? review().LabelPapelera.caption() : "";
  }
};

TEST_F(Bins, the_review_names_drives_without_one_as_the_boxes_change) {
  without_bin();
  open_unused();
  const std::string said = "En " + root().substr(0, 2) + " no hay papelera: ";
  EXPECT_EQ(label(), said + "2 archivos se borrarían para siempre");
  review().ListStatus.toggle(0);
  EXPECT_EQ(review().LabelPapelera.caption(), said + "1 archivo se borraría para siempre");
  review().ListStatus.toggle(1);
  EXPECT_FALSE(review().LabelPapelera.visible());
  review().ListStatus.toggle(1);
  EXPECT_TRUE(review().LabelPapelera.visible());
  review().CheckBorrarPapelera.set_checked(false);
  review().CheckBorrarPapelera.on_click();
  EXPECT_FALSE(review().LabelPapelera.visible());
}

TEST_F(Bins, no_is_the_careful_answer_and_the_rows_stay_without_a_mark) {
  without_bin();
  open_unused();
  remove();
  ASSERT_EQ(dialogs.messages.size(), 1u);
  const system::Message& asked = dialogs.messages[0];
  EXPECT_EQ(asked.title, "Papelera de reciclaje");
  EXPECT_EQ(asked.text, "En " + root().substr(0, 2) +
                            " no hay papelera: 2 archivos se borrarían para siempre\r\n\r\n"
                            "¿Borrarlos para siempre? Si no, se conservan.");
  EXPECT_EQ(asked.buttons, system::Buttons::yes_no);
  EXPECT_EQ(asked.icon, system::Icon::exclamation);
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_TRUE(there("Mix\\b.wav"));
  EXPECT_EQ(reason("Mix\\a.wav"), "su unidad no tiene papelera");
  EXPECT_THAT(review().ListBorrar.rows(),
              ElementsAre(disk.path("Mix\\a.wav"), disk.path("Mix\\b.wav")));
  EXPECT_EQ(options().LabelResultado.caption(), "0 de 2 borrados");
  EXPECT_FALSE(review().LabelPapelera.visible()) << "the run is over";
  EXPECT_EQ(review().LabelEspacio.caption(), "");
}

TEST_F(Bins, after_a_yes_they_go_for_good) {
  without_bin();
  open_unused();
  dialogs.answers.push_back(Answer::yes);
  remove();
  EXPECT_FALSE(there("Mix\\a.wav"));
  EXPECT_FALSE(there("Mix\\b.wav"));
  EXPECT_THAT(shell.bin, IsEmpty());
  EXPECT_EQ(options().LabelResultado.caption(), "2 de 2 borrados");
}

TEST_F(Bins, a_file_larger_than_the_bin_goes_for_good_only_after_a_yes_and_others_to_the_bin) {
  for (const bool yes : {false, true}) {
    struct World : Bins {
      void TestBody() override {}
    } world;
    world.shell.largest_in_bin = 18;
    world.open_studio({"Mix\\a.wav", "Mix\\largo.wav"});
    world.review().CheckBorrarPapelera.set_checked(true);
    EXPECT_EQ(world.label(), "En " + world.root().substr(0, 2) +
                                 " la papelera es pequeña: 1 archivo se borraría para siempre");
    if (yes) world.dialogs.answers.push_back(Answer::yes);
    world.remove();
    EXPECT_EQ(world.dialogs.messages.size(), 1u);
    EXPECT_TRUE(world.shell.bin.contains(world.disk.path("Mix\\a.wav")));
    EXPECT_FALSE(world.shell.bin.contains(world.disk.path("Mix\\largo.wav")));
    EXPECT_EQ(world.there("Mix\\largo.wav"), !yes);
    EXPECT_EQ(world.reason("Mix\\largo.wav"), yes ? "" : "no cabe en la papelera");
  }
}

TEST_F(Bins, nothing_is_asked_where_no_ticked_row_is_concerned) {
  without_bin();
  open_unused();
  untick("Mix\\a.wav");
  untick("Mix\\b.wav");
  remove();
  EXPECT_THAT(dialogs.messages, IsEmpty());
}

TEST_F(Bins, nothing_is_asked_of_rows_that_stay_anyway) {
  without_bin();
  open_unused();
  project("Mix\\Sub\\otro.vip", {"Mix\\a.wav", "Mix\\b.wav"});
  remove();
  EXPECT_THAT(dialogs.messages, IsEmpty());
  EXPECT_THAT(reason("Mix\\a.wav"), StartsWith("lo nombra "));
}

TEST_F(Bins, nothing_is_asked_where_files_go_for_good_anyway_or_all_go_to_the_bin) {
  open_unused();
  remove();
  EXPECT_THAT(shell.bin, testing::SizeIs(2));
  EXPECT_THAT(dialogs.messages, IsEmpty());
  struct World : Bins {
    void TestBody() override {}
  } world;
  world.without_bin();
  world.open_studio({"Mix\\a.wav"});
  world.remove();
  EXPECT_FALSE(world.there("Mix\\a.wav"));
  EXPECT_THAT(world.dialogs.messages, IsEmpty());
}

TEST_F(Bins, without_the_careful_look_nothing_is_asked_and_such_files_stay) {
  without_bin();
  open_unused();
  unchecked();
  remove();
  EXPECT_THAT(dialogs.messages, IsEmpty());
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_EQ(reason("Mix\\a.wav"), "la unidad no tiene papelera");
}

struct Room : Bins {
  void free_bytes(std::uint64_t bytes) { drives.add(root()).space = {1000, bytes}; }
  std::vector<std::string> names_in(const std::string& folder) {
    std::vector<std::string> names;
    const auto entries = disk.files().list(disk.path(folder + "\\"), system::Detail::names);
    for (const auto& entry : entries.value_or(std::vector<system::FileInfo>()))
      names.push_back(entry.name);
    return names;
  }
};

TEST_F(Room, the_review_says_what_is_ticked_copied_and_free) {
  open_unused();
  review().show_totals();
  EXPECT_EQ(review().LabelEspacio.caption(), "Activados: 36,00 bytes");
  options().CheckBackup.set_checked(true);
  options().CheckBackup.on_click();
  EXPECT_EQ(review().LabelEspacio.caption(), "Activados: 36,00 bytes     Copia: 36,00 bytes");
  review().ListStatus.toggle(0);
  EXPECT_EQ(review().LabelEspacio.caption(), "Activados: 18,00 bytes     Copia: 36,00 bytes")
      << "unticked rows are copied too";
}

TEST_F(Room, the_window_of_the_folder_says_whether_the_copies_fit) {
  open_unused();
  set(true, true, false);
  disk.make_folder("Copias");
  free_bytes(36);
  dialogs.folders.push_back(disk.path("Copias"));
  review().cmdHecho_Click();
  EXPECT_TRUE(folder_window().LabelEspacio.visible());
  const std::string fits = "Copia: 36,00 bytes     Libre en " + root() + ": 36,00 bytes";
  EXPECT_EQ(folder_window().LabelEspacio.caption(), fits);
  EXPECT_EQ(review().LabelEspacio.caption(), "Activados: 36,00 bytes     " + fits);
  free_bytes(35);
  dialogs.folders.push_back(disk.path("Copias"));
  folder_window().CarpetaNew.on_click();
  EXPECT_EQ(folder_window().LabelEspacio.caption(),
            "Copia: 36,00 bytes     Libre en " + root() + ": 35,00 bytes     No cabe");
  folder_window().CarpetaNew.on_click();
  EXPECT_FALSE(folder_window().LabelEspacio.visible()) << "no folder was chosen";
}

TEST_F(Room, copies_that_do_not_fit_are_asked_about_and_no_changes_nothing) {
  open_unused();
  free_bytes(35);
  remove_with_backup("Copias");
  ASSERT_EQ(dialogs.messages.size(), 1u);
  EXPECT_EQ(dialogs.messages[0].title, "Copia de seguridad");
  EXPECT_EQ(dialogs.messages[0].text, "Copia: 36,00 bytes     Libre en " + root() +
                                          ": 35,00 bytes     No cabe\r\n\r\n"
                                          "¿Empezar de todos modos? Lo que no quepa se conserva.");
  EXPECT_EQ(dialogs.messages[0].buttons, system::Buttons::yes_no);
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_TRUE(there("Mix\\b.wav"));
  EXPECT_THAT(names_in("Copias"), IsEmpty()) << "no log, no copy";
  EXPECT_EQ(options().LabelResultado.caption(),
            "No se ha borrado nada. La copia no cabe en " + disk.path("Copias"));
  EXPECT_THAT(review().ListBorrar.rows(),
              ElementsAre(disk.path("Mix\\a.wav"), disk.path("Mix\\b.wav")));
  EXPECT_TRUE(review().cmdHecho.visible());
  EXPECT_TRUE(options().cmdBorrar.visible());
  EXPECT_FALSE(options().cmdParar.visible());
  EXPECT_NE(windows.find<removal::CarpetaBack>(), nullptr) << "another folder can be chosen";
  EXPECT_FALSE(work.Borrando);
}

TEST_F(Room, after_a_no_another_folder_will_do) {
  open_unused();
  free_bytes(35);
  remove_with_backup("Copias");
  free_bytes(36);
  folder_window().cmdCarpetaBorrar_Click();
  EXPECT_EQ(dialogs.messages.size(), 1u);
  EXPECT_FALSE(there("Mix\\a.wav"));
  EXPECT_EQ(options().LabelResultado.caption(), "2 de 2 borrados");
}

TEST_F(Room, after_a_yes_the_run_goes_on_and_what_does_not_fit_stays) {
  open_unused();
  free_bytes(20);
  faulty.faults.fail({.call = FaultyFiles::Call::flush_file, .path = disk.path("Copias\\b.wav")},
                     system::Reason::no_space);
  dialogs.answers.push_back(Answer::yes);
  remove_with_backup("Copias");
  EXPECT_FALSE(there("Mix\\a.wav"));
  EXPECT_TRUE(there("Mix\\b.wav"));
  EXPECT_EQ(reason("Mix\\b.wav"), "no tiene copia: no hay sitio en el disco");
}

TEST_F(Room, files_that_go_for_good_make_room_on_the_drive_of_the_copies) {
  open_unused();
  review().CheckBorrarPapelera.set_checked(false);
  free_bytes(18);
  remove_with_backup("Copias");
  EXPECT_THAT(dialogs.messages, IsEmpty());
  EXPECT_FALSE(there("Mix\\a.wav"));
  EXPECT_FALSE(there("Mix\\b.wav"));
}

TEST_F(Room, nothing_is_asked_where_no_room_is_known_or_needed) {
  open_unused();
  drives.drives.clear();
  remove_with_backup("Copias");
  EXPECT_THAT(dialogs.messages, IsEmpty());
  EXPECT_FALSE(there("Mix\\a.wav"));
  struct World : Room {
    void TestBody() override {}
  } world;
  world.open_unused();
  world.free_bytes(0);
  world.remove();
  EXPECT_THAT(world.dialogs.messages, IsEmpty()) << "nothing is copied";
}

TEST_F(Room, the_room_is_asked_about_before_the_bins) {
  without_bin();
  open_unused();
  free_bytes(35);
  dialogs.answers = {Answer::yes};
  remove_with_backup("Copias");
  ASSERT_EQ(dialogs.messages.size(), 2u);
  EXPECT_EQ(dialogs.messages[0].title, "Copia de seguridad");
  EXPECT_EQ(dialogs.messages[1].title, "Papelera de reciclaje");
  EXPECT_TRUE(there("Mix\\a.wav"));
}

}  // namespace
}  // namespace ordelan::test
