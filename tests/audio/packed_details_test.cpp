// Details of flac, ogg, m4a and wma files.
#include <gmock/gmock.h>

#include "audio/details_bench.h"

namespace ordelan::test {
namespace {

const std::string kNothing = "- s, - ch, - Hz, - bits, - bit/s";

TEST(FlacDetails, a_usual_file_says_all_of_it) {
  const auto details = details_of(flac_file(
      {{0, stream_info(96000, 2, 24, 96000)},
       {4, comments({"TITLE=Canci\xC3\xB3n", "artist=uno", "ARTIST=dos", "TRACKNUMBER=3",
                     "AlbumArtist=todos", "no field", "=nothing", "empty=", "own field=x"})}},
      std::string(1000, '\1')));
  EXPECT_EQ(numbers_of(details), "1.000 s, 2 ch, 96000 Hz, 24 bits, 8000 bit/s");
  EXPECT_EQ(tag_of(details, "title"), "Canci\xF3n");
  EXPECT_EQ(tag_of(details, "artist"), "uno; dos");
  EXPECT_EQ(tag_of(details, "track"), "3");
  EXPECT_EQ(tag_of(details, "album_artist"), "todos");
  EXPECT_EQ(tag_of(details, "own field"), "x");
  EXPECT_EQ(details.etiquetas.size(), 5u);
}

TEST(FlacDetails, a_large_picture_before_the_tags_is_passed_over) {
  const std::string file = flac_file({{0, stream_info(44100, 1, 16, 44100)},
                                      {6, std::string(5'000'000, 'p')},
                                      {4, comments({"title=Tema"})}},
                                     "sound");
  audio::ByteSource source = source_of(file, file.size());
  EXPECT_EQ(tag_of(audio::read_details(source), "title"), "Tema");
  EXPECT_LE(source.blocks_read(), 4u);
}

TEST(FlacDetails, only_the_block_of_tags_has_tags) {
  const auto details = details_of(flac_file({{0, stream_info(44100, 1, 16, 44100)},
                                             {2, comments({"title=of a program"})},
                                             {4, comments({"artist=uno"})}},
                                            "sound"));
  EXPECT_EQ(tag_of(details, "title"), "(none)");
  EXPECT_EQ(tag_of(details, "artist"), "uno");
}

TEST(FlacDetails, a_file_that_was_cut_in_its_description_says_nothing) {
  const std::string file = flac_file({{0, stream_info(44100, 1, 16, 44100)}}, "");
  EXPECT_EQ(numbers_of(details_of(file.substr(0, 20))), kNothing);
}

TEST(FlacDetails, a_file_that_does_not_say_how_long_it_is_has_no_duration) {
  EXPECT_EQ(numbers_of(details_of(flac_file({{0, stream_info(44100, 2, 16, 0)}}, "sound"))),
            "- s, 2 ch, 44100 Hz, 16 bits, - bit/s");
}

TEST(FlacDetails, a_block_of_an_mp3_may_stand_before_it) {
  const auto details =
      details_of(id3_block(4, id3_frame(4, "TIT2", "\x03Tema")) +
                 flac_file({{0, stream_info(44100, 2, 16, 44100)}}, std::string(100, '\1')));
  EXPECT_EQ(numbers_of(details), "1.000 s, 2 ch, 44100 Hz, 16 bits, 800 bit/s");
  EXPECT_EQ(tag_of(details, "title"), "Tema");
}

std::string vorbis_file(const std::string& tags, std::uint64_t granule,
                        std::size_t segments = 255) {
  return ogg_packet(7, 0, vorbis_head(2, 44100)) + ogg_packet(7, 0, "\x03vorbis" + tags, segments) +
         ogg_packet(7, 0, "\x05vorbis...") + ogg_packet(7, granule, std::string(2000, '\1'));
}

TEST(OggDetails, vorbis_lasts_until_its_last_granule) {
  const auto details = details_of(vorbis_file(comments({"title=Tema"}), 44100));
  EXPECT_EQ(details.duracion, 1.0);
  EXPECT_EQ(details.canales, 2);
  EXPECT_EQ(details.frecuencia, 44100);
  EXPECT_EQ(details.bits, std::nullopt);
  EXPECT_NEAR(static_cast<double>(details.velocidad.value()), 16000, 1000);
  EXPECT_EQ(tag_of(details, "title"), "Tema");
}

TEST(OggDetails, tags_may_be_cut_into_pages_anywhere) {
  const std::string tags =
      comments({"title=" + std::string(600, 't'), "album=" + std::string(255, 'a'),
                "artist=" + std::string(1000, 'z')});
  for (const std::size_t segments : {1u, 2u, 3u, 7u}) {
    const auto details = details_of(vorbis_file(tags, 44100, segments));
    EXPECT_EQ(tag_of(details, "title"), std::string(600, 't')) << segments;
    EXPECT_EQ(tag_of(details, "album"), std::string(255, 'a')) << segments;
    EXPECT_EQ(tag_of(details, "artist"), std::string(1000, 'z')) << segments;
  }
}

TEST(OggDetails, tags_of_a_length_that_fills_its_segments_end_in_an_empty_one) {
  std::string tags = comments({"title=" + std::string(1000, 't')});
  tags += std::string(255 * 8 - 7 - tags.size(), '\0');
  EXPECT_EQ(tag_of(details_of(vorbis_file(tags, 44100)), "title"), std::string(1000, 't'));
}

TEST(OggDetails, a_large_picture_among_the_tags_is_passed_over) {
  const std::string file = vorbis_file(
      comments({"METADATA_BLOCK_PICTURE=" + std::string(2'000'000, 'p'), "title=Tema"}), 44100);
  audio::ByteSource source = source_of(file, file.size());
  const auto details = audio::read_details(source);
  EXPECT_EQ(tag_of(details, "title"), "Tema");
  EXPECT_EQ(details.etiquetas.size(), 1u);
  EXPECT_EQ(details.duracion, 1.0);
  EXPECT_LE(source.blocks_read(), 60u);
}

TEST(OggDetails, other_streams_and_open_pages_are_passed_over) {
  const std::string file =
      ogg_packet(1, 0, "a picture") + ogg_packet(7, 0, vorbis_head(1, 8000)) +
      ogg_packet(1, 0, std::string(300, 'p')) +
      ogg_packet(7, 0, "\x03vorbis" + comments({"title=" + std::string(300, 't')}), 1)
          .substr(0, 283) +
      ogg_packet(1, 0, "between") +
      ogg_packet(7, 0, "\x03vorbis" + comments({"title=" + std::string(300, 't')}), 1).substr(283) +
      ogg_packet(7, 16000, "sound") + ogg_packet(7, ~std::uint64_t{0}, "more of it") +
      ogg_packet(1, 99'999'999, "the end of the other");
  const auto details = details_of(file);
  EXPECT_EQ(details.duracion, 2.0);
  EXPECT_EQ(details.frecuencia, 8000);
  EXPECT_EQ(tag_of(details, "title"), std::string(300, 't'));
}

TEST(OggDetails, opus_counts_48000_a_second_and_begins_late) {
  const std::string head = std::string("OpusHead\1\2") + little_endian(312, 2) +
                           little_endian(44100, 4) + std::string(3, '\0');
  const auto details =
      details_of(ogg_packet(7, 0, head) + ogg_packet(7, 0, "OpusTags" + comments({"title=Tema"})) +
                 ogg_packet(7, 48312, std::string(600, '\1')));
  EXPECT_EQ(details.duracion, 1.0);
  EXPECT_EQ(details.canales, 2);
  EXPECT_EQ(details.frecuencia, 48000);
  EXPECT_EQ(tag_of(details, "title"), "Tema");
}

TEST(OggDetails, flac_and_speex_may_stand_inside) {
  const std::string flac =
      "\x7F"
      "FLAC\1" +
      std::string(1, '\0') + big_endian(1, 2) + "fLaC" + std::string(1, '\0') + big_endian(34, 3) +
      stream_info(48000, 2, 24, 0);
  auto details = details_of(ogg_packet(7, 0, flac) +
                            ogg_packet(7, 0,
                                       "\x84"
                                       "123" +
                                           comments({"title=Tema"})) +
                            ogg_packet(7, 96000, "sound"));
  EXPECT_EQ(details.duracion, 2.0);
  EXPECT_EQ(details.bits, 24);
  EXPECT_EQ(tag_of(details, "title"), "Tema");

  std::string speex = "Speex   " + std::string(72, '\0');
  speex.replace(36, 4, little_endian(16000, 4));
  speex.replace(48, 4, little_endian(1, 4));
  details = details_of(ogg_packet(7, 0, speex) + ogg_packet(7, 0, comments({"title=Tema"})) +
                       ogg_packet(7, 16000, "sound"));
  EXPECT_EQ(details.duracion, 1.0);
  EXPECT_EQ(details.canales, 1);
  EXPECT_EQ(tag_of(details, "title"), "Tema");
}

TEST(OggDetails, a_file_without_sound_says_nothing) {
  EXPECT_EQ(numbers_of(details_of(ogg_packet(1, 0, "a picture") + ogg_packet(1, 50, "more"))),
            kNothing);
  EXPECT_EQ(numbers_of(details_of("OggS")), kNothing);
}

// An m4a with one track of sound.
std::string sample_entry(const std::string& name, int channels, int bits, std::uint64_t rate,
                         const std::string& inside = "") {
  return box("stsd", std::string(4, '\0') + big_endian(1, 4) +
                         box(name, std::string(6, '\0') + big_endian(1, 2) + std::string(8, '\0') +
                                       big_endian(static_cast<std::uint64_t>(channels), 2) +
                                       big_endian(static_cast<std::uint64_t>(bits), 2) +
                                       std::string(4, '\0') + big_endian(rate << 16, 4) + inside));
}
std::string length_box(const std::string& name, std::uint64_t unit, std::uint64_t units) {
  return box(name, std::string(12, '\0') + big_endian(unit, 4) + big_endian(units, 4) +
                       std::string(80, '\0'));
}
std::string track(const std::string& kind, const std::string& entry, std::uint64_t unit,
                  std::uint64_t units) {
  return box("trak", box("tkhd", std::string(84, '\0')) +
                         box("mdia", length_box("mdhd", unit, units) +
                                         box("hdlr", std::string(8, '\0') + kind + "12345") +
                                         box("minf", box("stbl", entry))));
}
std::string item(const std::string& name, const std::string& text, int kind = 1) {
  return box(name, box("data", big_endian(static_cast<std::uint64_t>(kind), 4) +
                                   std::string(4, '\0') + text));
}
std::string tag_boxes(const std::string& items) {
  return box("udta", box("meta", std::string(4, '\0') + box("hdlr", std::string(25, '\0')) +
                                     box("ilst", items)));
}
const std::string kKind = box("ftyp", "M4A 1234");
// 48000 Hz, 6 channels.
const std::string kAac =
    box("esds", std::string(4, '\0') + "\x03\x80\x80\x80\x19" + std::string(3, '\0') + "\x04\x11" +
                    std::string(13, '\0') + "\x05\x02\x11\xB0");

TEST(M4aDetails, the_description_may_stand_before_or_after_the_sound) {
  const std::string moov =
      box("moov", length_box("mvhd", 1000, 2000) +
                      track("soun", sample_entry("mp4a", 2, 16, 48000, kAac), 48000, 97024) +
                      tag_boxes(item("\xA9nam", "Canci\xC3\xB3n")));
  const std::string mdat = box("mdat", std::string(5000, '\1'));
  for (const std::string& file : {kKind + moov + mdat, kKind + mdat + moov,
                                  kKind + box("free", "") + mdat + box("free", "abc") + moov}) {
    const auto details = details_of(file);
    EXPECT_EQ(numbers_of(details), "2.000 s, 6 ch, 48000 Hz, - bits, 19789 bit/s");
    EXPECT_EQ(tag_of(details, "title"), "Canci\xF3n");
  }
}

TEST(M4aDetails, boxes_beyond_4_gb_have_a_longer_length) {
  const std::uint64_t bytes = 5'000'000'000;
  const std::string head = kKind + big_endian(1, 4) + "mdat" + big_endian(16 + bytes, 8);
  const std::string moov =
      box("moov", track("soun", sample_entry("mp4a", 2, 16, 44100), 44100, 44'100'000));
  const std::uint64_t size = head.size() + bytes + moov.size();
  audio::ByteSource source(size, [&](std::uint64_t offset, std::span<std::uint8_t> buffer) {
    const std::uint64_t count = std::min<std::uint64_t>(buffer.size(), size - offset);
    for (std::size_t i = 0; i < count; ++i) {
      const std::uint64_t at = offset + i;
      const bool after = at >= head.size() + bytes;
      const char byte = at < head.size() ? head[static_cast<std::size_t>(at)]
                        : after          ? moov[static_cast<std::size_t>(at - head.size() - bytes)]
                                         : '\0';
      buffer[i] = static_cast<std::uint8_t>(byte);
    }
    return static_cast<std::size_t>(count);
  });
  EXPECT_EQ(numbers_of(audio::read_details(source)),
            "1000.000 s, 2 ch, 44100 Hz, - bits, 40000000 bit/s");
  EXPECT_LE(source.blocks_read(), 4u);
}

TEST(M4aDetails, lossless_sound_says_its_bits_in_a_box_of_its_own) {
  const std::string cookie = std::string(4, '\0') + big_endian(4096, 4) + '\0' + '\x18' +
                             std::string(3, '\1') + '\x02' + std::string(10, '\1') +
                             big_endian(96000, 4);
  const auto details = details_of(
      kKind + box("moov", track("soun", sample_entry("alac", 1, 16, 0, box("alac", cookie)), 96000,
                                96000)));
  EXPECT_EQ(numbers_of(details), "1.000 s, 2 ch, 96000 Hz, 24 bits, - bit/s");
}

TEST(M4aDetails, some_programs_put_these_boxes_into_another) {
  const std::string cookie = std::string(4, '\0') + big_endian(4096, 4) + '\0' + '\x18' +
                             std::string(3, '\1') + '\x01' + std::string(10, '\1') +
                             big_endian(48000, 4);
  const std::string wave = box("wave", box("frma", "alac") + box("alac", cookie));
  const auto details = details_of(
      kKind + box("moov", track("soun", sample_entry("alac", 2, 16, 44100, wave), 48000, 48000)));
  EXPECT_EQ(numbers_of(details), "1.000 s, 1 ch, 48000 Hz, 24 bits, - bit/s");
}

TEST(M4aDetails, the_kind_of_plain_samples_says_their_bits) {
  const auto bits = [](const std::string& kind) {
    return details_of(kKind +
                      box("moov", track("soun", sample_entry(kind, 2, 16, 44100), 44100, 44100)))
        .bits;
  };
  EXPECT_EQ(bits("twos"), 16);
  EXPECT_EQ(bits("in24"), 24);
  EXPECT_EQ(bits("in32"), 32);
  EXPECT_EQ(bits("fl32"), 32);
  EXPECT_EQ(bits("fl64"), 64);
  EXPECT_EQ(bits("mp4a"), std::nullopt);
}

TEST(M4aDetails, a_rate_that_does_not_fit_is_the_unit_of_time) {
  const auto details =
      details_of(kKind + box("moov", track("soun", sample_entry("sowt", 2, 24, 0), 96000, 192000)));
  EXPECT_EQ(numbers_of(details), "2.000 s, 2 ch, 96000 Hz, 24 bits, - bit/s");
}

TEST(M4aDetails, long_lengths_have_a_header_of_their_own) {
  const std::string header = box("mdhd", "\1" + std::string(19, '\0') + big_endian(48000, 4) +
                                             big_endian(240'000'000'000, 8) + std::string(8, '\0'));
  const auto details = details_of(
      kKind +
      box("moov",
          box("trak",
              box("mdia", header + box("hdlr", std::string(8, '\0') + "soun") +
                              box("minf", box("stbl", sample_entry("mp4a", 2, 16, 48000)))))));
  EXPECT_EQ(numbers_of(details), "5000000.000 s, 2 ch, 48000 Hz, - bits, - bit/s");
}

TEST(M4aDetails, a_picture_track_is_passed_over) {
  const auto details =
      details_of(kKind +
                 box("moov", length_box("mvhd", 1000, 9000) +
                                 track("vide", sample_entry("avc1", 9, 9, 99), 25, 225) +
                                 track("soun", sample_entry("mp4a", 2, 16, 44100), 44100, 44100)) +
                 box("mdat", std::string(5000, '\1')));
  EXPECT_EQ(numbers_of(details), "1.000 s, 2 ch, 44100 Hz, - bits, - bit/s");
}

TEST(M4aDetails, a_file_in_parts_has_no_duration) {
  const auto details = details_of(
      kKind + box("moov", length_box("mvhd", 1000, 0) +
                              track("soun", sample_entry("mp4a", 2, 16, 44100), 44100, 0)));
  EXPECT_EQ(details.duracion, std::nullopt);
  EXPECT_EQ(details.frecuencia, 44100);
}

TEST(M4aDetails, tags_are_texts_numbers_and_names_of_their_own) {
  const std::string items =
      item(
          "\xA9"
          "ART",
          "uno") +
      item("aART", "todos") +
      item(
          "\xA9"
          "day",
          "2001") +
      item("trkn", std::string(2, '\0') + big_endian(3, 2) + big_endian(12, 2), 0) +
      item("disk", std::string(2, '\0') + big_endian(1, 2) + big_endian(0, 2), 0) +
      item("gnre", big_endian(18, 2), 0) +
      item(
          "\xA9"
          "cmt",
          utf16_bytes("dos", true), 2) +
      item("covr", std::string(100'000, 'p'), 13) +
      box("----", box("mean", "....com") + box("name", "....MOOD") +
                      box("data", big_endian(1, 4) + "....alegre")) +
      box("----", box("mean", "....com") + box("name", "....iTunNORM") +
                      box("data", big_endian(1, 4) + "....0123"));
  const auto sound = track("soun", sample_entry("mp4a", 2, 16, 44100), 44100, 44100);
  const auto bare = box("meta", box("hdlr", std::string(25, '\0')) + box("ilst", items));
  for (const std::string& tags : {tag_boxes(items), bare}) {
    const auto details = details_of(kKind + box("moov", sound + tags));
    EXPECT_EQ(tag_of(details, "artist"), "uno");
    EXPECT_EQ(tag_of(details, "album_artist"), "todos");
    EXPECT_EQ(tag_of(details, "date"), "2001");
    EXPECT_EQ(tag_of(details, "track"), "3/12");
    EXPECT_EQ(tag_of(details, "disc"), "1");
    EXPECT_EQ(tag_of(details, "genre"), "Rock");
    EXPECT_EQ(tag_of(details, "comment"), "dos");
    EXPECT_EQ(tag_of(details, "mood"), "alegre");
    EXPECT_EQ(details.etiquetas.size(), 8u);
  }
}

TEST(M4aDetails, sound_with_a_doubled_rate_says_the_rate_that_is_heard) {
  const auto with = [](const std::string& config) {
    const std::string esds =
        box("esds", std::string(4, '\0') + "\x03\x19" + std::string(3, '\0') + "\x04\x11" +
                        std::string(13, '\0') + "\x05" + static_cast<char>(config.size()) + config);
    return details_of(
        kKind + box("moov", track("soun", sample_entry("mp4a", 2, 16, 22050, esds), 22050, 22050)));
  };
  // 5 bits of kind, 4 of rate, 4 of channels, 4 of the doubled rate.
  EXPECT_EQ(numbers_of(with("\x2B\x92\x08")), "1.000 s, 2 ch, 44100 Hz, - bits, - bit/s");
  EXPECT_EQ(numbers_of(with("\xEB\x8A\x08")), "1.000 s, 2 ch, 44100 Hz, - bits, - bit/s")
      << "one channel that becomes two";
  EXPECT_EQ(numbers_of(with("\x13\x88")), "1.000 s, 1 ch, 22050 Hz, - bits, - bit/s");
  EXPECT_EQ(numbers_of(with("\x13")), "1.000 s, 2 ch, 22050 Hz, - bits, - bit/s") << "cut off";
}

// A wma.
std::string object(std::string_view kind, const std::string& content) {
  return std::string(kind) + little_endian(24 + content.size(), 8) + content;
}
constexpr std::string_view kAsf("\x30\x26\xB2\x75\x8E\x66\xCF\x11\xA6\xD9\0\xAA\0\x62\xCE\x6C", 16);
constexpr std::string_view kAsfFile(
    "\xA1\xDC\xAB\x8C\x47\xA9\xCF\x11\x8E\xE4\0\xC0\x0C\x20\x53\x65", 16);
constexpr std::string_view kAsfStream(
    "\x91\x07\xDC\xB7\xB7\xA9\xCF\x11\x8E\xE6\0\xC0\x0C\x20\x53\x65", 16);
constexpr std::string_view kAsfSound(
    "\x40\x9E\x69\xF8\x4D\x5B\xCF\x11\xA8\xFD\0\x80\x5F\x5C\x44\x2B", 16);
constexpr std::string_view kAsfTexts("\x33\x26\xB2\x75\x8E\x66\xCF\x11\xA6\xD9\0\xAA\0\x62\xCE\x6C",
                                     16);
constexpr std::string_view kAsfMore(
    "\x40\xA4\xD0\xD2\x07\xE3\xD2\x11\x97\xF0\0\xA0\xC9\x5E\xA8\x50", 16);

std::string wma_file(int kind, const std::string& more) {
  const std::string length = std::string(40, '\0') + little_endian(35'000'000, 8) +
                             std::string(8, '\0') + little_endian(1500, 8) + std::string(16, '\0');
  const std::string format = little_endian(static_cast<std::uint64_t>(kind), 2) +
                             little_endian(2, 2) + little_endian(44100, 4) +
                             little_endian(16000, 4) + little_endian(743, 2) + little_endian(16, 2);
  const std::string picture = std::string(16, 'v') + std::string(56, '\1');
  const std::string objects =
      object(kAsfStream, picture) + object(kAsfFile, length) +
      object("0123456789abcdef", std::string(10'000, 'x')) +
      object(kAsfStream, std::string(kAsfSound) + std::string(38, '\0') + format) + more;
  return std::string(kAsf) + little_endian(30 + objects.size(), 8) + little_endian(5, 4) + "\1\2" +
         objects + "the sound";
}

TEST(WmaDetails, the_time_before_the_sound_is_left_out) {
  EXPECT_EQ(numbers_of(details_of(wma_file(0x161, ""))),
            "2.000 s, 2 ch, 44100 Hz, - bits, 128000 bit/s");
  EXPECT_EQ(details_of(wma_file(0x163, "")).bits, 16) << "lossless";
}

TEST(WmaDetails, the_first_sound_of_several_streams_counts) {
  const std::string other = little_endian(1, 2) + little_endian(6, 2) + little_endian(8000, 4) +
                            little_endian(1, 4) + little_endian(1, 2) + little_endian(8, 2);
  const std::string more =
      object(kAsfStream, std::string(kAsfSound) + std::string(38, '\0') + other) +
      object(kAsfStream, std::string(16, 'v') + std::string(56, '\1'));
  EXPECT_EQ(numbers_of(details_of(wma_file(0x161, more))),
            "2.000 s, 2 ch, 44100 Hz, - bits, 128000 bit/s");
  const std::string picture = object(kAsfStream, std::string(16, 'v') + std::string(56, '\1'));
  EXPECT_EQ(numbers_of(details_of(std::string(kAsf) + little_endian(30 + picture.size(), 8) +
                                  little_endian(1, 4) + "\1\2" + picture)),
            kNothing)
      << "a picture is no sound";
}

TEST(WmaDetails, tags_stand_in_two_places) {
  const std::string title = utf16_bytes(
                                "T\xED"
                                "tulo") +
                            std::string(2, '\0');
  const std::string artist = utf16_bytes("uno");
  const std::string texts = little_endian(title.size(), 2) + little_endian(artist.size(), 2) +
                            std::string(6, '\0') + title + artist;
  const auto attribute = [](const std::string& name, int kind, const std::string& value) {
    const std::string wide = utf16_bytes(name) + std::string(2, '\0');
    return little_endian(wide.size(), 2) + wide +
           little_endian(static_cast<std::uint64_t>(kind), 2) + little_endian(value.size(), 2) +
           value;
  };
  const std::string more = little_endian(6, 2) + attribute("WM/Rating", 3, little_endian(99, 4)) +
                           attribute("WM/AlbumTitle", 0, utf16_bytes("disco")) +
                           attribute("WM/Picture", 1, std::string(30'000, 'p')) +
                           attribute("WM/TrackNumber", 3, little_endian(7, 4)) +
                           attribute("IsVBR", 2, little_endian(1, 4)) +
                           attribute("Author", 0, utf16_bytes("uno"));
  const auto details =
      details_of(wma_file(0x161, object(kAsfTexts, texts) + object(kAsfMore, more)));
  EXPECT_EQ(tag_of(details, "title"),
            "T\xED"
            "tulo");
  EXPECT_EQ(tag_of(details, "artist"), "uno");
  EXPECT_EQ(tag_of(details, "album"), "disco");
  EXPECT_EQ(tag_of(details, "track"), "7");
  EXPECT_EQ(details.etiquetas.size(), 4u);
}

}  // namespace
}  // namespace ordelan::test
