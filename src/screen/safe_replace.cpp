// platform: replaces a file whose last version becomes its backup, in the order that loses nothing.
#include "screen/safe_replace.h"

#include "screen/files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <memory>

namespace kq {

namespace {

unsigned long long size_of(const std::string& path)
{
    struct stat status {};
    return stat(path.c_str(), &status) == 0 ? static_cast<unsigned long long>(status.st_size) : 0;
}

// Copies the open file `from` into `copy` and completes it; what failed, or "".
std::string fill_copy(NewFile& copy, const File& source, const std::string& from)
{
    static constexpr std::size_t block_size = std::size_t{1} << 18;
    const std::unique_ptr<char[]> block{new char[block_size]};
    std::setvbuf(source.get(), nullptr, _IONBF, 0);
    std::size_t count = 0;
    while ((count = std::fread(block.get(), 1, block_size, source.get())) > 0)
        copy.write({block.get(), count});
    if (std::ferror(source.get())) return file_problem("Problem in reading file", from, errno);
    return copy.finish() ? "" : copy.error();
}

} // namespace

DirectoryLock::DirectoryLock(const std::string& directory)
    : fd_(open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    held_ = fd_ < 0 || flock(fd_, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

DirectoryLock::~DirectoryLock()
{
    if (fd_ >= 0) close(fd_);
}

std::string DirectoryLock::refusal(const std::string& directory)
{
    return "Another program is saving in the directory " + directory;
}

std::string cannot_replace(const std::string& current, const std::string& backup, unsigned long long bytes)
{
    const auto copy = size_of(current);
    const std::string here = directory_of(current), there = directory_of(backup);
    std::string problem = cannot_write(here, bytes + (there == here ? copy : 0));
    if (problem.empty() && there != here) problem = cannot_write(there, copy);
    return problem;
}

std::string replace_file(NewFile& fresh, const std::string& current, const std::string& backup,
                         const std::string& backup_temporary)
{
    if (!fresh.finish()) return fresh.error();
    const File old{std::fopen(current.c_str(), "rbe")};
    if (!old) {
        if (errno != ENOENT) return file_problem("Problem in opening file", current, errno);
        return fresh.commit() ? "" : fresh.error();
    }
    NewFile copy(backup, backup_temporary);
    if (auto problem = fill_copy(copy, old, current); !problem.empty()) return problem;
    if (!fresh.commit()) return fresh.error();
    if (!copy.commit()) {
        std::rename(backup_temporary.c_str(), current.c_str());
        return copy.error();
    }
    return "";
}

} // namespace kq
