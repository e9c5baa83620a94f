#include "tools/vip_writer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace ordelan::studio {
namespace {

using ::testing::ElementsAre;
using ::testing::SizeIs;

std::size_t count(std::string_view text, std::string_view what) {
  std::size_t found = 0;
  for (std::size_t at = text.find(what); at != text.npos; at = text.find(what, at + 1)) ++found;
  return found;
}

// Where a search finds the marker that steps byte by byte, but twelve bytes on after an "L".
std::size_t reachable_marker(std::string_view file) {
  std::size_t at = 0;
  while (at + 12 <= file.size()) {
    if (file[at] != 'L') {
      ++at;
    } else if (file.substr(at, 4) == "LIST" && file.substr(at + 8, 4) == "mdrl") {
      return at;
    } else {
      at += 12;
    }
  }
  return file.npos;
}

// All texts that begin one byte before ":\" and end at a NUL, before the marker.
std::vector<std::string> paths_in(std::string_view file) {
  const std::string_view body = file.substr(0, reachable_marker(file));
  std::vector<std::string> paths;
  for (std::size_t at = body.find(":\\"); at != body.npos; at = body.find(":\\", at + 1)) {
    paths.emplace_back(body.substr(at - 1, body.find('\0', at) - at + 1));
  }
  return paths;
}

std::vector<std::string> many_references(std::size_t number) {
  std::vector<std::string> references;
  for (std::size_t i = 0; i < number; ++i) {
    references.push_back("D:\\Mix\\Canción\\toma_" + std::to_string(i) +
                         (i % 3 == 0 ? ".wav" : ".flac"));
  }
  return references;
}

std::vector<std::string> with_stored_folder(std::vector<std::string> references) {
  references.insert(references.begin(), "D:\\Mix\\Canción\\FreezeData");
  return references;
}

TEST(VipWriter, the_header_text_stands_at_byte_96_and_ends_with_a_nul) {
  VipWriter vip(5);
  vip.header("Canción del Año");
  const std::string file = vip.take();
  EXPECT_EQ(file.substr(96), std::string("Canción del Año") + '\0');
  EXPECT_EQ(file.substr(0, 4), "RIFF");
}

TEST(VipWriter, a_header_after_other_data_is_an_error) {
  VipWriter vip(5);
  vip.noise(1);
  EXPECT_THROW(vip.header("tarde"), std::logic_error);
}

TEST(VipWriter, the_size_at_the_start_counts_what_follows_it) {
  VipWriter vip(5);
  vip.header("x");
  vip.noise(70000);
  const std::string file = vip.take();
  std::size_t size = 0;
  for (std::size_t i = 7; i >= 4; --i) size = size * 256 + static_cast<unsigned char>(file[i]);
  EXPECT_EQ(size, file.size() - 8);
}

TEST(VipWriter, a_fixed_field_is_filled_with_nuls_to_its_width) {
  VipWriter vip(1);
  const std::size_t start = vip.size();
  vip.reference("D:\\Mix\\a.wav", Field::fixed);
  const std::string field = vip.take().substr(start);
  EXPECT_EQ(field, "D:\\Mix\\a.wav" + std::string(kPathField - 12, '\0'));
}

TEST(VipWriter, a_terminated_field_has_one_nul) {
  VipWriter vip(1);
  const std::size_t start = vip.size();
  vip.reference("D:\\Mix\\a.wav", Field::terminated);
  EXPECT_EQ(vip.take().substr(start), std::string("D:\\Mix\\a.wav") + '\0');
}

TEST(VipWriter, a_path_that_does_not_fit_a_fixed_field_is_an_error) {
  VipWriter vip(1);
  const std::string longest = "D:\\" + std::string(kPathField - 8, 'x') + ".wav";
  vip.reference(longest, Field::fixed);
  EXPECT_THROW(vip.reference(longest + "x", Field::fixed), std::length_error);
}

TEST(VipWriter, a_folder_is_followed_by_enough_nuls_for_a_reader_that_steps_over_a_dot) {
  VipWriter vip(1);
  const std::size_t start = vip.size();
  vip.folder("D:\\Vol.1");
  EXPECT_EQ(vip.take().substr(start), "D:\\Vol.1" + std::string(6, '\0'));
}

TEST(VipWriter, raw_bytes_are_taken_as_they_are) {
  VipWriter vip(1);
  const std::size_t start = vip.size();
  const std::string hostile("::\\\0L.wav:\\", 11);
  vip.raw(hostile);
  EXPECT_EQ(vip.take().substr(start), hostile);
}

TEST(VipWriter, noise_holds_every_byte_but_begins_no_path) {
  VipWriter vip(77);
  const std::size_t start = vip.size();
  vip.noise(1 << 20);
  const std::string noise = vip.take().substr(start);
  ASSERT_THAT(noise, SizeIs(1 << 20));
  for (int byte = 0; byte < 256; ++byte) {
    EXPECT_NE(noise.find(static_cast<char>(byte)), noise.npos) << byte;
  }
  EXPECT_EQ(count(noise, ":\\"), 0u);
  EXPECT_EQ(count(noise, "::"), 0u);
}

TEST(VipWriter, short_pieces_of_noise_make_no_path_where_they_meet) {
  VipWriter vip(3);
  for (std::size_t i = 0; i < 200000; ++i) vip.noise(i % 23);
  const std::string file = vip.take();
  EXPECT_EQ(count(file, ":\\"), 0u);
  EXPECT_EQ(count(file, "::"), 0u);
  EXPECT_GT(count(file, ":"), 1000u);
}

TEST(VipWriter, noise_never_starts_with_a_colon) {
  for (std::uint64_t seed = 0; seed < 3000; ++seed) {
    VipWriter vip(seed);
    const std::size_t start = vip.size();
    vip.noise(64);
    EXPECT_EQ(vip.take().substr(start, 4).find_first_of(":\\"), std::string::npos) << seed;
  }
}

TEST(VipWriter, the_size_of_a_chunk_never_reads_as_a_colon) {
  for (const std::size_t size : {0x3Au, 0x3A00u, 0x3A3Au, 0x5C3Au, 0x3A0000u, 0x123A3Bu}) {
    VipWriter vip(1);
    const std::size_t start = vip.size();
    const std::size_t written = vip.chunk("objt", size);
    const std::string head = vip.take().substr(start);
    ASSERT_THAT(head, SizeIs(8));
    EXPECT_EQ(head.find(':'), head.npos) << size;
    EXPECT_GT(written, size);
    std::size_t stored = 0;
    for (std::size_t i = 7; i >= 4; --i) {
      stored = stored * 256 + static_cast<unsigned char>(head[i]);
    }
    EXPECT_EQ(stored, written);
  }
  VipWriter vip(1);
  EXPECT_EQ(vip.chunk("objt", 0x1234), 0x1234u);
  EXPECT_THROW(vip.chunk("obj", 1), std::invalid_argument);
}

TEST(VipWriter, the_marker_is_found_after_any_noise) {
  for (std::uint64_t seed = 0; seed < 2000; ++seed) {
    VipWriter vip(seed);
    vip.header("LLLLLL");
    vip.noise(seed % 300);
    vip.raw("LIST");
    const std::size_t start = vip.size();
    vip.marker();
    const std::string file = vip.take();
    EXPECT_EQ(reachable_marker(file), start + 16) << seed;
  }
}

TEST(VipWriter, a_tail_is_led_by_the_marker) {
  VipWriter vip(9);
  vip.header("x");
  vip.tail("cola");
  vip.tail("!");
  const std::string file = vip.take();
  EXPECT_EQ(count(file, "mdrl"), 1u);
  EXPECT_EQ(file.substr(reachable_marker(file) + 12), "cola!");
}

TEST(MakeVip, the_paths_before_the_marker_are_the_references_and_one_stored_folder) {
  const std::vector<std::string> references = many_references(300);
  const std::string file = make_vip("Tema", references, 400'000, 11);
  EXPECT_EQ(paths_in(file), with_stored_folder(references));
  EXPECT_EQ(file.substr(96, 5), std::string("Tema") + '\0');
}

TEST(MakeVip, no_pair_of_colons_and_no_colon_after_a_reference_misleads_a_reader) {
  for (std::uint64_t seed = 0; seed < 200; ++seed) {
    const std::string file = make_vip("Tema", many_references(40), 60'000, seed);
    EXPECT_EQ(count(file, "::"), 0u);
    for (std::size_t at = file.find(":\\"); at != file.npos; at = file.find(":\\", at + 1)) {
      const std::size_t nul = file.find('\0', at);
      ASSERT_NE(nul, file.npos);
      EXPECT_EQ(file.substr(nul, 4).find(':'), std::string::npos);
    }
    EXPECT_NE(reachable_marker(file), file.npos);
  }
}

TEST(MakeVip, both_kinds_of_field_are_used) {
  const std::string file = make_vip("Tema", many_references(100), 0, 4);
  std::size_t fixed = 0;
  std::size_t terminated = 0;
  for (const std::string& path : paths_in(file)) {
    const std::string padding(kPathField - path.size(), '\0');
    const std::size_t at = file.find(path + '\0');
    (file.compare(at + path.size(), padding.size(), padding) == 0 ? fixed : terminated) += 1;
  }
  EXPECT_GT(fixed, 20u);
  EXPECT_GT(terminated, 20u);
  EXPECT_EQ(fixed + terminated, 101u);  // with the stored folder
}

TEST(MakeVip, a_path_that_does_not_read_back_stands_in_a_fixed_field) {
  const std::string path = "D:\\Mix\\mensaje.m4a";
  for (std::uint64_t seed = 0; seed < 50; ++seed) {
    const std::string file = make_vip("Tema", {path}, 0, seed);
    const std::string field = path + std::string(kPathField - path.size(), '\0');
    EXPECT_NE(file.find(field), file.npos) << seed;
  }
}

TEST(MakeVip, the_data_after_the_marker_holds_a_path_too) {
  const std::string file = make_vip("Tema", many_references(3), 5000, 4);
  EXPECT_EQ(count(file.substr(reachable_marker(file)), ":\\"), 1u);
}

TEST(MakeVip, the_file_has_the_size_asked_for) {
  for (const std::size_t size : {5000u, 20'000u, 123'457u, 3'000'000u}) {
    EXPECT_THAT(make_vip("Tema", many_references(8), size, size), SizeIs(size));
  }
  EXPECT_THAT(make_vip("Solo MIDI", {}, 30'000, 1), SizeIs(30'000));
}

TEST(MakeVip, a_size_too_small_for_the_contents_loses_none_of_them) {
  EXPECT_EQ(paths_in(make_vip("Tema", many_references(50), 10, 2)),
            with_stored_folder(many_references(50)));
}

TEST(MakeVip, the_same_seed_gives_the_same_bytes_and_another_seed_others) {
  const std::vector<std::string> references = many_references(10);
  EXPECT_EQ(make_vip("x", references, 50'000, 1), make_vip("x", references, 50'000, 1));
  EXPECT_NE(make_vip("x", references, 50'000, 1), make_vip("x", references, 50'000, 2));
}

TEST(MakeVip, the_numbers_of_a_seed_stay_the_same_for_good) {
  SeededRandom random(1);
  EXPECT_THAT((std::vector<std::uint64_t>{random.next(), random.next()}),
              ElementsAre(0xB3F2AF6D0FC710C5u, 0x853B559647364CEAu));
}

TEST(ReadsBack, only_the_first_dot_may_begin_a_known_extension) {
  for (const char* path :
       {"D:\\a.wav", "E:\\Mix\\Año\\b.WAV", "C:\\c.mp3", "D:\\d.aif", "D:\\e.ogg", "D:\\f.Flac"}) {
    EXPECT_TRUE(reads_back(path)) << path;
  }
  for (const char* path : {"D:\\a.b.wav", "D:\\Vol. 1\\a.wav", "D:\\a.m4a", "D:\\a.aiff",
                           "D:\\a.fla", "D:\\a", "a.wav", "\\\\nas\\a.wav", "D:\\b::c.wav", ""}) {
    EXPECT_FALSE(reads_back(path)) << path;
  }
}

}  // namespace
}  // namespace ordelan::studio
