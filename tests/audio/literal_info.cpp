#include "audio/literal_info.h"

#include <cstdint>

namespace ordelan::test {
namespace {

// Positions are 1-based; what lies beyond the end is 0.
std::int64_t file_byte(std::string_view file, std::int64_t position) {
  if (position < 1 || position > static_cast<std::int64_t>(file.size())) return 0;
  return static_cast<unsigned char>(file[static_cast<std::size_t>(position - 1)]);
}

std::int64_t integer(std::string_view file, std::int64_t position, int bytes) {
  if (position + bytes - 1 > static_cast<std::int64_t>(file.size())) return 0;
  std::int64_t value = 0;
  std::int64_t weight = 1;
  for (int i = 0; i < bytes; ++i) {
    value += file_byte(file, position + i) * weight;
    weight *= 256;
  }
  return value >= weight / 2 ? value - weight : value;
}

bool is_letter(char c, char small, char capital) {
  return c == small || c == capital;
}

// `count` characters from a 1-based position on, as far as they lie in the text.
std::string mid(const std::string& text, std::size_t position, std::size_t count) {
  std::string part;
  for (std::size_t i = position; i < position + count && i <= text.size(); ++i) part += text[i - 1];
  return part;
}

std::string without_end(std::string text) {
  std::string result;
  bool found = false;
  for (std::size_t i = text.size(); i >= 1; --i) {
    const char c = text[i - 1];
    if (c != ' ' && c != '\0') found = true;
    if (found) result.insert(result.begin(), c);
  }
  return result;
}

}  // namespace

std::string literal_wav(std::string_view file) {
  std::string collected;
  std::int64_t channels = 0;
  std::int64_t frequency = 0;
  std::int64_t bits = 0;
  std::int64_t i = 1;
  bool found = false;
  while (i < 256) {
    if (file_byte(file, i) == 'f') {
      collected += 'f';
      i = i + 1;
      collected += static_cast<char>(file_byte(file, i));
      i = i + 1;
      collected += static_cast<char>(file_byte(file, i));
      if (collected == "fmt") {
        found = true;
        break;
      }
    }
    i = i + 1;
  }
  if (found) {
    channels = integer(file, i + 8, 2);
    frequency = integer(file, i + 10, 4);
    bits = integer(file, i + 20, 2);
  }
  std::string text;
  text += " Tipo: Wav\r\n";
  text += " Canales: " + std::to_string(channels) + "\r\n";
  text += " Frec: " + std::to_string(frequency) + "\r\n";
  text += " Bits: " + std::to_string(bits) + "\r\n";
  if (bits == 24) text += " No se reproduce sin tener el codec";
  return text;
}

std::string literal_mp3(std::string_view file) {
  std::string title;
  std::string artist;
  std::string album;
  std::string comment;
  const std::int64_t begin = static_cast<std::int64_t>(file.size()) - 256;
  if (begin > 0) {
    std::string buffer;
    for (std::int64_t i = 0; i < 255; ++i) buffer += static_cast<char>(file_byte(file, begin + i));
    for (std::size_t p = 1; p + 2 <= buffer.size(); ++p) {
      if (!is_letter(buffer[p - 1], 't', 'T')) continue;
      if (!is_letter(buffer[p], 'a', 'A')) continue;
      if (!is_letter(buffer[p + 1], 'g', 'G')) continue;
      title = mid(buffer, p + 3, 30);
      artist = mid(buffer, p + 33, 30);
      album = mid(buffer, p + 63, 30);
      comment = mid(buffer, p + 97, 30);
      break;
    }
  }
  album = without_end(album);
  artist = without_end(artist);
  comment = without_end(comment);
  title = without_end(title);
  std::string text;
  if (album.empty()) {
    text += "Album: --------   \r\n";
  } else {
    text += "Album: " + album + "\r\n";
  }
  if (artist.empty()) {
    text += "Artista: --------   \r\n";
  } else {
    text += "Artista: " + artist + "\r\n";
  }
  if (comment.empty()) {
    text += "Comentarios: --------   \r\n";
  } else {
    text += "Comentarios: " + comment + "\r\n";
  }
  if (title.empty()) {
    text += "Título: --------";
  } else {
    text += "Título: " + title + "\r\n";
  }
  return text;
}

}  // namespace ordelan::test
