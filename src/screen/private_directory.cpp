// platform: a directory of this program's own, for files that outside programs read and write.
#include "screen/private_directory.h"

#include "screen/files.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
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

bool is_plain_name(std::string_view name)
{
    const auto is_plain = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
    };
    constexpr std::size_t longest = 200; // of the 255 characters that the name of a file may have
    if (name.empty() || name.size() > longest || name.front() == '.' || name.front() == '-' ||
        name.back() == '-')
        return false;
    return std::ranges::all_of(name, [&](char c) { return is_plain(c) || c == '.' || c == '-'; });
}

PrivateDirectory::PrivateDirectory()
    : removal_([this] {
        std::error_code ignored; // nothing could be done about it
        if (!path_.empty()) std::filesystem::remove_all(path_, ignored);
    })
{
    const char* const chosen = std::getenv("TMPDIR");
    for (const char* const parent : {chosen ? chosen : "", ".", "/tmp"})
        if (path_.empty() && *parent) path_ = make_below(parent);
    if (path_.empty())
        error_ = file_problem("No directory for temporary files can be made in", "/tmp", errno);
}

std::string PrivateDirectory::write(const std::string& name, std::string_view bytes) const
{
    return write_scratch_file(path_of(name), bytes);
}

} // namespace kq
