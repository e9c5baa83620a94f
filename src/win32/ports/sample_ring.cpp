#include "win32/ports/sample_ring.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace ordelan::win32 {
namespace {

// Decoders run ahead of what is heard by what the sound device keeps, a second or so.
constexpr double kSeconds = 4;

// A sample, at any address.
template <class Number>
Number read(const std::uint8_t* bytes) {
  Number number;
  std::memcpy(&number, bytes, sizeof number);
  return number;
}

double sample_at(const SampleFormat& format, const std::uint8_t* bytes) {
  if (format.fraction) return format.bits == 64 ? read<double>(bytes) : read<float>(bytes);
  switch (format.bits) {
    case 8:
      return (bytes[0] - 128) / 128.0;
    case 16:
      return read<std::int16_t>(bytes) / 32768.0;
    case 24:
      return static_cast<std::int32_t>(std::uint32_t{bytes[0]} << 8 |
                                       std::uint32_t{bytes[1]} << 16 |
                                       std::uint32_t{bytes[2]} << 24) /
             2147483648.0;
    default:
      return read<std::int32_t>(bytes) / 2147483648.0;
  }
}

}  // namespace

bool SampleFormat::valid() const {
  const bool known =
      fraction ? bits == 32 || bits == 64 : bits == 8 || bits == 16 || bits == 24 || bits == 32;
  return known && rate > 0 && rate <= 1'000'000 && channels > 0 && channels <= 64;
}

std::vector<float> mix(const SampleFormat& format, std::span<const std::uint8_t> bytes) {
  if (!format.valid()) return {};
  const auto channels = static_cast<std::size_t>(format.channels);
  const auto size = static_cast<std::size_t>(format.bits / 8);
  std::vector<float> mixed(bytes.size() / (channels * size));
  const std::uint8_t* at = bytes.data();
  for (float& moment : mixed) {
    double sum = 0;
    for (std::size_t channel = 0; channel < channels; ++channel, at += size) {
      sum += sample_at(format, at);
    }
    const double mean = sum / format.channels;
    moment = std::isfinite(mean) ? static_cast<float>(std::clamp(mean, -1.0, 1.0)) : 0.0F;
  }
  return mixed;
}

void SampleRing::start(int rate) {
  const std::scoped_lock lock(mutex_);
  rate_ = rate;
  begin_ = end_ = 0;
  ring_.assign(static_cast<std::size_t>(std::max(rate, 0) * kSeconds), 0.0F);
}

void SampleRing::clear() {
  const std::scoped_lock lock(mutex_);
  begin_ = end_ = 0;
}

std::optional<double> SampleRing::newest() const {
  const std::scoped_lock lock(mutex_);
  if (begin_ == end_) return std::nullopt;
  return static_cast<double>(end_) / rate_;
}

void SampleRing::add(double time, std::span<const float> samples) {
  const std::scoped_lock lock(mutex_);
  if (rate_ <= 0 || !std::isfinite(time) || samples.empty()) return;
  if (samples.size() > ring_.size()) {
    time += static_cast<double>(samples.size() - ring_.size()) / rate_;
    samples = samples.last(ring_.size());
  }
  const std::int64_t first = std::llround(time * rate_);
  // Times are rounded on their way: what is off by less than that follows.
  const std::int64_t rounding = rate_ / 100;
  if (begin_ == end_ || std::llabs(first - end_) > rounding) begin_ = end_ = first;
  const auto size = static_cast<std::int64_t>(ring_.size());
  for (const float sample : samples) {
    ring_[static_cast<std::size_t>((end_ % size + size) % size)] = sample;
    ++end_;
  }
  begin_ = std::max(begin_, end_ - size);
}

system::Heard SampleRing::before(double time, std::size_t most) const {
  const std::scoped_lock lock(mutex_);
  system::Heard heard;
  if (rate_ <= 0 || !std::isfinite(time)) return heard;
  const auto size = static_cast<std::int64_t>(ring_.size());
  const std::int64_t wanted = std::llround(time * rate_);
  // What is heard may be a little later than the newest that came; much later is another place.
  if (wanted > end_ + rate_ / 5) return heard;
  const std::int64_t last = std::min(wanted, end_);
  const std::int64_t first =
      std::max(begin_, last - static_cast<std::int64_t>(std::min(most, ring_.size())));
  if (first >= last) return heard;
  heard.rate = rate_;
  heard.samples.reserve(static_cast<std::size_t>(last - first));
  for (std::int64_t number = first; number < last; ++number) {
    heard.samples.push_back(ring_[static_cast<std::size_t>((number % size + size) % size)]);
  }
  return heard;
}

}  // namespace ordelan::win32
