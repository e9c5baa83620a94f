#include "audio/file_info.h"

#include <gmock/gmock.h>

#include "audio/info_bench.h"
#include "audio/wav_format.h"

namespace ordelan::test {
namespace {

using ::testing::EndsWith;

const std::string kNoInformation = "No tiene información";
const std::string kFourDashRows =
    "Album: --------   \r\nArtista: --------   \r\nComentarios: --------   \r\nTítulo: --------";

std::string wav_rows(const std::string& channels, const std::string& frequency,
                     const std::string& bits) {
  return " Tipo: Wav\r\n Canales: " + channels + "\r\n Frec: " + frequency + "\r\n Bits: " + bits +
         "\r\n";
}

struct InfoAudio : ::testing::Test, InfoBench {};
struct InfoWav : InfoAudio {};
struct InfoMp3 : InfoAudio {};

TEST_F(InfoAudio, other_types_have_no_information) {
  for (const char* extension : {"aif", "wma", "m4a", "ogg", "vip", "", "wave", "mp", "av"}) {
    info.TextoToolTip = "of another file";
    EXPECT_EQ(text_of(extension, wav_header(2, 44100, 16)), kNoInformation) << extension;
  }
}

TEST_F(InfoAudio, extensions_in_capitals_are_other_types) {
  for (const char* extension : {"WAV", "Wav", "waV", "MP3", "Mp3"}) {
    EXPECT_EQ(text_of(extension, wav_header(2, 44100, 16)), kNoInformation) << extension;
  }
}

TEST_F(InfoAudio, the_extension_counts_and_not_the_end_of_the_path) {
  files.contents["D:\\A.WAV"] = wav_header(1, 8000, 8);
  info.InfoAudio("wav", "D:\\A.WAV");
  EXPECT_EQ(info.TextoToolTip, wav_rows("1", "8000", "8"));
}

TEST_F(InfoAudio, the_path_may_change_while_a_wav_pumps) {
  std::string path = "D:\\a.wav";
  files.contents[path] = wav_header(1, 8000, 8);
  pump.on_pump = [&] { path.assign(100, 'x'); };
  info.InfoAudio("wav", path);
  EXPECT_EQ(info.TextoToolTip, wav_rows("1", "8000", "8"));
}

TEST_F(InfoWav, a_usual_file_gives_four_rows_with_line_ends) {
  EXPECT_EQ(text_of("wav", wav_header(2, 44100, 16) + std::string(400, '\1')),
            " Tipo: Wav\r\n Canales: 2\r\n Frec: 44100\r\n Bits: 16\r\n");
}

TEST_F(InfoWav, a_missing_file_leaves_the_text) {
  info.InfoAudio("wav", "D:\\none.wav");
  EXPECT_EQ(info.TextoToolTip, kNoInformation);
  info.TextoToolTip = "before";
  info.InfoWav("D:\\none.wav");
  EXPECT_EQ(info.TextoToolTip, "before");
  info.InfoWav("");
  EXPECT_EQ(info.TextoToolTip, "before");
  EXPECT_EQ(pump.pumps, 0);
}

TEST_F(InfoWav, a_failing_read_leaves_the_text_and_SA) {
  SA = true;
  files.on_read = [](std::uint64_t) { return false; };
  EXPECT_EQ(text_of("wav", wav_header(2, 44100, 32)), kNoInformation);
  EXPECT_TRUE(SA);
}

TEST_F(InfoWav, a_size_with_an_f_hides_the_format) {
  for (std::size_t at = 4; at < 8; ++at) {
    std::string bytes = wav_header(2, 44100, 16);
    bytes[at] = '\x66';
    EXPECT_EQ(text_of("wav", bytes), wav_rows("0", "0", "0")) << at;
  }
}

TEST_F(InfoWav, an_f_in_a_chunk_before_hides_the_format) {
  std::string bytes = wav_header(2, 44100, 16);
  bytes.insert(12, "JUNK" + little_endian(4, 4) + "..f.");
  EXPECT_EQ(text_of("wav", bytes), wav_rows("0", "0", "0"));
  bytes[22] = '.';
  EXPECT_EQ(text_of("wav", bytes), wav_rows("2", "44100", "16"));
}

TEST_F(InfoWav, the_letters_of_a_false_start_are_never_forgotten) {
  EXPECT_EQ(text_of("wav", "ffmt" + std::string(40, '\1')), wav_rows("0", "0", "0"));
  EXPECT_EQ(text_of("wav", "fmfmt " + std::string(40, '\1')), wav_rows("0", "0", "0"));
}

TEST_F(InfoWav, neither_riff_nor_lengths_are_looked_at) {
  EXPECT_EQ(text_of("wav", "xxxfmt " + wav_header(3, 48000, 20).substr(16)),
            wav_rows("3", "48000", "20"));
  EXPECT_EQ(text_of("wav", "FMT " + wav_header(3, 48000, 20).substr(16)), wav_rows("0", "0", "0"));
}

TEST_F(InfoWav, the_f_may_be_the_255th_byte_and_no_later_one) {
  const std::string format = wav_header(2, 96000, 24).substr(12);
  EXPECT_EQ(text_of("wav", std::string(254, '.') + format),
            wav_rows("2", "96000", "24") + " No se reproduce sin tener el codec");
  EXPECT_EQ(text_of("wav", std::string(255, '.') + format), wav_rows("0", "0", "0"));
}

TEST_F(InfoWav, the_numbers_are_signed) {
  std::string bytes = wav_header(2, 44100, 16);
  bytes.replace(22, 2, little_endian(0xFFFF, 2));
  bytes.replace(24, 4, little_endian(0x80000000u, 4));
  bytes.replace(34, 2, little_endian(0x8000, 2));
  EXPECT_EQ(text_of("wav", bytes), wav_rows("-1", "-2147483648", "-32768"));
}

TEST_F(InfoWav, a_number_that_the_file_ends_in_is_0) {
  const std::string bytes = wav_header(2, 44100, 16);
  const auto cut = [&](std::size_t length) { return text_of("wav", bytes.substr(0, length)); };
  EXPECT_EQ(cut(36), wav_rows("2", "44100", "16"));
  EXPECT_EQ(cut(35), wav_rows("2", "44100", "0"));
  EXPECT_EQ(cut(28), wav_rows("2", "44100", "0"));
  EXPECT_EQ(cut(27), wav_rows("2", "0", "0"));
  EXPECT_EQ(cut(23), wav_rows("0", "0", "0"));
  EXPECT_EQ(cut(14), wav_rows("0", "0", "0"));
  EXPECT_EQ(cut(0), wav_rows("0", "0", "0"));
}

TEST_F(InfoWav, only_24_bits_get_a_word_on_the_codec) {
  EXPECT_EQ(text_of("wav", wav_header(2, 44100, 24)),
            wav_rows("2", "44100", "24") + " No se reproduce sin tener el codec");
  EXPECT_THAT(text_of("wav", wav_header(2, 44100, 32)), EndsWith(" Bits: 32\r\n"));
}

TEST_F(InfoWav, a_file_of_32_bits_hides_a_visible_SA) {
  SA = true;
  EXPECT_EQ(text_of("wav", wav_header(2, 44100, 32)), wav_rows("2", "44100", "32"));
  EXPECT_FALSE(SA);
  EXPECT_EQ(hidden, 1);
}

TEST_F(InfoWav, a_file_of_32_bits_leaves_a_hidden_SA_hidden) {
  text_of("wav", wav_header(2, 44100, 32));
  EXPECT_FALSE(SA);
  EXPECT_EQ(hidden, 0);
}

TEST_F(InfoWav, a_file_of_other_bits_leaves_SA_visible) {
  SA = true;
  for (const int bits : {8, 16, 24, 64}) text_of("wav", wav_header(2, 44100, bits));
  EXPECT_TRUE(SA);
}

TEST_F(InfoWav, the_warning_about_other_programs_does_not_reach_the_text) {
  Player = true;
  EXPECT_EQ(text_of("wav", wav_header(2, 44100, 16)), wav_rows("2", "44100", "16"));
  EXPECT_EQ(info.warned_wav(), wav_rows("2", "44100", "16") +
                                   "\r\n Si el contador de tiempo no se mueve"
                                   "\r\n este audio, está ocupado por otra aplicación");
  Player = false;
  text_of("wav", wav_header(1, 44100, 16));
  EXPECT_EQ(info.warned_wav(), wav_rows("1", "44100", "16"));
}

TEST_F(InfoWav, the_window_gets_a_turn_during_the_scan) {
  SA = false;
  pump.on_pump = [this] {
    SA = true;
    info.TextoToolTip = "by a handler";
  };
  EXPECT_EQ(text_of("wav", wav_header(2, 44100, 32)), wav_rows("2", "44100", "32"));
  EXPECT_EQ(pump.pumps, 1);
  EXPECT_FALSE(SA) << "SA is asked for after the turn";
}

// A disk that counts what is open and what is read.
class WatchedFiles final : public ForwardingFiles {
 public:
  using ForwardingFiles::ForwardingFiles;
  int open_files = 0;
  std::uint64_t bytes_read = 0;

