// What a call to the machine that can fail gives back: that it went well, or why it did not.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>
#include <type_traits>
#include <utility>

namespace ordelan::system {

enum class Reason {
  ok,
  not_found,      // no such file, folder, drive or share
  exists,         // the name is taken
  not_a_file,     // a folder, a pipe or a device where a file was asked for
  bad_path,       // not absolute, or with characters that no name has
  in_use,         // another program has it open
  read_only,      // the file or its volume is marked as not to be written
  no_permission,  // the user may not
  no_space,       // the volume is full or takes no file of that size
  too_long,       // the path or the name has more characters than the call or the volume takes
  not_ready,      // the drive has no medium, or the share is out of reach
  not_supported,  // this system or this volume has no such thing
  cancelled,      // the user answered no, or the caller stopped it
  other,          // anything else, damaged media among it
};

// The reason as a word for reports and tests ("not_found"). A literal.
constexpr std::string_view name_of(Reason reason) {
  switch (reason) {
    case Reason::ok:
      return "ok";
    case Reason::not_found:
      return "not_found";
    case Reason::exists:
      return "exists";
    case Reason::not_a_file:
      return "not_a_file";
    case Reason::bad_path:
      return "bad_path";
    case Reason::in_use:
      return "in_use";
    case Reason::read_only:
      return "read_only";
    case Reason::no_permission:
      return "no_permission";
    case Reason::no_space:
      return "no_space";
    case Reason::too_long:
      return "too_long";
    case Reason::not_ready:
      return "not_ready";
    case Reason::not_supported:
      return "not_supported";
    case Reason::cancelled:
      return "cancelled";
    case Reason::other:
      return "other";
  }
  return "other";
}

// True in a condition if the call went well. A caller that has nothing to do with a failure says so
// with `ignore`.
class [[nodiscard]] Status {
 public:
  constexpr Status() = default;
  constexpr Status(Reason reason) : reason_(reason) {}  // NOLINT: a reason is a status

  constexpr Reason reason() const { return reason_; }
  constexpr bool ok() const { return reason_ == Reason::ok; }
  constexpr explicit operator bool() const { return ok(); }
  constexpr void ignore() const {}
  constexpr bool operator==(const Status&) const = default;

 private:
  Reason reason_ = Reason::ok;
};

// Writes the word of a reason to a stream.
template <class Stream>
Stream& operator<<(Stream& stream, Reason reason) {
  stream << name_of(reason);
  return stream;
}
template <class Stream>
Stream& operator<<(Stream& stream, Status status) {
  stream << name_of(status.reason());
  return stream;
}

// An opened file, owned, or why there is none. Used like the pointer that it holds.
template <class File>
class [[nodiscard]] Opened {
 public:
  Opened(Reason reason) : reason_(reason) {}           // NOLINT: a failure is given as its reason
  Opened(Status status) : reason_(status.reason()) {}  // NOLINT
  Opened(std::nullptr_t) : reason_(Reason::other) {}   // NOLINT
  template <class Made, class = std::enable_if_t<std::is_convertible_v<Made*, File*>>>
  Opened(std::unique_ptr<Made> file)  // NOLINT
      : file_(std::move(file)), reason_(file_ ? Reason::ok : Reason::other) {}

  Status status() const { return reason_; }
  explicit operator bool() const { return file_ != nullptr; }
  bool operator==(std::nullptr_t) const { return file_ == nullptr; }
  File* operator->() const { return file_.get(); }
  File& operator*() const { return *file_; }
  // Closes the file.
  void reset() { file_.reset(); }
  // Hands the file over; null where there is none.
  operator std::unique_ptr<File>() && { return std::move(file_); }  // NOLINT

 private:
  std::unique_ptr<File> file_;
  Reason reason_;
};

// A value, or why there is none. Used like the optional that it holds.
template <class Value>
class [[nodiscard]] Result {
 public:
  Result(Reason reason) : reason_(reason) {}                              // NOLINT
  Result(Value value) : value_(std::move(value)), reason_(Reason::ok) {}  // NOLINT

  Status status() const { return reason_; }
  explicit operator bool() const { return value_.has_value(); }
  const Value* operator->() const { return &*value_; }
  const Value& operator*() const { return *value_; }
  // The value, nothing in place of a failure.
  operator std::optional<Value>() const { return value_; }  // NOLINT

 private:
  std::optional<Value> value_;
  Reason reason_;
};

}  // namespace ordelan::system
