// Random studios whose projects mention files in ways that the reader of projects does not see:
// what a project names by its path stays, and what none names may go.
#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <iostream>
#include <map>
#include <string>
#include <vector>

#include "project/mention_agreement.h"
#include "project/project_mentions.h"
#include "support/hostile_bytes.h"
#include "test_disk.h"

namespace ordelan::test {
namespace {

using project::Mentioned;
using project::RowMention;

std::uint64_t number_in(const char* variable, std::uint64_t otherwise) {
  const char* const value = std::getenv(variable);
  return value == nullptr ? otherwise : std::strtoull(value, nullptr, 10);
}

constexpr std::array kMentionFolders = {"Mix\\",          "Mix\\Tomas\\",      "Mix\\FreezeData\\",
                                        "Mix\\Mix_BAK\\", "Mix\\Canci\xF3n\\", "Otra\\"};
constexpr std::array kMentionedNames = {"a.wav",       "toma.1.wav", "sordo.wma", "lista.m4a",
                                        "\xD1u.mp3",   "a (2).wav",  "a=b.flac",  "uno dos.aif",
                                        "\x80uro.ogg", "vocala.wav", "a.wav.wav", "voz_BAK.wav"};
constexpr std::array kMentioningProjects = {"tema.vip",   "tema_BAK.vip",  "tema.vip.bak",
                                            "Tema2.VIP",  "copia.vip_old", "p.q.vip",
                                            "oculto.vipx"};

// One random studio, what its projects mention and what therefore has to become of its files.
class MentionWorld {
 public:
  explicit MentionWorld(std::uint64_t seed) : dice_(seed) {
    for (const char* folder : kMentionFolders) disk_.make_folder(folder);
    for (auto count = 3 + dice_.below(10); count > 0; --count) add_file();
    for (auto count = dice_.below(5); count > 0; --count) add_project();
    if (dice_.below(25) == 0) {
      std::filesystem::create_directory_symlink(disk_.native_path("Otra"),
                                                disk_.native_path("Mix\\Enlace"));
      linked_ = true;
    }
  }

  // A difference between what is kept and what has to be; empty if there is none.
  std::string check(std::map<Mentioned, std::uint64_t>& counts) {
    project::ProjectMentions mentions(disk_.files());
    std::string complaint = compare(look(mentions), &counts);
    // A project more, one saved anew, a lost file that comes back; then the later look.
    if (dice_.below(2) == 0) add_project();
    if (dice_.below(2) == 0) add_file();
    if (complaint.empty()) complaint = compare(look(mentions), nullptr);
    return complaint;
  }

 private:
  enum class Kind { path, missing, bare };
  struct Reference {
    Kind kind;
    std::string name;  // folded
    std::string file;  // to which the path leads, below the disk's folder, or would lead
  };

  std::vector<RowMention> look(project::ProjectMentions& mentions) {
    std::vector<std::string> rows;
    for (const std::string& file : rows_) rows.push_back(disk_.path(file));
    return mentions.look(rows, {"D:\\Mix\\"}, {}, [] { return true; })
        .value_or(std::vector<RowMention>());
  }

  std::string compare(const std::vector<RowMention>& found,
                      std::map<Mentioned, std::uint64_t>* counts) const {
    if (found.size() != rows_.size()) return "no result";
    for (std::size_t i = 0; i < rows_.size(); ++i) {
      const Mentioned wanted = wanted_for(rows_[i]);
      if (counts != nullptr) ++(*counts)[found[i].mentioned];
      if (found[i].mentioned == wanted) continue;
      return rows_[i] + ": " + std::to_string(static_cast<int>(found[i].mentioned)) + ", not " +
             std::to_string(static_cast<int>(wanted)) + " " + found[i].project + description_;
    }
    return {};
  }

  Mentioned wanted_for(const std::string& row) const {
    if (linked_) return Mentioned::linked;
    const std::string name = text::lower(row.substr(row.rfind('\\') + 1));
    Mentioned wanted = Mentioned::no;
    for (const auto& [project, references] : references_) {
      for (const Reference& reference : references) {
        Mentioned one = Mentioned::no;
        const bool exists = files_.contains(reference.file);
        if (reference.kind == Kind::path && exists && reference.file == row) {
          one = Mentioned::by_path;
        } else if (reference.name == name && reference.kind == Kind::bare) {
          one = Mentioned::without_path;
        } else if (reference.name == name && !exists) {
          one = Mentioned::path_missing;
        }
        wanted = std::max(wanted, one);
      }
    }
    return wanted;
  }

