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
    return watched(path, files().create(path));
  }
  system::Opened<system::OutputFile> create_new(std::string_view path) override {
    if (const auto status = begin(Call::create_new, path); !status) return status;
    return watched(path, files().create_new(path));
  }
  system::Status make_folder(std::string_view path) override {
    const auto status = begin(Call::make_folder, path);
    return status ? files().make_folder(path) : status;
  }
  system::Status set_attributes(std::string_view path, std::uint32_t attributes) override {
    const auto status = begin(Call::set_attributes, path);
    return status ? files().set_attributes(path, attributes) : status;
  }
  system::Status replace(std::string_view from, std::string_view to) override {
    auto status = begin(Call::replace, to);
    if (status) status = files().replace(from, to);
    if (status) renamed(from, to);
    return status;
  }
  system::Status move(std::string_view from, std::string_view to) override {
    auto status = begin(Call::move, to);
    if (status) status = files().move(from, to);
    if (status) renamed(from, to);
    return status;
  }
  // A kill in its middle leaves a part of the copy, as a real one does.
  system::Status copy_new(std::string_view from, std::string_view to,
                          const Progress& progress) override {
    const auto status = begin(Call::copy_new, to, [&] { leave_part(from, to); });
    return status ? files().copy_new(from, to, progress) : status;
  }
  system::Status flush_folder(std::string_view folder) override {
    const auto status = begin(Call::flush_folder, folder);
    return status ? files().flush_folder(folder) : status;
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
    if (status) status = files().remove(path);
    if (status) unflushed_.erase(key(path));
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
      if (status) return put(bytes);
      if (file_) part();
      return status;
    }
    system::Status flush() override {
      auto status = files_.begin(Call::flush, path_);
      if (status) status = file_->flush();
      if (status) files_.flushed(path_);
      return status;
    }
    system::Status close() override {
      const auto status = files_.begin(Call::close, path_);
      if (!file_) return status;
      const auto closed = file_->close();
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
  };

  // How much of a file that this has written is on the disk for good.
  struct Unflushed {
    std::string path;
    std::uint64_t written = 0;
    std::uint64_t flushed = 0;
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
                                             system::Opened<system::OutputFile> file) {
    if (!file) return file;
    unflushed_[key(path)] = {std::string(path)};
    return std::make_unique<Output>(*this, path, std::move(file));
  }

  void flushed(const std::string& path) {
    Unflushed& file = unflushed_[key(path)];
    file.flushed = file.written;
  }

  void renamed(std::string_view from, std::string_view to) {
    unflushed_.erase(key(to));
    auto moved = unflushed_.extract(key(from));
    if (moved.empty()) return;
    moved.key() = key(to);
    moved.mapped().path = to;
    unflushed_.insert(std::move(moved));
  }

  void lose() {
    for (const auto& [name, file] : unflushed_) {
      if (file.flushed < file.written) rewrite(file.path, file.path, file.flushed);
    }
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
};

}  // namespace ordelan::test
