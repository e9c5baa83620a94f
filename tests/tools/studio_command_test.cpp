#include "tools/studio_command.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "tests/tools/scratch_folder.h"

namespace ordelan::studio {
namespace {

using ::testing::HasSubstr;

struct Outcome {
  int code = -1;
  std::string out;
  std::string err;
};

Outcome run(std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), "ordelan-studio");
  std::vector<const char*> texts;
  for (const std::string& argument : arguments) texts.push_back(argument.c_str());
  std::ostringstream out;
  std::ostringstream err;
  const int code = run_studio_command(static_cast<int>(texts.size()), texts.data(), out, err);
  return {code, out.str(), err.str()};
}

TEST(StudioCommand, makes_the_demo_and_prints_what_it_holds) {
  const ScratchFolder scratch;
  const Outcome outcome =
      run({(scratch / "estudio").string(), "--muestras", shared_cache().string()});
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_THAT(outcome.out, HasSubstr("(D:\\)"));
  EXPECT_THAT(outcome.out, HasSubstr("proyectos:   6"));
  EXPECT_EQ(outcome.err, "");
  EXPECT_TRUE(std::filesystem::exists(scratch / "estudio/Mix/tema.vip"));
}

TEST(StudioCommand, hands_all_numbers_and_drives_on) {
  const ScratchFolder scratch;
  const Outcome outcome =
      run({(scratch / "estudio").string(), "--seed", "9", "--proyectos", "1", "--referencias", "25",
           "--archivos", "70", "--bytes-por-proyecto", "65536", "--unidad", "g:", "--unidad2",
           "H=" + (scratch / "otra").string(), "--muestras", shared_cache().string()});
  ASSERT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_THAT(outcome.out, HasSubstr("(G:\\)"));
  EXPECT_THAT(outcome.out, HasSubstr("referencias: 25"));
  EXPECT_THAT(outcome.out, HasSubstr("archivos:    70"));
  EXPECT_TRUE(std::filesystem::exists(scratch / "otra/.ordelan-studio"));
  std::size_t projects = 0;
  for (const auto& [name, bytes] : tree_of(scratch / "estudio")) {
    if (!name.ends_with(".vip")) continue;
    ++projects;
    EXPECT_EQ(bytes.size(), 65536u);
    EXPECT_NE(bytes.find("G:\\Mix\\"), bytes.npos);
    EXPECT_EQ(bytes.find("D:\\"), bytes.npos);
  }
  EXPECT_EQ(projects, 1u);
}

TEST(StudioCommand, wrong_use_is_one_line_and_exit_code_2) {
  const ScratchFolder scratch;
  put(scratch / "llena/x.txt", "x");
  const std::string studio = (scratch / "estudio").string();
  const std::vector<std::vector<std::string>> wrong = {
      {},
      {""},
      {studio, "sobra"},
      {studio, "--no-existe"},
      {studio, "--seed", "uno"},
      {studio, "--proyectos", "-3"},
      {studio, "--unidad", "DD"},
      {studio, "--unidad", "4"},
      {studio, "--unidad2", "E"},
      {studio, "--unidad2", "E="},
      {studio, "--unidad2", "D=" + (scratch / "otra").string()},
      {studio, "--proyectos", "0", "--referencias", "5"},
      {(scratch / "llena").string()},
  };
  for (const std::vector<std::string>& arguments : wrong) {
    const Outcome outcome = run(arguments);
    const std::string shown = arguments.empty() ? "(nothing)" : arguments.back();
    EXPECT_EQ(outcome.code, 2) << shown;
    EXPECT_EQ(outcome.out, "") << shown;
    EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
    EXPECT_GT(outcome.err.size(), 20u) << shown;
  }
  EXPECT_FALSE(std::filesystem::exists(studio));
}

TEST(StudioCommand, help_names_the_options) {
  const Outcome outcome = run({"--help"});
  EXPECT_EQ(outcome.code, 0);
  EXPECT_THAT(outcome.out, HasSubstr("--bytes-por-proyecto"));
  EXPECT_THAT(outcome.out, HasSubstr("--unidad2"));
}

}  // namespace
}  // namespace ordelan::studio
