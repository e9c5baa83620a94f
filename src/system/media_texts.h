// What the media engines of this program say and have in common, so that the windows find the same
// texts and numbers on every system.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace ordelan::system {

// What an engine asks about a file. Any of them may be missing. An engine may call them on a thread
// of its own, and on two at a time when a file is slow.
struct MediaFacts {
  // Seconds; 0 where the file has none.
  std::function<double(const std::string& path)> duration_of;
  // The title in the file's tag, or "".
  std::function<std::string(const std::string& path)> title_of;
  // The bit rate in thousands of bits a second, of a file that lasts so long; 0 where unknown.
  std::function<int(const std::string& path, double seconds)> kilobits_of;
};

// The engine's status texts.
std::string playing_text(int kilobits);  // "Reproduciendo: 192 K bits/s"
inline constexpr std::string_view kPausedText = "En pausa";
inline constexpr std::string_view kStoppedText = "Detenido";
inline constexpr std::string_view kOpeningText = "Abriendo";
inline constexpr std::string_view kReadyText = "Listo";

// The status text of a `Media::PlayState`; "" for those that our engines do not have.
std::string status_text(int state, int kilobits);

// A duration as "mm:ss", or "h:mm:ss" from an hour on, whole seconds only; "" if it is not above 0.
std::string duration_text(double seconds);

// The file name of a path without its extension. A name that is only an extension stays.
std::string title_of_path(std::string_view path);

// The volume, 0 to 100, as the system's graphs take it: hundredths of a decibel below full volume,
// 40 log10(volume / 100) dB, -100 dB for silence.
long gain_of(int volume);
// The balance, -100 (left) to 100 (right), likewise: how much quieter the other side is, its sign
// the balance's own.
long balance_gain_of(int balance);

// The value brought into 0 to 100, and into -100 to 100.
int volume_in_range(int volume);
int balance_in_range(int balance);

}  // namespace ordelan::system
