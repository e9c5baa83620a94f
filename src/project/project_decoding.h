// Decodes all listed projects into ListUtilizados.
#pragma once

#include <string>

#include "project/vip_reader.h"
#include "system/platform.h"
#include "work/status_strip.h"
#include "work/work_in_hand.h"
#include "work/work_lists.h"

namespace ordelan::project {

class ProjectDecoding {
 public:
  // What is given must outlive the decoding.
  ProjectDecoding(const system::Platform& platform, work::WorkInHand& work, work::WorkLists& lists,
                  work::StatusStrip& strip, VipReader& reader)
      : platform_(platform), work_(work), lists_(lists), strip_(strip), reader_(reader) {}

  // Adds to ListUtilizados, for each row of ListProyectos, a header row and the rows of its files,
  // strikes out repeated files, and heads the list with the totals. Without `with_backups`,
  // projects whose row holds "_BAK" are passed over. A cancel ends the decoding, and repeats are
  // struck out of what there is only when it was not cancelled.
  void DescodificarProyectos(bool with_backups);

 private:
  void decode_row(const std::string& row, bool with_backups);
  std::size_t strike_out_repeats();

  const system::Platform& platform_;
  work::WorkInHand& work_;
  work::WorkLists& lists_;
  work::StatusStrip& strip_;
  VipReader& reader_;
  std::size_t decoded_ = 0;
};

}  // namespace ordelan::project
