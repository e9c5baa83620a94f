// Another file system on which chosen calls fail, take their time or are the last ones before the
// program is killed; and which can lose what had not reached the disk by then.
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/faults.h"
#include "support/forwarding_files.h"
#include "text/code_page.h"

namespace ordelan::test {

// Every call is counted under its own path: that of an opened file for `read`, `write`, `flush` and
// `close`, the path that is written to for `replace`, `move` and `copy_new`. Must outlive the files
// that it has opened.
class FaultyFiles final : public ForwardingFiles {
 public:
  enum class Call {
    info,
    identity,
    each,
    open,
    read,
    create,
    create_new,
    write,
    flush,
    close,
    make_folder,
    set_attributes,
    replace,
    move,
    copy_new,
    flush_folder,
    flush_file,
    lock,
    remove
  };

  using ForwardingFiles::ForwardingFiles;

  Faults<Call> faults;
  // How many bytes a `write` that fails, or at which the program is killed, writes all the same.
  std::size_t room = 0;
  // Whether the kill takes along what was written to files and not flushed, as a power cut does.
  // Names (of new, moved and removed files) are taken to reach the disk at once, which is the worst
  // case for code that moves a file into place before its bytes are safe.
  bool loses_unflushed = false;
  // Whether it takes along also what became of names in folders that were not flushed since: new
  // files and folders are gone, moved ones have their old names, removed ones are back. The names
  // of one folder reach the disk in their order, as journaling file systems keep it, but flushing
  // one folder says nothing about another. A file that was emptied to be written anew has its old
  // bytes until it is flushed.
  bool loses_names = false;
  // With a number other than 0 only a part of all that is lost, chosen by that number: the disk may
  // have written the rest by itself.
  std::uint32_t luck = 0;
  // Called before each read with its offset. Gives how many bytes may come at most; nothing makes
  // the read fail.
  std::function<std::optional<std::size_t>(std::uint64_t)> on_read;

  std::optional<system::FileInfo> info(std::string_view path) override {
    return begin(Call::info, path) ? files().info(path) : std::nullopt;
  }
  std::optional<system::FileIdentity> identity(std::string_view path) override {
    return begin(Call::identity, path) ? files().identity(path) : std::nullopt;
  }
  system::Opened<system::InputFile> open(std::string_view path) override {
    if (const auto status = begin(Call::open, path); !status) return status;
    auto file = files().open(path);
    if (!file) return file;
    return std::make_unique<Input>(*this, path, std::move(file));
  }
  system::Opened<system::OutputFile> create(std::string_view path) override {
    if (const auto status = begin(Call::create, path); !status) return status;
    auto before = kept(path);
    return watched(path, files().create(path), std::move(before));
  }
  system::Opened<system::OutputFile> create_new(std::string_view path) override {
    if (const auto status = begin(Call::create_new, path); !status) return status;
    return watched(path, files().create_new(path), std::nullopt);
  }
  system::Status make_folder(std::string_view path) override {
    auto status = begin(Call::make_folder, path);
    if (status) status = files().make_folder(path);
    if (status) note({.path = std::string(path), .folder = true});
    return status;
  }
  system::Status set_attributes(std::string_view path, std::uint32_t attributes) override {
    const auto status = begin(Call::set_attributes, path);
    return status ? files().set_attributes(path, attributes) : status;
  }
  system::Status replace(std::string_view from, std::string_view to) override {
    auto status = begin(Call::replace, to);
    auto before = status ? kept(to) : std::nullopt;
    if (status) status = files().replace(from, to);
    if (status) renamed(from, to, std::move(before));
    return status;
  }
  system::Status move(std::string_view from, std::string_view to) override {
    auto status = begin(Call::move, to);
    if (status) status = files().move(from, to);
    if (status) renamed(from, to, std::nullopt);
    return status;
  }
  // A kill in its middle leaves a part of the copy, as a real one does.
  system::Status copy_new(std::string_view from, std::string_view to,
                          const Progress& progress) override {
    auto status = begin(Call::copy_new, to, [&] { leave_part(from, to); });
    if (status) status = files().copy_new(from, to, progress);
    if (status) note({.path = std::string(to)});
    return status;
  }
  system::Status flush_folder(std::string_view folder) override {
    auto status = begin(Call::flush_folder, folder);
    if (status) status = files().flush_folder(folder);
    if (status) {
      const std::string flushed = key(system::with_backslash(folder));
      std::erase_if(names_, [&](const Named& one) { return one.place() == flushed; });
    }
    return status;
  }
  system::Status flush_file(std::string_view path) override {
    auto status = begin(Call::flush_file, path);
    if (status) status = files().flush_file(path);
    if (status) {
      const auto file = unflushed_.find(key(path));
      if (file != unflushed_.end()) file->second.flushed = file->second.written;
    }
    return status;
  }
  system::Opened<system::FileLock> lock(std::string_view path) override {
    if (const auto status = begin(Call::lock, path); !status) return status;
    return files().lock(path);
  }
  system::Status remove(std::string_view path) override {
    auto status = begin(Call::remove, path);
    auto before = status ? kept(path) : std::nullopt;
    if (status) status = files().remove(path);
    if (status) unflushed_.erase(key(path));
    if (status) note({.path = std::string(path), .before = std::move(before), .removed = true});
    return status;
  }

