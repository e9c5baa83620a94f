#include "audio/file_info.h"

#include <cstdint>
#include <optional>
#include <span>
#include <utility>

#include "audio/wav_format.h"

namespace ordelan::audio {
namespace {

// Up to `count` bytes of an open file; nothing where the reading failed.
std::optional<std::string> bytes_at(system::InputFile& file, std::uint64_t offset,
                                    std::size_t count) {
  std::string bytes(count, '\0');
  const auto came = file.read(offset, {reinterpret_cast<std::uint8_t*>(bytes.data()), count});
  if (!came) return std::nullopt;
  bytes.resize(*came);
  return bytes;
}

}  // namespace

FileInfo::FileInfo(system::FileSystem& files, system::EventPump& pump, SoundWindows windows)
    : files_(files), pump_(pump), windows_(std::move(windows)) {}

void FileInfo::InfoAudio(std::string_view Extension, const std::string& ArchivoActual) {
  // The path may be a row of a list that a handler changes while InfoWav pumps.
  const std::string path = ArchivoActual;
  TextoToolTip = "No tiene información";
  if (Extension == "wav") InfoWav(path);
  if (Extension == "mp3") InfoMp3(path);
}

void FileInfo::InfoWav(const std::string& Path) {
  if (!files_.look_up(Path)) return;
  auto file = files_.open(Path);
  if (!file) return;
  const auto first = bytes_at(*file, 0, kWavWindow);
  if (!first) return;
  // The scan takes less than a microsecond: one turn for the window is as good as one a byte, which
  // would only run the same events 255 times more slowly.
  pump_.pump();
  file.reset();

  const WavFormat format = wav_format(*first);
  const std::string text = wav_text(format);
  if (windows_.SA_visible() && format.bits == 32) windows_.hide_SA();
  TextoToolTip = text;
  warned_wav_ = text;
  if (windows_.Player_visible()) {
    warned_wav_ +=
        "\r\n Si el contador de tiempo no se mueve"
        "\r\n este audio, está ocupado por otra aplicación";
  }
}

void FileInfo::InfoMp3(const std::string& Path) {
  TagMp3 tag;
  LeerTagMp3(tag, Path, files_);
  TextoToolTip = mp3_text(tag);
}

void LeerTagMp3(TagMp3& Tag, const std::string& Path, system::FileSystem& files) {
  Tag = {};
  if (!files.look_up(Path)) return;
  const auto file = files.open(Path);
  if (!file || file->size() < kTagReach) return;
  const auto buffer = bytes_at(*file, file->size() - kTagReach, kTagBuffer);
  if (buffer) Tag = tag_in(*buffer);
}

}  // namespace ordelan::audio
