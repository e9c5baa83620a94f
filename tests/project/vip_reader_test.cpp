#include "project/vip_reader.h"

#include <gmock/gmock.h>

#include <new>

#include "support/reader_bench.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kPath = "D:\\Mix\\tema.vip";

// A project: 96 bytes, a header text, `content`, the marker, and a path after it that must never
// be found.
std::string vip(const std::string& content, const std::string& header = "cabecera") {
  return std::string(96, 'x') + header + '\0' + content + "    LIST" + std::string(4, '\1') +
         "mdrl" + "Z:\\detras.wav" + std::string(40, '\0');
}

std::string path_field(const std::string& path) {
  return path + '\0';
}
std::string padded_field(const std::string& path) {
  return path + std::string(260 - path.size(), '\0');
}

struct VipReaderTest : ::testing::Test, ReaderBench {
  const std::vector<std::string>& decode(const std::string& file, const std::string& title = "",
                                         bool add = true) {
    files.contents[kPath] = file;
    list.clear();
    answer = reader.ExtraerNombres_Archivos(kPath, project::into(list), title, add);
    return list.rows();
  }
  bool answer = false;
};

TEST_F(VipReaderTest, paths_become_rows_in_the_order_of_the_file) {
  EXPECT_THAT(decode(vip(path_field("D:\\Mix\\a.wav") + path_field("D:\\Mix\\b.mp3"))),
              ElementsAre("D:\\Mix\\a.wav", "D:\\Mix\\b.mp3"));
  EXPECT_TRUE(answer);
  EXPECT_EQ(reader.TotalArchivosVip, 2u);
}

TEST_F(VipReaderTest, the_worked_example_gives_its_positions) {
  // Path at 300, NUL at 312, path at 313, marker at 2000.
  std::string file(1999, '\0');
  file.replace(96, 6, "cabeza");
  file.replace(299, 12, "D:\\Mix\\a.wav");
  file.replace(312, 12, "D:\\Mix\\b.mp3");
  file += std::string("LIST\0\0\0\0mdrl", 12) + "tail";
  EXPECT_THAT(decode(file), ElementsAre("D:\\Mix\\a.wav", "D:\\Mix\\b.mp3"));
  EXPECT_EQ(reader.PosInicioVip, 104);
  EXPECT_EQ(reader.PosFinalVip, 1995);
}

TEST_F(VipReaderTest, a_file_of_just_the_marker_holds_only_its_title) {
  EXPECT_THAT(decode(std::string(96, '\0') + std::string("LIST\0\0\0\0mdrl", 12), "1 --> x"),
              ElementsAre("1 --> x"));
  EXPECT_FALSE(answer);
}

TEST_F(VipReaderTest, a_marker_close_after_the_header_ends_the_scan_at_once) {
  const std::string file =
      std::string(96, '\0') + "h" + '\0' + "C:\\LIST" + std::string(4, '\0') + "mdrl.wav";
  EXPECT_THAT(decode(file), IsEmpty());
  EXPECT_FALSE(answer);
  EXPECT_LT(reader.PosFinalVip, reader.PosInicioVip);
}

TEST_F(VipReaderTest, a_marker_inside_eleven_bytes_of_another_L_is_missed) {
  const std::string content = path_field("D:\\a.wav");
  const std::string marker = std::string("LIST\0\0\0\0mdrl", 12) + std::string(20, '\0');
  const std::string start = std::string(96, '\0') + "h" + '\0' + content;
  EXPECT_THAT(decode(start + "L12345" + marker), IsEmpty());
  EXPECT_EQ(reader.PosFinalVip, 0);
  EXPECT_THAT(decode(start + "L1234567890" + marker), IsEmpty()) << "eleven after";
  EXPECT_THAT(decode(start + "L12345678901" + marker), ElementsAre("D:\\a.wav")) << "twelve after";
}

TEST_F(VipReaderTest, aiff_is_cut_to_aif_and_flac_keeps_its_c) {
  // The row of a .aiff names a missing file: the lost-file report shows it as such.
  EXPECT_THAT(decode(vip(path_field("D:\\x.aiff") + path_field("D:\\x.flac"))),
              ElementsAre("D:\\x.aif", "D:\\x.flac"));
}

