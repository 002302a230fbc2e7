#pragma once

#include "platform/Cxx20.hpp"

namespace reference::docparser {

/// What became of a file or package entry that a retrieval considered. Each has exactly one fate.
enum class Fate {
    Used,            ///< read; its sections are in the result, and none was combined
    Overlay,         ///< read; at least one of its sections replaced one with the same key
    Merged,          ///< read; at least one of its sections was added to one with the same key
    SkippedLanguage, ///< not read: a translation into a language other than the current one
    SkippedName,     ///< not read: its name is not that of a product file
    Missing,         ///< there is no such file, or the process is not allowed to see it
    Unreadable,      ///< the file exists but cannot be opened or read completely
    NotRegular,      ///< the name belongs to a folder, pipe, socket or device
    Malformed, ///< read, but invalid JSON or not in the resource format; nothing of it is used
    OverLimit, ///< larger than platform::readLimits() allows
    Failed     ///< not the fault of the file: out of memory, or a host service failed
};

/// What a file was considered as.
enum class FileRole {
    Resources, ///< the full resources of one product
    Lookup,    ///< a lookup file, in a folder or in a package
    Package    ///< a zip package of lookup files
};

/// What became of one section of a file that was read.
enum class SectionFate {
    New,      ///< the first section with its key
    Overlay,  ///< a translation, placed on top of the section that had its key
    Merged,   ///< added to the section that had its key
    KeyTaken, ///< dropped: an earlier section of the same file has its key
    Unused    ///< dropped: the retrieval failed before the section was placed
};

/// What became of a record, or of all records of a name, when two sections were combined.
enum class RecordFate {
    AddedName,    ///< kept: the section on top has no record of the name
    AddedHref,    ///< kept: the section on top has the name, but no record of it with the href
    DroppedHref,  ///< dropped: the section on top has a record of the name with the href
    DroppedCount, ///< dropped: the section on top has at least as many records of the name
    Replaced      ///< dropped: the translation has records of the href
};

} // namespace reference::docparser
