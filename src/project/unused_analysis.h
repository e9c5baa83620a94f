// Works out which files of the projects' folders no project uses.
#pragma once

#include <string>
#include <vector>

#include "project/folder_tree.h"
#include "system/platform.h"
#include "work/status_strip.h"
#include "work/work_in_hand.h"
#include "work/work_lists.h"

namespace ordelan::project {

class UnusedAnalysis {
 public:
  // What is given must outlive the analysis.
  UnusedAnalysis(const system::Platform& platform, work::WorkInHand& work, work::WorkLists& lists,
                 work::StatusStrip& strip, FolderTree& tree)
      : platform_(platform), work_(work), lists_(lists), strip_(strip), tree_(tree) {}

  // List1 becomes every file of the twenty kinds in the folders of the listed projects and below:
  // folder by folder, within it pattern by pattern, and within that each folder ahead of its own
  // subfolders. A folder inside another project's folder is listed with both.
  void ListarArchivosCarpetas();

  // Strikes from List1 what ListUtilizados uses, moves what is left and is audio to ListBorrar
  // without repeats, and heads that list with the totals. Never offers a path that stands in
  // ListUtilizados. Does nothing where nothing is used. A cancel leaves ListBorrar empty: a list
  // that was only half worked out would offer used files.
  void BuscarNoUtilizados();

  // Whether two files are there with the same length and the same bytes.
  bool ComparaFiles(const std::string& Archivo1, const std::string& Archivo2);

  // Adds to `Lista` every file in `Ruta` and below that fits one of the twenty patterns: pattern by
  // pattern, each folder ahead of its own subfolders. The folders are walked once for all patterns.
  // False when it was stopped in the middle.
  bool BuscarArchivosAPI(const std::string& Ruta, std::vector<std::string>& Lista);

 private:
  bool exists(const std::string& path);
  void offer_unused(const std::vector<std::string>& used_rows, const std::vector<std::string>& left,
                    system::Pacer& pacer, work::JobNumber job);
  void offer_nothing();
  void head_unused(std::size_t found, std::size_t duplicates);

  const system::Platform& platform_;
  work::WorkInHand& work_;
  work::WorkLists& lists_;
  work::StatusStrip& strip_;
  FolderTree& tree_;
};

}  // namespace ordelan::project
