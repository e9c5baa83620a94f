// The gate of every project listing.
#pragma once

#include <optional>
#include <string>

#include "project/left_out.h"
#include "project/vip_reader.h"
#include "system/file_system.h"

namespace ordelan::project {

class ProjectGate {
 public:
  // Both must outlive the gate.
  ProjectGate(system::FileSystem& files, VipReader& reader) : files_(files), reader_(reader) {}

  // Whether a project is to be listed: it is there, is not in a folder of frozen tracks, and uses
  // at least one audio file.
  bool Valido(const std::string& Ruta);

  // Why the last project asked about was refused; nothing if it was not, or if the question was
  // broken off.
  std::optional<WhyOut> refusal() const { return refusal_; }

 private:
  system::FileSystem& files_;
  VipReader& reader_;
  std::optional<WhyOut> refusal_;
};

// Why a project of which no audio is known counts for nothing, judged by the reader's last look at
// it. Nothing if that look was broken off.
std::optional<WhyOut> why_without_audio(system::FileSystem& files, const VipReader& reader,
                                        const std::string& path);

}  // namespace ordelan::project
