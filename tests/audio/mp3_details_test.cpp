#include <gmock/gmock.h>

#include "audio/details_bench.h"

namespace ordelan::test {
namespace {

const std::string kZeroByte(1, '\0');
const std::string kSound = mp3_frames(100);
const std::string kSoundNumbers = "2.606 s, 2 ch, 44100 Hz, - bits, 128000 bit/s";
const std::string kNumbersOfNothing = "- s, - ch, - Hz, - bits, - bit/s";

// The first frame, in which a count of frames stands.
std::string counting_frame(const std::string& mark, std::size_t at) {
  std::string frame = mp3_frames(1);
  frame.replace(at, mark.size(), mark);
  return frame;
}

TEST(Mp3Details, a_steady_file_lasts_as_long_as_its_bytes_do) {
  EXPECT_EQ(numbers_of(details_of(kSound)), kSoundNumbers);
  EXPECT_EQ(numbers_of(details_of(kSound + tag_block("t", "a", "b", "c"))), kSoundNumbers)
      << "a tag is no sound";
}

TEST(Mp3Details, a_count_of_frames_gives_the_duration_and_the_mean_rate) {
  const std::string xing = "Xing" + big_endian(3, 4) + big_endian(1000, 4) + big_endian(261'224, 4);
  EXPECT_EQ(numbers_of(details_of(counting_frame(xing, 36) + kSound)),
            "26.122 s, 2 ch, 44100 Hz, - bits, 80000 bit/s");
  const std::string bytes_only = "Xing" + big_endian(2, 4) + big_endian(261'224, 4);
  EXPECT_NEAR(details_of(counting_frame(bytes_only, 36) + kSound).duracion.value(), 2.63, 0.01);
  const std::string steady = "Info" + big_endian(1, 4) + big_endian(1000, 4);
  EXPECT_EQ(numbers_of(details_of(counting_frame(steady, 36) + kSound)),
            "26.122 s, 2 ch, 44100 Hz, - bits, 128000 bit/s");
  std::string larger = std::string("\xFF\xFB\xB0", 3) + std::string(623, '\0');
  larger.replace(36, steady.size(), steady);
  EXPECT_EQ(details_of(larger + kSound).velocidad, 128000) << "that of the sound, not of the count";
  const std::string vbri =
      "VBRI" + std::string(6, '\1') + big_endian(261'224, 4) + big_endian(1000, 4);
  EXPECT_EQ(numbers_of(details_of(counting_frame(vbri, 36) + kSound)),
            "26.122 s, 2 ch, 44100 Hz, - bits, 80000 bit/s");
}

TEST(Mp3Details, versions_and_layers_have_tables_of_their_own) {
  const auto numbers = [](const std::string& head, std::size_t length) {
    std::string frames;
    for (int i = 0; i < 10; ++i) frames += head + std::string(length - 4, '\0');
    return numbers_of(details_of(frames));
  };
  EXPECT_EQ(numbers("\xFF\xF3\x80\xC0", 208), "0.260 s, 1 ch, 22050 Hz, - bits, 64000 bit/s");
  EXPECT_EQ(numbers("\xFF\xE3\x88\xC0", 576), "0.720 s, 1 ch, 8000 Hz, - bits, 64000 bit/s");
  EXPECT_EQ(numbers("\xFF\xFD\x84" + kZeroByte, 384),
            "0.240 s, 2 ch, 48000 Hz, - bits, 128000 bit/s");
  EXPECT_EQ(numbers("\xFF\xFF\x88" + kZeroByte, 384),
            "0.120 s, 2 ch, 32000 Hz, - bits, 256000 bit/s");
  EXPECT_EQ(numbers("\xFF\xF5\x84" + kZeroByte, 384),
            "0.480 s, 2 ch, 24000 Hz, - bits, 64000 bit/s");
}

TEST(Mp3Details, four_bytes_of_layer_1_are_one) {
  const auto frames = [](const std::string& head, std::size_t length) {
    std::string all;
    for (int i = 0; i < 10; ++i) all += head + std::string(length - 4, '\0');
    return numbers_of(details_of(all));
  };
  EXPECT_EQ(frames("\xFF\xFF\x10" + kZeroByte, 32), "0.080 s, 2 ch, 44100 Hz, - bits, 32000 bit/s");
  EXPECT_EQ(frames("\xFF\xFF\x12" + kZeroByte, 36), "0.090 s, 2 ch, 44100 Hz, - bits, 32000 bit/s")
      << "with padding";
}

TEST(Mp3Details, values_that_mean_nothing_begin_no_frame) {
  // No sound at all; no such version, layer, bit rate (twice), frequency.
  for (const std::string head : {"\xFF\x1B\x90", "\xFF\xEB\x80", "\xFF\xF9\x90", "\xFF\xFB\xF0",
                                 "\xFF\xFB\x00", "\xFF\xFB\x9C"}) {
    for (const std::size_t length : {288u, 313u, 417u, 418u, 626u}) {
      std::string frames;
      for (int i = 0; i < 10; ++i) {
        std::string frame = head;
        frame.resize(length);
        frames += frame;
      }
      EXPECT_EQ(numbers_of(details_of(frames)), kNumbersOfNothing) << length;
    }
  }
}

TEST(Mp3Details, three_frames_of_one_kind_in_a_row_are_sound) {
  const std::string after(2000, 'x');
  EXPECT_EQ(details_of(mp3_frames(3) + after).frecuencia, 44100);
  EXPECT_EQ(numbers_of(details_of(mp3_frames(2) + after)), kNumbersOfNothing);
  // Another version, layer and frequency after the first, as long as it says.
  for (const std::string other : {"\xFF\xF3\x90", "\xFF\xFD\x90", "\xFF\xFB\x94"}) {
    std::string frame = other;
    frame.resize(417);
    EXPECT_EQ(numbers_of(details_of(mp3_frames(1) + frame + mp3_frames(1) + after)),
              kNumbersOfNothing);
  }
}

TEST(Mp3Details, a_cut_frame_after_other_bytes_is_no_sound) {
  EXPECT_EQ(numbers_of(details_of(std::string(500, 'x') + mp3_frames(1).substr(0, 200))),
            kNumbersOfNothing)
      << "four bytes that any file may hold";
  EXPECT_EQ(details_of(std::string(500, 'x') + mp3_frames(1)).frecuencia, 44100)
      << "up to the very end";
  EXPECT_EQ(details_of(std::string(500, 'x') + mp3_frames(2).substr(0, 600)).frecuencia, 44100)
      << "two of them";
  EXPECT_EQ(details_of(mp3_frames(1).substr(0, 200)).frecuencia, 44100)
      << "at the place where sound begins";
}

TEST(Mp3Details, many_false_beginnings_do_not_hide_the_sound) {
  // Heads of short and of long frames by turns, which no frame follows.
  std::string noise;
  while (noise.size() < 60'000) {
    noise +=
        "\xFF\xF3\x10\x10" + std::string(20, '\1') + "\xFF\xFB\xE0\x10" + std::string(20, '\1');
  }
  EXPECT_EQ(details_of(noise + kSound).frecuencia, 44100);
}

TEST(Mp3Details, a_count_without_bytes_is_over_those_of_the_file) {
  const std::string xing = "Xing" + big_endian(1, 4) + big_endian(1000, 4) + big_endian(999'999, 4);
  EXPECT_EQ(numbers_of(details_of(counting_frame(xing, 36) + kSound)),
            "26.122 s, 2 ch, 44100 Hz, - bits, 12898 bit/s");
  const std::string alone = "Info" + big_endian(1, 4) + big_endian(1000, 4);
  EXPECT_EQ(details_of(counting_frame(alone, 36)).velocidad, 128000) << "no other frame follows";
}

TEST(Mp3Details, tags_around_something_unknown_are_read) {
  const auto details = details_of(id3_block(3, id3_frame(3, "TIT2", kZeroByte + "long")) +
                                  std::string(500, 'x') + tag_block("short", "a", "b", "c"));
  EXPECT_EQ(numbers_of(details), kNumbersOfNothing);
  EXPECT_EQ(tag_of(details, "title"), "long");
  EXPECT_EQ(tag_of(details, "artist"), "a");
}

TEST(Mp3Details, sound_may_begin_late) {
  EXPECT_EQ(numbers_of(details_of(std::string(5000, '\0') + kSound)), kSoundNumbers);
  EXPECT_EQ(numbers_of(details_of(std::string(3, '\xFF') + "\xFF\xFB\x90" + std::string(500, 'x') +
                                  kSound)),
            kSoundNumbers)
      << "a head that no frame follows";
  EXPECT_EQ(numbers_of(details_of(std::string(100'000, '\0') + kSound)), kNumbersOfNothing);
}

TEST(Mp3Details, few_frames_at_the_end_are_sound) {
  EXPECT_EQ(numbers_of(details_of(mp3_frames(1))), "0.026 s, 2 ch, 44100 Hz, - bits, 128000 bit/s");
}

TEST(Mp3Details, other_bytes_say_nothing) {
  EXPECT_EQ(numbers_of(details_of("")), kNumbersOfNothing);
  EXPECT_EQ(numbers_of(details_of("hello")), kNumbersOfNothing);
  EXPECT_EQ(numbers_of(details_of(std::string(200'000, '\xFF'))), kNumbersOfNothing);
  const auto details = details_of(std::string(500, 'x') + tag_block("t", "a", "b", "c"));
  EXPECT_TRUE(details.etiquetas.empty()) << "a text that ends like an mp3";
}

TEST(Mp3Details, the_short_tag_gives_what_the_long_one_lacks) {
  std::string block = tag_block("short", "a\xF1o", "b", "c");
  block[126] = '\7';
  block[127] = '\x11';
  const auto details =
      details_of(id3_block(3, id3_frame(3, "TIT2", kZeroByte + "long")) + kSound + block);
  EXPECT_EQ(tag_of(details, "title"), "long");
  EXPECT_EQ(tag_of(details, "artist"), "a\xF1o");
  EXPECT_EQ(tag_of(details, "date"), "1999");
  EXPECT_EQ(tag_of(details, "track"), "7");
  EXPECT_EQ(tag_of(details, "genre"), "Rock");
  EXPECT_EQ(numbers_of(details), kSoundNumbers);
}

struct Id3Version : ::testing::TestWithParam<int> {
  // The name of a frame in this version.
  static std::string name(const std::string& three, const std::string& four) {
    return GetParam() == 2 ? three : four;
  }
  static std::string frame(const std::string& three, const std::string& four,
                           const std::string& content) {
    return id3_frame(GetParam(), name(three, four), content);
  }
  static audio::Detalles read(const std::string& frames, int flags = 0) {
    return details_of(id3_block(GetParam(), frames, flags) + kSound);
  }
};
INSTANTIATE_TEST_SUITE_P(Mp3Details, Id3Version, ::testing::Values(2, 3, 4));

TEST_P(Id3Version, texts_come_in_four_encodings) {
  const auto details =
      read(frame("TT2", "TIT2", kZeroByte + "A\xF1o") +
           frame("TP1", "TPE1", "\1\xFF\xFE" + utf16_bytes("A\xF1o") + std::string(2, '\0')) +
           frame("TP2", "TPE2", "\1\xFE\xFF" + utf16_bytes("A\xF1o", true)) +
           frame("TAL", "TALB", "\2" + utf16_bytes("A\xF1o", true)) +
           frame("TCM", "TCOM",
                 "\3"
                 "A\xC3\xB1o \xE6\x97\xA5") +
           frame("TPB", "TPUB", "\1\xFF\xFE\x3D\xD8\x00\xDE\x3D\xD8"));
  EXPECT_EQ(tag_of(details, "title"), "A\xF1o");
  EXPECT_EQ(tag_of(details, "artist"), "A\xF1o");
  EXPECT_EQ(tag_of(details, "album_artist"), "A\xF1o");
  EXPECT_EQ(tag_of(details, "album"), "A\xF1o");
  EXPECT_EQ(tag_of(details, "composer"), "A\xF1o ?");
  EXPECT_EQ(numbers_of(details), kSoundNumbers);
}

TEST_P(Id3Version, comments_and_own_fields_have_a_description) {
  const auto details =
      read(frame("COM", "COMM", kZeroByte + "spa" + kZeroByte + "hola") +
           frame("COM", "COMM",
                 "\1spa\xFF\xFE" + std::string(2, '\0') + "\xFF\xFE" + utf16_bytes("dos")) +
           frame("COM", "COMM", kZeroByte + "engiTunNORM" + kZeroByte + " 0012") +
           frame("TXX", "TXXX", kZeroByte + "Mood" + kZeroByte + "alegre") +
           frame("COM", "COMM", kZeroByte + "spa"));
  EXPECT_EQ(tag_of(details, "comment"), "hola; dos");
  EXPECT_EQ(tag_of(details, "mood"), "alegre");
  EXPECT_EQ(details.etiquetas.size(), 2u);
}

TEST_P(Id3Version, genres_may_be_numbers) {
  const auto genre = [&](const std::string& text) {
    return tag_of(read(frame("TCO", "TCON", kZeroByte + text)), "genre");
  };
  EXPECT_EQ(genre("(17)"), "Rock");
  EXPECT_EQ(genre("17"), "Rock");
  EXPECT_EQ(genre("(17)Rock latino"), "Rock latino");
  EXPECT_EQ(genre("(250)"), "(250)");
  EXPECT_EQ(genre("80s"), "80s");
  EXPECT_EQ(genre("(RX)"), "(RX)");
  EXPECT_EQ(genre("Jota"), "Jota");
}

TEST_P(Id3Version, pictures_and_unknown_frames_are_passed_over) {
  const std::string file = id3_block(GetParam(), frame("PIC", "APIC", std::string(1'000'000, 'p')) +
                                                     frame("XYZ", "XYZW", "unknown") +
                                                     frame("TT2", "TIT2", kZeroByte + "Tema")) +
                           kSound;
  audio::ByteSource source = source_of(file, file.size());
  const auto details = audio::read_details(source);
  EXPECT_EQ(tag_of(details, "title"), "Tema");
  EXPECT_EQ(numbers_of(details), kSoundNumbers);
  EXPECT_LE(source.blocks_read(), 25u);
}

TEST_P(Id3Version, the_frames_end_where_zeros_begin) {
  const auto details = read(frame("TT2", "TIT2", kZeroByte + "Tema") + std::string(2000, '\0') +
                            frame("TP1", "TPE1", kZeroByte + "none"));
  EXPECT_EQ(tag_of(details, "title"), "Tema");
  EXPECT_EQ(tag_of(details, "artist"), "(none)");
  EXPECT_EQ(numbers_of(details), kSoundNumbers);
}

TEST_P(Id3Version, zeros_may_be_stuffed_after_bytes_that_look_like_sound) {
  constexpr int kStuffed = 0x80;
  std::string frames;
  if (GetParam() == 4) {
    // Frame by frame: a length counts the stuffed bytes.
    frames = id3_frame(4, "TIT2", "\1\xFF" + kZeroByte + "\xFE" + utf16_bytes("A\xF1o"), 2);
  } else {
    frames = frame("TT2", "TIT2", "\1\xFF\xFE" + utf16_bytes("A\xF1o"));
    frames.insert(frames.find('\xFF') + 1, kZeroByte);
  }
  frames += frame("TP1", "TPE1", kZeroByte + "uno");
  const auto details = read(frames, kStuffed);
  EXPECT_EQ(tag_of(details, "title"), "A\xF1o");
  EXPECT_EQ(tag_of(details, "artist"), "uno");
}

TEST_P(Id3Version, a_cut_frame_ends_the_tags) {
  std::string frames =
      frame("TT2", "TIT2", kZeroByte + "Tema") + frame("TP1", "TPE1", kZeroByte + "uno");
  frames.resize(frames.size() - 1);
  const auto details = read(frames);
  EXPECT_EQ(tag_of(details, "title"), "Tema");
  EXPECT_EQ(tag_of(details, "artist"), "(none)");
}

TEST(Mp3Details, an_extended_head_is_passed_over) {
  constexpr int kExtended = 0x40;
  const std::string third = big_endian(6, 4) + std::string(6, '\0');
  EXPECT_EQ(
      tag_of(details_of(id3_block(3, third + id3_frame(3, "TIT2", kZeroByte + "Tema"), kExtended)),
             "title"),
      "Tema");
  const std::string fourth = seven_bits(6) + "\1" + kZeroByte;
  EXPECT_EQ(
      tag_of(details_of(id3_block(4, fourth + id3_frame(4, "TIT2", kZeroByte + "Tema"), kExtended)),
             "title"),
      "Tema");
}

TEST(Mp3Details, a_foot_and_a_second_block_are_passed_over) {
  constexpr int kFoot = 0x10;
  std::string foot = id3_block(4, "", kFoot);
  foot.replace(0, 3, "3DI");
  const auto details =
      details_of(id3_block(4, id3_frame(4, "TIT2", kZeroByte + "Tema"), kFoot) + foot +
                 id3_block(3, id3_frame(3, "TPE1", kZeroByte + "uno")) + kSound);
  EXPECT_EQ(tag_of(details, "title"), "Tema");
  EXPECT_EQ(tag_of(details, "artist"), "uno");
  EXPECT_EQ(numbers_of(details), kSoundNumbers);
}

TEST(Mp3Details, lengths_of_frames_may_be_written_in_eight_bits) {
  const auto eight_bits = [](const std::string& name, const std::string& content) {
    return name + big_endian(content.size(), 4) + std::string(2, '\0') + content;
  };
  for (const std::size_t length : {200u, 256u, 300u, 5000u}) {
    const auto details = details_of(id3_block(4, eight_bits("APIC", std::string(length, 'p')) +
                                                     eight_bits("TIT2", kZeroByte + "Tema")) +
                                    kSound);
    EXPECT_EQ(tag_of(details, "title"), "Tema") << length;
  }
  const auto details = details_of(id3_block(4, id3_frame(4, "APIC", std::string(300, 'p')) +
                                                   id3_frame(4, "TIT2", kZeroByte + "Tema")) +
                                  kSound);
  EXPECT_EQ(tag_of(details, "title"), "Tema");
}

TEST(Mp3Details, compressed_and_encrypted_frames_are_passed_over) {
  const auto title = [](int version, int flags, const std::string& before) {
    return tag_of(details_of(id3_block(version, id3_frame(version, "TIT2",
                                                          before + kZeroByte + "Tema", flags)) +
                             kSound),
                  "title");
  };
  EXPECT_EQ(title(3, 0x80, ""), "(none)");
  EXPECT_EQ(title(3, 0x40, ""), "(none)");
  EXPECT_EQ(title(3, 0x20, "g"), "Tema") << "a group";
  EXPECT_EQ(title(4, 0x08, ""), "(none)");
  EXPECT_EQ(title(4, 0x04, ""), "(none)");
  EXPECT_EQ(title(4, 0x41, "g1234"), "Tema") << "a group and a length";
}

TEST(Mp3Details, several_texts_of_one_frame_are_joined) {
  const auto details = details_of(
      id3_block(4, id3_frame(4, "TPE1", kZeroByte + "uno" + kZeroByte + "dos" + kZeroByte)) +
      kSound);
  EXPECT_EQ(tag_of(details, "artist"), "uno; dos");
}

TEST(Mp3Details, unknown_versions_have_no_tags) {
  for (const int version : {0, 1, 5, 255}) {
    const auto details =
        details_of(id3_block(version, id3_frame(3, "TIT2", kZeroByte + "Tema")) + kSound);
    EXPECT_TRUE(details.etiquetas.empty());
    EXPECT_EQ(numbers_of(details), kSoundNumbers);
  }
}

}  // namespace
}  // namespace ordelan::test
