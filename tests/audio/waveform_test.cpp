// The overview of a file's samples, against samples that the tests have written themselves.
#include "audio/waveform.h"

#include <gmock/gmock.h>

#include <bit>
#include <cmath>
#include <cstring>
#include <string_view>

#include "audio/details_bench.h"
#include "support/forwarding_files.h"
#include "support/hostile_bytes.h"
#include "support/memory_files.h"
#include "test_disk.h"

namespace ordelan::test {
namespace {

using audio::Peaks;
using audio::WaveformReader;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr const char* kPath = "D:\\a.wav";

std::vector<Peaks> read_all(system::FileSystem& files, const std::string& path,
                            std::size_t columns = 200) {
  WaveformReader reader(files, path, columns);
  while (reader.step()) continue;
  return reader.columns();
}

std::vector<Peaks> overview(const std::string& bytes, std::size_t columns = 200) {
  MemoryFiles files;
  files.contents[kPath] = bytes;
  return read_all(files, kPath, columns);
}

// How samples are written: `scale` is what 1 becomes.
struct Encoding {
  const char* name;
  int bytes;
  double scale;
  std::string (*encoded)(double sample);
  std::string (*file)(std::uint64_t channels, const std::string& samples);
};

std::uint64_t whole(double sample, double scale, std::int64_t zero = 0) {
  return static_cast<std::uint64_t>(static_cast<std::int64_t>(sample * scale) + zero);
}

template <int Kind, int Bits>
std::string wav(std::uint64_t channels, const std::string& samples) {
  return wav_file(chunk("fmt ", format_chunk(Kind, channels, 44100, Bits)) +
                  chunk("data", samples));
}

std::string extensible(std::uint64_t kind, std::uint64_t channels, std::uint64_t stored,
                       std::uint64_t used, const std::string& samples) {
  return wav_file(chunk("fmt ", format_chunk(0xFFFE, channels, 48000, stored) +
                                    little_endian(22, 2) + little_endian(used, 2) +
                                    little_endian(3, 4) + little_endian(kind, 2) +
                                    std::string("\0\0\0\0\x10\0\x80\0\0\xAA\0\x38\x9B\x71", 14)) +
                  chunk("data", samples));
}

std::string aiff(const std::string& type, std::uint64_t channels, std::uint64_t bits,
                 const std::string& samples) {
  const std::uint64_t frames = samples.size() / (channels * ((bits + 7) / 8));
  const std::string common = big_endian(channels, 2) + big_endian(frames, 4) + big_endian(bits, 2) +
                             std::string("\x40\x0E\xAC\x44\0\0\0\0\0\0", 10) + type;
  const std::string chunks =
      chunk("COMM", common, true) + chunk("SSND", std::string(8, '\0') + samples, true);
  return "FORM" + big_endian(4 + chunks.size(), 4) + (type.empty() ? "AIFF" : "AIFC") + chunks;
}

const std::string kW64Tail("\xF3\xAC\xD3\x11\x8C\xD1\x00\xC0\x4F\x8E\xDB\x8A", 12);
std::string w64_chunk(const std::string& name, const std::string& content) {
  return name + kW64Tail + little_endian(24 + content.size(), 8) + content +
         std::string((8 - content.size() % 8) % 8, '\0');
}
std::string w64(std::uint64_t channels, const std::string& samples) {
  const std::string chunks =
      w64_chunk("fmt ", format_chunk(1, channels, 44100, 16)) + w64_chunk("data", samples);
  return std::string("riff\x2E\x91\xCF\x11\xA5\xD6\x28\xDB\x04\xC1\x00\x00", 16) +
         little_endian(40 + chunks.size(), 8) + "wave" + kW64Tail + chunks;
}

std::string rf64(std::uint64_t channels, const std::string& samples) {
  const std::string lengths = little_endian(0, 8) + little_endian(samples.size(), 8) +
                              little_endian(samples.size() / 2 / channels, 8) + little_endian(0, 4);
  return "RF64" + little_endian(0xFFFFFFFF, 4) + "WAVE" + chunk("ds64", lengths) +
         chunk("fmt ", format_chunk(1, channels, 44100, 16)) + "data" +
         little_endian(0xFFFFFFFF, 4) + samples + chunk("JUNK", std::string(1000, '\x7F'));
}

std::string rifx(std::uint64_t channels, const std::string& samples) {
  const std::string format = big_endian(1, 2) + big_endian(channels, 2) + big_endian(44100, 4) +
                             big_endian(44100 * 2 * channels, 4) + big_endian(2 * channels, 2) +
                             big_endian(16, 2);
  return "RIFX" + big_endian(samples.size() + 36, 4) + "WAVE" + chunk("fmt ", format, true) +
         chunk("data", samples, true);
}

std::string low_16(double s) {
  return little_endian(whole(s, 32768), 2);
}
std::string high_16(double s) {
  return big_endian(whole(s, 32768), 2);
}
std::string low_24(double s) {
  return little_endian(whole(s, 8388608), 3);
}
std::string high_24(double s) {
  return big_endian(whole(s, 8388608), 3);
}
std::string low_32(double s) {
  return little_endian(whole(s, 2147483648.0), 4);
}
std::string high_32(double s) {
  return big_endian(whole(s, 2147483648.0), 4);
}
std::string unsigned_8(double s) {
  return little_endian(whole(s, 128, 128), 1);
}
std::string signed_8(double s) {
  return little_endian(whole(s, 128), 1);
}
std::string offset_16(double s) {
  return big_endian(whole(s, 32768, 32768), 2);
}
std::string low_float(double s) {
  return little_endian(std::bit_cast<std::uint32_t>(static_cast<float>(s)), 4);
}
std::string high_float(double s) {
  return big_endian(std::bit_cast<std::uint32_t>(static_cast<float>(s)), 4);
}
std::string low_double(double s) {
  return little_endian(std::bit_cast<std::uint64_t>(s), 8);
}
std::string high_double(double s) {
  return big_endian(std::bit_cast<std::uint64_t>(s), 8);
}

using Content = const std::string&;
using Count = std::uint64_t;

const Encoding kEncodings[] = {
    {"wav_8", 1, 128, unsigned_8, wav<1, 8>},
    {"wav_16", 2, 32768, low_16, wav<1, 16>},
    {"wav_24", 3, 8388608, low_24, wav<1, 24>},
    {"wav_32", 4, 2147483648.0, low_32, wav<1, 32>},
    {"wav_float", 4, 0, low_float, wav<3, 32>},
    {"wav_double", 8, 0, low_double, wav<3, 64>},
    {"extensible_24_in_32", 4, 2147483648.0, low_32,
     [](Count channels, Content s) { return extensible(1, channels, 32, 24, s); }},
    {"extensible_float", 4, 0, low_float,
     [](Count channels, Content s) { return extensible(3, channels, 32, 32, s); }},
    {"rf64", 2, 32768, low_16, rf64},
    {"w64", 2, 32768, low_16, w64},
    {"rifx", 2, 32768, high_16, rifx},
    {"aif_8", 1, 128, signed_8, [](Count c, Content s) { return aiff("", c, 8, s); }},
    {"aif_16", 2, 32768, high_16, [](Count c, Content s) { return aiff("", c, 16, s); }},
    {"aif_24", 3, 8388608, high_24, [](Count c, Content s) { return aiff("", c, 24, s); }},
    {"aif_32", 4, 2147483648.0, high_32, [](Count c, Content s) { return aiff("", c, 32, s); }},
    {"aifc_none", 2, 32768, high_16, [](Count c, Content s) { return aiff("NONE", c, 16, s); }},
    {"aifc_twos", 2, 32768, high_16, [](Count c, Content s) { return aiff("twos", c, 16, s); }},
    {"aifc_sowt", 2, 32768, low_16, [](Count c, Content s) { return aiff("sowt", c, 16, s); }},
    {"aifc_in24", 3, 8388608, high_24, [](Count c, Content s) { return aiff("in24", c, 24, s); }},
    {"aifc_raw", 1, 128, unsigned_8, [](Count c, Content s) { return aiff("raw ", c, 8, s); }},
    {"aifc_raw_16", 2, 32768, offset_16, [](Count c, Content s) { return aiff("raw ", c, 16, s); }},
    {"aifc_float", 4, 0, high_float, [](Count c, Content s) { return aiff("fl32", c, 32, s); }},
    {"aifc_double", 8, 0, high_double, [](Count c, Content s) { return aiff("FL64", c, 64, s); }},
};

// What the encoding keeps of a sample.
double kept(const Encoding& encoding, double sample) {
  if (encoding.scale == 0) return encoding.bytes == 4 ? static_cast<float>(sample) : sample;
  return static_cast<double>(static_cast<std::int64_t>(sample * encoding.scale)) / encoding.scale;
}

// The plain way: each moment is looked at by itself.
std::vector<Peaks> reference(const std::vector<double>& samples, std::uint64_t channels,
                             std::size_t columns) {
  const std::uint64_t moments = samples.size() / channels;
  std::vector<Peaks> all(columns);
  for (std::uint64_t column = 0; column < columns; ++column) {
    const std::uint64_t begin = column * moments / columns;
    const std::uint64_t end = std::max((column + 1) * moments / columns, begin + 1);
    Peaks peaks{2, -2};
    for (std::uint64_t i = begin * channels; i < end * channels; ++i) {
      peaks.low = std::min(peaks.low, samples[i]);
      peaks.high = std::max(peaks.high, samples[i]);
    }
    all[column] = peaks;
  }
  return all;
}

std::vector<double> noise(std::size_t count, std::uint64_t seed) {
  Dice dice(seed);
  std::vector<double> samples;
  for (std::size_t i = 0; i < count; ++i) {
    const double loud = std::abs(std::sin(static_cast<double>(i) * 0.0003));
    samples.push_back(loud * (static_cast<double>(dice.below(65536)) / 32768 - 1));
  }
  if (count > 9) samples[count / 2] = -1;  // the ends of the range
  return samples;
}

class WaveformOf : public ::testing::TestWithParam<Encoding> {};

TEST_P(WaveformOf, has_the_peaks_of_each_column) {
  const Encoding& encoding = GetParam();
  for (const std::uint64_t channels : {1, 2, 6}) {
    for (const std::size_t moments : {1, 2, 37, 199, 200, 201, 1000, 70'001}) {
      std::vector<double> samples = noise(moments * channels, moments);
      std::string bytes;
      for (double& sample : samples) {
        bytes += encoding.encoded(sample);
        sample = kept(encoding, sample);
      }
      ASSERT_EQ(overview(encoding.file(channels, bytes)), reference(samples, channels, 200))
          << channels << " channels, " << moments << " moments";
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Formats, WaveformOf, ::testing::ValuesIn(kEncodings),
                         [](const auto& each) { return each.param.name; });

std::string words(std::size_t count, int low, int high) {
  std::string bytes;
  for (std::size_t i = 0; i < count; ++i) {
    bytes += little_endian(static_cast<std::uint64_t>(i % 2 == 0 ? low : high), 2);
  }
  return bytes;
}
const std::string kFormat = chunk("fmt ", format_chunk(1, 1, 44100, 16));
const std::string kSquare = words(1000, -16384, 8192);
const Peaks kSquarePeaks{-0.5, 0.25};

TEST(Waveform, chunks_may_stand_in_any_order) {
  const std::string data = chunk("data", kSquare);
  const std::string other = chunk("LIST", "INFO" + chunk("INAM", std::string(300, '\x7F')));
  for (const std::string& chunks :
       {kFormat + data + other, data + kFormat, other + data + other + kFormat,
        chunk("JUNK", "odd") + kFormat + data + data}) {
    const auto columns = overview(wav_file(chunks));
    EXPECT_THAT(columns, SizeIs(200));
    EXPECT_THAT(columns, Each(kSquarePeaks));
  }
}

TEST(Waveform, lengths_that_lie_are_brought_into_the_file) {
  for (const std::uint64_t length : {std::uint64_t{3000}, std::uint64_t{0xFFFFFFFF},
                                     std::uint64_t{0x7FFFFFFF}, std::uint64_t{2001}}) {
    const auto columns = overview("RIFF" + little_endian(1, 4) + "WAVE" + kFormat + "data" +
                                  little_endian(length, 4) + kSquare);
    EXPECT_THAT(columns, SizeIs(200)) << length;
    EXPECT_THAT(columns, Each(kSquarePeaks)) << length;
  }
  // A recording that was cut off.
  const auto unended = overview("RIFF" + little_endian(0, 4) + "WAVE" + kFormat + "data" +
                                little_endian(0, 4) + kSquare);
  EXPECT_THAT(unended, SizeIs(200));
  EXPECT_THAT(unended, Each(kSquarePeaks));
  // A frame with no room for its samples.
  std::string format = format_chunk(1, 1, 44100, 16);
  for (const std::uint64_t frame : {0, 1}) {
    format.replace(12, 2, little_endian(frame, 2));
    EXPECT_THAT(overview(wav_file(chunk("fmt ", format) + chunk("data", kSquare))),
                Each(kSquarePeaks));
  }
  // An aif that counts more moments than it has, or fewer.
  const std::string file = aiff("sowt", 1, 16, kSquare + words(1000, 32767, 32767));
  const std::size_t count = file.find("COMM") + 8 + 2;
  std::string fewer = file;
  fewer.replace(count, 4, big_endian(1000, 4));
  EXPECT_THAT(overview(fewer), Each(kSquarePeaks));
  std::string more = file;
  more.replace(count, 4, big_endian(0xFFFFFFFF, 4));
  EXPECT_EQ(overview(more), overview(file));
  EXPECT_EQ(overview(file)[0], kSquarePeaks);
  EXPECT_EQ(overview(file)[199], (Peaks{32767 / 32768.0, 32767 / 32768.0}));
}

TEST(Waveform, the_samples_of_an_aif_may_begin_later_in_their_chunk) {
  const std::string common = big_endian(1, 2) + big_endian(1000, 4) + big_endian(16, 2) +
                             std::string("\x40\x0E\xAC\x44\0\0\0\0\0\0", 10) + "sowt";
  const std::string sound = big_endian(6, 4) + big_endian(0, 4) + "\x7F\x7F\x7F\x7F\x7F\x7F";
  const auto columns = overview("FORM" + big_endian(1, 4) + "AIFC" +
                                chunk("SSND", sound + kSquare, true) + chunk("COMM", common, true));
  EXPECT_THAT(columns, SizeIs(200));
  EXPECT_THAT(columns, Each(kSquarePeaks));
}

TEST(Waveform, fractions_beyond_the_range_are_cut_and_what_is_no_number_is_left_out) {
  std::string bytes;
  for (const double sample : {0.25, std::nan(""), static_cast<double>(-INFINITY), 7.0, -0.5})
    bytes += low_float(sample);
  EXPECT_THAT(
      overview(wav<3, 32>(1, bytes), 5),
      ElementsAre(Peaks{0.25, 0.25}, Peaks{0, 0}, Peaks{-1, -1}, Peaks{1, 1}, Peaks{-0.5, -0.5}));
}

TEST(Waveform, other_files_have_none) {
  const std::string sound(5000, '\1');
  for (const std::string& bytes :
       {std::string(), std::string("R"), std::string("RIFF1234WAVE"), sound,
        wav_file(chunk("fmt ", format_chunk(0x55, 2, 44100, 16)) + chunk("data", sound)),
        wav_file(chunk("fmt ", format_chunk(1, 0, 44100, 16)) + chunk("data", sound)),
        wav_file(chunk("fmt ", format_chunk(1, 1, 44100, 0)) + chunk("data", sound)),
        wav_file(chunk("fmt ", format_chunk(1, 1, 44100, 64)) + chunk("data", sound)),
        wav_file(chunk("fmt ", format_chunk(3, 1, 44100, 16)) + chunk("data", sound)),
        wav_file(kFormat + chunk("data", "")), wav_file(kFormat + chunk("data", "1")),
        wav_file(kFormat), wav_file(chunk("data", sound)), aiff("ulaw", 1, 16, sound),
        aiff("ima4", 1, 16, sound), aiff("", 1, 16, ""), id3_block(3, "") + mp3_frames(20),
        flac_file({{0, stream_info(44100, 2, 16, 44100)}}, sound)}) {
    EXPECT_THAT(overview(bytes), IsEmpty()) << bytes.substr(0, 40);
  }
  MemoryFiles none;
  EXPECT_THAT(read_all(none, kPath), IsEmpty());
}

// How much was read by all steps, and by the longest.
struct Work {
  std::uint64_t all = 0;
  std::uint64_t most = 0;
  std::size_t steps = 0;
  std::vector<Peaks> columns;
};
Work work_on(system::FileSystem& files, const std::string& path) {
  struct Counting final : ForwardingFiles {
    using ForwardingFiles::ForwardingFiles;
    struct Input final : system::InputFile {
      Input(std::unique_ptr<system::InputFile> file, std::uint64_t& read, int& open)
          : file_(std::move(file)), read_(read), open_(open) {
        ++open_;
      }
      ~Input() override { --open_; }
      std::uint64_t size() const override { return file_->size(); }
      std::optional<std::size_t> read(std::uint64_t at, std::span<std::uint8_t> to) override {
        read_ += to.size();
        return file_->read(at, to);
      }
      std::unique_ptr<system::InputFile> file_;
      std::uint64_t& read_;
      int& open_;
    };
    system::Opened<system::InputFile> open(std::string_view at) override {
      auto file = ForwardingFiles::open(at);
      if (!file) return file.status().reason();
      return std::make_unique<Input>(std::unique_ptr<system::InputFile>(std::move(file)), read,
                                     held);
    }
    std::uint64_t read = 0;
    int held = 0;
  };
  Counting counting(files);
  WaveformReader reader(counting, path);
  Work work;
  for (bool more = true; more;) {
    counting.read = 0;
    more = reader.step();
    EXPECT_EQ(counting.held, 0) << "a file is held between steps";
    work.all += counting.read;
    work.most = std::max(work.most, counting.read);
    ++work.steps;
  }
  EXPECT_FALSE(reader.step());
  work.columns = reader.columns();
  return work;
}

constexpr std::uint64_t kHeader = audio::ByteSource::kBlock * audio::ByteSource::kMostBlocks;

TEST(Waveform, a_step_reads_one_piece_and_holds_nothing_after_it) {
  TestDisk disk;
  const std::string bytes = words(1'000'000, -16384, 8192);
  disk.write("a.wav", wav_file(kFormat + chunk("data", bytes)));
  const Work work = work_on(disk.files(), disk.path("a.wav"));
  EXPECT_LE(work.most, WaveformReader::kPiece);
  EXPECT_EQ(work.steps, 1 + (bytes.size() + WaveformReader::kPiece - 1) / WaveformReader::kPiece);
  EXPECT_LE(work.all, bytes.size() + kHeader);
  EXPECT_THAT(work.columns, Each(kSquarePeaks));
}

// 6 GB of silence with a click in each of three columns, two of them where a piece stands.
TEST(Waveform, a_long_file_is_read_in_parts_that_are_spread_over_it) {
  TestDisk disk;
  constexpr std::uint64_t kSound = std::uint64_t{6} << 30;
  const std::string lengths = little_endian(0, 8) + little_endian(kSound, 8) +
                              little_endian(kSound / 2, 8) + little_endian(0, 4);
  const std::string head = "RF64" + little_endian(0xFFFFFFFF, 4) + "WAVE" + chunk("ds64", lengths) +
                           kFormat + "data" + little_endian(0xFFFFFFFF, 4);
  disk.write("long.wav", head);
  lengthen(disk.native_path("long.wav"), head.size() + kSound);
  const auto click = [&](std::uint64_t at) {
    auto file = disk.files().change(disk.path("long.wav"));
    ASSERT_TRUE(file);
    EXPECT_TRUE(file->write_at(head.size() + at, low_16(0.5)).ok());
  };
  constexpr std::uint64_t kColumn = kSound / 2 / 200 * 2;
  click(0);
  click(kColumn + kColumn / 14);  // between the first and the second piece of its column
  click(kSound - 2);              // the last sample
  const Work work = work_on(disk.files(), disk.path("long.wav"));
  ASSERT_THAT(work.columns, SizeIs(200));
  EXPECT_EQ(work.columns[0], (Peaks{0, 0.5}));
  EXPECT_EQ(work.columns[1], (Peaks{0, 0}));
  EXPECT_EQ(work.columns[199], (Peaks{0, 0.5}));
  EXPECT_LE(work.most, kHeader);
  EXPECT_LE(work.all, WaveformReader::kMost + kHeader);
  EXPECT_EQ(work.steps, 1601u);
}

TEST(Waveform, a_file_that_goes_away_ends_the_reading_quietly) {
  MemoryFiles files;
  files.contents[kPath] = wav_file(kFormat + chunk("data", words(1'000'000, -16384, 8192)));
  WaveformReader reader(files, kPath);
  ASSERT_TRUE(reader.step());
  ASSERT_TRUE(reader.step());
  files.contents.clear();
  EXPECT_FALSE(reader.step());
  EXPECT_FALSE(reader.step());
  ASSERT_THAT(reader.columns(), SizeIs(200));
  EXPECT_EQ(reader.columns()[0], kSquarePeaks);
  EXPECT_EQ(reader.columns()[199], (Peaks{0, 0}));
}

TEST(Waveform, a_file_that_becomes_shorter_or_cannot_be_read_ends_it_too) {
  MemoryFiles files;
  const std::string whole = wav_file(kFormat + chunk("data", words(1'000'000, -16384, 8192)));
  files.contents[kPath] = whole;
  WaveformReader shorter(files, kPath);
  ASSERT_TRUE(shorter.step());
  files.contents[kPath].resize(50'001);
  EXPECT_FALSE(shorter.step());
  EXPECT_EQ(shorter.columns()[0], kSquarePeaks);
  EXPECT_EQ(shorter.columns()[5], (Peaks{0, 0}));

  files.contents[kPath] = whole;
  files.on_read = [](std::uint64_t at) { return at < 600'000; };
  WaveformReader failing(files, kPath);
  int steps = 0;
  while (failing.step()) ++steps;
  EXPECT_EQ(steps, 4);  // the header and three pieces, the last of which begins below that place
  EXPECT_EQ(failing.columns()[0], kSquarePeaks);
}

TEST(WaveformHostile, any_bytes_end_soon_with_peaks_in_range) {
  Dice dice(31);
  std::string seeds[] = {wav<1, 16>(2, kSquare),
                         wav<3, 32>(1, kSquare),
                         rf64(2, kSquare),
                         w64(1, kSquare),
                         aiff("sowt", 2, 16, kSquare),
                         rifx(1, kSquare),
                         extensible(1, 2, 32, 24, kSquare)};
  std::size_t shown = 0;
  for (int i = 0; i < 20'000; ++i) {
    std::string file = seeds[dice.below(std::size(seeds))];
    for (auto changes = dice.below(5); changes > 0; --changes) {
      const std::uint64_t value = dice.next() >> dice.below(64);
      const int bytes = 1 << dice.below(4);
      const std::string number =
          dice.below(2) == 0 ? little_endian(value, bytes) : big_endian(value, bytes);
      file.replace(dice.below(120), number.size(), number);
    }
    if (dice.below(4) == 0) file.resize(dice.below(file.size() + 1));
    MemoryFiles files;
    files.contents[kPath] = file;
    WaveformReader reader(files, kPath);
    int steps = 0;
    while (reader.step()) ASSERT_LT(++steps, 5) << "input " << i;
    const auto& columns = reader.columns();
    ASSERT_TRUE(columns.empty() || columns.size() == 200) << "input " << i;
    shown += columns.empty() ? 0 : 1;
    for (const Peaks& each : columns) {
      ASSERT_TRUE(each.low >= -1 && each.low <= each.high && each.high <= 1) << "input " << i;
    }
  }
  EXPECT_GT(shown, 5000u);
}

// A chunk of sound that fills the range of a number of 64 bits.
TEST(WaveformHostile, an_aif_whose_head_is_short_or_lies_has_none) {
  const auto file = [](const std::string& common, const std::string& sound) {
    return "FORM" + big_endian(100, 4) + "AIFF" + chunk("COMM", common, true) +
           chunk("SSND", sound, true);
  };
  const std::string common =
      big_endian(1, 2) + big_endian(8, 4) + big_endian(8, 2) + std::string(10, '\0');
  const std::string samples = "12345678";
  EXPECT_THAT(overview(file(common, std::string(8, '\0') + samples), 8), SizeIs(8));
  // The samples begin after their end, or there is no place for what says where they begin.
  EXPECT_THAT(overview(file(common, big_endian(0xFFFFFFF0, 4) + std::string(4, '\0') + samples), 8),
              IsEmpty());
  EXPECT_THAT(overview(file(common, "1234"), 8), IsEmpty());
  EXPECT_THAT(overview(file(common.substr(0, 6), std::string(8, '\0') + samples), 8), IsEmpty());
}

TEST(WaveformHostile, a_file_without_end_is_read_in_bounded_steps) {
  struct Endless final : NoFiles {
    struct Input final : system::InputFile {
      explicit Input(std::string bytes) : bytes_(std::move(bytes)) {}
      std::uint64_t size() const override { return std::uint64_t{1} << 62; }
      std::optional<std::size_t> read(std::uint64_t at, std::span<std::uint8_t> to) override {
        std::memset(to.data(), 0, to.size());
        if (at < bytes_.size()) {
          const std::string_view held = std::string_view(bytes_).substr(at, to.size());
          std::memcpy(to.data(), held.data(), held.size());
        }
        return to.size();
      }
      std::string bytes_;
    };
    system::Opened<system::InputFile> open(std::string_view) override {
      return std::make_unique<Input>(head);
    }
    std::string head;
  } files;
  const std::string lengths = little_endian(0, 8) + little_endian(~std::uint64_t{0}, 8) +
                              little_endian(0, 8) + little_endian(0, 4);
  for (const std::uint64_t channels : {1, 65535}) {
    files.head = "RF64" + little_endian(0xFFFFFFFF, 4) + "WAVE" + chunk("ds64", lengths) +
                 chunk("fmt ", format_chunk(1, channels, 44100, 8)) + "data" +
                 little_endian(0xFFFFFFFF, 4) + "\x80\xFF";
    WaveformReader reader(files, kPath);
    int steps = 1;
    while (reader.step()) ASSERT_LE(++steps, 1601);
    EXPECT_EQ(steps, 1601);
    EXPECT_EQ(reader.columns().at(0), (Peaks{-1, 127 / 128.0}));
  }
}

}  // namespace
}  // namespace ordelan::test
