// What the media engines ask about a file, read from its header.
#pragma once

#include "system/file_system.h"
#include "system/media_texts.h"

namespace ordelan::audio {

// The facts of the files on that disk: the duration, the title in the tags, and the bit rate. That
// is the one that the header of a wav states, that of the frames of an mp3, or their mean where it
// says how many there are, and of all others the mean of their sound; of a file of an unknown kind
// the mean of all its bytes over the seconds that the engine says. A file is closed again before
// an answer is given.
//
// They may be asked on any thread and on several at a time, as long as `files` lives and, on Linux,
// no drive is mapped meanwhile: a file system looks at the disk anew in each call and keeps
// nothing. An engine that was ended may still have a thread in them where the disk is slow.
system::MediaFacts media_facts(system::FileSystem& files);

}  // namespace ordelan::audio