 private:
  class Input final : public system::InputFile {
   public:
    Input(FaultyFiles& files, std::string_view path, std::unique_ptr<system::InputFile> file)
        : files_(files), path_(path), file_(std::move(file)) {}
    std::uint64_t size() const override { return file_->size(); }
    std::optional<std::size_t> read(std::uint64_t offset, std::span<std::uint8_t> buffer) override {
      if (!files_.begin(Call::read, path_)) return std::nullopt;
      const auto most = files_.on_read ? files_.on_read(offset) : buffer.size();
      if (!most) return std::nullopt;
      return file_->read(offset, buffer.first(std::min(buffer.size(), *most)));
    }

   private:
    FaultyFiles& files_;
    std::string path_;
    std::unique_ptr<system::InputFile> file_;
  };

  class Output final : public system::OutputFile {
   public:
    Output(FaultyFiles& files, std::string_view path, std::unique_ptr<system::OutputFile> file)
        : files_(files), path_(path), file_(std::move(file)) {
      files_.outputs_.push_back(this);
    }
    ~Output() override { std::erase(files_.outputs_, this); }
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    system::Status write(std::string_view bytes) override {
      const auto part = [&] { put(bytes.substr(0, files_.room)).ignore(); };
      const auto status = files_.begin(Call::write, path_, part);
      if (!failed_) return failed_;
      if (status) return failed_ = put(bytes);
      if (file_) part();
      return failed_ = status;
    }
    system::Status flush() override {
      auto status = files_.begin(Call::flush, path_);
      if (!failed_) return failed_;
      if (status) status = file_->flush();
      if (status) files_.flushed(path_);
      return failed_ = status;
    }
    system::Status close() override {
      const auto status = files_.begin(Call::close, path_);
      if (!file_) return status;
      const auto closed = file_->close();
      if (!failed_) return failed_;
      return status ? closed : status;
    }

    // The program is killed: the system closes its files.
    void drop() { file_.reset(); }

   private:
    system::Status put(std::string_view bytes) {
      const auto status = file_->write(bytes);
      if (status) files_.unflushed_[key(path_)].written += bytes.size();
      return status;
    }

    FaultyFiles& files_;
    std::string path_;
    std::unique_ptr<system::OutputFile> file_;
    system::Status failed_;  // every call after one that failed fails too
  };

  // How much of a file that this has written is on the disk for good.
  struct Unflushed {
    std::string path;
    std::uint64_t written = 0;
    std::uint64_t flushed = 0;
    std::optional<std::string> before = std::nullopt;  // the bytes of the file that it has emptied
  };

  // A change of a name that its folder's flush has not followed yet.
  struct Named {
    std::string path;                                  // a new name, or the one that was removed
    std::string from = {};                             // the name that it had before; empty if none
    std::optional<std::string> before = std::nullopt;  // what had the name before
    bool folder = false;
    bool removed = false;

    std::string place() const { return key(path.substr(0, path.rfind('\\') + 1)); }
  };

  static std::string key(std::string_view path) { return text::lower(path); }

  bool each_entry(std::string_view folder, system::Detail detail, const Visit& visit,
                  const VisitUnnamed& unnamed) override {
    return begin(Call::each, folder) && files().each(folder, detail, visit, unnamed);
  }

  system::Status begin(Call call, std::string_view path) {
    return begin(call, path, [] {});
  }
  template <class Part>
  system::Status begin(Call call, std::string_view path, Part part) {
    return faults.begin(call, path, [&] {
      part();
      for (Output* const output : outputs_) output->drop();
      if (loses_unflushed) lose();
    });
  }

