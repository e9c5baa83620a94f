#include "settings/reports.h"

#include <gmock/gmock.h>

#include "headless/headless_backend.h"
#include "support/fake_services.h"
#include "support/faulty_files.h"
#include "support/memory_files.h"
#include "ui/list_box.h"
#include "ui/window.h"

namespace ordelan::test {
namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

struct Reports : ::testing::Test {
  bool save(const std::string& name) {
    return settings::SalvarListados(files, regional, name, list.rows(), "3 Archivos", "D:\\Mix\\");
  }

  // What stands above the rows.
  static std::string head() {
    return "Fecha: 21/11/2026    Hora: 9:05\r\n"
           " \r\n"
           "3 Archivos\r\n"
           "D:\\Mix\\\r\n"
           "------------------------------------------------------------------\r\n"
           " \r\n";
  }
  static std::string rule() { return std::string(66, '-') + "\r\n"; }

  HandClock clock;
  FixedRegional regional;
  MemoryFiles files;
  headless::HeadlessBackend backend{clock};
  ui::Window window{backend, "window"};
  ui::ListBox list{window, "list"};
};

TEST_F(Reports, an_empty_list_gives_the_six_lines_above_the_rows) {
  EXPECT_TRUE(save("D:\\a.log"));
  EXPECT_EQ(files.contents["D:\\a.log"], head());
}

TEST_F(Reports, rows_stand_one_a_line) {
  list.add("D:\\Mix\\a.wav");
  list.add("D:\\Mix\\canción.wav");
  list.add("");
  EXPECT_TRUE(save("D:\\a.log"));
  EXPECT_EQ(files.contents["D:\\a.log"],
            head() + "D:\\Mix\\a.wav\r\nD:\\Mix\\canci\xF3n.wav\r\n\r\n");
}

TEST_F(Reports, a_title_is_followed_by_a_blank_line_and_led_by_hyphens) {
  list.add("1 --> D:\\Mix\\tema.vip");
  list.add("D:\\Mix\\a.wav");
  list.add("D:\\Mix\\b.wav");
  list.add("2 --> D:\\Mix\\otro.vip");
  list.add("D:\\Mix\\c.wav");
  EXPECT_TRUE(save("D:\\a.log"));
  EXPECT_EQ(files.contents["D:\\a.log"], head() +
                                             "1 --> D:\\Mix\\tema.vip\r\n \r\n"
                                             "D:\\Mix\\a.wav\r\n"
                                             "D:\\Mix\\b.wav\r\n" +
                                             rule() +
                                             "2 --> D:\\Mix\\otro.vip\r\n \r\n"
                                             "D:\\Mix\\c.wav\r\n");
}

TEST_F(Reports, a_title_without_files_has_the_hyphens_before_its_blank_line) {
  list.add("1 --> D:\\Mix\\tema.vip");
  list.add("2 --> D:\\Mix\\otro.vip");
  EXPECT_TRUE(save("D:\\a.log"));
  EXPECT_EQ(files.contents["D:\\a.log"], head() + "1 --> D:\\Mix\\tema.vip\r\n" + rule() +
                                             " \r\n2 --> D:\\Mix\\otro.vip\r\n \r\n");
}

TEST_F(Reports, saving_again_replaces_the_old_report) {
  files.contents["D:\\a.log"] = std::string(5000, 'x');
  list.add("D:\\Mix\\a.wav");
  EXPECT_TRUE(save("D:\\a.log"));
  EXPECT_TRUE(save("D:\\a.log"));
  EXPECT_EQ(files.contents["D:\\a.log"], head() + "D:\\Mix\\a.wav\r\n");
  EXPECT_THAT(files.contents, SizeIs(1)) << "no draft is left";
}

TEST_F(Reports, date_and_time_stand_as_the_system_writes_them_at_each_save) {
  struct Changing final : system::Regional {
    std::string date, time;
    char decimal_mark() override { return '.'; }
    std::string short_date() override { return date; }
    std::string short_time() override { return time; }
    std::string long_time() override { return time + ":07"; }
    std::string date_and_time(double) override { return date + " " + time; }
  } american;
  for (const auto& [date, time] : {std::pair{"11/21/2026", "9:05 AM"}, {"2026-11-22", "21.05"}}) {
    american.date = date;
    american.time = time;
    EXPECT_TRUE(settings::SalvarListados(files, american, "D:\\a.log", list.rows(), "", ""));
    const std::string& report = files.contents["D:\\a.log"];
    EXPECT_EQ(report.substr(0, report.find("\r\n")),
              std::string("Fecha: ") + date + "    Hora: " + time);
  }
}

TEST_F(Reports, a_report_without_a_name_is_not_written) {
  list.add("D:\\Mix\\a.wav");
  EXPECT_FALSE(save(""));
  EXPECT_THAT(files.contents, IsEmpty());
}

TEST_F(Reports, one_that_cannot_be_written_leaves_no_file) {
  EXPECT_FALSE(save("D:\\Falta>\\a.log"));
  EXPECT_THAT(files.contents, IsEmpty());
}

TEST_F(Reports, a_failed_save_is_reported_and_leaves_the_old_report) {
  list.add("D:\\Mix\\a.wav");
  files.contents["D:\\a.log"] = "old";
  FaultyFiles failing(files);
  using Call = FaultyFiles::Call;
  for (const Call call : {Call::create_new, Call::write, Call::flush, Call::close, Call::replace}) {
    failing.faults.heal();
    failing.faults.fail(call);
    EXPECT_FALSE(settings::SalvarListados(failing, regional, "D:\\a.log", list.rows(), "1", "2"));
    EXPECT_FALSE(settings::SalvarLog(failing, "D:\\a.log", list.rows()));
    EXPECT_EQ(files.contents["D:\\a.log"], "old");
    EXPECT_THAT(files.contents, SizeIs(1)) << "no temporary file is left";
  }
}

TEST_F(Reports, a_name_with_several_dots_stays_whole) {
  EXPECT_TRUE(save("D:\\Archivos de tema.v2.final.vip.log"));
  EXPECT_TRUE(files.contents.contains("D:\\Archivos de tema.v2.final.vip.log"));
}

TEST_F(Reports, a_plain_log_saved_twice_is_the_same) {
  list.add("D:\\Mix\\a.wav");
  for (int i = 0; i < 2; ++i) EXPECT_TRUE(settings::SalvarLog(files, "D:\\a.log", list.rows()));
  EXPECT_EQ(files.contents["D:\\a.log"], "D:\\Mix\\a.wav\r\n");
  EXPECT_THAT(files.contents, SizeIs(1));
}

TEST_F(Reports, a_plain_log_has_the_rows_and_nothing_else) {
  list.add("1 --> D:\\Mix\\tema.vip");
  list.add("D:\\Mix\\a.wav");
  EXPECT_TRUE(settings::SalvarLog(files, "D:\\a.log", list.rows()));
  EXPECT_EQ(files.contents["D:\\a.log"], "1 --> D:\\Mix\\tema.vip\r\nD:\\Mix\\a.wav\r\n");
  EXPECT_FALSE(settings::SalvarLog(files, "", list.rows()));
  EXPECT_THAT(files.contents, SizeIs(1));
}

}  // namespace
}  // namespace ordelan::test