TEST_F(VipReaderTest, fla_takes_its_fifth_character_whatever_it_is) {
  EXPECT_THAT(decode(vip(path_field("D:\\x.FLA_") + path_field("D:\\y.fla!more"))),
              ElementsAre("D:\\x.FLA_", "D:\\y.fla!"));
  EXPECT_THAT(decode(vip(path_field("D:\\x.fla"))), ElementsAre("D:\\x.fla"))
      << "a NUL as fifth character ends the row";
}

TEST_F(VipReaderTest, capitals_stay_as_they_stand_in_the_file) {
  EXPECT_THAT(decode(vip(path_field("D:\\MiX\\CanCI\xD3N.WaV"))),
              ElementsAre("D:\\MiX\\CanCI\xD3N.WaV"));
}

TEST_F(VipReaderTest, other_extensions_give_no_row) {
  EXPECT_THAT(decode(vip(padded_field("D:\\x.wma") + padded_field("D:\\y.m4a") +
                         padded_field("D:\\z.wav"))),
              ElementsAre("D:\\z.wav"));
}

TEST_F(VipReaderTest, a_single_NUL_after_an_unknown_extension_is_not_seen) {
  // The byte after the three of the extension is never looked at: the candidate runs on into the
  // next path, and its row is cut at the NUL when the list stores it.
  EXPECT_THAT(decode(vip(path_field("D:\\x.wma") + path_field("D:\\z.wav"))),
              ElementsAre("D:\\x.wma"));
}

TEST_F(VipReaderTest, a_question_is_answered_at_the_first_reference_and_adds_nothing) {
  EXPECT_THAT(decode(vip(path_field("D:\\a.wav")), "", false), IsEmpty());
  EXPECT_TRUE(answer);
  EXPECT_EQ(reader.TotalArchivosVip, 0u);
  EXPECT_THAT(decode(vip("nothing"), "", false), IsEmpty());
  EXPECT_FALSE(answer);
}

TEST_F(VipReaderTest, a_second_colon_and_backslash_inside_a_path_begin_nothing_new) {
  EXPECT_THAT(decode(vip(path_field("C:\\a:\\b.wav"))), ElementsAre("C:\\a:\\b.wav"));
}

TEST_F(VipReaderTest, a_reference_cut_off_by_the_limit_gives_no_row) {
  const std::string head = std::string(96, '\0') + "h" + '\0';
  const std::string marker("LIST\0\0\0\0mdrl", 12);
  EXPECT_THAT(decode(head + "C:\\abcdef.wav" + '\0' + marker), ElementsAre("C:\\abcdef.wav"))
      << "the dot is five before the marker";
  EXPECT_THAT(decode(head + "C:\\abcdef.wav" + marker), IsEmpty()) << "four before";
  EXPECT_THAT(decode(head + "C:\\abcdef" + marker + ".wav"), IsEmpty());
}

TEST_F(VipReaderTest, a_row_with_its_arrow_scans_from_where_the_last_header_ended) {
  decode(vip(path_field("D:\\a.wav"), "a long header, longer than the other one"));
  const auto kept = reader.PosInicioVip;
  files.contents["E:\\p.vip"] =
      vip(path_field("E:\\one.wav") + std::string(40, ' ') + path_field("E:\\two.wav"), "h");
  list.clear();
  EXPECT_TRUE(reader.ExtraerNombres_Archivos("7 --> E:\\p.vip", project::into(list), "", true));
  EXPECT_THAT(list.rows(), ElementsAre("E:\\two.wav"));
  EXPECT_EQ(reader.PosInicioVip, kept);
}

TEST_F(VipReaderTest, a_row_with_its_arrow_as_the_very_first_call_finds_nothing) {
  files.contents["E:\\p.vip"] = vip(path_field("E:\\one.wav"));
  EXPECT_FALSE(reader.ExtraerNombres_Archivos("7 --> E:\\p.vip", project::into(list), "t", true));
  EXPECT_THAT(list.rows(), ElementsAre("t"));
}