  system::Opened<system::InputFile> open(std::string_view path) override {
    std::unique_ptr<system::InputFile> file = ForwardingFiles::open(path);
    if (!file) return system::Reason::not_found;
    return std::make_unique<Watched>(*this, std::move(file));
  }

 private:
  class Watched final : public system::InputFile {
   public:
    Watched(WatchedFiles& files, std::unique_ptr<system::InputFile> file)
        : files_(files), file_(std::move(file)) {
      ++files_.open_files;
    }
    Watched(const Watched&) = delete;
    Watched& operator=(const Watched&) = delete;
    ~Watched() override { --files_.open_files; }
    std::uint64_t size() const override { return file_->size(); }
    std::optional<std::size_t> read(std::uint64_t offset, std::span<std::uint8_t> buffer) override {
      files_.bytes_read += buffer.size();
      return file_->read(offset, buffer);
    }

   private:
    WatchedFiles& files_;
    std::unique_ptr<system::InputFile> file_;
  };
};

TEST_F(InfoAudio, no_file_stays_open_and_only_the_bytes_needed_are_read) {
  WatchedFiles watched(files);
  int during = 0;
  pump.on_pump = [&] { during = watched.open_files; };
  audio::FileInfo own(watched, pump, {[] { return false; }, [] {}, [] { return false; }});
  files.contents["D:\\a.wav"] = wav_header(2, 44100, 16) + std::string(100'000, '\1');
  own.InfoAudio("wav", "D:\\a.wav");
  EXPECT_EQ(during, 1) << "the file is open while the window has its turn";
  EXPECT_EQ(watched.open_files, 0);
  EXPECT_EQ(watched.bytes_read, audio::kWavWindow);

  watched.bytes_read = 0;
  files.contents["D:\\a.mp3"] = std::string(100'000, '\1') + tag_block("t", "a", "b", "c");
  const auto other = watched.open("D:\\a.wav");
  own.InfoAudio("mp3", "D:\\a.mp3");
  EXPECT_EQ(own.TextoToolTip, "Album: b\r\nArtista: a\r\nComentarios: c\r\nTítulo: t\r\n");
  EXPECT_EQ(watched.open_files, 1) << "a file that another part of the program reads stays open";
  EXPECT_EQ(watched.bytes_read, audio::kTagBuffer);

  files.on_read = [](std::uint64_t) { return false; };
  own.InfoAudio("wav", "D:\\a.wav");
  own.InfoAudio("mp3", "D:\\a.mp3");
  EXPECT_EQ(watched.open_files, 1);
}

// A disk whose files are hidden, or locked by another program.
class OddFiles final : public ForwardingFiles {
 public:
  using ForwardingFiles::ForwardingFiles;
  bool hidden = false;
  bool locked = false;

  std::optional<system::FileInfo> info(std::string_view path) override {
    auto found = ForwardingFiles::info(path);
    if (found) found->hidden = hidden;
    return found;
  }
  system::Opened<system::InputFile> open(std::string_view path) override {
    if (locked) return system::Reason::in_use;
    return ForwardingFiles::open(path);
  }
};

TEST_F(InfoAudio, hidden_and_locked_files_are_as_missing_ones) {
  OddFiles odd(files);
  audio::FileInfo own(odd, pump, {[] { return false; }, [] {}, [] { return false; }});
  files.contents["D:\\a.wav"] = wav_header(2, 44100, 16);
  files.contents["D:\\a.mp3"] = std::string(300, '.') + tag_block("t", "a", "b", "c");
  for (bool OddFiles::*const oddity : {&OddFiles::hidden, &OddFiles::locked}) {
    odd.*oddity = true;
    own.InfoAudio("wav", "D:\\a.wav");
    EXPECT_EQ(own.TextoToolTip, kNoInformation);
    own.InfoAudio("mp3", "D:\\a.mp3");
    EXPECT_EQ(own.TextoToolTip, kFourDashRows);
    odd.*oddity = false;
  }
  own.InfoAudio("wav", "D:\\a.wav");
  EXPECT_EQ(own.TextoToolTip, wav_rows("2", "44100", "16"));
}

TEST_F(InfoWav, the_file_is_closed_before_SA_is_hidden) {
  WatchedFiles watched(files);
  int open_files = -1;
  audio::FileInfo own(
      watched, pump,
      {[] { return true; }, [&] { open_files = watched.open_files; }, [] { return false; }});
  files.contents["D:\\a.wav"] = wav_header(2, 44100, 32);
  own.InfoAudio("wav", "D:\\a.wav");
  EXPECT_EQ(open_files, 0) << "handlers may run then";
}

TEST_F(InfoMp3, a_usual_tag_gives_album_artist_comment_and_title) {
  EXPECT_EQ(text_of("mp3", std::string(500, '.') + tag_block("Canción", "Los Ñandúes", "Uno", "x")),
            "Album: Uno\r\nArtista: Los Ñandúes\r\nComentarios: x\r\nTítulo: Canción\r\n");
}

TEST_F(InfoMp3, a_comment_of_30_characters_shows_29) {
  const std::string thirty = "123456789012345678901234567890";
  EXPECT_EQ(text_of("mp3", std::string(500, '.') + tag_block(thirty, thirty, thirty, thirty)),
            "Album: " + thirty + "\r\nArtista: " + thirty +
                "\r\nComentarios: 12345678901234567890123456789\r\nTítulo: " + thirty + "\r\n");
}

TEST_F(InfoMp3, the_word_counts_anywhere_in_the_buffer_in_capitals_or_not) {
  for (const char* word : {"TAG", "Tag", "tag", "tAg", "taG"}) {
    for (const std::size_t at : {0u, 1u, 100u, 129u}) {
      std::string bytes(10, 't');
      std::string buffer(257, '.');
      buffer.replace(at, 5, std::string(word) + "ab");
      EXPECT_THAT(text_of("mp3", bytes + buffer),
                  EndsWith("Título: ab" + std::string(28, '.') + "\r\n"))
          << word << " " << at;
    }
  }
}

TEST_F(InfoMp3, the_first_hit_wins_also_in_the_sound) {
  std::string bytes = std::string(300, '.') + tag_block("title", "artist", "album", "comment");
  bytes.replace(bytes.size() - 200, 3, "tag");
  EXPECT_THAT(text_of("mp3", bytes), EndsWith("Título: " + std::string(30, '.') + "\r\n"));
}

TEST_F(InfoMp3, the_buffer_begins_257_bytes_before_the_end_and_stops_2_before_it) {
  std::string bytes(400, '.');
  bytes.replace(400 - 257, 4, "tagX");
  EXPECT_THAT(text_of("mp3", bytes), EndsWith("Título: X" + std::string(29, '.') + "\r\n"));
  bytes = std::string(400, '.');
  bytes.replace(400 - 258, 4, "tagX");
  EXPECT_EQ(text_of("mp3", bytes), kFourDashRows);
  bytes = std::string(400, '.');
  bytes.replace(400 - 9, 9, "tag123456");
  EXPECT_EQ(text_of("mp3", bytes),
            "Album: --------   \r\nArtista: --------   \r\n"
            "Comentarios: --------   \r\nTítulo: 1234\r\n");
}

TEST_F(InfoMp3, less_than_257_bytes_show_the_four_rows_of_dashes) {
  const std::string block = tag_block("title", "artist", "album", "comment");
  EXPECT_EQ(text_of("mp3", std::string(128, '.') + block), kFourDashRows);
  EXPECT_EQ(text_of("mp3", block), kFourDashRows);
  EXPECT_EQ(text_of("mp3", ""), kFourDashRows);
  EXPECT_THAT(text_of("mp3", std::string(129, '.') + block), EndsWith("Título: title\r\n"));
}

TEST_F(InfoMp3, a_missing_file_and_one_that_cannot_be_read_show_dashes) {
  info.InfoAudio("mp3", "D:\\none.mp3");
  EXPECT_EQ(info.TextoToolTip, kFourDashRows);
  files.on_read = [](std::uint64_t) { return false; };
  EXPECT_EQ(text_of("mp3", std::string(300, '.') + tag_block("t", "a", "b", "c")), kFourDashRows);
}

TEST_F(InfoMp3, a_file_without_a_tag_shows_dashes) {
  EXPECT_EQ(text_of("mp3", std::string(1000, '.')), kFourDashRows);
}

TEST_F(InfoMp3, fields_of_blanks_or_zeros_are_rows_of_dashes) {
  for (const char fill : {' ', '\0'}) {
    EXPECT_EQ(text_of("mp3", std::string(300, '.') + tag_block("", "", "", "", fill)),
              kFourDashRows);
    EXPECT_EQ(text_of("mp3", std::string(300, '.') + tag_block("t", "", "b", "", fill)),
              "Album: b\r\nArtista: --------   \r\nComentarios: --------   \r\nTítulo: t\r\n");
  }
}

TEST_F(InfoMp3, the_title_without_a_value_has_no_line_end) {
  EXPECT_THAT(text_of("mp3", std::string(300, '.') + tag_block("", "a", "b", "c")),
              EndsWith("Comentarios: c\r\nTítulo: --------"));
}

TEST_F(InfoMp3, blanks_at_the_start_and_zeros_inside_stay) {
  const std::string inner("  a\0b", 5);
  EXPECT_THAT(text_of("mp3", std::string(300, '.') + tag_block(inner, "a", "b", "c")),
              EndsWith("Título: " + inner + "\r\n"));
}

TEST(TagMp3, is_zeros_where_the_file_has_nothing) {
  EXPECT_EQ(audio::tag_in("no word"), audio::TagMp3());
  const audio::TagMp3 tag = audio::tag_in("..TAGab");
  EXPECT_EQ(tag.Title, "ab" + std::string(28, '\0'));
  EXPECT_EQ(tag.Year, std::string(4, '\0'));
}

TEST(TagMp3, has_the_year_that_no_window_shows) {
  EXPECT_EQ(audio::tag_in(tag_block("", "", "", "")).Year, "1999");
}

TEST(LeerTagMp3, empties_the_record_that_it_is_given) {
  MemoryFiles files;
  audio::TagMp3 tag = audio::tag_in(tag_block("t", "a", "b", "c"));
  audio::LeerTagMp3(tag, "D:\\none.mp3", files);
  EXPECT_EQ(tag, audio::TagMp3());
}

TEST(UnSpace, cuts_blanks_and_zeros_at_the_end_only) {
  using audio::UnSpace;
  EXPECT_EQ(UnSpace(""), "");
  EXPECT_EQ(UnSpace("   "), "");
  EXPECT_EQ(UnSpace(std::string(3, '\0')), "");
  EXPECT_EQ(UnSpace(std::string("a \0 \0", 5)), "a");
  EXPECT_EQ(UnSpace("  a b"), "  a b");
  EXPECT_EQ(UnSpace("a\t\r\n"), "a\t\r\n");
  EXPECT_EQ(UnSpace(std::string("a\0b ", 4)), std::string("a\0b", 3));
}

}  // namespace
}  // namespace ordelan::test
