// format: writes .ali files; the safe save and the rescue copy.
#include "core/ali_writer.h"

#include "core/store.h"
#include "screen/directories.h"
#include "screen/files.h"
#include "screen/strings.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace kq {

namespace {

constexpr std::string_view temporary_name = "KQ_SAUVE.TMP", backup_temporary_name = "KQ_BACKUP.TMP";

// The row as it is written: without trailing blanks.
std::string_view saved_text(int species)
{
    const auto text = row(species);
    std::size_t length = text.size();
    while (length && text[length - 1] == ' ')
        length--;
    return {text.data(), length};
}

bool is_saved(int species)
{
    return !destroy[static_cast<std::size_t>(species)];
}

std::string_view mask_mark(int species)
{
    return mask[static_cast<std::size_t>(species)] == -1 ? "#MASKED#" : "";
}

// Two programs that save into one directory at the same time would write the same temporary file. The lock
// ends with the process, however that ends; a file system without locks does without.
class DirectoryLock {
public:
    explicit DirectoryLock(const std::string& directory)
        : fd_(open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
    {
        held_ = fd_ < 0 || flock(fd_, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
    }
    ~DirectoryLock()
    {
        if (fd_ >= 0) close(fd_);
    }
    DirectoryLock(const DirectoryLock&) = delete;
    DirectoryLock& operator=(const DirectoryLock&) = delete;
    bool held() const { return held_; }

private:
    int fd_;
    bool held_;
};

std::string directory_of(const std::string& path)
{
    return path.substr(0, path.rfind('/') + 1);
}

unsigned long long size_of(const std::string& path)
{
    struct stat status {};
    return stat(path.c_str(), &status) == 0 ? static_cast<unsigned long long>(status.st_size) : 0;
}

// Why there is no hope of saving; empty when nothing speaks against it.
std::string foreseen_problem(const std::string& current, const std::string& backup)
{
    const auto copy = size_of(current);
    const bool one_directory = directory_of(backup) == dir_SEQ;
    std::string problem = cannot_write(dir_SEQ, ali_text_size() + (one_directory ? copy : 0));
    if (problem.empty() && !one_directory) problem = cannot_write(directory_of(backup), copy);
    return problem;
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

unsigned long long ali_text_size()
{
    unsigned long long size = std::string_view(molecule).size() + std::string_view(domaine).size() + 4;
    for (int i = 0; i < nb_spec; i++)
        if (is_saved(i)) size += identifier(i).size() + mask_mark(i).size() + saved_text(i).size() + 3;
    return size;
}

void write_ali_text(NewFile& file)
{
    file.write(text_format("#%s\n#%s\n", molecule, domaine));
    std::string line;
    for (int i = 0; i < nb_spec; i++) {
        if (!is_saved(i)) continue;
        line = '>';
        line += identifier(i);
        line += mask_mark(i);
        line += '\n';
        file.write(line);
        file.write(saved_text(i));
        file.write("\n");
    }
}

std::string save_ali()
{
    const std::string current = dir_SEQ + file_ALI, backup_path = with_extension(current, ".bak");
    const DirectoryLock lock(dir_SEQ);
    if (!lock.held()) return "Another program is saving in the directory " + dir_SEQ;
    if (auto problem = foreseen_problem(current, backup_path); !problem.empty()) return problem;

    NewFile fresh(current, dir_SEQ + std::string(temporary_name));
    write_ali_text(fresh);
    if (!fresh.finish()) return fresh.error();
    const File old{std::fopen(current.c_str(), "rbe")};
    if (!old) {
        if (errno != ENOENT) return file_problem("Problem in opening file", current, errno);
        // It has been taken away since it was loaded: there is nothing to back up, and the old backup stays.
        return fresh.commit() ? "" : fresh.error();
    }
    const std::string backup_temporary = directory_of(backup_path) + std::string(backup_temporary_name);
    NewFile backup(backup_path, backup_temporary);
    if (auto problem = fill_copy(backup, old, current); !problem.empty()) return problem;
    if (!fresh.commit()) return fresh.error();
    if (!backup.commit()) {
        std::rename(backup_temporary.c_str(), current.c_str());
        return backup.error();
    }
    return "";
}

std::string rescue_ali()
{
    if (modif != 0 || nb_spec == 0 || !ident) return "";
    const char* home = std::getenv("HOME");
    const std::string directories[] = {dir_SEQ, "./", home ? std::string(home) + "/" : ""};
    const std::string stem = file_ALI.ends_with(".ali") ? file_ALI.substr(0, file_ALI.size() - 4) : file_ALI;
    for (const auto& directory : directories) {
        if (directory.empty() || !cannot_write(directory, ali_text_size()).empty()) continue;
        std::string path = directory + stem + "_rescue.ali";
        for (int i = 2; exists(path); i++)
            path = directory + stem + text_format("_rescue%d.ali", i);
        NewFile file(path);
        write_ali_text(file);
        if (file.commit()) return path;
    }
    return "";
}

} // namespace kq