TEST_F(VipReaderTest, a_dot_in_the_three_bytes_before_the_extension_hides_it) {
  EXPECT_THAT(decode(vip(padded_field("C:\\a.b.wav") + padded_field("C:\\c.wav"))),
              ElementsAre("C:\\c.wav"));
}

TEST_F(VipReaderTest, a_reference_ends_at_its_first_extension_wherever_that_stands) {
  EXPECT_THAT(decode(vip(path_field("C:\\my.wave\\take.mp3") + path_field("C:\\take.wav.bak"))),
              ElementsAre("C:\\my.wav", "C:\\take.wav"));
}

TEST_F(VipReaderTest, the_byte_after_a_NUL_is_not_tested_as_a_colon) {
  EXPECT_THAT(decode(vip(path_field("C:\\a.wav") + ":\\zzzz.wav" + '\0')),
              ElementsAre("C:\\a.wav", "C:\\a.wav"))
      << "the colon stands at the top of a scan and begins at the previous start";
  EXPECT_THAT(decode(vip("C:\\a" + std::string(1, '\0') + ":\\zzzz.wav" + '\0')), IsEmpty())
      << "after a dropped candidate the byte after the NUL is skipped";
}

TEST_F(VipReaderTest, a_path_right_after_a_dropped_one_gives_the_dropped_one_its_row) {
  // The drive letter is the byte that is skipped, so that its colon stands at the top of the scan.
  EXPECT_THAT(decode(vip(path_field("C:\\folder") + path_field("C:\\a.wav"))),
              ElementsAre("C:\\folder"));
  EXPECT_THAT(decode(vip("C:\\folder" + std::string(2, '\0') + path_field("C:\\a.wav"))),
              ElementsAre("C:\\a.wav"));
}

TEST_F(VipReaderTest, two_colons_in_a_row_reach_back_to_the_previous_start) {
  EXPECT_THAT(decode(vip(path_field("C:\\a.wav") + "xx::yy.mp3" + '\0')),
              ElementsAre("C:\\a.wav", "C:\\a.wav"));
}

TEST_F(VipReaderTest, two_colons_with_no_start_before_them_end_the_scan) {
  EXPECT_THAT(decode(vip("xx::yy.mp3" + std::string(1, '\0') + path_field("C:\\a.wav"))),
              IsEmpty());
  EXPECT_FALSE(answer);
}

TEST_F(VipReaderTest, any_byte_passes_for_a_drive_letter) {
  EXPECT_THAT(decode(vip(path_field("?:\\a.wav"))), ElementsAre("?:\\a.wav"));
}

TEST_F(VipReaderTest, relative_and_network_paths_are_not_references) {
  EXPECT_THAT(decode(vip(path_field("..\\a.wav") + path_field("\\\\server\\b.wav"))), IsEmpty());
}

TEST_F(VipReaderTest, a_name_without_vip_is_refused_before_the_disk_is_asked) {
  files.contents["D:\\a.txt"] = vip(path_field("D:\\a.wav"));
  EXPECT_FALSE(reader.ExtraerNombres_Archivos("D:\\a.txt", project::into(list), "t", true));
  EXPECT_TRUE(list.empty());
}

TEST_F(VipReaderTest, vip_anywhere_in_any_case_makes_a_project) {
  files.contents["D:\\old.VIP.txt"] = vip(path_field("D:\\a.wav"));
  EXPECT_TRUE(reader.ExtraerNombres_Archivos("D:\\old.VIP.txt", project::into(list), "", true));
}

TEST_F(VipReaderTest, a_missing_or_empty_file_adds_no_title) {
  EXPECT_FALSE(reader.ExtraerNombres_Archivos(kPath, project::into(list), "t", true));
  EXPECT_TRUE(list.empty());
  EXPECT_THAT(decode("", "t"), IsEmpty());
}

TEST_F(VipReaderTest, a_file_without_a_marker_holds_only_its_title) {
  EXPECT_THAT(decode(std::string(200, 'x') + path_field("D:\\a.wav"), "t"), ElementsAre("t"));
  EXPECT_FALSE(answer);
}