  system::Opened<system::OutputFile> watched(std::string_view path,
                                             system::Opened<system::OutputFile> file,
                                             std::optional<std::string> before) {
    if (!file) return file;
    if (!before) note({.path = std::string(path)});
    unflushed_[key(path)] = {std::string(path), 0, 0, std::move(before)};
    return std::make_unique<Output>(*this, path, std::move(file));
  }

  void flushed(const std::string& path) {
    Unflushed& file = unflushed_[key(path)];
    file.flushed = file.written;
    file.before.reset();
  }

  void note(Named change) {
    if (loses_names) names_.push_back(std::move(change));
  }

  // The bytes of a file that is about to change, as far as they are on the disk; nothing where none
  // is, or where names are not lost anyway.
  std::optional<std::string> kept(std::string_view path) {
    if (!loses_names) return std::nullopt;
    const auto file = files().open(path);
    if (!file) return std::nullopt;
    const auto written = unflushed_.find(key(path));
    const auto size = written == unflushed_.end() ? file->size() : written->second.flushed;
    std::string bytes(static_cast<std::size_t>(size), '\0');
    file->read(0, {reinterpret_cast<std::uint8_t*>(bytes.data()), bytes.size()});
    return bytes;
  }

  void renamed(std::string_view from, std::string_view to, std::optional<std::string> before) {
    note({.path = std::string(to), .from = std::string(from), .before = std::move(before)});
    unflushed_.erase(key(to));
    auto moved = unflushed_.extract(key(from));
    if (moved.empty()) return;
    moved.key() = key(to);
    moved.mapped().path = to;
    unflushed_.insert(std::move(moved));
  }

  void lose() {
    for (const auto& [name, file] : unflushed_) {
      if (chance(2) != 0) continue;
      if (loses_names && file.before) {
        put_whole(file.path, *file.before);
      } else if (file.flushed < file.written) {
        rewrite(file.path, file.path, file.flushed);
      }
    }
    std::map<std::string, std::size_t> lost;  // of each folder, how many of its last changes
    for (const Named& change : names_) ++lost[change.place()];
    for (auto& [folder, count] : lost) count -= chance(count + 1);
    for (auto change = names_.rbegin(); change != names_.rend(); ++change) {
      std::size_t& left = lost[change->place()];
      if (left == 0) continue;
      --left;
      take_back(*change);
    }
  }

  void take_back(const Named& change) {
    if (!change.from.empty()) {
      files().move(change.path, change.from).ignore();
    } else if (change.folder) {
      remove_below(change.path);
    } else if (!change.removed) {
      remove_file(change.path);
    }
    if (change.before) put_whole(change.path, *change.before);
  }

  void remove_file(const std::string& path) {
    files().set_attributes(path, system::attribute::kArchive).ignore();
    files().remove(path).ignore();
  }

  // What stands below a folder whose name is lost: no path leads to it any more. The empty folder
  // stays, as the port removes none.
  void remove_below(const std::string& folder) {
    const auto entries = files().list(folder, system::Detail::names);
    if (!entries) return;
    for (const system::FileInfo& entry : *entries) {
      const std::string path = system::with_backslash(folder) + entry.name;
      if (entry.folder) {
        remove_below(path);
      } else {
        remove_file(path);
      }
    }
  }

  void put_whole(const std::string& path, const std::string& bytes) {
    if (const auto file = files().create(path)) file->write(bytes).ignore();
  }

  // A number below `bound`; always 0 without luck.
  std::uint32_t chance(std::size_t bound) {
    if (luck == 0) return 0;
    luck = luck * 1664525u + 1013904223u;
    if (luck == 0) luck = 1;
    return static_cast<std::uint32_t>((luck >> 8) % bound);
  }

  void leave_part(std::string_view from, std::string_view to) {
    if (files().info(to)) return;
    const auto original = files().info(from);
    if (original) rewrite(from, to, original->size / 2);
  }

  // Makes `to` hold the first bytes of `from` and no more.
  void rewrite(std::string_view from, std::string_view to, std::uint64_t size) {
    std::string bytes(static_cast<std::size_t>(size), '\0');
    if (const auto file = files().open(from)) {
      file->read(0, {reinterpret_cast<std::uint8_t*>(bytes.data()), bytes.size()});
    }
    if (const auto file = files().create(to)) file->write(bytes).ignore();
  }

  std::vector<Output*> outputs_;
  std::map<std::string, Unflushed> unflushed_;
  std::vector<Named> names_;  // in their order
};

}  // namespace ordelan::test
