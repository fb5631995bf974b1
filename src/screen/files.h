// platform: checked file calls. A file is complete or not there: it is written under a temporary name in the
// same directory and put in place by rename(2).
#pragma once

#include <cstdio>
#include <ctime>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kq {

struct FileCloser {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

bool exists(const std::string& path);
bool readable(const std::string& path);
// Whether both paths stand for one file, links followed: what replaces one would replace the other.
bool same_file(const std::string& a, const std::string& b);

// fopen; failure is fatal: "Problem in opening file %s".
File ffopen(const std::string& path, const char* mode);
// Nonzero without doing anything when the file does not exist, 0 when removed; failure is fatal.
int rremove(const std::string& path);
// Moves the file by a complete copy put in place by rename(2): the new file has the mode of a fresh file.
// A target that exists is fatal.
void rrename(const std::string& from, const std::string& to);

// Writes a whole new file safely: buffered, every write checked, flushed to disk, then renamed to `path`.
// Nothing is left behind when it is destroyed before commit() or when any step fails.
class NewFile {
public:
    explicit NewFile(const std::string& path); // temporary name beside it
    NewFile(std::string path, std::string temporary);
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    void write(std::string_view bytes);
    bool finish(); // everything flushed to disk and closed; false after any failure
    bool commit(); // finish, then rename to the path
    // What failed, with the path and the system's reason; empty while all is well.
    const std::string& error() const { return error_; }
    // Where the bytes are until commit().
    const std::string& temporary() const { return temporary_; }

private:
    std::string path_, temporary_, error_;
    std::string pending_;
    int fd_ = -1;
    long long written_ = 0, on_its_way_ = 0; // bytes: given to the system; told to go to the disk
    bool finished_ = false;
    void fail(std::string_view what);
    void flush();
    void write_through(std::string_view bytes);
};

// Writes a whole file (as NewFile does) where nothing speaks against it (cannot_write); empty on success,
// else what failed.
std::string write_file_safely(const std::string& path, std::string_view bytes);
// Writes a new file that need not outlive the program: nothing is flushed to disk, and a file that exists is
// refused. Empty on success, else what failed.
std::string write_scratch_file(const std::string& path, std::string_view bytes);
// Copies a regular file's bytes into `target` (as NewFile does); empty on success, else what failed.
std::string copy_file_safely(const std::string& from, const std::string& target);

// The directory part of a path, with its "/"; "./" for a mere name.
std::string directory_of(const std::string& path);

// Why a file of about `bytes` more bytes cannot be written into the directory; empty when nothing speaks
// against it (the directory exists, can be written, has room). With 0 bytes room does not matter.
std::string cannot_write(const std::string& directory, unsigned long long bytes);

// The names (without directory) of the entries of `directory` ending in `suffix`, in byte order; names that
// begin with "." are left out.
std::vector<std::string> read_name_file(const std::string& directory, std::string_view suffix);
int compte_nb_file(const std::string& directory, std::string_view suffix); // how many there are

// What went wrong with a file and the system's reason (errno), for a warning: "<what> <path> (<reason>)".
std::string file_problem(std::string_view what, std::string_view path, int error_number);

// The path cut at its first "." (of the whole path, directories included), with `extension` (".bak") added.
std::string with_extension(std::string_view path, std::string_view extension);

// "%s %d %s %d at %d hours %d": day name, day, month name, year, hour, minute of the local time.
std::string date();
// "%d %s %d at %d hours %d" of the file's last modification.
std::string date_fichier(const std::string& path);
// The clock's seam: tests set a fixed time; null = time().
void set_clock(std::time_t (*now)());
std::time_t current_time();

} // namespace kq
