#include "tools/studio_maker.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "tests/tools/scratch_folder.h"
#include "text/code_page.h"

namespace ordelan::studio {
namespace {

namespace fs = std::filesystem;

StudioOptions demo() {
  StudioOptions options;
  options.cache = shared_cache();
  return options;
}

StudioOptions large(std::size_t projects, std::size_t references, std::size_t files) {
  StudioOptions options = demo();
  options.projects = projects;
  options.references = references;
  options.files = files;
  return options;
}

std::size_t with_extension(const std::map<std::string, std::string>& tree,
                           std::string_view extension) {
  std::size_t found = 0;
  for (const auto& [name, bytes] : tree) found += name.ends_with(extension) ? 1u : 0u;
  return found;
}

TEST(MakeStudio, the_same_seed_gives_the_same_tree_byte_for_byte) {
  for (StudioOptions options : {demo(), large(10, 200, 400)}) {
    const ScratchFolder one;
    const ScratchFolder other;
    options.cache = one / "muestras";
    make_studio(one / "estudio", options);
    options.cache = other / "muestras";
    make_studio(other / "estudio", options);
    const auto tree = tree_of(one / "estudio");
    EXPECT_GT(tree.size(), 90u);
    EXPECT_TRUE(tree == tree_of(other / "estudio"));
  }
}

TEST(MakeStudio, another_seed_gives_other_projects) {
  const ScratchFolder scratch;
  StudioOptions options = demo();
  make_studio(scratch / "uno", options);
  options.seed = 2;
  make_studio(scratch / "dos", options);
  EXPECT_NE(bytes_of(scratch / "uno/Mix/tema.vip"), bytes_of(scratch / "dos/Mix/tema.vip"));
}

TEST(MakeStudio, the_demo_has_its_projects_and_audio_in_place) {
  const ScratchFolder scratch;
  const StudioSummary summary = make_studio(scratch / "estudio", demo());
  const auto tree = tree_of(scratch / "estudio");
  EXPECT_EQ(tree.size(), summary.projects + summary.files + 1);  // and the list of it all
  EXPECT_EQ(with_extension(tree, ".vip"), summary.projects);
  for (const char* name :
       {"Mix\\tema.vip", "Mix\\balada.vip", "Mix\\tema_BAK.vip", "Mix\\solo_midi.vip",
        "Mix\\FreezeData\\tema_freeze.vip", "Mix\\FreezeData\\tema_freeze_01.wav",
        "Mix\\Canción del Año\\piñata.MP3", "Mix\\Voces\\voz_doble.WAV"}) {
    EXPECT_EQ(tree.count(name), 1u) << name;
  }
  EXPECT_EQ(tree.at("Mix\\bajo.flac"), tree.at("Mix\\Copia\\bajo.flac"));
  EXPECT_NE(tree.at("Mix\\toma 1.wav"), tree.at("Mix\\Voces\\toma 1.wav"));
  const std::string& project = tree.at("Mix\\tema.vip");
  EXPECT_NE(project.find("D:\\Mix\\Canción del Año\\guitarra española.wav"), project.npos);
  EXPECT_NE(project.find("E:\\Archivo\\cinta_1998.wav"), project.npos);
  EXPECT_EQ(tree.at("Mix\\solo_midi.vip").find("D:\\"), std::string::npos);
}

TEST(MakeStudio, audio_of_the_second_drive_lies_in_the_second_folder) {
  const ScratchFolder scratch;
  StudioOptions options = demo();
  options.second_folder = scratch / "otra";
  const StudioSummary summary = make_studio(scratch / "estudio", options);
  const auto second = tree_of(scratch / "otra");
  EXPECT_EQ(second.count("Archivo\\cinta_1998.wav"), 1u);
  EXPECT_EQ(second.count("Archivo\\Ambientes\\lluvia en Cádiz.wav"), 1u);
  EXPECT_EQ(tree_of(scratch / "estudio").size() + second.size(),
            summary.projects + summary.files + 2);
}

TEST(MakeStudio, a_large_studio_has_as_many_files_as_asked_for) {
  const ScratchFolder scratch;
  const StudioSummary summary = make_studio(scratch / "estudio", large(30, 600, 1500));
  const auto tree = tree_of(scratch / "estudio");
  EXPECT_EQ(tree.size(), 30u + 1500u + 1u);
  EXPECT_EQ(with_extension(tree, ".vip"), 30u);
  EXPECT_EQ(summary.references, 600u);
}

TEST(MakeStudio, projects_have_the_size_asked_for) {
  const ScratchFolder scratch;
  StudioOptions options = large(1, 50, 10);
  options.bytes_per_project = 2'000'000;
  make_studio(scratch / "estudio", options);
  std::size_t found = 0;
  for (const auto& [name, bytes] : tree_of(scratch / "estudio")) {
    if (!name.ends_with(".vip")) continue;
    ++found;
    EXPECT_EQ(bytes.size(), 2'000'000u);
  }
  EXPECT_EQ(found, 1u);
}

TEST(MakeStudio, a_folder_with_contents_of_others_is_refused_and_left_alone) {
  const ScratchFolder scratch;
  put(scratch / "estudio/tesis.txt", "importante");
  EXPECT_THROW(make_studio(scratch / "estudio", demo()), StudioRefused);
  EXPECT_EQ(tree_of(scratch / "estudio").size(), 1u);
  put(scratch / "archivo", "x");
  EXPECT_THROW(make_studio(scratch / "archivo", demo()), StudioRefused);
  EXPECT_EQ(bytes_of(scratch / "archivo"), "x");
}

TEST(MakeStudio, a_second_folder_with_contents_of_others_is_refused_before_anything_is_made) {
  const ScratchFolder scratch;
  put(scratch / "otra/tesis.txt", "importante");
  StudioOptions options = demo();
  options.second_folder = scratch / "otra";
  EXPECT_THROW(make_studio(scratch / "estudio", options), StudioRefused);
  EXPECT_FALSE(fs::exists(scratch / "estudio"));
}

TEST(MakeStudio, drives_within_each_other_or_of_one_letter_are_refused) {
  const ScratchFolder scratch;
  StudioOptions options = demo();
  for (const char* second : {"estudio", "estudio/otra", "."}) {
    options.second_folder = scratch / second;
    EXPECT_THROW(make_studio(scratch / "estudio", options), StudioRefused) << second;
  }
  options.second_folder = scratch / "estudio2";
  options.second_letter = 'd';
  EXPECT_THROW(make_studio(scratch / "estudio", options), StudioRefused);
  EXPECT_TRUE(fs::is_empty(scratch.path()));
}

TEST(MakeStudio, an_empty_folder_will_do) {
  const ScratchFolder scratch;
  make_studio(scratch.path(), demo());
  EXPECT_TRUE(fs::exists(scratch / "Mix/tema.vip"));
}

TEST(MakeStudio, a_studio_is_replaced_by_the_next_one_and_files_of_others_stay) {
  const ScratchFolder scratch;
  const fs::path studio = scratch / "estudio";
  make_studio(studio, large(20, 100, 300));
  put(studio / "Mix/2004/notas.txt", "mías");
  put(studio / text::to_utf8("Mix/mía.wav"), "mía");
  make_studio(studio, demo());
  auto tree = tree_of(studio);
  make_studio(scratch / "nuevo", demo());
  auto expected = tree_of(scratch / "nuevo");
  // The list also holds the folder that stays for the sake of the notes.
  EXPECT_NE(tree.at(".ordelan-studio").find("d Mix/2004\n"), std::string::npos);
  tree.erase(".ordelan-studio");
  expected.erase(".ordelan-studio");
  expected["Mix\\2004\\notas.txt"] = "mías";
  expected["Mix\\mía.wav"] = "mía";
  EXPECT_TRUE(tree == expected);
  EXPECT_FALSE(fs::exists(studio / "Biblioteca"));

  fs::remove(studio / "Mix/2004/notas.txt");
  make_studio(studio, demo());
  EXPECT_FALSE(fs::exists(studio / "Mix/2004"));
  EXPECT_TRUE(fs::exists(studio / text::to_utf8("Mix/mía.wav")));
}

TEST(MakeStudio, a_file_of_others_in_the_place_of_a_new_one_stops_it_before_anything_is_removed) {
  const ScratchFolder scratch;
  const fs::path studio = scratch / "estudio";
  make_studio(studio, large(3, 10, 30));
  put(studio / "Mix/tema.vip", "de otro");
  const auto before = tree_of(studio);
  EXPECT_THROW(make_studio(studio, demo()), StudioRefused);
  EXPECT_TRUE(tree_of(studio) == before);
}

TEST(MakeStudio, a_list_that_leads_out_of_the_folder_is_refused) {
  const ScratchFolder scratch;
  put(scratch / "ajeno.txt", "x");
  const fs::path list = scratch / "estudio/.ordelan-studio";
  for (const char* line : {"f ../ajeno.txt", "f Mix/../../ajeno.txt", "d ..", "x a", "f "}) {
    put(list, "ordelan-studio 1\n" + std::string(line) + "\n");
    EXPECT_THROW(make_studio(scratch / "estudio", demo()), StudioRefused) << line;
  }
  put(list, "ordelan-studio 1\nf " + (scratch / "ajeno.txt").string() + "\n");
  EXPECT_THROW(make_studio(scratch / "estudio", demo()), StudioRefused);
  EXPECT_EQ(bytes_of(scratch / "ajeno.txt"), "x");
}

TEST(MakeStudio, a_link_in_the_place_of_a_folder_is_not_followed) {
  const ScratchFolder scratch;
  const fs::path studio = scratch / "estudio";
  make_studio(studio, demo());
  fs::rename(studio / "Mix", scratch / "Mix");
  fs::create_directory_symlink(scratch / "Mix", studio / "Mix");
  EXPECT_THROW(make_studio(studio, demo()), StudioRefused);
  EXPECT_TRUE(fs::exists(scratch / "Mix/tema.vip"));
}

TEST(MakeStudio, without_encoders_nothing_is_made) {
  const ScratchFolder scratch;
  const ScratchFolder empty;
  const std::string path = std::getenv("PATH");
  ::setenv("PATH", empty.path().c_str(), 1);
  StudioOptions options;
  options.cache = scratch / "muestras";
  EXPECT_THROW(make_studio(scratch / "estudio", options), EncoderError);
  ::setenv("PATH", path.c_str(), 1);
  EXPECT_FALSE(fs::exists(scratch / "estudio"));
}

}  // namespace
}  // namespace ordelan::studio
