// Another file system, of which chosen calls fail.
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

#include "system/file_system.h"

namespace ordelan::test {

class FailingFiles final : public system::FileSystem {
 public:
  explicit FailingFiles(system::FileSystem& files) : files_(files) {}

  enum class Step { create_new, write, close, replace };
  std::optional<Step> failing;  // which calls fail, after `passing` of them have gone well
  int passing = 0;
  std::size_t room = 0;  // how many bytes a failing `write` writes all the same
  // Called before each `create_new` with its path.
  std::function<void(std::string_view)> on_create_new;
  // Called before each `open`, `info` and `identity` with its path.
  std::function<void(std::string_view)> on_open;
  std::function<void(std::string_view)> on_info;
  std::function<void(std::string_view)> on_identity;
  // Called before each read with its offset. Gives how many bytes may come at most; nothing makes
  // the read fail.
  std::function<std::optional<std::size_t>(std::uint64_t)> on_read;

  std::optional<system::FileInfo> info(std::string_view path) override {
    if (on_info) on_info(path);
    return files_.info(path);
  }
  std::optional<system::FileIdentity> identity(std::string_view path) override {
    if (on_identity) on_identity(path);
    return files_.identity(path);
  }
  std::unique_ptr<system::InputFile> open(std::string_view path) override {
    if (on_open) on_open(path);
    auto file = files_.open(path);
    if (!file || !on_read) return file;
    return std::make_unique<Input>(*this, std::move(file));
  }
  std::unique_ptr<system::OutputFile> create(std::string_view path) override {
    return wrapped(files_.create(path));
  }
  std::unique_ptr<system::OutputFile> create_new(std::string_view path) override {
    if (on_create_new) on_create_new(path);
    return fails(Step::create_new) ? nullptr : wrapped(files_.create_new(path));
  }
  bool make_folder(std::string_view path) override { return files_.make_folder(path); }
  bool replace(std::string_view from, std::string_view to) override {
    return !fails(Step::replace) && files_.replace(from, to);
  }
  bool remove(std::string_view path) override { return files_.remove(path); }

 private:
  bool each_entry(std::string_view folder, system::Detail detail, const Visit& visit,
                  const VisitUnnamed& unnamed) override {
    return files_.each(folder, detail, visit, unnamed);
  }

  class Input final : public system::InputFile {
   public:
    Input(FailingFiles& files, std::unique_ptr<system::InputFile> file)
        : files_(files), file_(std::move(file)) {}
    std::uint64_t size() const override { return file_->size(); }
    std::optional<std::size_t> read(std::uint64_t offset, std::span<std::uint8_t> buffer) override {
      const auto most = files_.on_read(offset);
      if (!most) return std::nullopt;
      return file_->read(offset, buffer.first(std::min(buffer.size(), *most)));
    }

   private:
    FailingFiles& files_;
    std::unique_ptr<system::InputFile> file_;
  };

  class Output final : public system::OutputFile {
   public:
    Output(FailingFiles& files, std::unique_ptr<system::OutputFile> file)
        : files_(files), file_(std::move(file)) {}
    bool write(std::string_view bytes) override {
      if (!files_.fails(Step::write)) return file_->write(bytes);
      file_->write(bytes.substr(0, files_.room));
      return false;
    }
    bool close() override { return file_->close() && !files_.fails(Step::close); }

   private:
    FailingFiles& files_;
    std::unique_ptr<system::OutputFile> file_;
  };

  bool fails(Step step) { return failing == step && passing-- <= 0; }
  std::unique_ptr<system::OutputFile> wrapped(std::unique_ptr<system::OutputFile> file) {
    return file ? std::make_unique<Output>(*this, std::move(file)) : nullptr;
  }

  system::FileSystem& files_;
};

}  // namespace ordelan::test
