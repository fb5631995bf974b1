// platform: checked file calls and dates.
#include "screen/files.h"

#include "screen/process_end.h"
#include "screen/strings.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

namespace kq {

namespace {

constexpr std::size_t write_block = 1 << 20; // bytes gathered before they are written
constexpr long long write_behind = 16 << 20; // bytes that the disk may lag behind before it is told to begin

// The directory part of a path, with its "/"; "./" when there is none.
// A name that no listing shows and no other process uses.
std::string temporary_beside(const std::string& path)
{
    static int counter = 0;
    return directory_of(path) + text_format(".kq%ld_%d", static_cast<long>(getpid()), ++counter);
}

int open_again(const char* path, int flags, mode_t mode = 0)
{
    int fd = -1;
    do
        fd = open(path, flags | O_CLOEXEC, mode);
    while (fd < 0 && errno == EINTR);
    return fd;
}

// Makes a rename in this directory last; there is nothing to be done about a file system that cannot.
void flush_directory(const std::string& directory)
{
    const int fd = open_again(directory.c_str(), O_RDONLY | O_DIRECTORY);
    if (fd < 0) return;
    fsync(fd);
    close(fd);
}

} // namespace

std::string file_problem(std::string_view what, std::string_view path, int error_number)
{
    return std::string(what) + " " + std::string(path) + " (" + std::strerror(error_number) + ")";
}

bool exists(const std::string& path)
{
    return access(path.c_str(), F_OK) == 0;
}

bool readable(const std::string& path)
{
    return access(path.c_str(), R_OK) == 0;
}

bool same_file(const std::string& a, const std::string& b)
{
    std::error_code error;
    return a == b || std::filesystem::equivalent(a, b, error);
}

// ---- checked calls ----------------------------------------------------------------------------------------

File ffopen(const std::string& path, const char* mode)
{
    File file{std::fopen(path.c_str(), mode)};
    if (!file) erreur_fatale("Problem in opening file " + path);
    return file;
}

int rremove(const std::string& path)
{
    if (!exists(path)) return -1;
    if (std::remove(path.c_str()) != 0) erreur_fatale("Problem in deleting file " + path);
    return 0;
}

void rrename(const std::string& from, const std::string& to)
{
    if (exists(to))
        erreur_fatale("Problem in changing name from " + from + " to " + to + " (" + to + " already exists)");
    if (!readable(from)) erreur_fatale("Problem in opening file " + from);
    if (const std::string problem = copy_file_safely(from, to); !problem.empty()) erreur_fatale(problem);
    rremove(from);
}

// ---- new files --------------------------------------------------------------------------------------------

NewFile::NewFile(const std::string& path)
    : NewFile(path, temporary_beside(path))
{
}

NewFile::NewFile(std::string path, std::string temporary)
    : path_(std::move(path))
    , temporary_(std::move(temporary))
{
    // A write beyond the file-size limit is to fail like any other one, not to kill the program.
    [[maybe_unused]] static const auto ignored = std::signal(SIGXFSZ, SIG_IGN);
    // What an earlier run left under this name is replaced, never written through.
    unlink(temporary_.c_str());
    fd_ = open_again(temporary_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, 0666);
    if (fd_ < 0) fail("Problem in opening file");
}

NewFile::~NewFile()
{
    if (fd_ >= 0) close(fd_);
    if (!temporary_.empty()) unlink(temporary_.c_str());
}

void NewFile::fail(std::string_view what)
{
    if (error_.empty()) error_ = file_problem(what, path_, errno);
}

void NewFile::write(std::string_view bytes)
{
    if (!error_.empty()) return;
    if (pending_.empty() && bytes.size() >= write_block) return write_through(bytes);
    pending_ += bytes;
    if (pending_.size() >= write_block) flush();
}

void NewFile::flush()
{
    write_through(pending_);
    pending_.clear();
}

void NewFile::write_through(std::string_view bytes)
{
    while (error_.empty() && !bytes.empty()) {
        const ssize_t written = ::write(fd_, bytes.data(), bytes.size());
        if (written > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(written));
            written_ += written;
        } else if (written == 0 || errno != EINTR)
            fail("Problem in writing file");
    }
    // A large file sets out for the disk early, so that finish() has little to wait for. Errors show there.
    if (written_ - on_its_way_ < write_behind) return;
    sync_file_range(fd_, on_its_way_, written_ - on_its_way_, SYNC_FILE_RANGE_WRITE);
    on_its_way_ = written_;
}

bool NewFile::finish()
{
    if (finished_ || !error_.empty()) return error_.empty();
    flush();
    if (error_.empty() && fsync(fd_) != 0) fail("Problem in writing file");
    if (close(std::exchange(fd_, -1)) != 0) fail("Problem in closing file");
    finished_ = true;
    return error_.empty();
}

bool NewFile::commit()
{
    if (!finish()) return false;
    if (std::rename(temporary_.c_str(), path_.c_str()) != 0) {
        error_ = file_problem("Problem in changing name from " + temporary_ + " to", path_, errno);
        return false;
    }
    temporary_.clear();
    flush_directory(directory_of(path_));
    return true;
}

