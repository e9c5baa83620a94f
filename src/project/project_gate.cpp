#include "project/project_gate.h"

namespace ordelan::project {
namespace {

// Why the plain look-up finds no such file.
WhyOut why_absent(system::FileSystem& files, const std::string& path) {
  const auto there = files.info(path);
  return there && !there->folder ? WhyOut::hidden : WhyOut::gone;
}

}  // namespace

std::optional<WhyOut> why_without_audio(system::FileSystem& files, const VipReader& reader,
                                        const std::string& path) {
  switch (reader.last_reading()) {
    case Reading::whole:
      return WhyOut::no_audio;
    case Reading::no_project:
      return files.look_up(path) ? WhyOut::no_audio : why_absent(files, path);
    case Reading::locked:
      return WhyOut::unreadable;
    case Reading::broken:
      return WhyOut::broken;
    case Reading::stopped:
      return std::nullopt;
  }
  return std::nullopt;
}

bool ProjectGate::Valido(const std::string& Ruta) {
  refusal_.reset();
  if (Ruta.find("FreezeData") != std::string::npos) {
    refusal_ = WhyOut::frozen;
    return false;
  }
  const auto there = files_.look_up(Ruta);
  if (!there) {
    refusal_ = why_absent(files_, Ruta);
    return false;
  }
  // A name without a dot is no project's.
  if (there->name.find('.') == std::string::npos) {
    refusal_ = WhyOut::no_audio;
    return false;
  }
  if (reader_.ExtraerNombres_Archivos(Ruta, nowhere(), "", false)) return true;
  refusal_ = why_without_audio(files_, reader_, Ruta);
  return false;
}

}  // namespace ordelan::project
