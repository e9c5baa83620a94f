// Decodes all listed projects into ListUtilizados.
#pragma once

#include <string>
#include <vector>

#include "project/left_out.h"
#include "project/vip_reader.h"
#include "system/platform.h"
#include "work/job.h"
#include "work/status_strip.h"
#include "work/work_in_hand.h"
#include "work/work_lists.h"

namespace ordelan::project {

class ProjectDecoding {
 public:
  // The arguments must outlive the decoding.
  ProjectDecoding(const system::Platform& platform, work::WorkInHand& work, work::WorkLists& lists,
                  work::StatusStrip& strip, VipReader& reader, LeftOut& left_out)
      : platform_(platform),
        work_(work),
        lists_(lists),
        strip_(strip),
        reader_(reader),
        left_out_(left_out) {}

  // Adds to ListUtilizados, for each row of ListProyectos, a header row and the rows of its files,
  // strikes out repeated files, and heads the list with the totals. Without `with_backups`,
  // projects whose row holds "_BAK" are passed over. A cancel ends the decoding, and repeats are
  // struck out of what there is only when it was not cancelled. Projects that were passed over, or
  // of which no audio was read, are left out with their reason.
  void DescodificarProyectos(work::Job& job, bool with_backups);

  // How many projects the last decoding has read audio from; 0 before the first.
  std::size_t decoded() const { return decoded_; }

  // Files that the listed projects use and that are no rows of ListUtilizados, because their
  // project was looked for under another path than its own. They are in use all the same.
  const std::vector<std::string>& also_used() const { return misread_; }

 private:
  void decode_row(work::Job& job, const std::string& row, bool with_backups);
  void note_read(const std::string& path);
  void read_misread(const std::string& path);
  std::size_t strike_out_repeats(work::Job& job);

  const system::Platform& platform_;
  work::WorkInHand& work_;
  work::WorkLists& lists_;
  work::StatusStrip& strip_;
  VipReader& reader_;
  LeftOut& left_out_;
  std::vector<std::string> misread_;
  std::size_t decoded_ = 0;
};

}  // namespace ordelan::project
