// FileInfo on a disk in memory, with an event loop and windows that a test sets.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "audio/file_info.h"
#include "support/memory_files.h"

namespace ordelan::test {

class InfoPump final : public system::EventPump {
 public:
  int pumps = 0;
  std::function<void()> on_pump;

  void pump() override {
    ++pumps;
    if (on_pump) on_pump();
  }
  void wait() override { pump(); }
  bool ended() const override { return false; }
};

struct InfoBench {
  MemoryFiles files;
  InfoPump pump;
  bool SA = false;
  bool Player = false;
  int hidden = 0;  // how often SA was hidden
  audio::FileInfo info{files,
                       pump,
                       {[this] { return SA; },
                        [this] {
                          SA = false;
                          ++hidden;
                        },
                        [this] { return Player; }}};

  // What InfoAudio says of a file with these bytes.
  std::string text_of(const std::string& extension, const std::string& bytes) {
    const std::string path = "D:\\a." + extension;
    files.contents[path] = bytes;
    info.InfoAudio(extension, path);
    return info.TextoToolTip;
  }
};

inline std::string little_endian(std::uint64_t value, int bytes) {
  std::string text;
  for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> (8 * i) & 0xFF);
  return text;
}

// The 44 bytes before the samples of a usual wav.
inline std::string wav_header(int channels, int frequency, int bits, std::uint32_t data = 0) {
  const int frame = channels * bits / 8;
  const auto number = [](int value, int bytes) {
    return little_endian(static_cast<std::uint64_t>(value), bytes);
  };
  return "RIFF" + little_endian(36 + std::uint64_t{data}, 4) + "WAVEfmt " + number(16, 4) +
         number(1, 2) + number(channels, 2) + number(frequency, 4) + number(frequency * frame, 4) +
         number(frame, 2) + number(bits, 2) + "data" + little_endian(data, 4);
}

// The 128 bytes of a tag at the end of an mp3; fields are filled with `fill`.
inline std::string tag_block(const std::string& title, const std::string& artist,
                             const std::string& album, const std::string& comment,
                             char fill = '\0') {
  const auto field = [fill](std::string text, std::size_t width) {
    text.resize(width, fill);
    return text;
  };
  return "TAG" + field(title, 30) + field(artist, 30) + field(album, 30) + "1999" +
         field(comment, 30) + '\x0C';
}

}  // namespace ordelan::test
