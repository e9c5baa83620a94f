#include "relink/file_image.h"

#include <algorithm>
#include <span>

namespace ordelan::relink {

using system::Reason;
using system::Status;

FileImage::FileImage(system::InputFile* file)
    : file_(file), file_size_(file == nullptr ? 0 : file->size()), size_(file_size_) {}

void FileImage::read_page(std::uint64_t number, Page& page) {
  const std::uint64_t offset = number * kPage;
  if (offset >= file_size_) return;
  const auto wanted = static_cast<std::size_t>(std::min(kPage, file_size_ - offset));
  if (file_->read(offset, std::span(page.bytes).first(wanted)) != wanted) failed_ = true;
}

FileImage::Page& FileImage::page(std::uint64_t number) {
  if (last_ != nullptr && last_number_ == number) return *last_;
  std::unique_ptr<Page>& found = pages_[number];
  if (!found) {
    found = std::make_unique<Page>();
    read_page(number, *found);
  }
  last_ = found.get();
  last_number_ = number;
  return *found;
}

std::uint8_t FileImage::at(Position position) {
  const auto offset = static_cast<std::uint64_t>(position - 1);
  return offset < size_ ? page(offset / kPage).bytes[offset % kPage] : 0;
}

void FileImage::put(Position position, std::uint8_t byte) {
  const auto offset = static_cast<std::uint64_t>(position - 1);
  Page& target = page(offset / kPage);
  target.bytes[offset % kPage] = byte;
  target.changed = true;
  size_ = std::max(size_, offset + 1);
}

bool FileImage::differs() {
  if (size_ != file_size_) return true;
  for (const auto& [number, page] : pages_) {
    if (!page->changed) continue;
    Page original;
    read_page(number, original);
    if (original.bytes != page->bytes) return true;
  }
  return false;
}

std::string_view FileImage::bytes_of(std::uint64_t number, const Page& page) const {
  const auto count = static_cast<std::size_t>(std::min(kPage, size_ - number * kPage));
  return {reinterpret_cast<const char*>(page.bytes.data()), count};
}

Status FileImage::write_whole(const Write& write) {
  for (std::uint64_t number = 0; number * kPage < size_; ++number) {
    const auto known = pages_.find(number);
    Page fresh;
    if (known == pages_.end()) read_page(number, fresh);
    if (failed_) return Reason::other;
    const Page& page = known == pages_.end() ? fresh : *known->second;
    if (const Status wrote = write(bytes_of(number, page)); !wrote) return wrote;
  }
  return {};
}

Status FileImage::write_changes(const WriteAt& write) {
  if (failed_) return Reason::other;
  for (const auto& [number, page] : pages_) {
    if (!page->changed) continue;
    const Status wrote = write(number * kPage, bytes_of(number, *page));
    if (!wrote) return wrote;
  }
  return {};
}

}  // namespace ordelan::relink
