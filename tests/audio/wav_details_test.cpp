#include <gmock/gmock.h>

#include "audio/details_bench.h"

namespace ordelan::test {
namespace {

const std::string kSecond(88200, '\1');  // of 44100 Hz, mono, 16 bits
const std::string kMono = chunk("fmt ", format_chunk(1, 1, 44100, 16));
const std::string kMonoSecond = "1.000 s, 1 ch, 44100 Hz, 16 bits, 705600 bit/s";

TEST(WavDetails, a_usual_file_says_all_of_it) {
  EXPECT_EQ(numbers_of(details_of(wav_header(2, 48000, 24, 288'000) + std::string(288'000, '\1'))),
            "1.000 s, 2 ch, 48000 Hz, 24 bits, 2304000 bit/s");
}

TEST(WavDetails, chunks_may_stand_in_any_order) {
  const std::string data = chunk("data", kSecond);
  const std::string info = chunk("LIST", "INFO" + chunk("INAM", "Tema\0"));
  for (const std::string& chunks :
       {kMono + data + info, info + kMono + data, data + info + kMono, data + kMono + info,
        chunk("JUNK", "odd") + info + chunk("f   ", "fmt") + kMono + chunk("fact", "1234") +
            data}) {
    const auto details = details_of(wav_file(chunks));
    EXPECT_EQ(numbers_of(details), kMonoSecond);
  }
}

TEST(WavDetails, the_details_see_what_the_tooltip_does_not) {
  const std::string file = wav_file(chunk("JUNK", "f") + kMono + chunk("data", kSecond));
  EXPECT_THAT(InfoBench().text_of("wav", file), ::testing::HasSubstr("Canales: 0"));
  EXPECT_EQ(numbers_of(details_of(file)), kMonoSecond);
}

TEST(WavDetails, the_first_format_and_the_first_sound_count) {
  const std::string second = chunk("fmt ", format_chunk(1, 2, 8000, 8)) + chunk("data", "1234");
  EXPECT_EQ(numbers_of(details_of(wav_file(kMono + chunk("data", kSecond) + second))), kMonoSecond);
}

TEST(WavDetails, sound_that_the_file_does_not_hold_has_no_duration) {
  std::string file = wav_file(kMono + chunk("data", kSecond));
  file.resize(file.size() / 2);
  EXPECT_NEAR(details_of(file).duracion.value(), 0.5, 0.001);
}

TEST(WavDetails, a_recording_that_was_not_ended_lasts_to_its_end) {
  EXPECT_EQ(numbers_of(details_of("RIFF" + std::string(4, '\0') + "WAVE" + kMono + "data" +
                                  std::string(4, '\0') + kSecond)),
            kMonoSecond);
  EXPECT_EQ(
      numbers_of(details_of("RIFF\xFF\xFF\xFF\xFFWAVE" + kMono + "data\xFF\xFF\xFF\xFF" + kSecond)),
      kMonoSecond);
  EXPECT_EQ(details_of(wav_file(kMono + chunk("data", "") + chunk("JUNK", kSecond))).duracion, 0.0)
      << "an empty recording that was ended";
}

TEST(WavDetails, rf64_has_its_length_in_a_chunk_of_its_own) {
  const std::uint64_t bytes = 5'000'000'000;
  for (const std::string kind : {"RF64", "BW64"}) {
    const std::string head = kind + "\xFF\xFF\xFF\xFFWAVE" +
                             chunk("ds64", little_endian(bytes + 80, 8) + little_endian(bytes, 8) +
                                               little_endian(bytes / 2, 8) + little_endian(0, 4)) +
                             kMono + "data\xFF\xFF\xFF\xFF";
    audio::ByteSource source = source_of(head, head.size() + bytes + 2000);
    const auto details = audio::read_details(source);
    EXPECT_EQ(numbers_of(details), "56689.342 s, 1 ch, 44100 Hz, 16 bits, 705600 bit/s") << kind;
    EXPECT_LE(source.blocks_read(), 2u);
  }
}

TEST(WavDetails, the_long_form_says_how_many_bits_are_used) {
  const auto extensible = [](std::uint64_t bits, std::uint64_t used) {
    std::string format = format_chunk(0xFFFE, 2, 48000, bits);
    format += little_endian(22, 2) + little_endian(used, 2) + little_endian(3, 4) +
              little_endian(1, 2) + std::string(14, '\0');
    return details_of(wav_file(chunk("fmt ", format) + chunk("data", std::string(384'000, '\1'))));
  };
  EXPECT_EQ(numbers_of(extensible(32, 24)), "1.000 s, 2 ch, 48000 Hz, 24 bits, 3072000 bit/s");
  EXPECT_EQ(numbers_of(extensible(32, 32)), "1.000 s, 2 ch, 48000 Hz, 32 bits, 3072000 bit/s");
  EXPECT_EQ(extensible(32, 0).bits, 32);
  EXPECT_EQ(extensible(16, 24).bits, 16) << "no more bits than there is room for";
}

TEST(WavDetails, packed_sound_lasts_as_many_samples_as_the_file_says) {
  std::string format = little_endian(0x11, 2) + little_endian(1, 2) + little_endian(8000, 4) +
                       little_endian(4000, 4) + little_endian(256, 2) + little_endian(4, 2);
  const std::string data = chunk("data", std::string(4096, '\1'));
  EXPECT_EQ(numbers_of(details_of(
                wav_file(chunk("fmt ", format) + chunk("fact", little_endian(8000, 4)) + data))),
            "1.000 s, 1 ch, 8000 Hz, 4 bits, 32000 bit/s");
  std::string unrated = format;
  unrated.replace(8, 4, std::string(4, '\0'));
  EXPECT_EQ(
      details_of(wav_file(chunk("fmt ", unrated) + chunk("fact", little_endian(8000, 4)) + data))
          .velocidad,
      32768);
  EXPECT_EQ(numbers_of(details_of(wav_file(chunk("fmt ", format) + data))),
            "1.024 s, 1 ch, 8000 Hz, 4 bits, 32000 bit/s");
}

TEST(WavDetails, numbers_may_stand_the_other_way_round) {
  std::string format = big_endian(1, 2) + big_endian(1, 2) + big_endian(44100, 4) +
                       big_endian(88200, 4) + big_endian(2, 2) + big_endian(16, 2);
  const auto details = details_of(
      "RIFX" + big_endian(100, 4) + "WAVE" + chunk("fmt ", format, true) +
      chunk("LIST", "INFO" + chunk("INAM", "Tema", true), true) + chunk("data", kSecond, true));
  EXPECT_EQ(numbers_of(details), kMonoSecond);
  EXPECT_EQ(tag_of(details, "title"), "Tema");
}

TEST(WavDetails, tags_are_utf8_or_bytes_of_the_code_page) {
  const auto details = details_of(wav_file(
      chunk("LIST", "INFO" + chunk("INAM", std::string("Canci\xC3\xB3n\0", 9)) +
                        chunk("IART", "\xD1u\xF1o") + chunk("ICMT", "odd") +
                        chunk("IPRD", "\xE6\x97\xA5 \xE2\x82\xAC") + chunk("IXXX", "unknown")) +
      kMono));
  EXPECT_EQ(tag_of(details, "title"), "Canci\xF3n");
  EXPECT_EQ(tag_of(details, "artist"), "\xD1u\xF1o");
  EXPECT_EQ(tag_of(details, "comment"), "odd");
  EXPECT_EQ(tag_of(details, "album"), "? \x80") << "the code page lacks one";
  EXPECT_EQ(details.etiquetas.size(), 4u);
}

TEST(WavDetails, a_list_of_something_else_has_no_tags) {
  EXPECT_TRUE(details_of(wav_file(chunk("LIST", "adtl" + chunk("INAM", "Tema")) + kMono))
                  .etiquetas.empty());
}

TEST(WavDetails, broadcast_files_say_who_recorded_them) {
  std::string chunk_of_it(602, '\0');
  chunk_of_it.replace(0, 5, "Tomas");
  chunk_of_it.replace(256, 7, "Estudio");
  chunk_of_it.replace(320, 18, "2026-11-2217:30:00");
  const auto details = details_of(wav_file(chunk("bext", chunk_of_it) + kMono));
  EXPECT_EQ(tag_of(details, "description"), "Tomas");
  EXPECT_EQ(tag_of(details, "originator"), "Estudio");
  EXPECT_EQ(tag_of(details, "date"), "2026-11-22");
}

TEST(WavDetails, a_block_of_an_mp3_may_stand_in_a_chunk) {
  const std::string block = id3_block(3, id3_frame(3, "TIT2", std::string(1, '\0') + "Tema"));
  for (const std::string name : {"id3 ", "ID3 "}) {
    EXPECT_EQ(tag_of(details_of(wav_file(kMono + chunk(name, block))), "title"), "Tema");
  }
  EXPECT_EQ(tag_of(details_of(wav_file(kMono + chunk("JUNK", block))), "title"), "(none)");
}

TEST(WavDetails, a_frame_of_no_bytes_leaves_the_rate_that_the_file_states) {
  std::string format = format_chunk(1, 1, 44100, 16);
  format.replace(12, 2, std::string(2, '\0'));
  EXPECT_EQ(numbers_of(details_of(wav_file(chunk("fmt ", format) + chunk("data", kSecond)))),
            kMonoSecond);
}

TEST(WavDetails, a_long_format_chunk_of_a_short_kind_is_of_that_kind) {
  const std::string format = format_chunk(1, 1, 44100, 16) + std::string(24, '\x55');
  EXPECT_EQ(numbers_of(details_of(wav_file(chunk("fmt ", format) + chunk("data", kSecond)))),
            kMonoSecond);
}

TEST(WavDetails, an_empty_recording_that_was_ended_lasts_no_time) {
  EXPECT_EQ(details_of(wav_header(1, 44100, 16)).duracion, 0.0);
}

TEST(WavDetails, packed_rf64_has_its_samples_in_a_chunk_of_its_own) {
  std::string format = format_chunk(0x11, 1, 8000, 4);
  const std::string lengths = little_endian(0, 8) + little_endian(4000, 8);
  const auto seconds = [&](const std::string& kind, const std::string& fact) {
    return details_of(kind + "\xFF\xFF\xFF\xFFWAVE" +
                      chunk("ds64", lengths + little_endian(24000, 8)) + chunk("fmt ", format) +
                      chunk("fact", fact) + chunk("data", std::string(4000, '\1')))
        .duracion;
  };
  EXPECT_EQ(seconds("RF64", "\xFF\xFF\xFF\xFF"), 3.0);
  EXPECT_EQ(seconds("RF64", little_endian(8000, 4)), 1.0);
  EXPECT_EQ(seconds("RIFF", little_endian(8000, 4)), 1.0);
}

TEST(WavDetails, a_list_of_empty_chunks_does_not_hold_up_anything) {
  const std::string head = "RIFF\xFF\xFF\xFF\xFFWAVELIST" + little_endian(0xFFFFFFF0, 4) + "INFO";
  audio::ByteSource source = source_of(head, 5'000'000'000);
  EXPECT_TRUE(audio::read_details(source).etiquetas.empty());
  EXPECT_EQ(source.blocks_read(), audio::ByteSource::kMostBlocks);
}

struct W64Details : ::testing::Test {
  const std::string rest =
      "\xF3\xAC\xD3\x11\x8C\xD1" + std::string(1, '\0') + "\xC0\x4F\x8E\xDB\x8A";
  const std::string riff = std::string("riff\x2E\x91\xCF\x11\xA5\xD6\x28\xDB\x04\xC1\x00\x00", 16) +
                           little_endian(1000, 8);
  const std::string head = riff + "wave" + rest;
  const std::string format = part("fmt ", format_chunk(1, 1, 44100, 16));

  // A chunk whose head states that length.
  std::string part_of_length(const std::string& name, std::uint64_t length) {
    return name + rest + little_endian(length, 8);
  }
  std::string part(const std::string& name, const std::string& content) {
    std::string bytes = part_of_length(name, 24 + content.size()) + content;
    return bytes + std::string((8 - bytes.size() % 8) % 8, '\0');
  }
};

TEST_F(W64Details, it_counts_heads_and_pads_to_eight) {
  EXPECT_EQ(numbers_of(details_of(head + part("junk", "abc") + format + part("data", kSecond))),
            kMonoSecond);
}

TEST_F(W64Details, lengths_that_lead_nowhere_end_the_file) {
  const std::string described = "- s, 1 ch, 44100 Hz, 16 bits, 705600 bit/s";
  for (const std::uint64_t length : {std::uint64_t{0}, std::uint64_t{1}, std::uint64_t{23}}) {
    EXPECT_EQ(numbers_of(details_of(head + format + part_of_length("data", length) + kSecond)),
              described)
        << length;
  }
  for (const std::uint64_t length : {~std::uint64_t{0}, ~std::uint64_t{0} - 7}) {
    EXPECT_EQ(numbers_of(details_of(head + format + part_of_length("junk", length) + kSecond)),
              described);
    EXPECT_EQ(numbers_of(details_of(head + format + part_of_length("data", length) + kSecond)),
              kMonoSecond)
        << "as much as the file has";
  }
  EXPECT_EQ(numbers_of(details_of(head + format + part_of_length("data", 24))),
            "0.000 s, 1 ch, 44100 Hz, 16 bits, 705600 bit/s");
  EXPECT_EQ(numbers_of(details_of(head + format + part_of_length("data", 24).substr(1))),
            described);
}

TEST_F(W64Details, both_names_at_its_beginning_are_asked_for) {
  const std::string nothing = "- s, - ch, - Hz, - bits, - bit/s";
  const std::string body = format + part("data", kSecond);
  EXPECT_EQ(numbers_of(details_of(riff + "list" + rest + body)), nothing);
  EXPECT_EQ(numbers_of(details_of("RIFX" + head.substr(4) + body)), nothing);
  EXPECT_EQ(numbers_of(details_of(head.substr(0, 39))), nothing);
}

TEST(WavDetails, a_wav_without_a_format_says_nothing) {
  EXPECT_EQ(numbers_of(details_of(wav_file(chunk("data", kSecond)))),
            "- s, - ch, - Hz, - bits, - bit/s");
  for (const std::string other : {"RIFF1234AVI ", "RIFF1234", "XXXX1234WAVE"}) {
    EXPECT_EQ(numbers_of(details_of(other + kMono)), "- s, - ch, - Hz, - bits, - bit/s") << other;
  }
}

std::string aif_file(const std::string& kind, const std::string& chunks) {
  return "FORM" + big_endian(4 + chunks.size(), 4) + kind + chunks;
}

std::string common_chunk(const std::string& more) {
  return chunk("COMM",
               big_endian(2, 2) + big_endian(44100, 4) + big_endian(16, 2) +
                   std::string("\x40\x0E\xAC\x44\0\0\0\0\0\0", 10) + more,
               true);
}

TEST(AifDetails, a_usual_file_says_all_of_it) {
  const auto details = details_of(aif_file(
      "AIFF", chunk("NAME", "Tem", true) + chunk("SSND", std::string(100, '\1'), true) +
                  chunk("AUTH", "\xD1u", true) + chunk("ANNO", "uno", true) +
                  chunk("ANNO", "dos", true) + chunk("(c) ", "2026", true) + common_chunk("")));
  EXPECT_EQ(numbers_of(details), "1.000 s, 2 ch, 44100 Hz, 16 bits, 1411200 bit/s");
  EXPECT_EQ(tag_of(details, "title"), "Tem");
  EXPECT_EQ(tag_of(details, "artist"), "\xD1u");
  EXPECT_EQ(tag_of(details, "comment"), "uno; dos");
  EXPECT_EQ(tag_of(details, "copyright"), "2026");
}

TEST(AifDetails, packed_sound_has_the_bit_rate_of_its_bytes) {
  const std::string sound = chunk("SSND", std::string(88200 + 8, '\1'), true);
  EXPECT_EQ(numbers_of(details_of(aif_file("AIFC", common_chunk("ulaw") + sound))),
            "1.000 s, 2 ch, 44100 Hz, 16 bits, 705600 bit/s");
  EXPECT_EQ(numbers_of(details_of(aif_file("AIFC", common_chunk("sowt") + sound))),
            "1.000 s, 2 ch, 44100 Hz, 16 bits, 1411200 bit/s");
}

TEST(AifDetails, one_kind_counts_packets_of_64_samples) {
  EXPECT_EQ(details_of(aif_file("AIFC", common_chunk("ima4"))).duracion, 64.0);
}

TEST(AifDetails, both_names_at_its_beginning_are_asked_for) {
  const std::string nothing = "- s, - ch, - Hz, - bits, - bit/s";
  EXPECT_EQ(numbers_of(details_of(aif_file("ILBM", common_chunk("")))), nothing);
  EXPECT_EQ(numbers_of(details_of("XXXX" + aif_file("AIFF", common_chunk("")).substr(4))), nothing);
}

TEST(AifDetails, the_first_description_counts) {
  const std::string other = chunk("COMM", big_endian(1, 2) + std::string(16, '\1'), true);
  EXPECT_EQ(numbers_of(details_of(aif_file("AIFF", common_chunk("") + other))),
            "1.000 s, 2 ch, 44100 Hz, 16 bits, 1411200 bit/s");
}

TEST(AifDetails, a_block_of_an_mp3_may_stand_in_a_chunk) {
  const std::string block = id3_block(3, id3_frame(3, "TIT2", std::string(1, '\0') + "Tema"));
  const auto title = [&](const std::string& name) {
    return tag_of(details_of(aif_file("AIFF", common_chunk("") + chunk(name, block, true))),
                  "title");
  };
  EXPECT_EQ(title("ID3 "), "Tema");
  EXPECT_EQ(title("id3 "), "Tema");
  EXPECT_EQ(title("JUNK"), "(none)");
}

TEST(AifDetails, a_rate_that_no_file_has_is_left_out) {
  std::string file = aif_file("AIFF", common_chunk(""));
  const std::size_t rate = file.find("\x40\x0E\xAC\x44");
  for (const std::string& bytes :
       {std::string("\x7F\xFF\xFF\xFF"), std::string("\x7F\xFE\xFF\xFF"), std::string(4, '\0'),
        std::string("\x40\x9E\xFF\xFF"), std::string("\x40\x1F\x80\0", 4)}) {
    file.replace(rate, 4, bytes);
    EXPECT_EQ(details_of(file).frecuencia, std::nullopt);
    EXPECT_EQ(details_of(file).duracion, std::nullopt);
  }
}

}  // namespace
}  // namespace ordelan::test
