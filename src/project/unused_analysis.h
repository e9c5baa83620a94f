// Works out which files of the projects' folders no project uses.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "project/candidates.h"
#include "project/left_out.h"
#include "system/platform.h"
#include "work/job.h"
#include "work/status_strip.h"
#include "work/work_in_hand.h"
#include "work/work_lists.h"

namespace ordelan::project {

class UnusedAnalysis {
 public:
  // The arguments must outlive the analysis.
  UnusedAnalysis(const system::Platform& platform, work::WorkLists& lists, work::StatusStrip& strip,
                 LeftOut& left_out)
      : platform_(platform), lists_(lists), strip_(strip), left_out_(left_out) {}

  // Gives every file of the twenty kinds in the folders of the listed projects and below, and
  // empties List1, which is to hold what is left of them: folder by folder, within it pattern by
  // pattern, and within that each folder before its own subfolders. A folder inside another
  // project's folder is listed with both. Projects in those folders that are no rows of
  // ListProyectos are left out with their reason: what they use is looked for among files that may
  // be offered.
  Candidates ListarArchivosCarpetas(work::Job& job);

  // Strikes from the candidates what ListUtilizados uses, puts what is left into List1 and what of
  // it is audio into ListBorrar without repeats, and heads that list with the totals. Never offers
  // a file that a row of ListUtilizados, of ListVip or of `also_used` names, whatever the spelling.
  // Where nothing is used only List1 is filled. A cancel leaves ListBorrar empty: a list that was
  // only half worked out would offer used files.
  void BuscarNoUtilizados(work::Job& job, const Candidates& candidates,
                          const std::vector<std::string>& also_used = {});

  // Whether two files exist with the same length and the same bytes.
  bool ComparaFiles(const std::string& Archivo1, const std::string& Archivo2, work::Job& job);

  // Adds to `Lista` every file in `Ruta` and below that fits one of the twenty patterns: pattern by
  // pattern, each folder before its own subfolders. The folders are walked once for all patterns.
  // False when it was stopped in the middle.
  bool BuscarArchivosAPI(const std::string& Ruta, Candidates& Lista, work::Job& job);

 private:
  void note_projects_left_out(const std::vector<std::string>& projects, work::Job& job);
  bool is_listed_elsewhere(const std::string& path, const std::vector<std::string>& projects,
                           work::Job& job);
  bool exists(const std::string& path, const work::FolderTree& folders) const;
  // What a comparison of two files has given: `unread` where one of them could not be opened.
  enum class Likeness { equal, different, unread };
  Likeness compare(const std::string& a, const std::string& b, work::Job& job);
  bool equal(const std::string& used, const std::string& candidate, work::Job& job);
  void offer_unused(const std::vector<const std::vector<std::string>*>& used,
                    const Candidates& candidates, const std::vector<Candidates::File>& left,
                    work::Job& job);
  void offer_nothing();
  void head_unused(std::size_t found, std::size_t duplicates);

  const system::Platform& platform_;
  work::WorkLists& lists_;
  work::StatusStrip& strip_;
  LeftOut& left_out_;
  std::vector<system::FileIdentity> listed_;  // of the projects; empty until they are asked for
  std::set<std::string> searched_;            // the folders of this search, each with its backslash
};

}  // namespace ordelan::project