  void add_file() {
    const std::string file = some_path();
    if (!files_.insert(file).second) return;
    disk_.write(file, "audio");
    if (file.starts_with("Mix\\")) rows_.push_back(file);
  }

  std::string some_path() {
    return std::string(kMentionFolders[dice_.below(kMentionFolders.size())]) +
           kMentionedNames[dice_.below(kMentionedNames.size())];
  }

  void add_project() {
    const std::string path = std::string(kMentionFolders[dice_.below(kMentionFolders.size() - 1)]) +
                             kMentioningProjects[dice_.below(kMentioningProjects.size())];
    std::string bytes;
    auto& references = references_[path];
    references.clear();
    for (auto count = dice_.below(5); count > 0; --count) {
      // Some noise that ends with what no path holds.
      for (auto noise = dice_.below(20); noise > 0; --noise) {
        bytes += static_cast<char>(dice_.below(256));
      }
      bytes += std::string(2, '\0');
      references.push_back(add_reference(bytes));
    }
    if (dice_.below(3) == 0) bytes += std::string("\0|xa.wav|a.wavx|a.wav.bak|take a.wav|", 38);
    disk_.write(path, bytes);
    description_ += "\n  " + path + ": " + bytes;
  }

  Reference add_reference(std::string& bytes) {
    Reference reference;
    reference.file = some_path();
    if (!files_.empty() && dice_.below(5) < 3) {
      auto file = files_.begin();
      std::advance(file, static_cast<std::ptrdiff_t>(dice_.below(files_.size())));
      reference.file = *file;
    }
    std::string name = reference.file.substr(reference.file.rfind('\\') + 1);
    reference.name = text::lower(name);
    std::string spelt = "D:\\" + reference.file;
    switch (dice_.below(8)) {
      case 0:
        reference.kind = Kind::bare;
        spelt = dice_.below(2) == 0 ? name : "Tomas\\" + name;
        break;
      case 1:
        reference.kind = Kind::missing;
        spelt = "E:\\Vieja\\" + name;
        reference.file = "";
        break;
      default:
        reference.kind = Kind::path;
        spelt = respelt(spelt);
    }
    switch (dice_.below(3)) {
      case 0:
        break;
      case 1:
        spelt = text::to_utf8(spelt);
        break;
      default:
        bytes += utf16_of(spelt) + std::string(2, '\0');
        return reference;
    }
    static constexpr std::array kAfter = {"", "\"", ")", ",", " x", "\x01"};
    if (dice_.below(4) == 0) {
      // A text with its length, and letters directly after it.
      bytes += static_cast<char>(static_cast<unsigned char>(spelt.size()));
      bytes += std::string(dice_.below(2) == 0 ? 1 : 3, '\0') + spelt + "xyz";
    } else {
      bytes += spelt + kAfter[dice_.below(kAfter.size())];
    }
    bytes += '\0';
    return reference;
  }

  std::string respelt(std::string path) {
    switch (dice_.below(5)) {
      case 0:
        return text::upper(path);
      case 1:
        for (char& c : path) c = c == '\\' ? '/' : c;
        return path;
      case 2:
        return path.insert(3, "\\");
      case 3:
        return path.insert(3, "Otra\\..\\");
      default:
        return path;
    }
  }

  Dice dice_;
  TestDisk disk_;
  std::set<std::string> files_;    // below the disk's folder
  std::vector<std::string> rows_;  // those of them that are to be removed
  std::map<std::string, std::vector<Reference>> references_;  // by project
  bool linked_ = false;
  std::string description_;
};

TEST(MentionWorlds, what_a_project_names_stays_and_what_none_names_may_go) {
  const auto worlds = number_in("ORDELAN_MENTION_WORLDS", 300);
  const auto first = number_in("ORDELAN_MENTION_SEED", 1);
  std::map<Mentioned, std::uint64_t> counts;
  for (std::uint64_t seed = first; seed < first + worlds; ++seed) {
    ASSERT_EQ(MentionWorld(seed).check(counts), "") << "seed " << seed;
  }
  std::cout << "  " << worlds << " studios; may go: " << counts[Mentioned::no] << "; kept: by path "
            << counts[Mentioned::by_path] << ", path leads nowhere "
            << counts[Mentioned::path_missing] << ", without path "
            << counts[Mentioned::without_path] << ", a link " << counts[Mentioned::linked] << "\n";
  if (worlds < 100) return;
  for (const Mentioned mentioned : {Mentioned::no, Mentioned::by_path, Mentioned::path_missing,
                                    Mentioned::without_path, Mentioned::linked}) {
    EXPECT_GE(counts[mentioned], worlds / 10) << static_cast<int>(mentioned);
  }
}

}  // namespace
}  // namespace ordelan::test
