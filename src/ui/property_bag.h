// Properties of a control as text, so that the look of a window is data: one `name=value` a line.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "ui/geometry.h"

namespace ordelan::ui {

class Control;

class PropertyBag {
 public:
  // Reads the lines of a text. Empty lines and those that begin with `#` mean nothing, nor do lines
  // that are no `name=value`. Of several values of one name the last counts. Never fails.
  static PropertyBag parse(std::string_view text);

  // The value of that name; `fallback` where there is none, or none of that type. Names count by
  // their case.
  bool read(std::string_view name, bool fallback) const;
  std::int16_t read(std::string_view name, std::int16_t fallback) const;
  std::int32_t read(std::string_view name, std::int32_t fallback) const;
  Color read(std::string_view name, Color fallback) const;
  std::string read(std::string_view name, const std::string& fallback) const;
  // A literal would pass for a bool.
  std::string read(std::string_view name, const char* fallback) const {
    return read(name, std::string(fallback));
  }

  // Stores a value. One that equals its default is not stored, and takes the place of an older one
  // all the same. A name that no line could hold (empty, with `=` or a line break in it, with
  // blanks round it, beginning with `#` or `[`) is not stored.
  void write(std::string_view name, bool value, bool standard);
  void write(std::string_view name, std::int16_t value, std::int16_t standard);
  void write(std::string_view name, std::int32_t value, std::int32_t standard);
  void write(std::string_view name, Color value, Color standard);
  void write(std::string_view name, const std::string& value, const std::string& standard);
  void write(std::string_view name, const char* value, const char* standard) {
    write(name, std::string(value), std::string(standard));
  }

  bool empty() const { return values_.empty(); }
  bool has(std::string_view name) const { return values_.find(name) != values_.end(); }

  // The lines, in the order of their names. `parse` makes the same bag of them.
  std::string text() const;

  friend bool operator==(const PropertyBag&, const PropertyBag&) = default;

 private:
  friend class PropertyBags;
  // Takes what one line of a text says.
  void take_line(std::string_view line);
  void store(std::string_view name, std::string value, bool standard);
  const std::string* find(std::string_view name) const;

  std::map<std::string, std::string, std::less<>> values_;  // as they stand in the text
};

// The bags of many controls in one text: a line `[Window.Control]`, or `[Window.Control(2)]` for a
// member of a control array, and then the lines of its bag.
class PropertyBags {
 public:
  // Never fails. Lines before the first section, and those under a line that begins a section but
  // names none, mean nothing. Sections of one name are one.
  static PropertyBags parse(std::string_view text);

  // The bag of a control; an empty one where it has none. `index` as in Control.
  const PropertyBag& bag(std::string_view window, std::string_view control, int index = -1) const;
  const PropertyBag& bag(const Control& control) const;

  void set(std::string_view window, std::string_view control, int index, PropertyBag bag);

  std::string text() const;

 private:
  std::map<std::string, PropertyBag, std::less<>> bags_;  // by what stands between the brackets
};

}  // namespace ordelan::ui