std::string write_file_safely(const std::string& path, std::string_view bytes)
{
    if (std::string problem = cannot_write(directory_of(path), bytes.size()); !problem.empty())
        return problem;
    NewFile file(path);
    file.write(bytes);
    file.commit();
    return file.error();
}

std::string write_scratch_file(const std::string& path, std::string_view bytes)
{
    File file{std::fopen(path.c_str(), "wxe")};
    if (!file) return file_problem("Problem in opening file", path, errno);
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size();
    if (std::fclose(file.release()) != 0 || !written)
        return file_problem("Problem in writing file", path, errno);
    return "";
}

std::string copy_file_safely(const std::string& from, const std::string& target)
{
    // Without O_NONBLOCK a pipe that carries the file's name would hold the program for ever.
    const int source = open_again(from.c_str(), O_RDONLY | O_NONBLOCK);
    if (source < 0) return file_problem("Problem in opening file", from, errno);
    struct stat status {};
    if (fstat(source, &status) != 0 || !S_ISREG(status.st_mode)) {
        close(source);
        return "Problem in opening file " + from + " (it is not a regular file)";
    }
    const auto size = static_cast<unsigned long long>(status.st_size);
    if (std::string refused = cannot_write(directory_of(target), size); !refused.empty()) {
        close(source);
        return refused;
    }
    NewFile copy(target);
    std::vector<char> block(write_block);
    std::string problem;
    while (copy.error().empty()) {
        const ssize_t count = read(source, block.data(), block.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) problem = file_problem("Problem in reading file", from, errno);
        if (count <= 0) break;
        copy.write({block.data(), static_cast<std::size_t>(count)});
    }
    close(source);
    if (problem.empty() && !copy.commit()) problem = copy.error();
    return problem;
}

// ---- directories and paths --------------------------------------------------------------------------------

std::string directory_of(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "./" : path.substr(0, slash + 1);
}

std::string cannot_write(const std::string& directory, unsigned long long bytes)
{
    if (access(directory.c_str(), W_OK | X_OK) != 0)
        return file_problem("It is not possible to write in the directory", directory, errno);
    if (bytes == 0) return ""; // deleting is what a full disk needs
    struct statvfs room {};
    // A file system that does not say how much room it has speaks against nothing.
    if (statvfs(directory.c_str(), &room) != 0 || room.f_blocks == 0) return "";
    const unsigned long long block = room.f_frsize ? room.f_frsize : 1;
    if (bytes / block >= room.f_bavail) return "There is not enough room in the directory " + directory;
    return "";
}

std::vector<std::string> read_name_file(const std::string& directory, std::string_view suffix)
{
    std::vector<std::string> names;
    const std::unique_ptr<DIR, int (*)(DIR*)> entries{opendir(directory.c_str()), closedir};
    if (!entries) return names;
    while (const dirent* entry = readdir(entries.get())) {
        const std::string_view name = entry->d_name;
        if (name.front() == '.' || !name.ends_with(suffix)) continue;
        struct stat status {};
        if (fstatat(dirfd(entries.get()), entry->d_name, &status, 0) == 0 && S_ISDIR(status.st_mode))
            continue;
        names.emplace_back(name);
    }
    // std::string compares its characters as unsigned bytes.
    std::sort(names.begin(), names.end());
    return names;
}

int compte_nb_file(const std::string& directory, std::string_view suffix)
{
    return static_cast<int>(read_name_file(directory, suffix).size());
}

std::string with_extension(std::string_view path, std::string_view extension)
{
    return std::string(path.substr(0, path.find('.'))) + std::string(extension);
}

// ---- dates ------------------------------------------------------------------------------------------------

namespace {

constexpr std::array<const char*, 12> month_names = {"January",   "February", "March",    "April",
                                                     "May",       "June",     "July",     "August",
                                                     "September", "October",  "November", "December"};
constexpr std::array<const char*, 7> day_names = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                  "Thursday", "Friday", "Saturday"};

std::time_t (*clock_now)() = nullptr;

// "%d %s %d at %d hours %d"
std::string date_text(const std::tm& when)
{
    return text_format("%d %s %d at %d hours %d", when.tm_mday,
                       month_names[static_cast<std::size_t>(when.tm_mon)], when.tm_year + 1900, when.tm_hour,
                       when.tm_min);
}

std::tm local_time(std::time_t time)
{
    std::tm when{};
    localtime_r(&time, &when);
    return when;
}

} // namespace

void set_clock(std::time_t (*now)())
{
    clock_now = now;
}

std::time_t current_time()
{
    return clock_now ? clock_now() : std::time(nullptr);
}

std::string date()
{
    const std::tm when = local_time(current_time());
    return std::string(day_names[static_cast<std::size_t>(when.tm_wday)]) + " " + date_text(when);
}

std::string date_fichier(const std::string& path)
{
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) return "";
    return date_text(local_time(status.st_mtime));
}

} // namespace kq
