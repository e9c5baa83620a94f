// Another file system on which chosen calls fail, take their time or are the last ones before the
// program is killed; and which can lose what had not reached the disk by then.
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/faults.h"
#include "support/forwarding_files.h"
#include "support/power_cut.h"

namespace ordelan::test {

// Every call is counted under its own path: that of an opened file for `read`, `write`, `flush` and
// `close`, the path that is written to for `replace`, `move` and `copy_new`. Must outlive the files
// that it has opened.
class FaultyFiles final : public ForwardingFiles, public PowerCut {
 public:
  enum class Call {
    info,
    identity,
    each,
    open,
    read,
    create,
    create_new,
    change,
    write,
    set_size,
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

  // `files` must outlive this.
  explicit FaultyFiles(system::FileSystem& files) : ForwardingFiles(files), PowerCut(files) {}

  Faults<Call> faults;
  // How many bytes a `write` that fails, or at which the program is killed, writes all the same.
  std::size_t room = 0;
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
  system::Opened<system::ChangeFile> change(std::string_view path) override {
    if (const auto status = begin(Call::change, path); !status) return status;
    auto file = files().change(path);
    if (!file) return file;
    return std::make_unique<Change>(*this, path, std::move(file));
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
  system::Status copy_new(std::string_view from, std::string_view to, const Progress& progress,
                          system::Flush flush = system::Flush::yes) override {
    auto status = begin(Call::copy_new, to, [&] { leave_part(from, to); });
    if (status) status = files().copy_new(from, to, progress, flush);
    if (status && flush == system::Flush::yes) note({.path = std::string(to)});
    if (status && flush == system::Flush::no) {
      created(to, std::nullopt);
      const auto made = files().info(to);
      appended(std::string(to), made ? static_cast<std::size_t>(made->size) : 0);
    }
    return status;
  }
  system::Status flush_folder(std::string_view folder) override {
    auto status = begin(Call::flush_folder, folder);
    if (status) status = files().flush_folder(folder);
    if (status) folder_flushed(folder);
    return status;
  }
  system::Status flush_file(std::string_view path) override {
    auto status = begin(Call::flush_file, path);
    if (status) status = files().flush_file(path);
    if (status) flushed(std::string(path));
    return status;
  }
  // Counted as the calls that it stands for, so that each of them can fail.
  system::Status flush_files(std::span<const std::string> paths,
                             const GoOn& go_on = nullptr) override {
    return FileSystem::flush_files(paths, go_on);
  }
  system::Opened<system::FileLock> lock(std::string_view path) override {
    if (const auto status = begin(Call::lock, path); !status) return status;
    return files().lock(path);
  }
  system::Status remove(std::string_view path) override {
    auto status = begin(Call::remove, path);
    auto before = status ? kept(path) : std::nullopt;
    if (status) status = files().remove(path);
    if (status) removed(path, std::move(before));
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

  // A file that is written to, of either kind.
  class Writing {
   public:
    virtual ~Writing() = default;
    // The program is killed: the system closes its files.
    virtual void drop() = 0;
  };

  template <class File>
  class Written : public File, public Writing {
   public:
    ~Written() override { std::erase(files_.writings_, this); }
    Written(const Written&) = delete;
    Written& operator=(const Written&) = delete;

    system::Status flush() final {
      auto status = files_.begin(Call::flush, path_);
      if (!failed_) return failed_;
      if (status) status = file_->flush();
      if (status) files_.flushed(path_);
      return failed_ = status;
    }
    system::Status close() final {
      const auto status = files_.begin(Call::close, path_);
      if (!file_) return failed_;
      const auto closed = file_->close();
      if (!failed_) return failed_;
      return status ? closed : status;
    }

   protected:
    Written(FaultyFiles& files, std::string_view path, std::unique_ptr<File> file)
        : files_(files), path_(path), file_(std::move(file)) {
      files_.writings_.push_back(this);
    }

    // Counts a call of `put`, which writes bytes. One that is to fail writes only those for which
    // there is room.
    template <class Put>
    system::Status attempt(std::string_view bytes, Put put) {
      const auto part = [&] {
        if (file_) put(bytes.substr(0, files_.room)).ignore();
      };
      const auto status = files_.begin(Call::write, path_, part);
      if (!failed_) return failed_;
      if (status) return failed_ = put(bytes);
      part();
      return failed_ = status;
    }

    FaultyFiles& files_;
    std::string path_;
    std::unique_ptr<File> file_;

   private:
    void drop() final {
      file_.reset();
      failed_ = system::Reason::other;
    }

    system::Status failed_;  // every call after one that failed fails too
  };

  class Output final : public Written<system::OutputFile> {
   public:
    Output(FaultyFiles& files, std::string_view path, std::unique_ptr<system::OutputFile> file)
        : Written(files, path, std::move(file)) {}

    system::Status write(std::string_view bytes) override {
      return attempt(bytes, [&](std::string_view some) {
        const auto status = file_->write(some);
        if (status) files_.appended(path_, some.size());
        return status;
      });
    }
  };

  class Change final : public Written<system::ChangeFile> {
   public:
    Change(FaultyFiles& files, std::string_view path, std::unique_ptr<system::ChangeFile> file)
        : Written(files, path, std::move(file)), names_(file_->names()) {}

    std::uint32_t names() const override { return names_; }
    system::Status write_at(std::uint64_t offset, std::string_view bytes) override {
      return attempt(bytes, [&](std::string_view some) {
        files_.changing(path_, offset, some);
        return file_->write_at(offset, some);
      });
    }
    system::Status set_size(std::uint64_t size) override {
      const auto status = files_.begin(Call::set_size, path_);
      return status ? file_->set_size(size) : status;
    }

   private:
    std::uint32_t names_;
  };

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
      for (Writing* const writing : writings_) writing->drop();
      lose();
    });
  }

  system::Opened<system::OutputFile> watched(std::string_view path,
                                             system::Opened<system::OutputFile> file,
                                             std::optional<std::string> before) {
    if (!file) return file;
    created(path, std::move(before));
    return std::make_unique<Output>(*this, path, std::move(file));
  }

  std::vector<Writing*> writings_;
};

}  // namespace ordelan::test