TEST_F(VipReaderTest, a_locked_file_holds_only_its_title) {
  disk.faults.fail(FaultyFiles::Call::open, system::Reason::in_use);
  EXPECT_THAT(decode(vip(path_field("D:\\a.wav")), "t"), ElementsAre("t"));
  EXPECT_FALSE(answer);
}

TEST_F(VipReaderTest, a_locked_file_adds_nothing_in_pointer_mode_and_no_empty_title) {
  disk.faults.fail(FaultyFiles::Call::open, system::Reason::in_use);
  EXPECT_THAT(decode(vip(""), ""), IsEmpty());
  work.ModoPosiciones = true;
  EXPECT_THAT(decode(vip(""), "t"), IsEmpty());
}

TEST_F(VipReaderTest, reports_how_far_the_last_reading_got) {
  using project::Reading;
  const std::string audio = vip(path_field("D:\\a.wav"));
  // Each after another one, whose state must not stay.
  for (int i = 0; i < 2; ++i) {
    decode(audio);
    EXPECT_EQ(reader.last_reading(), Reading::whole);
    reader.ExtraerNombres_Archivos("D:\\notas.txt", project::into(list), "", true);
    EXPECT_EQ(reader.last_reading(), Reading::no_project);
    decode("");
    EXPECT_EQ(reader.last_reading(), Reading::whole) << "an empty file has been read to its end";
    reader.ExtraerNombres_Archivos("D:\\missing.vip", project::into(list), "", true);
    EXPECT_EQ(reader.last_reading(), Reading::no_project);
    disk.faults.fail(FaultyFiles::Call::open, system::Reason::in_use);
    decode(audio);
    EXPECT_EQ(reader.last_reading(), Reading::locked);
    disk.faults.heal();
    files.on_read = [](std::uint64_t) { return false; };
    decode(audio);
    EXPECT_EQ(reader.last_reading(), Reading::broken);
    files.on_read = nullptr;
    clock.step = std::chrono::milliseconds(10);
    for (const bool replaced : {false, true}) {
      backend.on_pump = [&] { replaced ? void(work.begin_job()) : void(work.Cancelar = true); };
      decode(vip(std::string(4'000'000, ' ')));
      EXPECT_EQ(reader.last_reading(), Reading::stopped) << replaced;
      work.Cancelar = false;
    }
    backend.on_pump = nullptr;
    clock.step = {};
  }
}

TEST_F(VipReaderTest, a_file_that_exhausts_the_memory_counts_as_one_that_cannot_be_read) {
  files.on_read = [](std::uint64_t) -> bool { throw std::bad_alloc(); };
  EXPECT_THAT(decode(vip(path_field("D:\\a.wav"))), IsEmpty());
  EXPECT_FALSE(answer);
  EXPECT_EQ(reader.last_reading(), project::Reading::broken);
  EXPECT_EQ(reader.LeerCabeceraVip(kPath), "");
}

TEST_F(VipReaderTest, files_of_96_and_97_bytes_and_without_a_NUL_give_nothing) {
  for (const std::string& file : {std::string(96, 'x'), std::string(97, 'x'), std::string(97, '\0'),
                                  std::string(5000, 'x')}) {
    EXPECT_THAT(decode(file), IsEmpty()) << file.size();
    EXPECT_EQ(reader.PosInicioVip, 0);
  }
}

TEST_F(VipReaderTest, the_header_text_ends_at_its_NUL) {
  files.contents[kPath] = vip("", "Canci\xF3n");
  EXPECT_EQ(reader.LeerCabeceraVip(kPath), "Canci\xF3n");
  EXPECT_EQ(reader.PosInicioVip, 105);
  EXPECT_EQ(reader.LeerCabeceraVip("D:\\none.vip"), "");
  EXPECT_EQ(reader.LeerCabeceraVip(""), "");
  EXPECT_EQ(reader.PosInicioVip, 105) << "kept when there is no file";
}

TEST_F(VipReaderTest, a_header_without_its_NUL_is_read_to_the_last_byte_but_one) {
  files.contents[kPath] = std::string(96, '\0') + "abcd";
  EXPECT_EQ(reader.LeerCabeceraVip(kPath), "abc");
  EXPECT_EQ(reader.PosInicioVip, 0);
}

