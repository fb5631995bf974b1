// platform: reads a regular file line by line through one block of bounded size.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace kq {

// What tells one version of a file from another.
struct FileStamp {
    std::uint64_t device = 0, inode = 0, size = 0;
    std::int64_t seconds = 0, nanoseconds = 0; // of the last modification
    bool operator==(const FileStamp&) const = default;
};

class LineReader {
public:
    enum class Status {
        line,       // a line that ended with a line feed
        unfinished, // the end of the file came before a line feed; the line holds what there was
        too_long,   // the line holds its first `limit` characters; the rest is skipped by the next call
        end,
        failed, // error() says why
    };

    explicit LineReader(const std::string& path);
    ~LineReader();
    LineReader(const LineReader&) = delete;
    LineReader& operator=(const LineReader&) = delete;

    bool opened() const { return fd_ >= 0; }
    // Why the file could not be opened or read, as a sentence; empty while all is well.
    const std::string& error() const { return error_; }

    // The next line without its line feed, valid until the next call. `limit` is the longest line in
    // characters, line feed not counted, at most max_limit. Any byte may occur in a line.
    Status next(std::string_view& line, std::size_t limit);
    static constexpr std::size_t max_limit = 200000;

    // The file's stamp at the time of the call.
    FileStamp stamp() const;

private:
    static constexpr std::size_t block_size = std::size_t{1} << 20;

    int fd_ = -1;
    std::unique_ptr<char[]> block_;
    std::size_t begin_ = 0, end_ = 0; // what is in the block and not yet handed out
    bool at_end_ = false, skipping_ = false;
    std::string path_, error_;

    bool refill();
    bool skip_rest_of_line();
};

} // namespace kq
