// platform: replaces a file whose last version becomes its backup, in the order that loses nothing.
#pragma once

#include <string>

namespace kq {

class NewFile;

// Keeps other programs from replacing files of a directory at the same time: they would write the same
// temporary files, or change what has just been read. The lock ends with the process, however that ends; a
// file system without locks does without.
class DirectoryLock {
public:
    explicit DirectoryLock(const std::string& directory);
    ~DirectoryLock();
    DirectoryLock(const DirectoryLock&) = delete;
    DirectoryLock& operator=(const DirectoryLock&) = delete;
    bool held() const { return held_; }
    // What to tell the user when another program holds it.
    static std::string refusal(const std::string& directory);

private:
    int fd_;
    bool held_;
};

// Why there is no hope of replacing `current` by `bytes` bytes and keeping it as `backup`; empty when nothing
// speaks against it.
std::string cannot_replace(const std::string& current, const std::string& backup, unsigned long long bytes);

// Puts `fresh`, into which everything has been written, in the place of `current`; the version that was there
// becomes `backup`. Empty on success, else what failed; then both are as they were.
//
// The new file and the new backup (under `backup_temporary`, a name in the backup's directory) are complete
// on disk before either is renamed into place, `current` first: at every instant at least one complete
// version is on disk under its own name. A backup that cannot be put in place goes back to where it was
// copied from. When there is no `current` any more there is nothing to back up, and an old backup stays.
std::string replace_file(NewFile& fresh, const std::string& current, const std::string& backup,
                         const std::string& backup_temporary);

} // namespace kq