TEST_F(VipReaderTest, the_marker_search_gives_five_before_the_marker) {
  files.contents[kPath] = std::string(200, '\0') + std::string("LIST\0\0\0\0mdrl", 12);
  EXPECT_EQ(reader.BuscarMarcaListas(kPath, 97), 201 - 5);
  EXPECT_EQ(reader.BuscarMarcaListas(kPath, 201), 201 - 5);
  EXPECT_EQ(reader.BuscarMarcaListas(kPath, 202), 0);
  EXPECT_EQ(reader.BuscarMarcaListas("D:\\none.vip", 97), 0);
}

TEST_F(VipReaderTest, a_failed_read_ends_the_scan_quietly) {
  files.on_read = [](std::uint64_t offset) { return offset < 200'000; };
  EXPECT_THAT(decode(vip(path_field("D:\\a.wav") + std::string(400'000, ' ')), "t"),
              ElementsAre("t"));
  EXPECT_FALSE(answer);
}

TEST_F(VipReaderTest, a_file_that_shrinks_while_it_is_read_ends_quietly) {
  files.on_read = [&](std::uint64_t offset) {
    if (offset > 0) files.contents[kPath].resize(1000);
    return true;
  };
  EXPECT_THAT(decode(vip(path_field("D:\\a.wav") + std::string(400'000, ' ')), "t"),
              ElementsAre("t"));
}

TEST_F(VipReaderTest, a_reference_across_two_blocks_is_whole) {
  const std::string filler(project::FileWindow::kBlock - 110, ' ');
  EXPECT_THAT(decode(vip(filler + path_field("D:\\Mix\\across the edge.wav"))),
              ElementsAre("D:\\Mix\\across the edge.wav"));
}

TEST_F(VipReaderTest, a_reference_longer_than_a_block_is_whole) {
  const std::string name = "D:\\" + std::string(300'000, 'a') + ".wav";
  EXPECT_THAT(decode(vip(path_field(name))), ElementsAre(name));
}

TEST_F(VipReaderTest, more_rows_than_may_wait_for_the_marker_are_all_read) {
  std::string content;
  for (int i = 0; i < 400'000; ++i) content += path_field("D:\\" + std::to_string(i) + ".wav");
  const auto& rows = decode(vip(content));
  ASSERT_EQ(rows.size(), 400'000u);
  EXPECT_EQ(rows.front(), "D:\\0.wav");
  EXPECT_EQ(rows[299'999], "D:\\299999.wav");
  EXPECT_EQ(rows.back(), "D:\\399999.wav");
  EXPECT_THAT(decode(vip(content), "", false), IsEmpty());
  EXPECT_TRUE(answer);
}

TEST_F(VipReaderTest, a_cancel_ends_the_reading_at_its_next_turn) {
  clock.step = std::chrono::milliseconds(10);
  int pumps = 0;
  backend.on_pump = [&] {
    ++pumps;
    work.Cancelar = true;
  };
  EXPECT_THAT(decode(vip(path_field("D:\\a.wav") + std::string(40'000'000, ' ')), "t"),
              ElementsAre("t"));
  EXPECT_FALSE(answer);
  EXPECT_EQ(pumps, 1);
}

TEST_F(VipReaderTest, a_cancel_before_the_marker_leaves_no_limit_of_the_reading_before) {
  decode(vip(path_field("D:\\a.wav")));
  ASSERT_GT(reader.PosFinalVip, 0);
  clock.step = std::chrono::milliseconds(10);
  backend.on_pump = [&] { work.Cancelar = true; };
  decode(vip(path_field("D:\\a.wav") + std::string(4'000'000, ' ')));
  EXPECT_EQ(reader.PosFinalVip, 0);
}

TEST_F(VipReaderTest, in_pointer_mode_the_bar_and_the_limit_run_to_the_last_byte_but_one) {
  work.ModoPosiciones = true;
  const std::string file = vip(path_field("D:\\a.wav"));
  decode(file);
  const auto limit = static_cast<project::Position>(file.size()) - 1;
  EXPECT_EQ(reader.PosFinalVip, limit);
  EXPECT_EQ(progress.maximum(), limit);
  EXPECT_GT(progress.value(), 97);
  EXPECT_LE(progress.value(), limit);
}

TEST_F(VipReaderTest, a_cancel_keeps_the_rows_read_after_the_marker_search) {
  std::string content;
  for (int i = 0; i < 400'000; ++i) content += path_field("D:\\" + std::to_string(i) + ".wav");
  clock.step = std::chrono::milliseconds(10);
  backend.on_pump = [&] { work.Cancelar = reader.PosFinalVip > 0; };
  const auto& rows = decode(vip(content));
  EXPECT_TRUE(answer);
  EXPECT_GT(rows.size(), 100'000u);
  EXPECT_LT(rows.size(), 400'000u);
}

TEST_F(VipReaderTest, a_newer_job_ends_the_reading_and_no_row_is_added) {
  clock.step = std::chrono::milliseconds(10);
  backend.on_pump = [&] { work.begin_job(); };
  EXPECT_THAT(decode(vip(path_field("D:\\a.wav") + std::string(4'000'000, ' ')), "t"), IsEmpty());
  EXPECT_FALSE(answer);
}

TEST_F(VipReaderTest, the_window_gets_its_turn_while_a_large_file_is_read) {
  clock.step = std::chrono::milliseconds(1);
  int pumps = 0;
  backend.on_pump = [&] { ++pumps; };
  decode(vip(std::string(40'000'000, ' ')));
  EXPECT_GE(pumps, 10);
}

TEST_F(VipReaderTest, the_bar_runs_to_the_limit) {
  decode(vip(path_field("D:\\a.wav") + path_field("D:\\b.wav")));
  EXPECT_EQ(progress.minimum(), 0);
  EXPECT_EQ(progress.maximum(), reader.PosFinalVip);
  EXPECT_GT(progress.value(), 0);
  EXPECT_LE(progress.value(), progress.maximum());
}

TEST_F(VipReaderTest, pointer_mode_logs_every_colon_and_backslash_and_answers_no) {
  work.ModoPosiciones = true;
  const std::string file = std::string(96, '\0') + "h" + '\0' + path_field("D:\\a.wav") + "x::\\y" +
                           "LIST0000mdrl" + path_field("E:\\after") + "end";
  EXPECT_THAT(decode(file, "title"), IsEmpty());
  EXPECT_FALSE(answer);
  EXPECT_EQ(files.contents["D:\\Mix\\tema_vip.log"], "99\r\n109\r\n125\r\n");
}

TEST_F(VipReaderTest, pointer_mode_empties_an_earlier_log) {
  work.ModoPosiciones = true;
  files.contents["D:\\Mix\\tema_vip.log"] = "100\r\n";
  decode(std::string(200, 'x'));
  EXPECT_EQ(files.contents["D:\\Mix\\tema_vip.log"], "");
}

TEST_F(VipReaderTest, a_question_in_pointer_mode_is_answered_no_and_leaves_a_log) {
  work.ModoPosiciones = true;
  decode(vip(path_field("D:\\a.wav")), "", false);
  EXPECT_FALSE(answer);
  EXPECT_EQ(files.contents.count("D:\\Mix\\tema_vip.log"), 1u);
}

TEST_F(VipReaderTest, pointer_mode_on_a_row_with_its_arrow_has_nowhere_to_log) {
  work.ModoPosiciones = true;
  files.contents["E:\\p.vip"] = vip(path_field("D:\\a.wav"));
  EXPECT_FALSE(reader.ExtraerNombres_Archivos("7 --> E:\\p.vip", project::into(list), "", true));
  EXPECT_TRUE(list.empty());
}

TEST_F(VipReaderTest, a_large_log_does_not_hold_its_lines_in_memory_and_is_complete) {
  work.ModoPosiciones = true;
  std::string content;
  for (int i = 0; i < 100'000; ++i) content += ":\\";
  decode(std::string(97, 'x') + content + "end");
  const std::string& log = files.contents["D:\\Mix\\tema_vip.log"];
  EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 100'000);
}

}  // namespace
}  // namespace ordelan::test
