// A disk in memory, without folders, for what a real one cannot show: reads that fail at a byte,
// files that shrink while they are read.
#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "support/forwarding_files.h"

namespace ordelan::test {

class MemoryFiles final : public NoFiles {
 public:
  std::map<std::string, std::string, std::less<>> contents;
  // Called before each read with its offset; false makes the read fail.
  std::function<bool(std::uint64_t)> on_read;

  std::optional<system::FileInfo> info(std::string_view path) override {
    const auto found = contents.find(path);
    if (found == contents.end()) return std::nullopt;
    system::FileInfo info;
    info.name = found->first.substr(found->first.rfind('\\') + 1);
    info.size = found->second.size();
    return info;
  }

  system::Opened<system::InputFile> open(std::string_view path) override {
    const auto found = contents.find(path);
    if (found == contents.end()) return system::Reason::not_found;
    return std::make_unique<Input>(*this, found->second);
  }

  system::Status replace(std::string_view from, std::string_view to) override {
    const auto found = contents.find(from);
    if (found == contents.end()) return system::Reason::not_found;
    std::string bytes = std::move(found->second);
    contents.erase(found);
    contents[std::string(to)] = std::move(bytes);
    return {};
  }

  system::Status remove(std::string_view path) override {
    const auto found = contents.find(path);
    if (found == contents.end()) return system::Reason::not_found;
    contents.erase(found);
    return {};
  }

  system::Status flush_folder(std::string_view) override { return {}; }

  system::Opened<system::OutputFile> create(std::string_view path) override {
    if (path.find('>') != std::string_view::npos) return system::Reason::bad_path;
    std::string& content = contents[std::string(path)];
    content.clear();
    return std::make_unique<Output>(content);
  }

  system::Opened<system::OutputFile> create_new(std::string_view path) override {
    if (contents.contains(path)) return system::Reason::exists;
    return create(path);
  }

 private:
  class Input final : public system::InputFile {
   public:
    Input(MemoryFiles& files, const std::string& bytes)
        : files_(files), bytes_(bytes), size_(bytes.size()) {}
    std::uint64_t size() const override { return size_; }
    std::optional<std::size_t> read(std::uint64_t offset, std::span<std::uint8_t> buffer) override {
      if (files_.on_read && !files_.on_read(offset)) return std::nullopt;
      if (offset >= bytes_.size()) return 0;
      const auto from = static_cast<std::size_t>(offset);
      const std::size_t count = std::min(buffer.size(), bytes_.size() - from);
      std::copy_n(bytes_.begin() + static_cast<std::ptrdiff_t>(from), count, buffer.begin());
      return count;
    }

   private:
    MemoryFiles& files_;
    const std::string& bytes_;
    std::uint64_t size_;
  };

  class Output final : public system::OutputFile {
   public:
    explicit Output(std::string& content) : content_(content) {}
    system::Status write(std::string_view bytes) override {
      content_ += bytes;
      return {};
    }
    system::Status flush() override { return {}; }
    system::Status close() override { return {}; }

   private:
    std::string& content_;
  };
};

}  // namespace ordelan::test
