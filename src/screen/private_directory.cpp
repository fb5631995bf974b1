// platform: a directory of this program's own, for files that outside programs read and write.
#include "screen/private_directory.h"

#include "screen/files.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace kq {

namespace {

// The path of a new directory below `parent`, or "" with errno set.
std::string make_below(const std::filesystem::path& parent)
{
    std::error_code failed;
    std::string path = std::filesystem::absolute(parent / "kq_XXXXXX", failed).lexically_normal().string();
    if (failed) {
        errno = failed.value();
        return "";
    }
    return mkdtemp(path.data()) ? path : "";
}

} // namespace

PrivateDirectory::PrivateDirectory()
    : removal_([this] {
        std::error_code ignored; // nothing could be done about it
        if (!path_.empty()) std::filesystem::remove_all(path_, ignored);
    })
{
    const char* const chosen = std::getenv("TMPDIR");
    if (chosen && *chosen) path_ = make_below(chosen);
    if (path_.empty()) path_ = make_below(".");
    if (path_.empty()) error_ = file_problem("No directory for temporary files can be made in", ".", errno);
}

std::string PrivateDirectory::write(const std::string& name, std::string_view bytes) const
{
    const std::string path = path_of(name);
    File file(std::fopen(path.c_str(), "wb"));
    const bool written = file && std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size() &&
                         std::fflush(file.get()) == 0;
    return written ? "" : file_problem("Problem in writing file", path, errno);
}

} // namespace kq
