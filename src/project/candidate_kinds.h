// The kinds of files that lie beside projects: audio, and the side files that the audio program
// keeps with it.
#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace ordelan::project {

// In the order in which each folder is searched: an audio pattern, followed by the two patterns of
// its side files, and then those that stand alone.
inline constexpr std::array<std::string_view, 20> kPatterns = {
    "*.wav", "*.h2",  "*.hdp", "*.mp3", "*.hm2", "*.hmp", "*.aif", "*.ha2", "*.hap", "*.ogg",
    "*.hg2", "*.hgp", "*.fla", "*.hf2", "*.hfp", "*.cue", "*.hz",  "*.wma", "*.m4a", "*.hs"};

// The index of the pattern that a file name fits; none for other files. No name fits two.
std::optional<std::size_t> kind_of(std::string_view name);

// Whether a file may be offered for removal: its last four characters are those of an audio
// extension. "flac" stands without a dot and ".fla" and "aiff" are missing, so that x.fla and
// x.aiff are never offered.
bool is_offered(std::string_view path);

}  // namespace ordelan::project
