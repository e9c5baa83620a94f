// The block of text on one audio file: the technical data of a wav, the tag of an mp3. Its rules
// are short-sighted on purpose: people read these tooltips for years, and what they say of a file
// stays the same. `details.h` reads more, and more carefully.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "audio/mp3_tag.h"
#include "system/event_pump.h"
#include "system/file_system.h"

namespace ordelan::audio {

// What InfoWav asks and does about the windows of the sound. All three must be set.
struct SoundWindows {
  std::function<bool()> SA_visible;
  std::function<void()> hide_SA;
  std::function<bool()> Player_visible;
};

// One for the whole program: windows read and write `TextoToolTip`, the text about the file that
// was looked at last. What it is given must outlive it. Nothing here shows a message or throws by
// itself, and no file stays open.
class FileInfo {
 public:
  FileInfo(system::FileSystem& files, system::EventPump& pump, SoundWindows windows);

  std::string TextoToolTip;

  // The information on `ArchivoActual`, a full path. The extension decides what is read, and is
  // compared as it is: "WAV" gives "No tiene información", as do all types but "wav" and "mp3".
  void InfoAudio(std::string_view Extension, const std::string& ArchivoActual);

  // The format of a wav. TextoToolTip keeps what it had where the file is missing or cannot be
  // read. Hides SA, if it is visible, for a file of 32 bits: it must not run with the spectrum.
  // Pumps once while the file is open, so that any handler may run inside.
  void InfoWav(const std::string& Path);

  // The tag of an mp3; rows of dashes for what it lacks, and where there is no file.
  void InfoMp3(const std::string& Path);

  // The text of the last wav with the warning that is added to it while Player is visible. No
  // window shows it: the warning comes after the text has gone to TextoToolTip.
  const std::string& warned_wav() const { return warned_wav_; }

 private:
  system::FileSystem& files_;
  system::EventPump& pump_;
  SoundWindows windows_;
  std::string warned_wav_;
};

// Reads the tag of an mp3. `Tag` is blank where the file is missing, shorter than 257 bytes, cannot
// be read or has no tag. Other open files of the program stay open.
void LeerTagMp3(TagMp3& Tag, const std::string& Path, system::FileSystem& files);

}  // namespace ordelan::audio
