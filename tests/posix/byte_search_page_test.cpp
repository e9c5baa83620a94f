// Byte search at the very edge of memory: a read past the end would touch a page that may not be
// read.
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstring>

#include "text/byte_search.h"

namespace ordelan::test {
namespace {

// One readable page in front of one that cannot be accessed.
class LastPage {
 public:
  LastPage() : size_(static_cast<std::size_t>(::sysconf(_SC_PAGESIZE))) {
    void* pages =
        ::mmap(nullptr, 2 * size_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (pages == MAP_FAILED) return;
    begin_ = static_cast<std::uint8_t*>(pages);
    ready_ = ::mprotect(begin_ + size_, size_, PROT_NONE) == 0;
    std::memset(begin_, 'x', size_);
  }
  ~LastPage() {
    if (begin_ != nullptr) ::munmap(begin_, 2 * size_);
  }
  LastPage(const LastPage&) = delete;
  LastPage& operator=(const LastPage&) = delete;

  bool ready() const { return ready_; }
  std::uint8_t* end() const { return begin_ + size_; }

 private:
  std::size_t size_;
  std::uint8_t* begin_ = nullptr;
  bool ready_ = false;
};

TEST(ByteSearchAtTheEndOfMemory, the_page_after_the_data_really_cannot_be_read) {
  const LastPage page;
  ASSERT_TRUE(page.ready());
  const volatile std::uint8_t* after = page.end();
  EXPECT_DEATH(static_cast<void>(*after), "");
}

TEST(ByteSearchAtTheEndOfMemory, searches_for_bytes_read_nothing_after_the_end) {
  const LastPage page;
  ASSERT_TRUE(page.ready());
  for (std::ptrdiff_t length = 0; length <= 100; ++length) {
    const std::uint8_t* from = page.end() - length;
    EXPECT_EQ(text::find_byte(from, page.end(), ':'), page.end());
    EXPECT_EQ(text::find_either(from, page.end(), ':', 0), page.end());
  }
}

TEST(ByteSearchAtTheEndOfMemory, a_search_for_a_pair_reads_one_byte_at_the_end_and_no_more) {
  const LastPage page;
  ASSERT_TRUE(page.ready());
  for (std::ptrdiff_t length = 0; length <= 100; ++length) {
    for (const std::uint8_t last : {std::uint8_t{'x'}, std::uint8_t{':'}}) {
      std::uint8_t* end = page.end() - 1;  // leaves the one byte that may be read
      const std::uint8_t* from = end - length;
      if (length > 0) end[-1] = last;
      EXPECT_EQ(text::find_pair(from, end, ':', '\\', 0), end);
      end[-1] = 'x';
    }
  }
}

}  // namespace
}  // namespace ordelan::test
