// platform: reads a regular file line by line through one block of bounded size.
#include "core/line_reader.h"

#include "screen/strings.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cassert>
#include <cerrno>
#include <cstring>

namespace kq {

LineReader::LineReader(const std::string& path)
    : path_(path)
{
    // Without O_NONBLOCK a pipe that carries the file's name would hold the program for ever.
    fd_ = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (fd_ < 0) {
        error_ = text_format("Problem in opening file %s (%s)", path.c_str(), std::strerror(errno));
        return;
    }
    struct stat status {};
    if (fstat(fd_, &status) != 0 || !S_ISREG(status.st_mode)) {
        error_ = text_format("Problem in opening file %s (it is not a regular file)", path.c_str());
        close(fd_);
        fd_ = -1;
        return;
    }
    posix_fadvise(fd_, 0, 0, POSIX_FADV_SEQUENTIAL);
    block_.reset(new char[block_size]);
}

LineReader::~LineReader()
{
    if (fd_ >= 0) close(fd_);
}

FileStamp LineReader::stamp() const
{
    struct stat status {};
    if (fd_ < 0 || fstat(fd_, &status) != 0) return {};
    return {status.st_dev, status.st_ino, static_cast<std::uint64_t>(status.st_size), status.st_mtim.tv_sec,
            status.st_mtim.tv_nsec};
}

// Moves what is left to the front of the block and reads behind it; false at the end of the file or after a
// failure.
bool LineReader::refill()
{
    if (at_end_ || !error_.empty()) return false;
    std::memmove(block_.get(), block_.get() + begin_, end_ - begin_);
    end_ -= begin_;
    begin_ = 0;
    ssize_t got = 0;
    do
        got = read(fd_, block_.get() + end_, block_size - end_);
    while (got < 0 && errno == EINTR);
    if (got < 0) error_ = text_format("Problem in reading file %s (%s)", path_.c_str(), std::strerror(errno));
    if (got == 0) at_end_ = true;
    if (got <= 0) return false;
    end_ += static_cast<std::size_t>(got);
    return true;
}

// False when the file has no more lines.
bool LineReader::skip_rest_of_line()
{
    skipping_ = false;
    for (;;) {
        const char* start = block_.get() + begin_;
        const void* feed = std::memchr(start, '\n', end_ - begin_);
        if (feed) {
            begin_ += static_cast<std::size_t>(static_cast<const char*>(feed) - start) + 1;
            return true;
        }
        begin_ = end_;
        if (!refill()) return false;
    }
}

LineReader::Status LineReader::next(std::string_view& line, std::size_t limit)
{
    static_assert(max_limit < block_size);
    assert(limit <= max_limit);
    line = {};
    if (!opened()) return Status::failed;
    if (skipping_ && !skip_rest_of_line()) return error_.empty() ? Status::end : Status::failed;

    std::size_t searched = 0;
    for (;;) {
        const char* start = block_.get() + begin_;
        const std::size_t available = end_ - begin_;
        const void* feed = std::memchr(start + searched, '\n', available - searched);
        if (feed) {
            const auto length = static_cast<std::size_t>(static_cast<const char*>(feed) - start);
            begin_ += length + 1;
            line = {start, std::min(length, limit)};
            return length > limit ? Status::too_long : Status::line;
        }
        searched = available;
        if (available > limit) {
            skipping_ = true;
            line = {start, limit};
            begin_ += limit;
            return Status::too_long;
        }
        if (!refill()) break;
    }
    if (!error_.empty()) return Status::failed;
    if (begin_ == end_) return Status::end;
    line = {block_.get() + begin_, end_ - begin_};
    begin_ = end_;
    return Status::unfinished;
}

} // namespace kq
