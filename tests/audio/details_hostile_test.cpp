#include <gtest/gtest.h>

#include <algorithm>

#include "audio/details_agreement.h"
#include "support/hostile_bytes.h"

namespace ordelan::test {
namespace {

// Files of all kinds, small enough to be cut and changed at every byte.
std::vector<std::string> small_files() {
  const std::string vorbis = ogg_packet(7, 0, vorbis_head(2, 44100)) +
                             ogg_packet(7, 0, "\x03vorbis" + comments({"title=Tema"})) +
                             ogg_packet(7, 44100, "sound");
  const std::string entry =
      box("stsd", std::string(4, '\0') + big_endian(1, 4) +
                      box("mp4a", std::string(6, '\0') + big_endian(1, 2) + std::string(8, '\0') +
                                      big_endian(2, 2) + big_endian(16, 2) + std::string(4, '\0') +
                                      big_endian(44100u << 16, 4)));
  const std::string times = std::string(12, '\0') + big_endian(1000, 4) + big_endian(2000, 4);
  const std::string item = box("\xA9nam", box("data", big_endian(1, 4) + "....Tema"));
  const std::string m4a =
      box("ftyp", "M4A 1234") +
      box("moov", box("mvhd", times) +
                      box("trak", box("mdia", box("mdhd", times) +
                                                  box("hdlr", std::string(8, '\0') + "soun") +
                                                  box("minf", box("stbl", entry)))) +
                      box("udta", box("meta", std::string(4, '\0') + box("ilst", item))));
  const std::string asf =
      std::string("\x30\x26\xB2\x75\x8E\x66\xCF\x11\xA6\xD9\x00\xAA\x00\x62\xCE\x6C", 16) +
      little_endian(130, 8) + little_endian(1, 4) + "\1\2" +
      std::string("\x33\x26\xB2\x75\x8E\x66\xCF\x11\xA6\xD9\x00\xAA\x00\x62\xCE\x6C", 16) +
      little_endian(100, 8) + little_endian(8, 2) + std::string(8, '\0') + utf16_bytes("Tema") +
      std::string(70, '\1');
  return {
      wav_file(chunk("LIST", "INFO" + chunk("INAM", "Tema")) +
               chunk("fmt ", format_chunk(1, 2, 44100, 16)) + chunk("data", "12345678")),
      "FORM" + big_endian(100, 4) + "AIFC" +
          chunk("COMM",
                big_endian(2, 2) + big_endian(44100, 4) + big_endian(16, 2) +
                    std::string("\x40\x0E\xAC\x44\0\0\0\0\0\0", 10) + "ulaw",
                true) +
          chunk("NAME", "Tema", true) + chunk("SSND", "123456789", true),
      flac_file({{0, stream_info(44100, 2, 16, 44100)}, {4, comments({"title=Tema"})}}, "sound"),
      vorbis,
      id3_block(3, id3_frame(3, "TIT2", std::string(1, '\0') + "Tema")) + mp3_frames(1),
      id3_block(4, id3_frame(4, "COMM", "\3spa" + std::string(1, '\0') + "Tema"), 0x80) +
          mp3_frames(1) + tag_block("t", "a", "b", "c"),
      m4a,
      asf};
}

TEST(DetailsHostile, every_file_of_the_test_is_understood) {
  for (const std::string& file : small_files()) {
    const auto details = details_of(file);
    EXPECT_FALSE(details.etiquetas.empty()) << file.substr(0, 4);
  }
}

TEST(DetailsHostile, files_may_be_cut_anywhere) {
  for (const std::string& file : small_files()) {
    for (std::size_t length = 0; length < file.size(); ++length) {
      ASSERT_EQ(check_details(file.substr(0, length), length), "") << file.substr(0, 4) << length;
    }
  }
}

TEST(DetailsHostile, every_byte_may_be_another) {
  for (const std::string& file : small_files()) {
    for (std::size_t at = 0; at < file.size(); ++at) {
      for (const int byte : {0, 1, 0x7F, 0x80, 0xFF}) {
        std::string changed = file;
        changed[at] = static_cast<char>(byte);
        ASSERT_EQ(check_details(changed, changed.size()), "") << file.substr(0, 4) << at;
      }
    }
  }
}

TEST(DetailsHostile, lengths_may_be_anything) {
  Dice dice(16);
  const std::vector<std::string> files = small_files();
  for (int i = 0; i < 20'000; ++i) {
    std::string file = files[dice.below(files.size())];
    for (auto changes = 1 + dice.below(4); changes > 0; --changes) {
      const std::uint64_t value = dice.next() >> dice.below(64);
      const int bytes = 1 << dice.below(4);
      const std::string number =
          dice.below(2) == 0 ? little_endian(value, bytes) : big_endian(value, bytes);
      file.replace(dice.below(file.size() - 8), number.size(), number);
    }
    const std::uint64_t beyond = dice.below(4) == 0 ? dice.next() >> dice.below(64) : 0;
    ASSERT_EQ(check_details(file, file.size() + beyond / 4), "") << "input " << i;
  }
}

TEST(DetailsHostile, what_is_read_is_bounded_whatever_a_file_claims) {
  const auto blocks = [](const std::string& head, const std::string& repeated) {
    std::string file = head;
    while (file.size() < 4'000'000) file += repeated;
    audio::ByteSource source = source_of(file, file.size());
    audio::read_details(source);
    return source.blocks_read();
  };
  const std::size_t most = audio::ByteSource::kMostBlocks;
  EXPECT_EQ(blocks("RIFF1234WAVE", chunk("JUNK", "")), most);
  EXPECT_EQ(blocks("FORM1234AIFF", chunk("JUNK", "", true)), most);
  EXPECT_EQ(blocks("", ogg_page(1, 0, "", "")), most);
  EXPECT_EQ(blocks(box("ftyp", ""), box("free", "")), most);
  EXPECT_EQ(blocks("", id3_block(3, "")), most);
  EXPECT_LE(blocks("fLaC", std::string("\1\0\0\0", 4)), most);
  EXPECT_LE(blocks("", std::string("\xFF\xFB\x90", 3) + std::string(300, '\1')), most);
}

TEST(DetailsHostile, an_endless_file_of_zeros_ends_soon) {
  const std::string asf(
      "\x30\x26\xB2\x75\x8E\x66\xCF\x11\xA6\xD9\x00\xAA\x00\x62\xCE\x6C"
      "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x7F",
      24);
  const std::string w64 = std::string("riff\x2E\x91\xCF\x11\xA5\xD6\x28\xDB\x04\xC1\x00\x00", 16) +
                          std::string(8, '\0') + "wave\xF3\xAC\xD3\x11\x8C\xD1" +
                          std::string(1, '\0') + "\xC0\x4F\x8E\xDB\x8A";
  for (const std::string& head :
       {std::string("RIFF1234WAVE"), std::string("RF641234WAVE"), std::string("FORM1234AIFF"),
        std::string("fLaC"), ogg_page(1, 0, "", ""), box("ftyp", ""), box("moov", ""), asf, w64,
        id3_block(4, ""), mp3_frames(1), std::string()}) {
    audio::ByteSource source = source_of(head, std::uint64_t{1} << 60);
    audio::read_details(source);
    EXPECT_LE(source.blocks_read(), audio::ByteSource::kMostBlocks);
  }
}

TEST(ByteSource, gives_the_bytes_that_are_asked_for_in_any_order) {
  std::string bytes;
  Dice dice(17);
  for (int i = 0; i < 20'000; ++i) bytes += static_cast<char>(dice.below(256));
  for (int i = 0; i < 1000; ++i) {
    audio::ByteSource source = source_of(bytes, bytes.size());
    for (int j = 0; j < 4; ++j) {
      const auto at = static_cast<std::size_t>(dice.below(22'000));
      const auto count = static_cast<std::size_t>(dice.below(9'000));
      const std::string wanted = at < bytes.size() ? bytes.substr(at, count) : "";
      ASSERT_EQ(source.bytes(at, count), wanted) << at << " " << count;
    }
  }
}

TEST(ByteSource, ends_where_its_allowance_does) {
  const std::string bytes(1'000'000, 'x');
  audio::ByteSource source = source_of(bytes, bytes.size());
  const std::size_t all = audio::ByteSource::kMostBlocks * audio::ByteSource::kBlock;
  EXPECT_EQ(source.bytes(0, bytes.size()).size(), all);
  EXPECT_EQ(source.bytes(0, 10), "");
  EXPECT_EQ(source.bytes(all - 10, 20), std::string(10, 'x')) << "of the block that is held";
}

TEST(ByteSource, ends_where_reading_fails_or_the_file_has_become_shorter) {
  audio::ByteSource failing(
      100'000,
      [](std::uint64_t offset, std::span<std::uint8_t> buffer) -> std::optional<std::size_t> {
        if (offset >= 4096) return std::nullopt;
        std::fill(buffer.begin(), buffer.end(), std::uint8_t{'x'});
        return buffer.size();
      });
  EXPECT_EQ(failing.bytes(4000, 1000), std::string(96, 'x'));
  EXPECT_EQ(failing.bytes(5000, 10), "");
  audio::ByteSource shorter(
      100'000, [](std::uint64_t, std::span<std::uint8_t> buffer) -> std::optional<std::size_t> {
        buffer[0] = 'x';
        return 1;
      });
  EXPECT_EQ(shorter.bytes(0, 5000), "x");
}

TEST(DetailsOfAFile, is_read_from_the_disk_and_empty_without_one) {
  MemoryFiles files;
  files.contents["D:\\a.txt"] = wav_header(2, 44100, 16, 176'400) + std::string(176'400, '\1');
  EXPECT_EQ(numbers_of(audio::read_details(files, "D:\\a.txt")),
            "1.000 s, 2 ch, 44100 Hz, 16 bits, 1411200 bit/s")
      << "its name does not matter";
  EXPECT_TRUE(same_details(audio::read_details(files, "D:\\none.wav"), {}));
  files.on_read = [](std::uint64_t) { return false; };
  EXPECT_TRUE(same_details(audio::read_details(files, "D:\\a.txt"), {}));
}

}  // namespace
}  // namespace ordelan::test
