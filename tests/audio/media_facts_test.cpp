#include "audio/media_facts.h"

#include <gmock/gmock.h>

#include <atomic>
#include <thread>

#include "audio/details_bench.h"
#include "test_disk.h"

namespace ordelan::test {
namespace {

using namespace std::string_literals;

struct MediaFactsTest : testing::Test {
  int kilobits(const std::string& bytes, double seconds = 0) {
    files.contents["D:\\a"] = bytes;
    return facts.kilobits_of("D:\\a", seconds);
  }
  std::string title(const std::string& bytes) {
    files.contents["D:\\a"] = bytes;
    return facts.title_of("D:\\a");
  }

  MemoryFiles files;
  system::MediaFacts facts = audio::media_facts(files);
};

// A frame of an mp3: 44,100 Hz, stereo, 128 kbit/s (row 9) or 192 (row 11).
std::string frame(int row, const std::string& content = "") {
  std::string bytes = "\xFF\xFB"s + static_cast<char>(row << 4) + "\0"s + content;
  bytes.resize(row == 11 ? 626 : 417);
  return bytes;
}
std::string repeated(const std::string& part, int times) {
  std::string all;
  for (int time = 0; time < times; ++time) all += part;
  return all;
}

TEST_F(MediaFactsTest, the_duration_is_that_of_the_header) {
  files.contents["D:\\a.wav"] = wav_header(2, 44100, 16, 352'800) + std::string(352'800, '\1');
  EXPECT_DOUBLE_EQ(facts.duration_of("D:\\a.wav"), 2);
  files.contents["D:\\a.txt"] = "no audio";
  EXPECT_EQ(facts.duration_of("D:\\a.txt"), 0);
}

TEST_F(MediaFactsTest, a_missing_file_has_no_facts) {
  EXPECT_EQ(facts.duration_of("D:\\falta.wav"), 0);
  EXPECT_EQ(facts.title_of("D:\\falta.wav"), "");
  EXPECT_EQ(facts.kilobits_of("D:\\falta.wav", 3), 0);
}

TEST_F(MediaFactsTest, a_wav_states_its_bit_rate_wherever_its_format_stands) {
  const std::string plain = chunk("fmt ", format_chunk(1, 2, 44100, 16));
  EXPECT_EQ(kilobits(wav_file(plain)), 1411);
  EXPECT_EQ(kilobits(wav_file(chunk("junk", "odd") + plain), 9), 1411) << "whatever it lasts";
  EXPECT_EQ(kilobits("RF64\xFF\xFF\xFF\xFFWAVE"s + chunk("ds64", std::string(28, '\0')) +
                     chunk("fmt ", format_chunk(1, 6, 48000, 32))),
            9216);
  std::string packed = format_chunk(0x55, 2, 44100, 0);
  packed.replace(8, 4, little_endian(24'000, 4));
  EXPECT_EQ(kilobits(wav_file(chunk("fmt ", packed))), 192);
  EXPECT_EQ(kilobits(wav_file(chunk("data", ""))), 0);
}

TEST_F(MediaFactsTest, an_mp3_has_the_bit_rate_of_its_frames) {
  EXPECT_EQ(kilobits(repeated(frame(9), 5)), 128);
  EXPECT_EQ(kilobits(repeated(frame(11), 5), 100), 192) << "whatever it lasts";
  EXPECT_EQ(kilobits(id3_block(3, std::string(3000, '\0')) + repeated(frame(11), 5)), 192);
  EXPECT_EQ(kilobits("noise" + repeated(frame(11), 5)), 192);
}

TEST_F(MediaFactsTest, frames_of_many_rates_have_the_mean_that_the_first_one_states) {
  // 1,000 frames of 1,152 samples at 44,100 Hz in 800,000 bytes.
  const std::string counts = big_endian(3, 4) + big_endian(1000, 4) + big_endian(800'000, 4);
  const std::string begin = frame(9, std::string(32, '\0') + "Xing" + counts);
  EXPECT_EQ(kilobits(begin + repeated(frame(11), 3)), 245);
  const std::string other = std::string(32, '\0') + "VBRI" + std::string(6, '\0') +
                            big_endian(800'000, 4) + big_endian(1000, 4);
  EXPECT_EQ(kilobits(frame(9, other) + repeated(frame(11), 3)), 245);
  const std::string even = frame(9, std::string(32, '\0') + "Info" + counts);
  EXPECT_EQ(kilobits(even + repeated(frame(11), 3)), 192) << "its own first frame is smaller";
}

TEST_F(MediaFactsTest, a_file_that_says_no_bit_rate_has_the_mean_of_its_bytes) {
  EXPECT_EQ(kilobits("OggS" + std::string(23'996, '\0'), 2), 96);
  EXPECT_EQ(kilobits(std::string(23'999, 'x'), 2), 96) << "rounded";
  EXPECT_EQ(kilobits(std::string(24'000, 'x'), 0), 0);
  EXPECT_EQ(kilobits(std::string(24'000, 'x'), -1), 0);
  EXPECT_EQ(kilobits(std::string(24'000, 'x'), 1e-300), 0) << "more than any file has";
  EXPECT_EQ(kilobits("", 3), 0);
}

TEST_F(MediaFactsTest, a_packed_file_has_the_mean_of_its_sound) {
  const std::string flac =
      flac_file({{0, stream_info(44100, 2, 16, 88200)}}, std::string(200'000, 's'));
  EXPECT_EQ(kilobits(flac), 800);
}

TEST_F(MediaFactsTest, the_title_is_that_of_the_tags_of_any_kind_of_file) {
  EXPECT_EQ(title(id3_block(3, id3_frame(3, "TALB", "\0Disco"s) +
                                   id3_frame(3, "TIT2", "\0Canci\xF3n\0"s)) +
                  mp3_frames(5)),
            "Canci\xF3n");
  EXPECT_EQ(title(mp3_frames(5) + tag_block("Tema viejo", "a", "b", "c")), "Tema viejo");
  EXPECT_EQ(title(id3_block(3, id3_frame(3, "TIT2", "\0  "s)) + mp3_frames(5) +
                  tag_block("Tema viejo", "a", "b", "c")),
            "Tema viejo");
  EXPECT_EQ(title(wav_file(chunk("LIST", "INFO" + chunk("INAM", "Toma")))), "Toma");
  EXPECT_EQ(title(id3_block(3, id3_frame(3, "TPE1", "\0Uno"s)) + mp3_frames(5)), "");
  EXPECT_EQ(title(std::string(500, 'x')), "");
}

// The engines ask on threads of their own, and while one of them waits for a slow disk another one
// asks about the next file.
TEST(MediaFactsThreads, any_number_of_them_may_ask_at_a_time) {
  TestDisk disk;
  disk.write("uno.wav", wav_header(2, 44100, 16, 176'400) + std::string(176'400, '\1'));
  disk.write("DOS.MP3", id3_block(4, id3_frame(4, "TIT2", "\3Canci\xC3\xB3n"s)) + mp3_frames(100));
  const system::MediaFacts facts = audio::media_facts(disk.files());
  std::atomic<int> wrong = 0;
  std::vector<std::thread> threads;
  for (int number = 0; number < 4; ++number) {
    threads.emplace_back([&] {
      for (int turn = 0; turn < 200; ++turn) {
        if (facts.duration_of(disk.path("uno.wav")) != 1) ++wrong;
        if (facts.kilobits_of(disk.path("uno.wav"), 1) != 1411) ++wrong;
        if (facts.title_of(disk.path("dos.mp3")) != "Canci\xF3n") ++wrong;
        if (facts.kilobits_of(disk.path("dos.mp3"), 2.6) != 128) ++wrong;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(wrong, 0);
}

// Counts the files that are open.
class CountedFiles final : public ForwardingFiles {
 public:
  using ForwardingFiles::ForwardingFiles;
  int opened = 0;
  int open_now = 0;

  system::Opened<system::InputFile> open(std::string_view path) override {
    auto file = ForwardingFiles::open(path);
    if (!file) return file;
    ++opened;
    return std::make_unique<Counted>(*this, std::make_shared<decltype(file)>(std::move(file)));
  }

 private:
  struct Counted final : system::InputFile {
    Counted(CountedFiles& all, std::shared_ptr<system::Opened<system::InputFile>> real)
        : all_(all), real_(std::move(real)) {
      ++all_.open_now;
    }
    ~Counted() override { --all_.open_now; }
    std::uint64_t size() const override { return (*real_)->size(); }
    std::optional<std::size_t> read(std::uint64_t offset, std::span<std::uint8_t> bytes) override {
      return (*real_)->read(offset, bytes);
    }

    CountedFiles& all_;
    std::shared_ptr<system::Opened<system::InputFile>> real_;
  };
};

TEST_F(MediaFactsTest, a_file_is_closed_before_the_answer) {
  CountedFiles counted(files);
  const system::MediaFacts asked = audio::media_facts(counted);
  files.contents["D:\\a.wav"] = wav_header(2, 44100, 16, 176'400);
  files.contents["D:\\a.txt"] = "no audio";
  for (const std::string& path : {"D:\\a.wav"s, "D:\\a.txt"s}) {
    asked.duration_of(path);
    asked.title_of(path);
    asked.kilobits_of(path, 1);
    EXPECT_EQ(counted.open_now, 0);
  }
  EXPECT_GE(counted.opened, 6);
}

}  // namespace
}  // namespace ordelan::test
