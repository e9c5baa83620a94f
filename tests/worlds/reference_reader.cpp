#include "worlds/reference_reader.h"

namespace ordelan::test::reference {
namespace {

// The byte at a 1-based position; past the end there is nothing but NULs.
char byte_at(const std::string& file, long position) {
  const auto index = static_cast<std::size_t>(position - 1);
  return position >= 1 && index < file.size() ? file[index] : '\0';
}

long length_of(const std::string& file) {
  return static_cast<long>(file.size());
}

// Five less than the position of the marker, or 0.
long marker_limit(const std::string& file, long from) {
  long p = from;
  while (p < length_of(file)) {
    if (byte_at(file, p) == 'L') {
      std::string text = "L";
      for (int i = 0; i < 3; ++i) text += byte_at(file, ++p);
      for (int i = 0; i < 4; ++i) ++p;
      for (int i = 0; i < 4; ++i) text += byte_at(file, ++p);
      if (text == "LISTmdrl") return p - 16;
    }
    ++p;
  }
  return 0;
}

void add_row(std::vector<std::string>& list, const std::string& text) {
  list.push_back(text.substr(0, text.find('\0')));
}

}  // namespace

bool Reader::ExtraerNombres_Archivos(const std::string& path, std::vector<std::string>& list,
                                     const std::string& title, bool add) {
  if (!contains(folded(path), ".vip") || disk_.look_up(path).empty()) return false;
  const std::string file = disk_.bytes(path);
  if (file.empty()) return false;
  for (long p = 97; p < length_of(file); ++p) {
    if (byte_at(file, p) != 0) continue;
    PosInicioVip = p + 1;
    break;
  }
  const long limit = marker_limit(file, PosInicioVip);
  if (!title.empty()) add_row(list, title);
  return scan(file, limit, list, add);
}

bool Reader::scan(const std::string& file, long limit, std::vector<std::string>& list, bool add) {
  bool result = false;
  long pos = PosInicioVip;
  long start = 0;
  char b = 0;
  for (;;) {
    if (pos >= limit || pos < 1) return result;
    b = byte_at(file, pos);

    bool reference = false;
    while (b != ':' && !reference) {
      b = byte_at(file, pos);
      if (b == ':') {
        b = byte_at(file, ++pos);
        if (b == '\\') {
          start = pos - 2;
          reference = true;
          continue;
        }
      }
      ++pos;
      if (pos > limit) return result;
    }

    b = byte_at(file, pos);
    bool hit = false;
    long last = 0;
    while (b != 0 && !hit) {
      b = byte_at(file, pos);
      if (b != '.') {
        ++pos;
        if (pos > limit) return result;
        continue;
      }
      std::string extension = ".";
      for (int i = 0; i < 3; ++i) {
        b = byte_at(file, ++pos);
        extension += b;
      }
      ++pos;
      extension = folded(extension);
      const bool four = extension == ".fla";
      hit = four || extension == ".mp3" || extension == ".wav" || extension == ".aif" ||
            extension == ".ogg";
      last = four ? pos : pos - 1;
      if (hit) continue;
      ++pos;
      if (pos > limit) return result;
    }

    if (hit) {
      if (start < 1) return result;
      if (!add) return true;
      const auto first = static_cast<std::size_t>(start - 1);
      add_row(list, file.substr(first, static_cast<std::size_t>(last - start + 1)));
      ++TotalArchivosVip;
      result = true;
    }
    ++pos;
    if (pos > limit) return result;
  }
}

}  // namespace ordelan::test::reference
