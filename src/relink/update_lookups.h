// What the choice of a new path asks while projects are updated: the folders that the job has
// listed, and the searches of the program.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "location/update_search.h"
#include "relink/patch.h"
#include "work/context.h"
#include "work/job.h"

namespace ordelan::relink {

class UpdateLookups final : public Lookups {
 public:
  // The arguments must outlive this.
  UpdateLookups(const work::Context& context, work::Job& job, location::UpdateSearch& search)
      : context_(context), job_(job), search_(search) {}

  // The pair whose new path is asked for next, and the image that it stands in: a name with several
  // hits is asked about with the folder that its path had.
  void begin(FileImage& image, const Pointer& pair);

  bool exists(const std::string& path) override;
  bool stands(const std::string& path) override;
  void BuscarOtraLetra(const std::string& path) override;
  std::optional<std::string> search(const std::string& name) override;

 private:
  const work::Context& context_;
  work::Job& job_;
  location::UpdateSearch& search_;
  bool is_missing(std::string_view folder);

  std::map<std::string, bool, std::less<>> missing_;  // whether a folder is, by its path
  FileImage* image_ = nullptr;
  Pointer pair_;
};

}  // namespace ordelan::relink
