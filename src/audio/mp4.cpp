// M4a files: boxes inside of boxes, with the one that describes the sound before or after it.
#include <algorithm>
#include <array>
#include <bit>

#include "audio/aac_config.h"
#include "audio/headers.h"
#include "audio/integers.h"

namespace ordelan::audio {
namespace {

struct Box {
  std::string name;
  std::uint64_t begin = 0;  // of its content
  std::uint64_t end = 0;
};

// Gives each box between two places to `visit`, until one is damaged.
template <class Visit>
void each_box(ByteSource& source, std::uint64_t at, std::uint64_t end, const Visit& visit) {
  end = std::min(end, source.size());
  while (at < end && end - at >= 8) {
    const std::string head = source.bytes(at, 16);
    if (head.size() < 8) return;
    std::uint64_t length = big_endian(head, 0, 4);
    std::uint64_t head_size = 8;
    if (length == 1) {
      length = big_endian(head, 8, 8);
      head_size = 16;
    } else if (length == 0) {
      length = end - at;  // up to the end of what holds it
    }
    if (length < head_size) return;
    length = std::min(length, end - at);
    if (length < head_size) return;
    visit(Box{head.substr(4, 4), at + head_size, at + length});
    at += length;
  }
}

// The first bytes of a box.
std::string content(ByteSource& source, const Box& box, std::size_t most) {
  return source.bytes(box.begin,
                      static_cast<std::size_t>(std::min<std::uint64_t>(box.end - box.begin, most)));
}

// Four bytes of a box.
std::string field(ByteSource& source, const Box& box, std::uint64_t at) {
  return box.end - box.begin < at + 4 ? "" : source.bytes(box.begin + at, 4);
}

// What is read of one track, and of the file as a whole.
struct Track {
  bool sound = false;
  bool picture = false;
  double seconds = -1;
  Detalles details;
};
struct File {
  bool described = false;  // a box "moov" was met
  bool picture = false;
  double seconds = -1;
  std::uint64_t bytes = 0;  // of all tracks
  std::optional<Track> track;
};

// The duration in a box "mvhd" or "mdhd", and the units a second that it is measured in.
struct Length {
  double units = -1;
  std::uint64_t unit = 0;
  double seconds() const { return unit > 0 ? units / static_cast<double>(unit) : -1; }
};
Length length_of(std::string_view header) {
  const bool wide = header.starts_with('\x01');
  const std::size_t at = wide ? 20 : 12;
  const std::uint64_t units = big_endian(header, at + 4, wide ? 8 : 4);
  const std::uint64_t unknown = wide ? ~std::uint64_t{0} : 0xFFFFFFFF;
  return {units == unknown ? -1 : static_cast<double>(units), big_endian(header, at, 4)};
}

// The bits of samples that are stored as they are, by the name of their kind and what their entry
// says; 0 for other kinds.
std::uint64_t stored_bits(std::string_view kind, std::uint64_t said) {
  static constexpr std::array<std::string_view, 5> kAsSaid = {"sowt", "twos", "raw ", "lpcm",
                                                              "ipcm"};
  if (kind == "in24") return 24;
  if (kind == "in32" || kind == "fl32") return 32;
  if (kind == "fl64") return 64;
  return std::find(kAsSaid.begin(), kAsSaid.end(), kind) != kAsSaid.end() ? said : 0;
}

// The description of the samples: the first entry of the box "stsd".
void read_sample_entry(ByteSource& source, const Box& stsd, Detalles& details) {
  each_box(source, stsd.begin + 8, stsd.end, [&](const Box& entry) {
    if (details.canales) return;
    const std::string fields = content(source, entry, 64);
    const std::uint64_t version = big_endian(fields, 8, 2);
    set(details.canales, big_endian(fields, 16, 2));
    set(details.frecuencia, big_endian(fields, 24, 2));
    set(details.bits, stored_bits(entry.name, big_endian(fields, 18, 2)));
    if (version == 2) {
      const double rate = std::bit_cast<double>(big_endian(fields, 32, 8));
      if (rate >= 1 && rate < 1e9) details.frecuencia = static_cast<std::int64_t>(rate);
      set(details.canales, big_endian(fields, 40, 4));
      if (details.bits) set(details.bits, big_endian(fields, 48, 4));
    }
    const std::uint64_t inside = entry.begin + (version == 0 ? 28u : version == 1 ? 44u : 64u);
    const auto read_inner = [&](const Box& box) {
      if (box.name == "alac" && entry.name == "alac") {
        const std::string cookie = content(source, box, 28);
        set(details.bits, big_endian(cookie, 9, 1));
        set(details.canales, big_endian(cookie, 13, 1));
        set(details.frecuencia, big_endian(cookie, 24, 4));
      } else if (box.name == "esds" && entry.name == "mp4a") {
        read_esds(content(source, box, 256), details);
      }
    };
    each_box(source, inside, entry.end, [&](const Box& box) {
      read_inner(box);
      if (box.name == "wave") each_box(source, box.begin, box.end, read_inner);
    });
  });
}

void read_media(ByteSource& source, const Box& mdia, Track& track) {
  Length length;
  each_box(source, mdia.begin, mdia.end, [&](const Box& box) {
    if (box.name == "mdhd") {
      length = length_of(content(source, box, 36));
    } else if (box.name == "hdlr") {
      const std::string kind = field(source, box, 8);
      track.sound = kind == "soun";
      track.picture = kind == "vide";
    } else if (box.name == "minf") {
      each_box(source, box.begin, box.end, [&](const Box& stbl) {
        if (stbl.name != "stbl") return;
        each_box(source, stbl.begin, stbl.end, [&](const Box& stsd) {
          if (stsd.name == "stsd") read_sample_entry(source, stsd, track.details);
        });
      });
    }
  });
  track.seconds = length.seconds();
  // Rates beyond 65535 do not fit into the entry; the unit of time is then the rate.
  if (!track.details.frecuencia) set(track.details.frecuencia, length.unit);
}

std::string_view tag_of(std::string_view item) {
  static constexpr std::array<std::array<std::string_view, 2>, 12> kNames = {{
      {"\xA9nam", "title"},
      {"\xA9"
       "ART",
       "artist"},
      {"aART", "album_artist"},
      {"\xA9"
       "alb",
       "album"},
      {"\xA9"
       "day",
       "date"},
      {"\xA9gen", "genre"},
      {"\xA9"
       "cmt",
       "comment"},
      {"\xA9wrt", "composer"},
      {"\xA9too", "encoder"},
      {"cprt", "copyright"},
      {"desc", "description"},
      {"\xA9grp", "grouping"},
  }};
  for (const auto& [theirs, name] : kNames) {
    if (item == theirs) return name;
  }
  return {};
}

// "3" or "3/12".
std::string place_of(std::string_view data) {
  const std::uint64_t number = big_endian(data, 2, 2);
  const std::uint64_t all = big_endian(data, 4, 2);
  if (number == 0) return {};
  return std::to_string(number) + (all > 0 ? "/" + std::to_string(all) : "");
}

// One item of the list of tags: its texts, and its name where it has one of its own.
void read_item(ByteSource& source, const Box& item, Etiquetas& tags) {
  std::string own_name;
  each_box(source, item.begin, item.end, [&](const Box& box) {
    if (box.name == "name" && item.name == "----") {
      const std::string bytes = content(source, box, 4 + 256);
      own_name = text_of(std::string_view(bytes).substr(std::min<std::size_t>(4, bytes.size())));
    }
    if (box.name != "data") return;
    const std::string bytes = content(source, box, 8 + kMostText);
    if (bytes.size() < 8) return;
    const std::uint64_t kind = big_endian(bytes, 1, 3);
    const std::string_view data = std::string_view(bytes).substr(8);
    if (item.name == "trkn" || item.name == "disk") {
      add_tag(tags, item.name == "trkn" ? "track" : "disc", place_of(data));
    } else if (item.name == "gnre") {
      const std::uint64_t number = big_endian(data, 0, 2);  // counted from 1
      if (number > 0) add_tag(tags, "genre", genre_name(number - 1));
    } else if (kind == 1 || kind == 2) {
      const std::string_view name = item.name == "----" ? own_name : tag_of(item.name);
      // Numbers for one player's own use.
      if (name.starts_with("iTun")) return;
      add_tag(tags, name, kind == 1 ? text_of(data) : text_of_utf16(data, true));
    }
  });
}

void read_tags(ByteSource& source, const Box& meta, Etiquetas& tags) {
  // Four bytes stand before the boxes, but in the files of one program.
  const bool bare = field(source, meta, 4) == "hdlr";
  each_box(source, meta.begin + (bare ? 0 : 4), meta.end, [&](const Box& ilst) {
    if (ilst.name != "ilst") return;
    each_box(source, ilst.begin, ilst.end, [&](const Box& item) { read_item(source, item, tags); });
  });
}

void read_movie(ByteSource& source, const Box& moov, File& file, Etiquetas& tags) {
  file.described = true;
  each_box(source, moov.begin, moov.end, [&](const Box& box) {
    if (box.name == "mvhd") {
      file.seconds = length_of(content(source, box, 36)).seconds();
    } else if (box.name == "trak") {
      Track track;
      each_box(source, box.begin, box.end, [&](const Box& mdia) {
        if (mdia.name == "mdia") read_media(source, mdia, track);
      });
      file.picture = file.picture || track.picture;
      if (track.sound && !file.track) file.track = track;
    } else if (box.name == "meta") {
      read_tags(source, box, tags);
    } else if (box.name == "udta") {
      each_box(source, box.begin, box.end, [&](const Box& meta) {
        if (meta.name == "meta") read_tags(source, meta, tags);
      });
    }
  });
}

}  // namespace

bool read_mp4(ByteSource& source, Detalles& details) {
  static constexpr std::array<std::string_view, 7> kFirst = {"ftyp", "moov", "mdat", "free",
                                                             "skip", "wide", "pnot"};
  const std::string head = source.bytes(0, 8);
  if (head.size() < 8 || std::find(kFirst.begin(), kFirst.end(), head.substr(4)) == kFirst.end()) {
    return false;
  }
  File file;
  Etiquetas tags;
  each_box(source, 0, source.size(), [&](const Box& box) {
    if (box.name == "mdat") file.bytes += box.end - box.begin;
    if (box.name == "moov" && !file.described) read_movie(source, box, file, tags);
  });
  if (!file.described && head.substr(4) != "ftyp") return false;
  if (file.track) details = file.track->details;
  details.etiquetas = std::move(tags);
  if (!file.track) return true;
  set_duration(details, file.track->seconds, 1);
  if (!file.picture) set_mean_rate(details, static_cast<double>(file.bytes));
  // The file as a whole leaves out what an encoder puts before and after the sound; where it has a
  // picture too it may be longer.
  if (!file.picture && file.seconds > 0) set_duration(details, file.seconds, 1);
  if (details.duracion == 0.0) details.duracion.reset();  // its parts come later in the file
  return true;
}

}  // namespace ordelan::audio
