// Records what the machine plays, where its default recording device hears that: under Wine with a
// sink that plays into nothing, whose monitor it is (see scripts/wine).
#pragma once

#include <windows.h>

#include <mmsystem.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <stdexcept>
#include <vector>

namespace ordelan::test {

using Samples = std::vector<double>;  // -1 to 1

inline constexpr int kRecordedRate = 44100;

// The root of the mean square.
inline double level(const Samples& samples) {
  double sum = 0;
  for (const double sample : samples) sum += sample * sample;
  return samples.empty() ? 0 : std::sqrt(sum / static_cast<double>(samples.size()));
}

inline double decibels(double ratio) {
  return 20 * std::log10(ratio);
}

// The frequency of a tone, from its first to its last rise through zero; 0 without two of them.
inline double frequency(const Samples& samples) {
  double first = -1;
  double last = -1;
  int turns = 0;
  for (std::size_t i = 1; i < samples.size(); ++i) {
    if (!(samples[i - 1] < 0 && samples[i] >= 0)) continue;
    last = static_cast<double>(i) - samples[i] / (samples[i] - samples[i - 1]);
    if (first < 0) {
      first = last;
    } else {
      ++turns;
    }
  }
  return turns == 0 ? 0 : turns * kRecordedRate / (last - first);
}

// Records from its first moment on. Throws where nothing can be recorded.
class SoundRecorder {
 public:
  SoundRecorder() {
    WAVEFORMATEX format{};
    format.wFormatTag = WAVE_FORMAT_PCM;
    format.nChannels = 1;
    format.nSamplesPerSec = kRecordedRate;
    format.wBitsPerSample = 16;
    format.nBlockAlign = 2;
    format.nAvgBytesPerSec = kRecordedRate * 2;
    if (waveInOpen(&device_, WAVE_MAPPER, &format, 0, 0, CALLBACK_NULL) != MMSYSERR_NOERROR) {
      throw std::runtime_error("nothing can be recorded here");
    }
    for (Block& block : blocks_) {
      block.header.lpData = reinterpret_cast<LPSTR>(block.samples.data());
      block.header.dwBufferLength = static_cast<DWORD>(block.samples.size() * 2);
      waveInPrepareHeader(device_, &block.header, sizeof block.header);
      waveInAddBuffer(device_, &block.header, sizeof block.header);
    }
    waveInStart(device_);
  }
  ~SoundRecorder() {
    waveInReset(device_);
    for (Block& block : blocks_) waveInUnprepareHeader(device_, &block.header, sizeof block.header);
    waveInClose(device_);
  }
  SoundRecorder(const SoundRecorder&) = delete;
  SoundRecorder& operator=(const SoundRecorder&) = delete;

  // What was recorded between the last call and one after this time.
  Samples record(double seconds) {
    take();
    const std::size_t begun = heard_.size();
    while (heard_.size() < begun + static_cast<std::size_t>(seconds * kRecordedRate)) {
      Sleep(5);
      take();
    }
    return {heard_.begin() + static_cast<std::ptrdiff_t>(begun), heard_.end()};
  }
  // All since the start.
  const Samples& all() {
    take();
    return heard_;
  }

 private:
  struct Block {
    WAVEHDR header{};
    std::array<std::int16_t, 441> samples{};
  };

  void take() {
    while ((blocks_[next_].header.dwFlags & WHDR_DONE) != 0) {
      Block& block = blocks_[next_];
      for (DWORD i = 0; i < block.header.dwBytesRecorded / 2; ++i) {
        heard_.push_back(block.samples[i] / 32768.0);
      }
      block.header.dwFlags &= ~static_cast<DWORD>(WHDR_DONE);
      waveInAddBuffer(device_, &block.header, sizeof block.header);
      next_ = (next_ + 1) % blocks_.size();
    }
  }

  HWAVEIN device_ = nullptr;
  std::array<Block, 400> blocks_;
  std::size_t next_ = 0;
  Samples heard_;
};

}  // namespace ordelan::test
